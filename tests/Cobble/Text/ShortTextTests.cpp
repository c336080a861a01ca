#include "Text/ShortText.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(ShortText, IsTheFirstLineAndTellsOfMore)
{
    EXPECT_EQ(ShortText::firstLine(u"Ann"_s), u"Ann"_s);
    EXPECT_EQ(ShortText::firstLine(u""_s), u""_s);
    for (const QString &text : {u"Ann\nBob"_s, u"Ann\r\nBob"_s, u"Ann\rBob"_s, u"Ann\n"_s})
        EXPECT_EQ(ShortText::firstLine(text), u"Ann…"_s);
    EXPECT_EQ(ShortText::firstLine(u"\nAnn"_s), u"…"_s);
}

TEST(ShortText, LongLinesEndEarly)
{
    const QString longest(ShortText::Longest, u'x');
    EXPECT_EQ(ShortText::firstLine(longest), longest);
    EXPECT_EQ(ShortText::firstLine(longest + u'y'), QString(longest + u'…'));
}

TEST(ShortText, HostileTextsFitInALine)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const QString line = ShortText::firstLine(text);
        EXPECT_FALSE(line.contains(u'\n') || line.contains(u'\r'));
        EXPECT_LE(line.size(), ShortText::Longest + 1);
    }
}
