#include "Fields/PlainText.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(PlainText, HasAFormThatLeavesDigitsOpenButForZerosAtTheEdges)
{
    const struct
    {
        const char16_t *text;
        const char16_t *form;
    } cases[] = {
        {u"7", u"0"},
        {u"$1,187.78", u"$0,000.00"},
        {u"$1,187.70", u"$0,000.02"},
        {u"05/10/2016", u"10/00/0000"},
        {u"0.50", u"1.02"},
        {u"10", u"02"},
        // Nothing is open here.
        {u"0", u"3"},
        {u"0.00", u"3.33"},
    };
    for (const auto &row : cases) {
        const PlainText text{QStringView(row.text)};
        EXPECT_TRUE(text.isPlain());
        EXPECT_EQ(text.form().toString().toStdString(), QString::fromUtf16(row.form).toStdString());
    }
}

TEST(PlainText, TellsItsDigitsAndWhatStandsAroundThem)
{
    const PlainText text(u"$1,187.05 c");
    ASSERT_EQ(text.runCount(), 3);
    EXPECT_EQ(text.run(1).value, 187);
    EXPECT_EQ(text.run(2).value, 5);
    EXPECT_EQ(text.run(2).length, 2);
    EXPECT_EQ(text.digitCount(), 6);
    EXPECT_EQ(text.before(), u"$");
    EXPECT_EQ(text.between(0), u",");
    EXPECT_EQ(text.between(1), u".");
    EXPECT_EQ(text.behind(), u" c");
}

TEST(PlainText, IsPlainWhereItHasDigitsAndIsShort)
{
    EXPECT_FALSE(PlainText().isPlain());
    EXPECT_FALSE(PlainText(u"").isPlain());
    EXPECT_FALSE(PlainText(u"a cow").isPlain());
    EXPECT_FALSE(PlainText(u"\u0661\u0662").isPlain());
    EXPECT_TRUE(PlainText(u"123456789012345").isPlain());
    EXPECT_FALSE(PlainText(u"1234567890123456").isPlain());
    EXPECT_TRUE(PlainText(u"1 2 3 4 5 6 7 8").isPlain());
    EXPECT_FALSE(PlainText(u"1 2 3 4 5 6 7 8 9").isPlain());
    const QString longest(PlainText::LongestText - 1, u'x');
    EXPECT_TRUE(PlainText(QString(longest + u'1')).isPlain());
    EXPECT_FALSE(PlainText(QString(longest + u"12")).isPlain());
}
