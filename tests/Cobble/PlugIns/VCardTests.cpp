// The importer of vCards: lines, tables, and the whole way through the plug-in.

#include "Cobble/Commands/CommandSupport.h"
#include "VCardTable.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
VCardLine line(const char16_t *text)
{
    return VCardLine::fromText(QString::fromUtf16(text)).value_or(VCardLine());
}

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

TEST(VCardLine, HeaderExample)
{
    const VCardLine read = line(u"TEL;TYPE=home,voice:555-0101");
    EXPECT_EQ(read.name, QStringLiteral("TEL"));
    EXPECT_TRUE(read.hasType(u"HOME"));
    EXPECT_TRUE(read.hasType(u"VOICE"));
    EXPECT_FALSE(read.hasType(u"CELL"));
    EXPECT_EQ(read.parts(), QStringList(QStringLiteral("555-0101")));
}

TEST(VCardLine, GroupsParametersAndQuotes)
{
    const VCardLine read = line(u"item1.email;TYPE=\"INTERNET,work\";X-A=\"a:b;c\":a@example.org");
    EXPECT_EQ(read.name, QStringLiteral("EMAIL"));
    EXPECT_TRUE(read.hasType(u"WORK"));
    EXPECT_EQ(read.parameter(u"X-A"), QStringLiteral("a:b;c"));
    EXPECT_EQ(read.text(), QStringLiteral("a@example.org"));
    EXPECT_TRUE(line(u"TEL;HOME;FAX:1").hasType(u"FAX"));
}

TEST(VCardLine, Escapes)
{
    EXPECT_EQ(line(u"N:M\\;ller;J\\,r\\\\gen;;").parts(),
              QStringList({QStringLiteral("M;ller"), QStringLiteral("J,r\\gen"), QStringLiteral(""),
                           QStringLiteral("")}));
    EXPECT_EQ(line(u"NOTE:a\\nb\\Nc; d\\").text(), QStringLiteral("a\nb\nc; d\\"));
}

TEST(VCardLine, FoldedLines)
{
    const QList<VCardLine> lines = VCardLine::linesOf(
        QStringLiteral("NOTE:one\r\n  two\r\n\tthree\nFN:x\rNICKNAME;QUOTED-PRINTABLE:a=\nb\n"));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].value, QStringLiteral("one twothree"));
    EXPECT_EQ(lines[1].value, QStringLiteral("x"));
    EXPECT_EQ(lines[2].value, QStringLiteral("ab"));
}

TEST(VCardLine, QuotedPrintable)
{
    EXPECT_EQ(line(u"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller=3B").value,
              QStringLiteral("Müller;"));
    EXPECT_EQ(line(u"N;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:M=FCller 100%").value,
              QStringLiteral("Müller 100%"));
    EXPECT_EQ(line(u"N;CHARSET=X-NONE;QUOTED-PRINTABLE:M=C3=BCller").value,
              QStringLiteral("Müller"));
}

// What looks at all of a value for each line that is put to it takes minutes, and so comes to the
// end of its time.
TEST(VCardLine, ManyFoldedLinesAreOneValue)
{
    constexpr int Count = 200'000;
    const QString printable =
        u"NOTE;ENCODING=QUOTED-PRINTABLE:=\n" + QStringLiteral("ab=\n").repeated(Count) + u"c\n";
    EXPECT_EQ(VCardLine::linesOf(printable).first().value,
              QStringLiteral("ab").repeated(Count) + u'c');
    // Each of them could be the end of a name that asks for the same.
    const QString nameless = u"NOTE\n" + QStringLiteral(" =\n").repeated(Count);
    EXPECT_TRUE(VCardLine::linesOf(nameless).isEmpty());
}

TEST(VCardLine, LinesThatAreNone)
{
    for (const char16_t *text : {u"", u":", u"no colon", u";:"})
        EXPECT_TRUE(line(text).name.isEmpty()) << QString::fromUtf16(text).toStdString();
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_GE(VCardLine::linesOf(text).size(), 0);
}

TEST(VCardTable, CardsBecomeRows)
{
    const CobbleTable table = tableOf(card(QStringLiteral("FN:Ann\r\nTEL;TYPE=CELL:1\r\n")) +
                                      card(QStringLiteral("FN:Bob\r\nBDAY:19850412\r\n")));
    EXPECT_EQ(table.titles, QStringList({QStringLiteral("Name"), QStringLiteral("Mobile"),
                                         QStringLiteral("Birthday")}));
    EXPECT_EQ(table.typeNames,
              QStringList({QStringLiteral("text"), QStringLiteral("phone"), QStringLiteral("")}));
    ASSERT_EQ(table.rows.size(), 2);
    EXPECT_EQ(table.rows[1],
              QStringList({QStringLiteral("Bob"), QString(), QStringLiteral("1985-04-12")}));
}

