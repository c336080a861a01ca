#include <KTUtility/NSCalendar>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <random>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
NSCalendar calendarOf(const char *zone, const QString &identifier = NSGregorianCalendar)
{
    NSCalendar calendar(identifier);
    calendar.setLocale(NSLocale(u"en_US"_s));
    calendar.setTimeZone(QTimeZone(zone));
    return calendar;
}

QDateTime utc(const char *text)
{
    const QDateTime date = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODate);
    return QDateTime(date.date(), date.time(), KTPrivate::UTC);
}

constexpr NSCalendarUnits AllUnits = NSDateCalendarUnits | NSTimeCalendarUnits |
                                     NSWeekCalendarUnit | NSWeekdayCalendarUnit |
                                     NSWeekdayOrdinalCalendarUnit;
} // namespace

TEST(NSCalendar, RunsItsExample)
{
    NSCalendar calendar = calendarOf("America/New_York");
    NSDateComponents day = calendar.components(NSDateCalendarUnits, utc("2008-03-05T02:00:00"));
    EXPECT_EQ(day, (NSDateComponents{.era = 1, .year = 2008, .month = 3, .day = 4}));
    day.hour = 12;
    EXPECT_EQ(calendar.dateFromComponents(day), utc("2008-03-04T17:00:00"));
}

TEST(NSCalendar, UnitsAreTheBitsOfThePlatform)
{
    EXPECT_EQ(NSDateCalendarUnits, 30U);
    EXPECT_EQ(NSTimeCalendarUnits, 224U);
    EXPECT_EQ(NSEraCalendarUnit | NSYearCalendarUnit | NSMonthCalendarUnit | NSDayCalendarUnit,
              NSDateCalendarUnits);
    EXPECT_EQ(NSHourCalendarUnit | NSMinuteCalendarUnit | NSSecondCalendarUnit,
              NSTimeCalendarUnits);
    EXPECT_EQ(NSWeekCalendarUnit + NSWeekdayCalendarUnit + NSWeekdayOrdinalCalendarUnit, 1792U);
}

TEST(NSCalendar, TakesInstantsApart)
{
    const NSCalendar calendar = calendarOf("UTC");
    const NSDateComponents components = calendar.components(AllUnits, utc("2008-03-05T14:30:15"));
    const NSDateComponents expected{1, 2008, 3, 5, 14, 30, 15, 10, 4, 1};
    EXPECT_EQ(components, expected);
    EXPECT_EQ(calendar.components(NSYearCalendarUnit, utc("2008-03-05T14:30:15")),
              (NSDateComponents{.year = 2008}));
    EXPECT_EQ(calendar.components(AllUnits, QDateTime()), NSDateComponents());
    EXPECT_EQ(calendar.components(NSYearCalendarUnit | NSEraCalendarUnit,
                                  utc("0001-01-01T00:00:00").addDays(-400)),
              (NSDateComponents{.era = 0, .year = 2}));
}

TEST(NSCalendar, FillsInTheStartOfEverything)
{
    const NSCalendar calendar = calendarOf("UTC");
    EXPECT_EQ(calendar.dateFromComponents({.year = 2001}), utc("2001-01-01T00:00:00"));
    EXPECT_EQ(calendar.dateFromComponents({.year = 2001, .month = 2}), utc("2001-02-01T00:00:00"));
    EXPECT_EQ(calendar.dateFromComponents({.year = 2001, .hour = 12}), utc("2001-01-01T12:00:00"));
    EXPECT_EQ(calendar.dateFromComponents({.year = 2001, .month = 4, .day = 31}),
              utc("2001-05-01T00:00:00"));
    EXPECT_EQ(calendar.dateFromComponents({.year = 2001, .month = 14}), utc("2002-02-01T00:00:00"));
    EXPECT_FALSE(calendar.dateFromComponents({}).isValid());
    EXPECT_EQ(calendar.components(NSYearCalendarUnit, calendar.dateFromComponents({.hour = 3})),
              (NSDateComponents{.year = 1}));
}

TEST(NSCalendar, MendsSkippedAndDoubledTimes)
{
    const NSCalendar calendar = calendarOf("America/New_York");
    const auto at = [&](int month, int day, int hour, int minute) {
        return calendar.dateFromComponents(
            {.year = 2008, .month = month, .day = day, .hour = hour, .minute = minute});
    };
    EXPECT_EQ(at(3, 9, 2, 30), utc("2008-03-09T07:30:00"));
    EXPECT_EQ(at(3, 9, 3, 30), utc("2008-03-09T07:30:00"));
    EXPECT_EQ(at(11, 2, 1, 30), utc("2008-11-02T06:30:00"));
}

