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

TEST_F(NSNumberFormatterSettingsTests, SignificantDigitsMayBeUsedWithoutLimits)
{
    formatter.setUsesSignificantDigits(true);
    EXPECT_TRUE(formatter.usesSignificantDigits());
    EXPECT_EQ(shown(1234567.891), u"1,234,570");
    formatter.setUsesSignificantDigits(false);
    EXPECT_FALSE(formatter.usesSignificantDigits());
    EXPECT_EQ(shown(1234567.891), u"1,234,567.891");
}

TEST_F(NSNumberFormatterSettingsTests, SignificantDigitsMayHaveLimitsAndNotBeUsed)
{
    formatter.setMinimumSignificantDigits(2);
    formatter.setMaximumSignificantDigits(3);
    EXPECT_TRUE(formatter.usesSignificantDigits());
    EXPECT_EQ(shown(1234567.891), u"1,230,000");
    formatter.setUsesSignificantDigits(false);
    EXPECT_FALSE(formatter.usesSignificantDigits());
    EXPECT_EQ(shown(1234567.891), u"1,234,567.891");
}

TEST_F(NSNumberFormatterSettingsTests, CountsOfSignificantDigitsGiveWay)
{
    formatter.setMinimumSignificantDigits(3);
    EXPECT_EQ(formatter.maximumSignificantDigits(), 999);
    EXPECT_EQ(shown(1.23456789), u"1.23456789");
    EXPECT_EQ(shown(1), u"1.00");
    formatter.setMaximumSignificantDigits(2);
    EXPECT_EQ(formatter.minimumSignificantDigits(), 2);
    EXPECT_EQ(shown(1.23456789), u"1.2");
    formatter.setMinimumSignificantDigits(4);
    EXPECT_EQ(formatter.maximumSignificantDigits(), 4);
    EXPECT_EQ(shown(1.23456789), u"1.235");
}

TEST_F(NSNumberFormatterSettingsTests, AMaximumOfSignificantDigitsStandsAlone)
{
    formatter.setMaximumSignificantDigits(3);
    EXPECT_EQ(formatter.minimumSignificantDigits(), -1);
    EXPECT_EQ(shown(42.42424242), u"42.4");
}

TEST_F(NSNumberFormatterSettingsTests, APatternOfOnePartGivesTheOthers)
{
    formatter.setFormat(u"1"_s);
    EXPECT_EQ(formatter.format(), u"1;0;-1");
    EXPECT_EQ(formatter.positiveFormat(), u"1");
    EXPECT_EQ(formatter.negativeFormat(), u"-1");
    EXPECT_EQ(formatter.zeroSymbol(), u"0");
    formatter.setFormat(u""_s);
    EXPECT_EQ(formatter.format(), u";0;-");
    EXPECT_EQ(formatter.positiveFormat(), u"");
    EXPECT_FALSE(formatter.positiveFormat().isNull());
}

TEST_F(NSNumberFormatterSettingsTests, APatternOfOnePartShowsEveryNumber)
{
    formatter.setFormat(u"0.00"_s);
    EXPECT_EQ(shown(1.5), u"1.50");
    EXPECT_EQ(shown(-1.5), u"-1.50");
    EXPECT_EQ(shown(0), u"0.00");
    EXPECT_EQ(formatter.numberFromString(u"-1.50"_s), -1.5);
    EXPECT_EQ(formatter.numberFromString(u"0.00"_s), 0);
    formatter.setFormat(QString());
    EXPECT_EQ(formatter.negativeFormat(), formatter.positiveFormat());
    EXPECT_TRUE(formatter.zeroSymbol().isNull());
}

TEST_F(NSNumberFormatterSettingsTests, ZeroFollowsAPatternOfOnePart)
{
    formatter.setFormat(u"0.00"_s);
    EXPECT_EQ(formatter.zeroSymbol(), u"0.00");
    formatter.setMinimumFractionDigits(3);
    EXPECT_EQ(shown(0), u"0.000");
    EXPECT_EQ(formatter.zeroSymbol(), u"0.000");
}

TEST_F(NSNumberFormatterSettingsTests, ZeroLeavesThePatternOfOnePartWithIt)
{
    formatter.setFormat(u"0.00"_s);
    formatter.setFormat(u"#,##0;(#,##0)"_s);
    EXPECT_EQ(shown(0), u"0");
    EXPECT_TRUE(formatter.zeroSymbol().isNull());
}
