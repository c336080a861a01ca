#include "VCardTable.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::contentsOf;

namespace {
CobbleTable tableOf(const QString &text)
{
    VCardTable cards;
    const QList<VCardLine> lines = VCardLine::linesOf(text);
    for (const VCardLine &each : lines)
        cards.add(each);
    return cards.table();
}

QString card(const QString &lines)
{
    return u"BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + u"END:VCARD\r\n";
}

/// The value of a column in the first row.
QString valueIn(const CobbleTable &table, const char16_t *title)
{
    return table.rows.value(0).value(table.titles.indexOf(QString::fromUtf16(title)));
}
} // namespace

TEST(VCardTable, CardsBecomeRows)
{
    const CobbleTable table =
        tableOf(card(u"FN:Ann\r\nTEL;TYPE=CELL:1\r\n"_s) + card(u"FN:Bob\r\nBDAY:19850412\r\n"_s));
    EXPECT_EQ(table.titles, QStringList({u"Name"_s, u"Mobile"_s, u"Birthday"_s}));
    EXPECT_EQ(table.typeNames, QStringList({u"text"_s, u"phone"_s, u""_s}));
    ASSERT_EQ(table.rows.size(), 2);
    EXPECT_EQ(table.rows[1], QStringList({u"Bob"_s, QString(), u"1985-04-12"_s}));
}

TEST(VCardTable, BirthdaysWithoutAYearAreNoNumbers)
{
    for (const QString &typed : {u"--0412"_s, u"--04-12"_s})
        EXPECT_EQ(valueIn(tableOf(card(u"BDAY:" + typed + u"\r\n")), u"Birthday"), u"--04-12"_s);
    for (const QString &typed : {u"-0412"_s, u"---12"_s, u"1985-04"_s, u"in spring"_s})
        EXPECT_EQ(valueIn(tableOf(card(u"BDAY:" + typed + u"\r\n")), u"Birthday"), typed);
}

TEST(VCardTable, NamesAddressesAndOrganizationsAreTakenApart)
{
    const CobbleTable table =
        tableOf(card(u"N:Public;John;Quinlan;Mr.;Esq.\r\nORG:ABC\\, Inc.;Sales\r\n"
                     "ADR;TYPE=WORK:;;123 Main Street;Any Town;CA;91921-1234;U.S.A.\r\n"
                     "ADR:PO 7;Suite 2;;;;;\r\nEMAIL:a@example.org\r\nEMAIL:b@example.org\r\n"
                     "TEL;VALUE=uri:tel:+1-418-555-0101\r\nTEL;WORK;FAX:2\r\n"_s));
    for (const auto &[title, value] :
         {std::pair(u"Last name", u"Public"), std::pair(u"First name", u"John"),
          std::pair(u"Middle name", u"Quinlan"), std::pair(u"Prefix", u"Mr."),
          std::pair(u"Suffix", u"Esq."), std::pair(u"Organization", u"ABC, Inc."),
          std::pair(u"Department", u"Sales"), std::pair(u"Street (work)", u"123 Main Street"),
          std::pair(u"City (work)", u"Any Town"), std::pair(u"Region (work)", u"CA"),
          std::pair(u"Postal code (work)", u"91921-1234"), std::pair(u"Country (work)", u"U.S.A."),
          std::pair(u"Post office box", u"PO 7"), std::pair(u"Address extension", u"Suite 2"),
          std::pair(u"E-mail", u"a@example.org"), std::pair(u"E-mail 2", u"b@example.org"),
          std::pair(u"Phone", u"+1-418-555-0101"), std::pair(u"Fax (work)", u"2")})
        EXPECT_EQ(valueIn(table, title), QString::fromUtf16(value))
            << QString::fromUtf16(title).toStdString();
}

TEST(VCardTable, PicturesInTheCardBecomeFiles)
{
    const CobbleTable table = tableOf(card(u"PHOTO;ENCODING=b;TYPE=PNG:UE5H\r\n"_s) +
                                      card(u"PHOTO:data:image/gif;base64,R0lG\r\n"_s) +
                                      card(u"PHOTO;VALUE=URI:http://example.org/p.jpg\r\n"_s));
    ASSERT_TRUE(table.files);
    EXPECT_TRUE(table.rows[0][0].endsWith(u"/Photo 1.png"));
    EXPECT_EQ(contentsOf(table.rows[0][0]), "PNG");
    EXPECT_TRUE(table.rows[1][0].endsWith(u"/Photo 2.gif"));
    EXPECT_EQ(contentsOf(table.rows[1][0]), "GIF");
    EXPECT_EQ(table.rows[2][0], u"http://example.org/p.jpg"_s);
}

TEST(VCardTable, WhatStandsOutsideOfCardsIsPassedOver)
{
    const CobbleTable table =
        tableOf(u"FN:no\r\n"_s + card(u"FN:Ann\r\n"_s) + u"FN:no\r\nBEGIN:VEVENT\r\nFN:no\r\n"_s);
    ASSERT_EQ(table.rows.size(), 1);
    EXPECT_EQ(table.rows[0], QStringList(u"Ann"_s));
    EXPECT_TRUE(tableOf(u"FN:no\r\n"_s).rows.isEmpty());
}

TEST(VCardTable, TooManyOfAKindShareAColumn)
{
    QString lines;
    for (int number = 0; number < 20000; ++number)
        lines += u"TEL:%1\r\n"_s.arg(number);
    const CobbleTable table = tableOf(card(lines));
    EXPECT_EQ(table.titles.size(), 20);
    EXPECT_EQ(table.rows[0].last().count(u'\n'), 20000 - 20);
}
