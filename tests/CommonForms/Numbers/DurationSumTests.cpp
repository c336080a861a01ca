// Counts of units added up.

#include <KTUtility/CommonForms/Numbers/DurationSum_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(DurationSum, AddsFromTheLargestToTheSmallest)
{
    const FoldedText text(u"1h 30m"_s);
    DurationSum sum(text);
    EXPECT_TRUE(sum.isEmpty());
    EXPECT_TRUE(sum.add(0, 2, NSDecimalNumber(1), DurationUnit::Hour));
    EXPECT_FALSE(sum.add(0, 2, NSDecimalNumber(1), DurationUnit::Hour));
    EXPECT_FALSE(sum.add(0, 2, NSDecimalNumber(1), DurationUnit::Day));
    EXPECT_TRUE(sum.add(3, 6, NSDecimalNumber(30), DurationUnit::Minute));
    EXPECT_EQ(sum.last(), DurationUnit::Minute);
    const TypedDecimal typed = sum.result(u"form"_s);
    EXPECT_EQ(typed.value, NSDecimalNumber(5400));
    EXPECT_EQ(typed.reading.form, u"form"_s);
    EXPECT_EQ(typed.reading.parts.size(), 2);
}

TEST(DurationSum, TakesASignOfTheWhole)
{
    const FoldedText text(u"- 2h"_s);
    DurationSum sum(text);
    qsizetype position = 0;
    sum.takeSign(&position);
    EXPECT_EQ(position, 2);
    EXPECT_TRUE(sum.isNegative());
    sum.add(2, 4, NSDecimalNumber(2), DurationUnit::Hour);
    sum.addToLast(2, 4, NSDecimalNumber(1));
    EXPECT_EQ(sum.result(u"form"_s).value, NSDecimalNumber(-10800));
}

TEST(DurationSum, RefusesWhatHasNoFixedLengthOrNoEnd)
{
    const FoldedText text(u"1"_s);
    DurationSum months(text);
    months.add(0, 1, NSDecimalNumber(1), DurationUnit::Month);
    EXPECT_TRUE(months.result(u"form"_s).isRefused());
    DurationSum weeks(text);
    weeks.add(0, 1, NSDecimalNumber::maximumDecimalNumber(), DurationUnit::Week);
    EXPECT_TRUE(weeks.result(u"form"_s).isRefused());
}
