#include "Text/CSVText.h"

#include "Text/CSVReader.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(CSVText, QuotesWhatNeedsIt)
{
    const QList<std::pair<QString, QString>> cases = {
        {u"a"_s, u"a"_s},
        {u""_s, u""_s},
        {u"a,b"_s, u"\"a,b\""_s},
        {u"a;b"_s, u"\"a;b\""_s},
        {u"a \"b\""_s, u"\"a \"\"b\"\"\""_s},
        {u"a\nb"_s, u"\"a\nb\""_s},
        {u" a"_s, u"\" a\""_s},
        {u"a "_s, u"\"a \""_s},
    };
    for (const auto &[field, quoted] : cases)
        EXPECT_EQ(CSVText::quoted(field), quoted);
}

TEST(CSVText, QuotesOnlyWhatNeedsIt)
{
    EXPECT_EQ(CSVText::row({u"Ann"_s, u"a b"_s, u""_s}), u"Ann,a b,\r\n"_s);
    EXPECT_EQ(CSVText::row({u"a,b"_s, u"say \"hi\""_s}), u"\"a,b\",\"say \"\"hi\"\"\"\r\n"_s);
    for (const QString &text : {u"a;b"_s, u"a\tb"_s, u"a\nb"_s, u"a\rb"_s, u" a"_s, u"a "_s})
        EXPECT_EQ(CSVText::quoted(text), QString(u'"' + text + u'"'));
}

TEST(CSVText, ARowWithoutAnythingIsNoBlankLine)
{
    EXPECT_EQ(CSVText::row({}), u"\"\"\r\n"_s);
    EXPECT_EQ(CSVText::row({u""_s}), u"\"\"\r\n"_s);
}

TEST(CSVText, FormulasAreMarkedIfThatIsWanted)
{
    const QStringList fields = {u"=1+1"_s, u"a"_s, u"=A1,B1"_s, u"-5"_s};
    EXPECT_EQ(CSVText::row(fields), u"=1+1,a,\"=A1,B1\",-5\r\n"_s);
    EXPECT_EQ(CSVText::row(fields, CSVText::Formulas::AsTyped), CSVText::row(fields));
    EXPECT_EQ(CSVText::row(fields, CSVText::Formulas::AsText), u"'=1+1,a,\"'=A1,B1\",-5\r\n"_s);
}

TEST(CSVText, WhatIsPastedStaysInItsCell)
{
    const QList<std::pair<QString, QString>> cases = {
        {u"a"_s, u"a"_s},
        {u""_s, u""_s},
        {u"-12"_s, u"-12"_s},
        {u"a, \"b\"; c"_s, u"a, \"b\"; c"_s},
        {u"a\tb\nc\rd\r\ne"_s, u"a b c d e"_s},
        {u"a\vb\fc\u0085d\u2028e\u2029f"_s, u"a b c d e f"_s},
        {u"=1+1"_s, u"'=1+1"_s},
        {u"a\t=1+1\n=2+2"_s, u"a =1+1 =2+2"_s},
        {u"\t\r\n=1+1"_s, u"'  =1+1"_s},
        // Spreadsheets take quotes at the beginning away, and run what was in them.
        {u"\"=1+1\""_s, u"\"\"\"=1+1\"\"\""_s},
        {u"\"a"_s, u"\"\"\"a\""_s},
        {u" \"a"_s, u"\" \"\"a\""_s},
    };
    for (const auto &[field, pasted] : cases)
        EXPECT_EQ(CSVText::pasted(field), pasted);
    EXPECT_EQ(CSVText::pastedRow({u"a\tb"_s, u""_s, u"@c"_s}), u"a b\t\t'@c\n"_s);
    EXPECT_EQ(CSVText::pastedRow({}), u"\n"_s);
}

TEST(CSVText, ReadersGetBackWhatWasWritten)
{
    QStringList fields = {u""_s, u"  "_s, u"\""_s, u"a\r\nb"_s};
    fields += testing_support::hostileTexts();
    const QString text = CSVText::row(fields) + CSVText::row(fields);
    CSVReader reader(text);
    for (int row = 0; row < 2; ++row) {
        QStringList read;
        ASSERT_TRUE(reader.readRow(&read));
        EXPECT_TRUE(read == fields);
    }
    QStringList none;
    EXPECT_FALSE(reader.readRow(&none));
}