TEST(VCardTable, BirthdaysWithoutAYearAreNoNumbers)
{
    for (const QString &typed : {QStringLiteral("--0412"), QStringLiteral("--04-12")})
        EXPECT_EQ(valueIn(tableOf(card(u"BDAY:" + typed + u"\r\n")), u"Birthday"),
                  QStringLiteral("--04-12"));
    for (const QString &typed : {QStringLiteral("-0412"), QStringLiteral("---12"),
                                 QStringLiteral("1985-04"), QStringLiteral("in spring")})
        EXPECT_EQ(valueIn(tableOf(card(u"BDAY:" + typed + u"\r\n")), u"Birthday"), typed);
}

TEST(VCardTable, NamesAddressesAndOrganizations)
{
    const CobbleTable table = tableOf(card(
        QStringLiteral("N:Public;John;Quinlan;Mr.;Esq.\r\nORG:ABC\\, Inc.;Sales\r\n"
                       "ADR;TYPE=WORK:;;123 Main Street;Any Town;CA;91921-1234;U.S.A.\r\n"
                       "ADR:PO 7;Suite 2;;;;;\r\nEMAIL:a@example.org\r\nEMAIL:b@example.org\r\n"
                       "TEL;VALUE=uri:tel:+1-418-555-0101\r\nTEL;WORK;FAX:2\r\n")));
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
    const CobbleTable table =
        tableOf(card(QStringLiteral("PHOTO;ENCODING=b;TYPE=PNG:UE5H\r\n")) +
                card(QStringLiteral("PHOTO:data:image/gif;base64,R0lG\r\n")) +
                card(QStringLiteral("PHOTO;VALUE=URI:http://example.org/p.jpg\r\n")));
    ASSERT_TRUE(table.files);
    EXPECT_TRUE(table.rows[0][0].endsWith(u"/Photo 1.png"));
    EXPECT_EQ(contentsOf(table.rows[0][0]), "PNG");
    EXPECT_TRUE(table.rows[1][0].endsWith(u"/Photo 2.gif"));
    EXPECT_EQ(contentsOf(table.rows[1][0]), "GIF");
    EXPECT_EQ(table.rows[2][0], QStringLiteral("http://example.org/p.jpg"));
}

TEST(VCardTable, WhatStandsOutsideOfCardsIsPassedOver)
{
    const CobbleTable table =
        tableOf(QStringLiteral("FN:no\r\n") + card(QStringLiteral("FN:Ann\r\n")) +
                QStringLiteral("FN:no\r\nBEGIN:VEVENT\r\nFN:no\r\n"));
    ASSERT_EQ(table.rows.size(), 1);
    EXPECT_EQ(table.rows[0], QStringList(QStringLiteral("Ann")));
    EXPECT_TRUE(tableOf(QStringLiteral("FN:no\r\n")).rows.isEmpty());
}

TEST(VCardTable, TooManyOfAKindShareAColumn)
{
    QString lines;
    for (int number = 0; number < 20000; ++number)
        lines += QStringLiteral("TEL:%1\r\n").arg(number);
    const CobbleTable table = tableOf(card(lines));
    EXPECT_EQ(table.titles.size(), 20);
    EXPECT_EQ(table.rows[0].last().count(u'\n'), 20000 - 20);
}

TEST(VCardImporter, ImportsThroughThePlugIn)
{
    testing_support::needApplication();
    testing_support::useFreshHome();
    const FileTree tree;
    const QString bundle = tree.path(QStringLiteral("b.cobbledb"));
    tree.add(QStringLiteral("People.VCF"),
             card(QStringLiteral("FN:Ann, \"the\" one\r\nTEL:030 1234567\r\n"
                                 "ADR:;;;;;01067;\r\nPHOTO;ENCODING=b:UE5H\r\n"))
                 .toUtf8());
    const CommandResult result =
        runInProcess({QStringLiteral("import"), tree.path(QStringLiteral("People.VCF")),
                      QStringLiteral("--bundle"), bundle});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    const CommandResult shown =
        runInProcess({QStringLiteral("show"), QStringLiteral("People"), QStringLiteral("--bundle"),
                      bundle, QStringLiteral("--locale"), QStringLiteral("de_DE")});
    EXPECT_TRUE(shown.output.contains(u"Ann, \"the\" one")) << shown.output.toStdString();
    EXPECT_TRUE(shown.output.contains(u"01067"));
    EXPECT_TRUE(shown.output.contains(u"cobblemedia://Photo%201.0.jpg"));
    EXPECT_EQ(contentsOf(bundle + u"/Contents/Resources/Media/Photo 1.0.jpg"), "PNG");
}

TEST(VCardImporter, FilesWithoutCards)
{
    testing_support::useFreshHome();
    const FileTree tree;
    tree.add(QStringLiteral("x.vcf"), "Name,Age\nAnn,3\n");
    const CommandResult result =
        runInProcess({QStringLiteral("import"), tree.path(QStringLiteral("x.vcf"))});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(u"x.vcf: there is no vCard in it\n"));
}
