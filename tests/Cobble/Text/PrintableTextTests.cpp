#include "Text/PrintableText.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(PrintableText, EscapesWhatSteersTheTerminal)
{
    EXPECT_EQ(printableText(u"a\r\n\tb"_s), u"a\\r\\n\\tb"_s);
    EXPECT_EQ(printableText(u"\u001b[31m"_s), u"\\u001b[31m"_s);
    EXPECT_EQ(printableText(QString(QChar(0))), u"\\u0000"_s);
    EXPECT_EQ(printableText(u"\u0085\u007f"_s), u"\\u0085\\u007f"_s);
    EXPECT_EQ(printableText(u"\u202e\u2066\u200f\u2028"_s), u"\\u202e\\u2066\\u200f\\u2028"_s);
}

TEST(PrintableText, LeavesTextAlone)
{
    for (const QString &text : {u""_s, u"Über Straße \\n"_s, u"公司 שם 👩‍👩‍👧"_s})
        EXPECT_EQ(printableText(text), text);
}

TEST(PrintableText, KeepsHalvesOfPairsAndHidesNothingTwice)
{
    EXPECT_EQ(printableText(QString(QChar(0xD83D))), QString(QChar(0xD83D)));
    const QString once = printableText(u"a\tb\u061c"_s);
    EXPECT_EQ(once, u"a\\tb\\u061c"_s);
    EXPECT_EQ(printableText(once), once);
}

TEST(PrintableText, PutsEveryHostileTextOnOneLine)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const QString printable = printableText(text);
        EXPECT_FALSE(printable.contains(u'\n') || printable.contains(u'\r'));
        EXPECT_GE(printable.size(), text.size());
    }
}

TEST(PrintableText, CountsOfRecordsHaveAWordForOneAndOneForMany)
{
    EXPECT_EQ(recordCountText(0), u"0 records"_s);
    EXPECT_EQ(recordCountText(1), u"1 record"_s);
    EXPECT_EQ(recordCountText(2), u"2 records"_s);
    EXPECT_EQ(recordCountText(3'000'000'000), u"3000000000 records"_s);
}
