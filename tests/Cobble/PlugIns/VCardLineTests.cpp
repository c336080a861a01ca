#include "VCardLine.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
VCardLine line(const char16_t *text)
{
    return VCardLine::fromText(QString::fromUtf16(text)).value_or(VCardLine());
}
} // namespace

TEST(VCardLine, RunsItsExample)
{
    const VCardLine read = line(u"TEL;TYPE=home,voice:555-0101");
    EXPECT_EQ(read.name, u"TEL"_s);
    EXPECT_TRUE(read.hasType(u"HOME"));
    EXPECT_TRUE(read.hasType(u"VOICE"));
    EXPECT_FALSE(read.hasType(u"CELL"));
    EXPECT_EQ(read.parts(), QStringList(u"555-0101"_s));
}

TEST(VCardLine, ReadsGroupsParametersAndQuotes)
{
    const VCardLine read = line(u"item1.email;TYPE=\"INTERNET,work\";X-A=\"a:b;c\":a@example.org");
    EXPECT_EQ(read.name, u"EMAIL"_s);
    EXPECT_TRUE(read.hasType(u"WORK"));
    EXPECT_EQ(read.parameter(u"X-A"), u"a:b;c"_s);
    EXPECT_EQ(read.text(), u"a@example.org"_s);
    EXPECT_TRUE(line(u"TEL;HOME;FAX:1").hasType(u"FAX"));
}

TEST(VCardLine, ReadsEscapes)
{
    EXPECT_EQ(line(u"N:M\\;ller;J\\,r\\\\gen;;").parts(),
              QStringList({u"M;ller"_s, u"J,r\\gen"_s, u""_s, u""_s}));
    EXPECT_EQ(line(u"NOTE:a\\nb\\Nc; d\\").text(), u"a\nb\nc; d\\"_s);
}

TEST(VCardLine, JoinsFoldedLines)
{
    const QList<VCardLine> lines = VCardLine::linesOf(
        u"NOTE:one\r\n  two\r\n\tthree\nFN:x\rNICKNAME;QUOTED-PRINTABLE:a=\nb\n"_s);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].value, u"one twothree"_s);
    EXPECT_EQ(lines[1].value, u"x"_s);
    EXPECT_EQ(lines[2].value, u"ab"_s);
}

TEST(VCardLine, ReadsQuotedPrintable)
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

TEST(VCardLine, PassesOverLinesThatAreNone)
{
    for (const char16_t *text : {u"", u":", u"no colon", u";:"})
        EXPECT_TRUE(line(text).name.isEmpty()) << QString::fromUtf16(text).toStdString();
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_GE(VCardLine::linesOf(text).size(), 0);
}
