#include <KTUtility/Platform/Dates/NSCivilDate_p.h>
#include <KTUtility/Platform/Dates/NSDateFields_p.h>

#include "support/TestSupport.h"

#include <QDate>

namespace {
/// Days since 1 January 1970 by Qt.
qint64 daysByQt(const QDate &date)
{
    return date.toJulianDay() - QDate(1970, 1, 1).toJulianDay();
}

constexpr qint64 HourOfMilliseconds = 3'600'000;
} // namespace

// What the compiler knows cannot be wrong at run time.
static_assert(NSCivil::daysOf(1970, 1, 1) == 0);
static_assert(NSCivil::daysOf(2000, 3, 1) == 11'017);
static_assert(NSCivil::daysOf(1969, 12, 31) == -1);
static_assert(NSCivil::dateOf(11'016).month == 2 && NSCivil::dateOf(11'016).day == 29);
static_assert(NSCivil::isLeapYear(2000) && NSCivil::isLeapYear(2008));
static_assert(!NSCivil::isLeapYear(1900) && !NSCivil::isLeapYear(2007));
static_assert(NSCivil::daysInMonth(2008, 2) == 29 && NSCivil::daysInMonth(2007, 2) == 28);
static_assert(NSCivil::daysInMonth(2007, 4) == 30 && NSCivil::daysInMonth(2007, 12) == 31);

TEST(NSCivilDate, CountsDaysAsQtDoes)
{
    for (QDate date(1, 1, 1); date.year() < 10'000; date = date.addDays(29)) {
        const qint64 days = daysByQt(date);
        ASSERT_EQ(NSCivil::daysOf(date.year(), date.month(), date.day()), days);
        const NSCivilDate back = NSCivil::dateOf(days);
        ASSERT_EQ(back.year, date.year());
        ASSERT_EQ(back.month, date.month());
        ASSERT_EQ(back.day, date.day());
        ASSERT_EQ(NSCivil::weekdayOf(days), date.dayOfWeek() % 7 + 1);
    }
}

TEST(NSCivilDate, CountsEveryDayOfALeapCycle)
{
    qint64 days = NSCivil::daysOf(1999, 1, 1);
    for (qint64 year = 1999; year <= 2008; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= NSCivil::daysInMonth(year, month); ++day, ++days) {
                const NSCivilDate date = NSCivil::dateOf(days);
                ASSERT_EQ(NSCivil::daysOf(year, month, day), days);
                ASSERT_TRUE(date.year == year && date.month == month && date.day == day);
            }
        }
    }
    EXPECT_EQ(days, NSCivil::daysOf(2009, 1, 1));
}

TEST(NSCivilDate, KnowsYearsBeforeTheFirst)
{
    EXPECT_EQ(NSCivil::daysOf(0, 12, 31), NSCivil::daysOf(1, 1, 1) - 1);
    EXPECT_EQ(NSCivil::dateOf(NSCivil::daysOf(-400, 2, 29)).day, 29);
    EXPECT_EQ(NSCivil::dateOf(NSCivil::daysOf(-1, 7, 4)).year, -1);
    EXPECT_EQ(NSCivil::weekdayOf(NSCivil::daysOf(-400, 1, 2)),
              NSCivil::weekdayOf(NSCivil::daysOf(2000, 1, 2)));
}

TEST(NSCivilDate, RoundsTimesDownToDays)
{
    EXPECT_EQ(NSCivil::daysOfTime(0), 0);
    EXPECT_EQ(NSCivil::daysOfTime(NSCivil::MillisecondsPerDay - 1), 0);
    EXPECT_EQ(NSCivil::daysOfTime(NSCivil::MillisecondsPerDay), 1);
    EXPECT_EQ(NSCivil::daysOfTime(-1), -1);
    EXPECT_EQ(NSCivil::daysOfTime(-NSCivil::MillisecondsPerDay), -1);
    EXPECT_EQ(NSCivil::daysOfTime(-NSCivil::MillisecondsPerDay - 1), -2);
}

TEST(NSCivilDate, TrustsOnlyYearsOfFourDigitsAfterTheChange)
{
    const auto timeOf = [](int year, int month, int day) {
        return NSCivil::daysOf(year, month, day) * NSCivil::MillisecondsPerDay;
    };
    EXPECT_FALSE(NSCivil::isSafe(timeOf(1583, 1, 1)));
    EXPECT_TRUE(NSCivil::isSafe(timeOf(1583, 1, 2)));
    EXPECT_TRUE(NSCivil::isSafe(timeOf(9999, 12, 30)));
    EXPECT_FALSE(NSCivil::isSafe(timeOf(9999, 12, 31)));
}

TEST(NSDateFields, TakesTimesApartAndBack)
{
    const qint64 time = NSCivil::daysOf(2008, 3, 5) * NSCivil::MillisecondsPerDay +
                        17 * HourOfMilliseconds + 4 * 60'000 + 9 * 1000 + 7;
    const NSDateFields fields = NSDateFields::fieldsOf(time);
    EXPECT_EQ(fields.year, 2008);
    EXPECT_EQ(fields.month, 3);
    EXPECT_EQ(fields.day, 5);
    EXPECT_EQ(fields.hour, 17);
    EXPECT_EQ(fields.minute, 4);
    EXPECT_EQ(fields.second, 9);
    EXPECT_EQ(fields.millisecond, 7);
    EXPECT_EQ(fields.localTime(), time);
    EXPECT_EQ(NSDateFields::fieldsOf(-1).millisecond, 999);
    EXPECT_EQ(NSDateFields::fieldsOf(-1).localTime(), -1);
}

TEST(NSDateFields, KnowsWhatExists)
{
    EXPECT_TRUE((NSDateFields{.year = 2008, .month = 2, .day = 29}).isExistingDay());
    EXPECT_FALSE((NSDateFields{.year = 2007, .month = 2, .day = 29}).isExistingDay());
    EXPECT_FALSE((NSDateFields{.year = 2007, .month = 2, .day = 0}).isExistingDay());
    EXPECT_TRUE((NSDateFields{.hour = 23, .minute = 59, .second = 59}).isExistingTime());
    EXPECT_FALSE((NSDateFields{.hour = 24}).isExistingTime());
    EXPECT_FALSE((NSDateFields{.hour = -1}).isExistingTime());
    EXPECT_FALSE((NSDateFields{.minute = 60}).isExistingTime());
    EXPECT_FALSE((NSDateFields{.second = 60}).isExistingTime());
}

TEST(NSDateFields, StartWithTheDefaultDate)
{
    const NSTimeZoneRules &rules = NSTimeZoneRules::rulesOf(QTimeZone("Asia/Kathmandu"));
    const NSDateFields none = NSDateFields::defaultFields({}, rules);
    EXPECT_EQ(none.year, 2000);
    EXPECT_EQ(none.month, 1);
    EXPECT_EQ(none.day, 1);
    EXPECT_EQ(none.hour, 0);
    const NSDateFields some = NSDateFields::defaultFields(0, rules);
    EXPECT_EQ(some.year, 1970);
    EXPECT_EQ(some.hour, 5);
    EXPECT_EQ(some.minute, 30);
}
