#include <KTUtility/Platform/Dates/DateFields_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;

namespace {
constexpr qint64 HourOfMilliseconds = 3'600'000;
} // namespace

TEST(DateFields, TakesTimesApartAndBack)
{
    const qint64 time = Civil::daysOf(2008, 3, 5) * Civil::MillisecondsPerDay +
                        17 * HourOfMilliseconds + 4 * 60'000 + 9 * 1000 + 7;
    const DateFields fields = DateFields::fieldsOf(time);
    EXPECT_EQ(fields.year, 2008);
    EXPECT_EQ(fields.month, 3);
    EXPECT_EQ(fields.day, 5);
    EXPECT_EQ(fields.hour, 17);
    EXPECT_EQ(fields.minute, 4);
    EXPECT_EQ(fields.second, 9);
    EXPECT_EQ(fields.millisecond, 7);
    EXPECT_EQ(fields.localTime(), time);
    EXPECT_EQ(DateFields::fieldsOf(-1).millisecond, 999);
    EXPECT_EQ(DateFields::fieldsOf(-1).localTime(), -1);
}

TEST(DateFields, KnowsWhatExists)
{
    EXPECT_TRUE((DateFields{.year = 2008, .month = 2, .day = 29}).isExistingDay());
    EXPECT_FALSE((DateFields{.year = 2007, .month = 2, .day = 29}).isExistingDay());
    EXPECT_FALSE((DateFields{.year = 2007, .month = 2, .day = 0}).isExistingDay());
    EXPECT_TRUE((DateFields{.hour = 23, .minute = 59, .second = 59}).isExistingTime());
    EXPECT_FALSE((DateFields{.hour = 24}).isExistingTime());
    EXPECT_FALSE((DateFields{.hour = -1}).isExistingTime());
    EXPECT_FALSE((DateFields{.minute = 60}).isExistingTime());
    EXPECT_FALSE((DateFields{.second = 60}).isExistingTime());
}

TEST(DateFields, StartWithTheDefaultDate)
{
    const QTimeZone zone("Asia/Kathmandu");
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(zone);
    const DateFields none = DateFields::defaultFields({}, rules);
    EXPECT_EQ(none.year, 2000);
    EXPECT_EQ(none.month, 1);
    EXPECT_EQ(none.day, 1);
    EXPECT_EQ(none.hour, 0);
    const DateFields some = DateFields::defaultFields(0, rules);
    EXPECT_EQ(some.year, 1970);
    EXPECT_EQ(some.hour, 5);
    EXPECT_EQ(some.minute, 30);
}