TEST(NSCalendar, KnowsOddZones)
{
    const auto noon = [](const char *zone, int year, int month, int day) {
        return calendarOf(zone).dateFromComponents(
            {.year = year, .month = month, .day = day, .hour = 12});
    };
    EXPECT_EQ(noon("Asia/Kathmandu", 2008, 3, 5), utc("2008-03-05T06:15:00"));
    EXPECT_EQ(noon("America/St_Johns", 2008, 1, 5), utc("2008-01-05T15:30:00"));
    EXPECT_EQ(noon("Australia/Lord_Howe", 2008, 1, 5), utc("2008-01-05T01:00:00"));
    EXPECT_EQ(noon("Australia/Lord_Howe", 2008, 7, 5), utc("2008-07-05T01:30:00"));
    EXPECT_EQ(noon("Pacific/Apia", 2011, 12, 29), utc("2011-12-29T22:00:00"));
    // Samoa had no 30 December 2011.
    EXPECT_EQ(noon("Pacific/Apia", 2011, 12, 30), utc("2011-12-30T22:00:00"));
    EXPECT_EQ(noon("Pacific/Apia", 2011, 12, 31), utc("2011-12-30T22:00:00"));
    EXPECT_EQ(noon("UTC+05:30", 2008, 1, 5), utc("2008-01-05T06:30:00"));
}

TEST(NSCalendar, IsGregorianForAllTimes)
{
    // The ISO and the Buddhist calendar are left to ICU; the others are not.
    for (const QString &identifier : {NSGregorianCalendar, u"iso8601"_s, u"buddhist"_s}) {
        const NSCalendar calendar = calendarOf("UTC", identifier);
        const int years = identifier == u"buddhist" ? 543 : 0;
        const auto dateOf = [&](int year, int month, int day) {
            return calendar.dateFromComponents({.year = year + years, .month = month, .day = day});
        };
        EXPECT_EQ(dateOf(1582, 10, 15), utc("1582-10-15T00:00:00"));
        EXPECT_EQ(dateOf(1582, 10, 10), utc("1582-10-10T00:00:00"));
        EXPECT_EQ(dateOf(1500, 1, 1), utc("1500-01-01T00:00:00"));
        EXPECT_EQ(dateOf(1500, 2, 29), utc("1500-03-01T00:00:00"));
        EXPECT_EQ(dateOf(1, 1, 1), utc("0001-01-01T00:00:00"));
        const NSDateComponents day =
            calendar.components(NSDateCalendarUnits, utc("1582-10-14T12:00:00"));
        EXPECT_EQ(day.year, 1582 + years);
        EXPECT_EQ(day.month, 10);
        EXPECT_EQ(day.day, 14);
        EXPECT_EQ(calendar.dateByAddingComponents({.day = 1}, utc("1582-10-04T00:00:00")),
                  utc("1582-10-05T00:00:00"));
        EXPECT_EQ(calendar.dateByAddingComponents({.month = 1}, utc("1500-01-31T00:00:00")),
                  utc("1500-02-28T00:00:00"));
    }
    // Before Christ, too; Qt has no year 0.
    const NSCalendar calendar = calendarOf("UTC");
    EXPECT_EQ(calendar.dateFromComponents({.era = 0, .year = 44, .month = 3, .day = 15}),
              QDateTime(QDate(-44, 3, 15), QTime(0, 0), KTPrivate::UTC));
    const QDateTime last = calendar.dateFromComponents({.year = 9999, .month = 12, .day = 31});
    EXPECT_EQ(last, utc("9999-12-31T00:00:00"));
}

TEST(NSCalendar, CountsChineseYearsInTheCurrentCycle)
{
    // A missing era is the current one, a cycle of sixty years: the fifth year of it is 1988.
    for (const QString &identifier : {u"chinese"_s, u"dangi"_s}) {
        const NSCalendar calendar = calendarOf("Asia/Shanghai", identifier);
        const QDateTime date =
            calendar.dateFromComponents({.year = 5, .month = 2, .day = 3, .hour = 12});
        EXPECT_EQ(date, utc("1988-03-20T04:00:00")) << qPrintable(identifier);
        EXPECT_EQ(calendar.components(NSEraCalendarUnit, date),
                  calendar.components(NSEraCalendarUnit, QDateTime::currentDateTimeUtc()));
    }
}

