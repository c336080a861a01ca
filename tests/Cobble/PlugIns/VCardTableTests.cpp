// The importer of vCards: lines, tables, and the whole way through the plug-in.

#include "Cobble/Commands/CommandSupport.h"
#include "VCardTable.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

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
    EXPECT_EQ(read.name, u"TEL"_s);
    EXPECT_TRUE(read.hasType(u"HOME"));
    EXPECT_TRUE(read.hasType(u"VOICE"));
    EXPECT_FALSE(read.hasType(u"CELL"));
    EXPECT_EQ(read.parts(), QStringList(u"555-0101"_s));
}

TEST(VCardLine, GroupsParametersAndQuotes)
{
    const VCardLine read = line(u"item1.email;TYPE=\"INTERNET,work\";X-A=\"a:b;c\":a@example.org");
    EXPECT_EQ(read.name, u"EMAIL"_s);
    EXPECT_TRUE(read.hasType(u"WORK"));
    EXPECT_EQ(read.parameter(u"X-A"), u"a:b;c"_s);
    EXPECT_EQ(read.text(), u"a@example.org"_s);
    EXPECT_TRUE(line(u"TEL;HOME;FAX:1").hasType(u"FAX"));
}

TEST(VCardLine, Escapes)
{
    EXPECT_EQ(line(u"N:M\\;ller;J\\,r\\\\gen;;").parts(),
              QStringList({u"M;ller"_s, u"J,r\\gen"_s, u""_s, u""_s}));
    EXPECT_EQ(line(u"NOTE:a\\nb\\Nc; d\\").text(), u"a\nb\nc; d\\"_s);
}

TEST(VCardLine, FoldedLines)
{
    const QList<VCardLine> lines = VCardLine::linesOf(
        u"NOTE:one\r\n  two\r\n\tthree\nFN:x\rNICKNAME;QUOTED-PRINTABLE:a=\nb\n"_s);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].value, u"one twothree"_s);
    EXPECT_EQ(lines[1].value, u"x"_s);
    EXPECT_EQ(lines[2].value, u"ab"_s);
}

TEST(VCardLine, QuotedPrintable)
{
    EXPECT_EQ(line(u"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller=3B").value,
              u"Müller;"_s);
    EXPECT_EQ(line(u"N;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:M=FCller 100%").value, u"Müller 100%"_s);
    EXPECT_EQ(line(u"N;CHARSET=X-NONE;QUOTED-PRINTABLE:M=C3=BCller").value, u"Müller"_s);
}

// What looks at all of a value for each line that is put to it takes minutes, and so comes to the
// end of its time.
TEST(VCardLine, ManyFoldedLinesAreOneValue)
{
    constexpr int Count = 200'000;
    const QString printable =
        u"NOTE;ENCODING=QUOTED-PRINTABLE:=\n" + u"ab=\n"_s.repeated(Count) + u"c\n";
    EXPECT_EQ(VCardLine::linesOf(printable).first().value, u"ab"_s.repeated(Count) + u'c');
    // Each of them could be the end of a name that asks for the same.
    const QString nameless = u"NOTE\n" + u" =\n"_s.repeated(Count);
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

TEST(VCardTable, NamesAddressesAndOrganizations)
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

TEST(VCardImporter, ImportsThroughThePlugIn)
{
    testing_support::needApplication();
    testing_support::useFreshHome();
    const FileTree tree;
    const QString bundle = tree.path(u"b.cobbledb"_s);
    tree.add(u"People.VCF"_s, card(u"FN:Ann, \"the\" one\r\nTEL:030 1234567\r\n"
                                   "ADR:;;;;;01067;\r\nPHOTO;ENCODING=b:UE5H\r\n"_s)
                                  .toUtf8());
    const CommandResult result =
        runInProcess({u"import"_s, tree.path(u"People.VCF"_s), u"--bundle"_s, bundle});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    const CommandResult shown =
        runInProcess({u"show"_s, u"People"_s, u"--bundle"_s, bundle, u"--locale"_s, u"de_DE"_s});
    EXPECT_TRUE(shown.output.contains(u"Ann, \"the\" one")) << shown.output.toStdString();
    EXPECT_TRUE(shown.output.contains(u"01067"));
    EXPECT_TRUE(shown.output.contains(u"cobblemedia://Photo%201.0.jpg"));
    EXPECT_EQ(contentsOf(bundle + u"/Contents/Resources/Media/Photo 1.0.jpg"), "PNG");
}

TEST(VCardImporter, FilesWithoutCards)
{
    testing_support::useFreshHome();
    const FileTree tree;
    tree.add(u"x.vcf"_s, "Name,Age\nAnn,3\n");
    const CommandResult result = runInProcess({u"import"_s, tree.path(u"x.vcf"_s)});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(u"x.vcf: there is no vCard in it\n"));
}
