#include "Text/CSVReader.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using Rows = QList<QStringList>;

namespace {
Rows rowsOfText(QStringView text, QChar separator = u',')
{
    CSVReader reader(text, separator);
    Rows rows;
    QStringList fields;
    while (reader.readRow(&fields))
        rows += fields;
    EXPECT_TRUE(fields.isEmpty());
    return rows;
}

struct ReaderCase
{
    const char *name;
    QString text;
    Rows rows;
};

void PrintTo(const ReaderCase &row, std::ostream *stream)
{
    *stream << row.name;
}

const QList<ReaderCase> &readerCases()
{
    const auto s = [](const char16_t *text) { return QString::fromUtf16(text); };
    static const QList<ReaderCase> cases = {
        {"Nothing", s(u""), {}},
        {"OneField", s(u"a"), {{s(u"a")}}},
        {"TwoFields", s(u"a,b"), {{s(u"a"), s(u"b")}}},
        {"Lf", s(u"a\nb\n"), {{s(u"a")}, {s(u"b")}}},
        {"CrLf", s(u"a\r\nb\r\n"), {{s(u"a")}, {s(u"b")}}},
        {"Cr", s(u"a\rb\r"), {{s(u"a")}, {s(u"b")}}},
        {"MixedLineBreaks", s(u"a\rb\nc\r\nd"), {{s(u"a")}, {s(u"b")}, {s(u"c")}, {s(u"d")}}},
        {"NoBreakAtTheEnd", s(u"a\nb"), {{s(u"a")}, {s(u"b")}}},
        {"EmptyFields", s(u",,"), {{s(u""), s(u""), s(u"")}}},
        {"EmptyLastField", s(u"a,\nb,"), {{s(u"a"), s(u"")}, {s(u"b"), s(u"")}}},
        {"SpacesAreKept", s(u" a , b "), {{s(u" a "), s(u" b ")}}},
        {"Quoted", s(u"\"a\",\"b\""), {{s(u"a"), s(u"b")}}},
        {"QuotedEmpty", s(u"\"\""), {{s(u"")}}},
        {"QuotedSeparator", s(u"\"a,b\",c"), {{s(u"a,b"), s(u"c")}}},
        {"DoubledQuotes", s(u"\"say \"\"hi\"\"\",x"), {{s(u"say \"hi\""), s(u"x")}}},
        {"OnlyDoubledQuotes", s(u"\"\"\"\""), {{s(u"\"")}}},
        {"QuotedLf", s(u"\"a\nb\",c\nd"), {{s(u"a\nb"), s(u"c")}, {s(u"d")}}},
        {"QuotedCrLf", s(u"\"a\r\nb\",c"), {{s(u"a\r\nb"), s(u"c")}}},
        {"QuotedCr", s(u"\"a\rb\",c"), {{s(u"a\rb"), s(u"c")}}},
        {"QuoteWithinPlainField", s(u"5' 10\",b\"c\""), {{s(u"5' 10\""), s(u"b\"c\"")}}},
        {"QuoteBehindASpace", s(u"a, \"b\""), {{s(u"a"), s(u" \"b\"")}}},
        {"TextBehindTheClosingQuote", s(u"\"a\"b,c"), {{s(u"ab"), s(u"c")}}},
        {"SpaceBehindTheClosingQuote", s(u"\"a\" ,c"), {{s(u"a "), s(u"c")}}},
        {"QuotesBehindTheClosingQuote", s(u"\"a\"b\"c\",d"), {{s(u"ab\"c\""), s(u"d")}}},
        {"UnclosedQuote", s(u"a,\"b,c\nd"), {{s(u"a"), s(u"b,c\nd")}}},
        {"LoneQuote", s(u"\""), {{s(u"")}}},
        {"ThreeQuotes", s(u"\"\"\""), {{s(u"\"")}}},
        {"BlankLines", s(u"\n\na\n\r\n\r\nb\n\n"), {{s(u"a")}, {s(u"b")}}},
        {"LinesOfWhiteSpace", s(u"a\n  \t \nb"), {{s(u"a")}, {s(u"b")}}},
        {"QuotedEmptyLineIsARow", s(u"a\n\"\"\nb"), {{s(u"a")}, {s(u"")}, {s(u"b")}}},
        {"SeparatorsAloneAreARow", s(u"a,b\n,\n"), {{s(u"a"), s(u"b")}, {s(u""), s(u"")}}},
        {"OnlyLineBreaks", s(u"\n\r\n\r\r\n\n"), {}},
        {"OtherLineSeparatorsAreText", s(u"a\u2028b\vc"), {{s(u"a\u2028b\vc")}}},
        {"OtherScripts", s(u"公司,שם,😀"), {{s(u"公司"), s(u"שם"), s(u"😀")}}},
        {"LengthsMayDiffer", s(u"a\nb,c\n"), {{s(u"a")}, {s(u"b"), s(u"c")}}},
    };
    return cases;
}
} // namespace

class CSVReaderTests : public testing::TestWithParam<ReaderCase>
{
};

TEST_P(CSVReaderTests, ReadsTheseRows)
{
    EXPECT_EQ(rowsOfText(GetParam().text), GetParam().rows);
}