TEST(NSCalendar, CountsJapaneseYearsInEras)
{
    const NSCalendar calendar = calendarOf("Asia/Tokyo", NSJapaneseCalendar);
    const NSDateComponents heisei =
        calendar.components(NSDateCalendarUnits, utc("2008-03-05T03:00:00"));
    EXPECT_EQ(heisei.year, 20);
    EXPECT_EQ(calendar.dateFromComponents(heisei), utc("2008-03-04T15:00:00"));
    // Without an era, the year is one of the current era.
    const NSDateComponents bare = calendar.components(
        NSEraCalendarUnit, calendar.dateFromComponents({.year = 3, .month = 6}));
    EXPECT_EQ(bare, calendar.components(NSEraCalendarUnit, QDateTime::currentDateTimeUtc()));
}

TEST(NSCalendar, CountsInOtherCalendars)
{
    const QDateTime date = utc("2008-03-05T12:00:00");
    const auto yearIn = [&](const QString &identifier) {
        return calendarOf("UTC", identifier).components(NSYearCalendarUnit, date).year;
    };
    EXPECT_EQ(yearIn(u"buddhist"_s), 2551);
    EXPECT_EQ(yearIn(u"hebrew"_s), 5768);
    EXPECT_EQ(yearIn(u"persian"_s), 1386);
    EXPECT_EQ(yearIn(u"no calendar at all"_s), 2008);
    EXPECT_EQ(yearIn(QString()), 2008);
}

TEST(NSCalendar, AddsComponents)
{
    const NSCalendar calendar = calendarOf("America/New_York");
    const QDateTime date = utc("2008-01-31T17:00:00");
    EXPECT_EQ(calendar.dateByAddingComponents({.month = 1}, date), utc("2008-02-29T17:00:00"));
    EXPECT_EQ(calendar.dateByAddingComponents({.year = 1, .day = -1}, date),
              utc("2009-01-30T17:00:00"));
    EXPECT_EQ(calendar.dateByAddingComponents({.week = 10}, date), utc("2008-04-10T16:00:00"));
    EXPECT_EQ(calendar.dateByAddingComponents({.hour = 24}, utc("2008-03-08T17:00:00")),
              utc("2008-03-09T17:00:00"));
    EXPECT_EQ(calendar.dateByAddingComponents({.day = 1}, utc("2008-03-08T17:00:00")),
              utc("2008-03-09T16:00:00"));
    EXPECT_EQ(calendar.dateByAddingComponents({}, date), date);
    EXPECT_FALSE(calendar.dateByAddingComponents({.day = 1}, QDateTime()).isValid());
}

TEST(NSCalendar, MeasuresTheTimeBetween)
{
    const NSCalendar calendar = calendarOf("UTC");
    const QDateTime start = utc("2008-01-31T12:00:00");
    const QDateTime end = utc("2009-03-05T14:30:15");
    EXPECT_EQ(calendar.components(NSDateCalendarUnits & ~NSEraCalendarUnit, start, end),
              (NSDateComponents{.year = 1, .month = 1, .day = 5}));
    EXPECT_EQ(calendar.components(NSDayCalendarUnit | NSTimeCalendarUnits, start, end),
              (NSDateComponents{.day = 399, .hour = 2, .minute = 30, .second = 15}));
    EXPECT_EQ(calendar.components(NSWeekCalendarUnit, end, start), (NSDateComponents{.week = -57}));
    EXPECT_EQ(calendar.components(NSDayCalendarUnit, start, QDateTime()), NSDateComponents());
}

TEST(NSCalendar, TakesTheWeekFromTheLocale)
{
    const NSCalendar america = NSCalendar::calendarOfLocale(NSLocale(u"en_US"_s));
    EXPECT_EQ(america.calendarIdentifier(), NSGregorianCalendar);
    EXPECT_EQ(america.firstWeekday(), 1);
    EXPECT_EQ(america.minimumDaysInFirstWeek(), 1);
    NSCalendar germany = NSCalendar::calendarOfLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(germany.firstWeekday(), 2);
    EXPECT_EQ(germany.minimumDaysInFirstWeek(), 4);
    germany.setTimeZone(QTimeZone::utc());
    EXPECT_EQ(germany.components(NSWeekCalendarUnit, utc("2008-01-01T12:00:00")).week, 1);
    EXPECT_EQ(germany.components(NSWeekCalendarUnit, utc("2010-01-01T12:00:00")).week, 53);
    germany.setMinimumDaysInFirstWeek(1);
    EXPECT_EQ(germany.components(NSWeekCalendarUnit, utc("2010-01-01T12:00:00")).week, 1);
    germany.setFirstWeekday(7);
    EXPECT_EQ(germany.firstWeekday(), 7);
}

