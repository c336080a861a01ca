// A place in a text that moves on.

#include <KTUtility/CommonForms/Text/TextCursor_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;

TEST(TextCursor, TakesWhatStandsThereAndNothingElse)
{
    TextCursor cursor(u"14:30 utc");
    EXPECT_FALSE(cursor.take(u':'));
    EXPECT_EQ(cursor.position(), 0);
    EXPECT_EQ(cursor.digits(), 2);
    EXPECT_EQ(cursor.takeDigits(2), 14);
    EXPECT_TRUE(cursor.take(u':'));
    EXPECT_EQ(cursor.takeDigits(3), std::nullopt);
    EXPECT_EQ(cursor.takeNumber(1, 2), 30);
    EXPECT_TRUE(cursor.take(u' '));
    EXPECT_EQ(cursor.letters(), 3);
    EXPECT_FALSE(cursor.take(u"utcs"));
    EXPECT_TRUE(cursor.take(u"utc"));
    EXPECT_TRUE(cursor.isAtEnd());
}

TEST(TextCursor, TakesNumbersOfAWidthOnly)
{
    TextCursor cursor(u"2008");
    EXPECT_EQ(cursor.takeNumber(1, 3), std::nullopt);
    EXPECT_EQ(cursor.takeNumber(5, 9), std::nullopt);
    EXPECT_EQ(cursor.position(), 0);
    EXPECT_EQ(cursor.takeNumber(4, 4), 2008);
}

TEST(TextCursor, FindsNothingBehindTheEnd)
{
    TextCursor cursor(u"a", 5);
    EXPECT_TRUE(cursor.isAtEnd());
    EXPECT_EQ(cursor.unit(), u'\0');
    EXPECT_EQ(cursor.digits(), 0);
    EXPECT_EQ(cursor.letters(), 0);
    EXPECT_FALSE(cursor.take(u"a"));
    EXPECT_FALSE(cursor.take(u'\0'));
    EXPECT_EQ(cursor.takeDigits(1), std::nullopt);
}
