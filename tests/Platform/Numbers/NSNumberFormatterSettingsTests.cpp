// Settings that the tables do not reach: what is set is reported, and shows.

#include <KTUtility/NSNumberFormatter>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
class NSNumberFormatterSettingsTests : public testing::Test
{
protected:
    NSNumberFormatterSettingsTests()
    {
        formatter.setLocale(NSLocale(u"en_US"_s));
        formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    }

    QString shown(const QVariant &number) const { return formatter.stringFromNumber(number); }

    NSNumberFormatter formatter;
};
} // namespace

TEST_F(NSNumberFormatterSettingsTests, GroupsBeyondTheFirstMayHaveAnotherSize)
{
    EXPECT_EQ(shown(12345678), u"12,345,678");
    formatter.setSecondaryGroupingSize(2);
    EXPECT_EQ(formatter.secondaryGroupingSize(), 2);
    EXPECT_EQ(shown(12345678), u"1,23,45,678");
    EXPECT_EQ(formatter.numberFromString(u"1,23,45,678"_s), 12345678);
}

TEST_F(NSNumberFormatterSettingsTests, TheSymbolOfExponentsMayBeSet)
{
    formatter.setExponentSymbol(u"e"_s);
    EXPECT_EQ(formatter.exponentSymbol(), u"e");
    formatter.setNumberStyle(NSNumberFormatterScientificStyle);
    EXPECT_EQ(shown(1500), u"1.5e3");
}

TEST_F(NSNumberFormatterSettingsTests, PaddingStandsWhereItIsAsked)
{
    formatter.setFormatWidth(6);
    formatter.setPaddingCharacter(u"*"_s);
    EXPECT_EQ(formatter.paddingPosition(), NSNumberFormatterPadBeforePrefix);
    EXPECT_EQ(shown(-42), u"***-42");
    formatter.setPaddingPosition(NSNumberFormatterPadAfterPrefix);
    EXPECT_EQ(formatter.paddingPosition(), NSNumberFormatterPadAfterPrefix);
    EXPECT_EQ(shown(-42), u"-***42");
    formatter.setPaddingPosition(NSNumberFormatterPadAfterSuffix);
    EXPECT_EQ(shown(-42), u"-42***");
}

TEST_F(NSNumberFormatterSettingsTests, CountsOfDigitsGiveWay)
{
    formatter.setMaximumIntegerDigits(4);
    formatter.setMinimumIntegerDigits(6);
    EXPECT_EQ(formatter.maximumIntegerDigits(), 6);
    EXPECT_EQ(shown(42), u"000,042");
    formatter.setMaximumIntegerDigits(2);
    EXPECT_EQ(formatter.minimumIntegerDigits(), 2);
    EXPECT_EQ(shown(1234), u"34");
    formatter.setMaximumFractionDigits(1);
    formatter.setMinimumFractionDigits(3);
    EXPECT_EQ(formatter.maximumFractionDigits(), 3);
    formatter.setMaximumFractionDigits(1);
    EXPECT_EQ(formatter.minimumFractionDigits(), 1);
}