TEST(NSCalendar, IsTheLocalesOwn)
{
    const NSLocale japan(u"ja_JP@calendar=japanese"_s);
    EXPECT_EQ(NSCalendar::calendarOfLocale(japan).calendarIdentifier(), NSJapaneseCalendar);
    EXPECT_EQ(NSCalendar::calendarOfLocale(japan).locale(), japan);
    EXPECT_EQ(NSCalendar::currentCalendar().calendarIdentifier(), NSGregorianCalendar);
    EXPECT_EQ(NSCalendar(), NSCalendar::currentCalendar());
    EXPECT_NE(NSCalendar(NSJapaneseCalendar), NSCalendar(NSGregorianCalendar));
}

TEST(NSCalendar, FollowsTheVariableOfTheZone)
{
    const EnvironmentGuard guard("TZ", "Asia/Kathmandu");
    EXPECT_EQ(NSCalendar::systemTimeZone().id(), "Asia/Kathmandu");
    qputenv("TZ", "Europe/Berlin");
    EXPECT_EQ(NSCalendar::systemTimeZone().id(), "Europe/Berlin");
    EXPECT_EQ(NSCalendar(NSGregorianCalendar).timeZone().id(), "Europe/Berlin");
    NSCalendar::resetSystemTimeZone();
    EXPECT_EQ(NSCalendar::systemTimeZone().id(), "Europe/Berlin");
    EXPECT_EQ(
        NSCalendar(NSGregorianCalendar).dateFromComponents({.year = 2008, .month = 1, .day = 1}),
        utc("2007-12-31T23:00:00"));
}

TEST(NSCalendar, AgreesWithQtOnDaysOfTheGregorianCalendar)
{
    const NSCalendar calendar = calendarOf("UTC");
    for (QDate day(1900, 1, 1); day.year() < 2101; day = day.addDays(37)) {
        const QDateTime noon(day, QTime(12, 0), KTPrivate::UTC);
        const NSDateComponents components =
            calendar.components(NSDateCalendarUnits | NSWeekdayCalendarUnit, noon);
        const NSDateComponents expected{.era = 1,
                                        .year = day.year(),
                                        .month = day.month(),
                                        .day = day.day(),
                                        .weekday = day.dayOfWeek() % 7 + 1};
        ASSERT_EQ(components, expected);
    }
}

TEST(NSCalendar, ComputesPlainDatesAsICUDoes)
{
    // The ISO calendar has the same days, and no way of its own in our code.
    std::mt19937 random(1582);
    std::uniform_int_distribution<qint64> seconds(-62'100'000'000, 253'000'000'000);
    constexpr NSCalendarUnits Units =
        NSDateCalendarUnits | NSTimeCalendarUnits | NSWeekdayCalendarUnit;
    for (const char *const zone : {"America/New_York", "Australia/Lord_Howe", "Pacific/Apia"}) {
        const NSCalendar ours = calendarOf(zone);
        const NSCalendar other = calendarOf(zone, u"iso8601"_s);
        for (int count = 0; count < 3000; ++count) {
            const qint64 time = count % 2 == 0 ? seconds(random) : seconds(random) / 100;
            const QDateTime date = QDateTime::fromMSecsSinceEpoch(time * 1000, KTPrivate::UTC);
            NSDateComponents components = ours.components(Units, date);
            ASSERT_EQ(components, other.components(Units, date)) << time;
            components.weekday = NSUndefinedDateComponent;
            ASSERT_EQ(ours.dateFromComponents(components), other.dateFromComponents(components));
        }
    }
}

TEST(NSCalendar, FindsTheInstantsAroundEveryChangeOfClocks)
{
    for (const char *const zone : {"America/New_York", "Australia/Lord_Howe", "Pacific/Apia",
                                   "Africa/Casablanca", "America/St_Johns", "Europe/Dublin"}) {
        const NSCalendar ours = calendarOf(zone);
        const NSCalendar other = calendarOf(zone, u"iso8601"_s);
        for (const auto &change :
             QTimeZone(zone).transitions(utc("1960-01-01T00:00:00"), utc("2036-12-31T00:00:00"))) {
            for (int minutes = -180; minutes <= 180; minutes += 15) {
                const QDateTime local = change.atUtc.addSecs(change.offsetFromUtc + minutes * 60);
                const NSDateComponents components{.year = local.date().year(),
                                                  .month = local.date().month(),
                                                  .day = local.date().day(),
                                                  .hour = local.time().hour(),
                                                  .minute = local.time().minute(),
                                                  .second = local.time().second()};
                ASSERT_EQ(ours.dateFromComponents(components), other.dateFromComponents(components))
                    << zone << ' ' << qPrintable(local.toString(Qt::ISODate));
            }
        }
    }
}