TEST_P(CSVReaderTests, ReadsTheSameWithOtherSeparators)
{
    for (const QChar separator : {QChar(u';'), QChar(u'|'), QChar(0x2022)}) {
        QString text = GetParam().text;
        Rows expected = GetParam().rows;
        text.replace(u',', separator);
        for (QStringList &row : expected)
            row.replaceInStrings(u","_s, QString(separator));
        EXPECT_EQ(rowsOfText(text, separator), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(All, CSVReaderTests, testing::ValuesIn(readerCases()),
                         [](const auto &row) { return row.param.name; });

TEST(CSVReader, TheExampleOfTheHeader)
{
    CSVReader reader(u"name,note\nAnn,\"a, b\"\n", u',');
    QStringList fields;
    ASSERT_TRUE(reader.readRow(&fields));
    EXPECT_EQ(fields, QStringList({u"name"_s, u"note"_s}));
    ASSERT_TRUE(reader.readRow(&fields));
    EXPECT_EQ(fields, QStringList({u"Ann"_s, u"a, b"_s}));
    EXPECT_FALSE(reader.readRow(&fields));
    EXPECT_FALSE(reader.readRow(&fields));
}

TEST(CSVReader, NoFieldIsNil)
{
    CSVReader reader(u",\"\",\n");
    QStringList fields;
    ASSERT_TRUE(reader.readRow(&fields));
    ASSERT_EQ(fields.size(), 3);
    for (const QString &field : fields)
        EXPECT_FALSE(field.isNull());
}

TEST(CSVReader, ATabCanSeparateEmptyFields)
{
    EXPECT_EQ(rowsOfText(u"a\tb\n\t\n", u'\t'), Rows({{u"a"_s, u"b"_s}, {u""_s, u""_s}}));
}

TEST(CSVReader, CountsLinesAlsoWithinQuotes)
{
    CSVReader reader(u"\n\"a\r\nb\rc\"\r\n\r\nd\re\n");
    QStringList fields;
    QList<qint64> lines;
    while (reader.readRow(&fields))
        lines += reader.lineNumber();
    EXPECT_EQ(lines, QList<qint64>({2, 6, 7}));
}

TEST(CSVReader, CountsFromTheFirstLineGiven)
{
    CSVReader reader(u"a\nb", u',', 7);
    QStringList fields;
    ASSERT_TRUE(reader.readRow(&fields));
    EXPECT_EQ(reader.lineNumber(), 7);
    ASSERT_TRUE(reader.readRow(&fields));
    EXPECT_EQ(reader.lineNumber(), 8);
}

TEST(CSVReader, TellsTheLineOfAnUnclosedQuote)
{
    CSVReader reader(u"a,b\n1,2\nx,\"y\n3,4\n");
    QStringList fields;
    while (reader.readRow(&fields))
        continue;
    EXPECT_EQ(reader.unclosedQuoteLine(), 3);
}

TEST(CSVReader, ClosedQuotesAreNotReported)
{
    CSVReader reader(u"\"a\",\"\"\"b\"\"\"");
    QStringList fields;
    ASSERT_TRUE(reader.readRow(&fields));
    EXPECT_EQ(reader.unclosedQuoteLine(), 0);
}

TEST(CSVReader, HostileTextsAreReadWhole)
{
    for (const QString &text : testing_support::hostileTexts()) {
        // Quoted, every text is one field as it stands.
        const QString quoted = u'"' + text + u"\",x";
        const Rows rows = rowsOfText(quoted);
        ASSERT_EQ(rows.size(), 1);
        ASSERT_EQ(rows.first().size(), 2);
        EXPECT_TRUE(rows.first().first() == text) << "size " << text.size();
    }
}

TEST(CSVReader, AFieldOfAMegabyte)
{
    const QString text = testing_support::megabyteOf(u"a\"b "_s);
    const Rows rows = rowsOfText(QString(text + u",x\n" + text));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_TRUE(rows.at(0).at(0) == text);
    EXPECT_TRUE(rows.at(1).at(0) == text);
}

// A quadratic reader takes minutes, and so comes to the end of its time.
TEST(CSVReader, MegabytesOfQuotesAndBreaksAreRead)
{
    const QString quotes = testing_support::megabyteOf(u"\""_s);
    EXPECT_EQ(rowsOfText(quotes).size(), 1);
    EXPECT_TRUE(rowsOfText(testing_support::megabyteOf(u"\n"_s)).isEmpty());
    const QString opened = testing_support::megabyteOf(u"\"\n"_s);
    EXPECT_GE(rowsOfText(opened).size(), 1);
}

TEST(CSVReader, WhatIsWrittenByTheRulesIsReadBack)
{
    const QStringList pieces = {u"a"_s, u"\""_s, u","_s, u"\r"_s, u"\n"_s, u" "_s, u"é"_s};
    // Every field of up to three pieces, quoted, between two others.
    QStringList fields = {u""_s};
    for (qsizetype next = 0; next < fields.size() && fields.size() < 400; ++next) {
        for (const QString &piece : pieces)
            fields += fields.at(next) + piece;
    }
    for (const QString &field : std::as_const(fields)) {
        QString quoted = field;
        quoted.replace(u'"', u"\"\""_s);
        EXPECT_EQ(rowsOfText(QString(u"x,\"" + quoted + u"\",y\r\n")),
                  Rows({{u"x"_s, field, u"y"_s}}));
    }
}
