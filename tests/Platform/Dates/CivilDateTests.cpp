#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Dates/DateFields_p.h>

#include "support/TestSupport.h"

#include <QDate>

using namespace KTPrivate;

namespace {
/// Days since 1 January 1970 by Qt.
qint64 daysByQt(const QDate &date)
{
    return date.toJulianDay() - QDate(1970, 1, 1).toJulianDay();
}
} // namespace

// What the compiler knows cannot be wrong at run time.
static_assert(Civil::daysOf(1970, 1, 1) == 0);
static_assert(Civil::daysOf(2000, 3, 1) == 11'017);
static_assert(Civil::daysOf(1969, 12, 31) == -1);
static_assert(Civil::dateOf(11'016).month == 2 && Civil::dateOf(11'016).day == 29);
static_assert(Civil::isLeapYear(2000) && Civil::isLeapYear(2008));
static_assert(!Civil::isLeapYear(1900) && !Civil::isLeapYear(2007));
static_assert(Civil::daysInMonth(2008, 2) == 29 && Civil::daysInMonth(2007, 2) == 28);
static_assert(Civil::daysInMonth(2007, 4) == 30 && Civil::daysInMonth(2007, 12) == 31);

TEST(CivilDate, CountsDaysAsQtDoes)
{
    for (QDate date(1, 1, 1); date.year() < 10'000; date = date.addDays(29)) {
        const qint64 days = daysByQt(date);
        ASSERT_EQ(Civil::daysOf(date.year(), date.month(), date.day()), days);
        const CivilDate back = Civil::dateOf(days);
        ASSERT_EQ(back.year, date.year());
        ASSERT_EQ(back.month, date.month());
        ASSERT_EQ(back.day, date.day());
        ASSERT_EQ(Civil::weekdayOf(days), date.dayOfWeek() % 7 + 1);
    }
}

TEST(CivilDate, CountsEveryDayOfALeapCycle)
{
    qint64 days = Civil::daysOf(1999, 1, 1);
    for (qint64 year = 1999; year <= 2008; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= Civil::daysInMonth(year, month); ++day, ++days) {
                const CivilDate date = Civil::dateOf(days);
                ASSERT_EQ(Civil::daysOf(year, month, day), days);
                ASSERT_TRUE(date.year == year && date.month == month && date.day == day);
            }
        }
    }
    EXPECT_EQ(days, Civil::daysOf(2009, 1, 1));
}

TEST(CivilDate, KnowsYearsBeforeTheFirst)
{
    EXPECT_EQ(Civil::daysOf(0, 12, 31), Civil::daysOf(1, 1, 1) - 1);
    EXPECT_EQ(Civil::dateOf(Civil::daysOf(-400, 2, 29)).day, 29);
    EXPECT_EQ(Civil::dateOf(Civil::daysOf(-1, 7, 4)).year, -1);
    EXPECT_EQ(Civil::weekdayOf(Civil::daysOf(-400, 1, 2)),
              Civil::weekdayOf(Civil::daysOf(2000, 1, 2)));
}

TEST(CivilDate, RoundsTimesDownToDays)
{
    EXPECT_EQ(Civil::daysOfTime(0), 0);
    EXPECT_EQ(Civil::daysOfTime(Civil::MillisecondsPerDay - 1), 0);
    EXPECT_EQ(Civil::daysOfTime(Civil::MillisecondsPerDay), 1);
    EXPECT_EQ(Civil::daysOfTime(-1), -1);
    EXPECT_EQ(Civil::daysOfTime(-Civil::MillisecondsPerDay), -1);
    EXPECT_EQ(Civil::daysOfTime(-Civil::MillisecondsPerDay - 1), -2);
}

TEST(CivilDate, TrustsOnlyYearsFromOneToFourDigits)
{
    const auto timeOf = [](int year, int month, int day) {
        return Civil::daysOf(year, month, day) * Civil::MillisecondsPerDay;
    };
    EXPECT_FALSE(Civil::isSafe(timeOf(1, 1, 1)));
    EXPECT_TRUE(Civil::isSafe(timeOf(1, 1, 2)));
    EXPECT_TRUE(Civil::isSafe(timeOf(1582, 10, 10)));
    EXPECT_TRUE(Civil::isSafe(timeOf(9999, 12, 30)));
    EXPECT_FALSE(Civil::isSafe(timeOf(9999, 12, 31)));
}