TEST(NSCalendar, LeapMonthsComeAndGoWithTheMonth)
{
    for (const QString &identifier : {u"chinese"_s, u"dangi"_s}) {
        const NSCalendar calendar = calendarOf("Europe/Berlin", identifier);
        int leapDays = 0;
        for (int day = 0; day < 8'000; ++day) {
            const QDateTime instant = utc("2000-01-01T12:00:00").addDays(day);
            const NSDateComponents parts =
                calendar.components(NSDateCalendarUnits | NSTimeCalendarUnits, instant);
            leapDays += parts.leapMonth ? 1 : 0;
            ASSERT_EQ(calendar.dateFromComponents(parts), instant) << day;
        }
        // Seven months in 19 years.
        EXPECT_GT(leapDays, 7 * 29) << identifier.toStdString();
        EXPECT_LT(leapDays, 9 * 31) << identifier.toStdString();
    }
    EXPECT_FALSE(
        calendarOf("UTC").components(NSDateCalendarUnits, utc("2008-03-05T12:00:00")).leapMonth);
}

TEST(NSCalendar, DaysBeginWhereTheClockReachesThem)
{
    struct Case
    {
        const char *zone;
        const char *instant;
        const char *start;
        const char *next;
    };
    // All in UTC.
    for (const Case &each : {
             // An ordinary day, and one whose midnight is skipped.
             Case{"America/New_York", "2008-03-05T18:45:30", "2008-03-05T05:00:00",
                  "2008-03-06T05:00:00"},
             Case{"America/Sao_Paulo", "2008-10-19T15:00:00", "2008-10-19T03:00:00",
                  "2008-10-20T02:00:00"},
             // 23:00 becomes 0:00, 23:30 becomes 0:30.
             Case{"Europe/Lisbon", "1931-04-18T22:30:00", "1931-04-18T00:00:00",
                  "1931-04-18T23:00:00"},
             Case{"America/Toronto", "1919-03-31T17:00:00", "1919-03-31T04:30:00",
                  "1919-04-01T04:00:00"},
             // 0:01 becomes 23:01: the first minute of the new day, and the hour that comes back.
             Case{"America/St_Johns", "2010-11-07T02:30:30", "2010-11-06T02:30:00",
                  "2010-11-07T03:30:00"},
             Case{"America/St_Johns", "2010-11-07T02:45:00", "2010-11-06T02:30:00",
                  "2010-11-07T03:30:00"},
             Case{"America/St_Johns", "2010-11-07T03:30:00", "2010-11-07T03:30:00",
                  "2010-11-08T03:30:00"},
             // A day that there was not.
             Case{"Pacific/Apia", "2011-12-30T09:00:00", "2011-12-29T10:00:00",
                  "2011-12-30T10:00:00"},
         }) {
        SCOPED_TRACE(std::string(each.zone) + ' ' + each.instant);
        const NSCalendar calendar = calendarOf(each.zone);
        EXPECT_EQ(calendar.startOfDay(utc(each.instant)), utc(each.start));
        EXPECT_EQ(calendar.startOfNextDay(utc(each.instant)), utc(each.next));
    }
    EXPECT_FALSE(NSCalendar().startOfDay(QDateTime()).isValid());
    EXPECT_FALSE(NSCalendar().startOfNextDay(QDateTime()).isValid());
}

TEST(NSCalendar, AmountsThatLeadBeyondTheEndHaveNoDate)
{
    const NSCalendar calendar = calendarOf("UTC");
    constexpr int Most = NSUndefinedDateComponent - 1;
    const QDateTime date = utc("2008-03-05T12:00:00");
    EXPECT_FALSE(calendar.dateByAddingComponents({.day = Most}, date).isValid());
    EXPECT_FALSE(calendar.dateByAddingComponents({.day = -Most}, date).isValid());
    EXPECT_FALSE(calendar.dateByAddingComponents({.week = Most}, date).isValid());
    EXPECT_TRUE(calendar.dateByAddingComponents({.day = Most / 2}, date).isValid());
    EXPECT_TRUE(calendar.dateByAddingComponents({.hour = Most}, date).isValid());
}
