#include <KTUtility/NSDate_KTAdditions>

#include <KTUtility/NSCalendar>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "Formatters/FormatterSupport.h"
#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QTimeZone>

#include <limits>
#include <map>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QDateTime instant(double secondsSince1970)
{
    return QDateTime::fromMSecsSinceEpoch(qRound64(secondsSince1970 * 1000), KTPrivate::UTC);
}

double secondsOf(const QDateTime &date)
{
    return double(date.toMSecsSinceEpoch()) / 1000;
}

QDateTime local(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return NSCalendar::currentCalendar().dateFromComponents({.year = year,
                                                             .month = month,
                                                             .day = day,
                                                             .hour = hour,
                                                             .minute = minute,
                                                             .second = second});
}

using Adding = QDateTime (*)(const QDateTime &, int);

double answerOf(const QString &operation, const QJsonObject &arguments)
{
    const QDateTime date = instant(arguments.value(u"t").toDouble());
    const std::map<QString, Adding> adding = {
        {u"dateByAddingYears:"_s, KTAdditions::dateByAddingYears},
        {u"dateByAddingMonths:"_s, KTAdditions::dateByAddingMonths},
        {u"dateByAddingDays:"_s, KTAdditions::dateByAddingDays},
        {u"dateByAddingHours:"_s, KTAdditions::dateByAddingHours},
        {u"dateByAddingSeconds:"_s, KTAdditions::dateByAddingSeconds},
    };
    if (const auto found = adding.find(operation); found != adding.end())
        return secondsOf(found->second(date, arguments.value(u"n").toInt()));
    if (operation == u"beginningOfDay")
        return secondsOf(KTAdditions::beginningOfDay(date));
    if (operation == u"endOfDay")
        return secondsOf(KTAdditions::endOfDay(date));
    if (operation == u"secondsSinceMidnight")
        return KTAdditions::secondsSinceMidnight(date);
    EXPECT_EQ(operation, u"secondOfDay"_s);
    const QTimeZone zone(arguments.value(u"dateTimeZone").toString().toUtf8());
    return KTAdditions::secondOfDay(date.toTimeZone(zone));
}
} // namespace

TEST(NSDate_KTAdditions, AnswersWhatTheTableSays)
{
    const QList<QJsonObject> rows = rowsOf(u"system/dates.jsonl"_s);
    EXPECT_EQ(rows.size(), 138);
    for (const QJsonObject &row : rows) {
        SCOPED_TRACE(row.value(u"op").toString().toStdString() + ' ' +
                     std::to_string(row.value(u"args")[u"t"].toDouble()) + ' ' +
                     row.value(u"tz").toString().toStdString());
        const EnvironmentGuard zone("TZ", row.value(u"tz").toString().toUtf8());
        EXPECT_EQ(answerOf(row.value(u"op").toString(), row.value(u"args").toObject()),
                  row.value(u"out").toDouble());
    }
}

TEST(NSDate_KTAdditions, RunsItsExample)
{
    const QDateTime now = local(2008, 3, 5, 13, 45, 30).addMSecs(750);
    EXPECT_EQ(KTAdditions::beginningOfDay(now), local(2008, 3, 5));
    EXPECT_EQ(KTAdditions::endOfDay(now), local(2008, 3, 5, 23, 59, 59));
    EXPECT_EQ(KTAdditions::dateByAddingMonths(now, 1), local(2008, 4, 5, 13, 45, 30).addMSecs(750));
    EXPECT_EQ(KTAdditions::secondsSinceMidnight(now), 49530.0);
}

TEST(NSDate_KTAdditions, EndsInTheLastDayOfMonthsThatAreTooShort)
{
    EXPECT_EQ(KTAdditions::dateByAddingMonths(local(2008, 1, 31), 1), local(2008, 2, 29));
    EXPECT_EQ(KTAdditions::dateByAddingMonths(local(2007, 1, 31), 1), local(2007, 2, 28));
    EXPECT_EQ(KTAdditions::dateByAddingYears(local(2008, 2, 29), 1), local(2009, 2, 28));
    EXPECT_EQ(KTAdditions::dateByAddingMonths(local(2008, 3, 31), -1), local(2008, 2, 29));
}

TEST(NSDate_KTAdditions, NegativeAmountsMoveBackwards)
{
    const QDateTime date = local(2008, 3, 5, 12);
    EXPECT_EQ(KTAdditions::dateByAddingYears(date, -1), local(2007, 3, 5, 12));
    EXPECT_EQ(KTAdditions::dateByAddingDays(date, -5), local(2008, 2, 29, 12));
    EXPECT_EQ(KTAdditions::dateByAddingHours(date, -13), local(2008, 3, 4, 23));
    EXPECT_EQ(KTAdditions::dateByAddingSeconds(date, -1), local(2008, 3, 5, 11, 59, 59));
    EXPECT_EQ(KTAdditions::dateByAddingDays(date, 0), date);
}

TEST(NSDate_KTAdditions, TakesDaysOf23And25Hours)
{
    const EnvironmentGuard zone("TZ", "America/New_York");
    for (const auto &[day, hours] :
         {std::pair(local(2008, 3, 9, 12), 23), std::pair(local(2008, 11, 2, 12), 25)}) {
        const QDateTime begin = KTAdditions::beginningOfDay(day);
        const QDateTime end = KTAdditions::endOfDay(day);
        EXPECT_EQ(begin.secsTo(end), hours * 3600 - 1);
        EXPECT_EQ(KTAdditions::secondsSinceMidnight(begin), 0);
        EXPECT_EQ(KTAdditions::secondsSinceMidnight(end), 86399);
        EXPECT_EQ(KTAdditions::secondsSinceMidnight(day), 43200);
    }
}

TEST(NSDate_KTAdditions, DaysWithoutMidnightBeginLater)
{
    const EnvironmentGuard zone("TZ", "America/Sao_Paulo");
    // Summer time began at midnight, so that the day begins at one o'clock.
    const QDateTime noon = local(2008, 10, 19, 12);
    const QDateTime begin = KTAdditions::beginningOfDay(noon);
    EXPECT_EQ(KTAdditions::secondsSinceMidnight(begin), 3600);
    EXPECT_EQ(KTAdditions::endOfDay(local(2008, 10, 18, 12)), begin.addSecs(-1));
    EXPECT_EQ(KTAdditions::secondsSinceMidnight(begin.addSecs(-1)), 86399);
}

TEST(NSDate_KTAdditions, DaysWithTwoMidnightsBeginAndEndOnce)
{
    for (const auto &[name, year, month, day] :
         {std::tuple("America/Havana", 2008, 10, 26), std::tuple("Asia/Amman", 2000, 9, 29),
          std::tuple("Atlantic/Azores", 2000, 10, 29), std::tuple("Asia/Gaza", 2004, 10, 1)}) {
        SCOPED_TRACE(name);
        const EnvironmentGuard zone("TZ", name);
        const QDateTime begin = KTAdditions::beginningOfDay(local(year, month, day, 12));
        const QDateTime end = KTAdditions::endOfDay(local(year, month, day, 12));
        EXPECT_EQ(begin.secsTo(end), 25 * 3600 - 1);
        EXPECT_EQ(KTAdditions::secondsSinceMidnight(begin), 0);
        EXPECT_EQ(KTAdditions::secondsSinceMidnight(begin.addSecs(-1)), 86399);
        EXPECT_EQ(KTAdditions::endOfDay(begin.addSecs(-1)), begin.addSecs(-1));
        for (const int seconds : {0, 1800, 3599, 3600, 5400, 90000 - 1}) {
            EXPECT_EQ(KTAdditions::beginningOfDay(begin.addSecs(seconds)), begin) << seconds;
            EXPECT_EQ(KTAdditions::endOfDay(begin.addSecs(seconds)), end) << seconds;
        }
    }
}

TEST(NSDate_KTAdditions, CountsInOtherCalendars)
{
    NSLocale::setCurrentLocale(NSLocale(u"ja_JP@calendar=japanese"_s));
    const QDateTime date = instant(1204718400);
    EXPECT_EQ(KTAdditions::secondsSinceMidnight(KTAdditions::beginningOfDay(date)), 0);
    EXPECT_EQ(KTAdditions::dateByAddingYears(KTAdditions::dateByAddingYears(date, 30), -30), date);
    NSLocale::resetCurrentLocale();
}

TEST(NSDate_KTAdditions, CalendarDatesCountInTheirOwnZone)
{
    const QDateTime date(QDate(2008, 3, 5), QTime(13, 45, 30, 750), QTimeZone("Asia/Kolkata"));
    EXPECT_EQ(KTAdditions::secondOfDay(date), 49530);
    EXPECT_EQ(KTAdditions::secondOfDay(date.toUTC()), 49530 - 19800);
}

TEST(NSDate_KTAdditions, InvalidDatesAndTheLimitsOfTheCalendar)
{
    const QDateTime none;
    EXPECT_FALSE(KTAdditions::beginningOfDay(none).isValid());
    EXPECT_FALSE(KTAdditions::endOfDay(none).isValid());
    EXPECT_FALSE(KTAdditions::dateByAddingDays(none, 1).isValid());
    EXPECT_EQ(KTAdditions::secondsSinceMidnight(none), 0);
    EXPECT_EQ(KTAdditions::secondOfDay(none), 0);
    const int most = std::numeric_limits<int>::max() - 1;
    const QDateTime date = local(2008, 3, 5);
    for (const int years : {5'900'000, 11'000'000, 12'000'000, most}) {
        EXPECT_FALSE(KTAdditions::dateByAddingYears(date, years).isValid()) << years;
        EXPECT_FALSE(KTAdditions::dateByAddingYears(date, -years).isValid()) << years;
    }
    EXPECT_FALSE(KTAdditions::dateByAddingMonths(date, most).isValid());
    EXPECT_FALSE(KTAdditions::dateByAddingMonths(date, -most).isValid());
    EXPECT_TRUE(KTAdditions::dateByAddingYears(date, 5'000'000).isValid());
    EXPECT_EQ(KTAdditions::dateByAddingSeconds(date, most), date.addSecs(most));
    EXPECT_EQ(KTAdditions::dateByAddingSeconds(date, -most), date.addSecs(-most));
}

TEST(NSDate_KTAdditions, AllIntegersAreAmounts)
{
    // The greatest one is also what marks a component as missing.
    const QDateTime date = local(2008, 3, 5);
    const int greatest = std::numeric_limits<int>::max();
    EXPECT_EQ(KTAdditions::dateByAddingSeconds(date, greatest), date.addSecs(greatest));
    EXPECT_EQ(KTAdditions::dateByAddingSeconds(date, std::numeric_limits<int>::min()),
              date.addSecs(std::numeric_limits<int>::min()));
}

TEST(NSDate_KTAdditions, EveryInstantBesideAChangeIsInItsDay)
{
    // All changes of all zones, and what lies an instant to an hour before and behind them.
    int changes = 0;
    const QList<QByteArray> zones = QTimeZone::availableTimeZoneIds();
    for (const QByteArray &name : zones) {
        const QTimeZone zone(name);
        const EnvironmentGuard guard("TZ", name);
        for (const auto &change : zone.transitions(instant(-5e9), instant(2.2e9))) {
            ++changes;
            for (const int seconds : {-3601, -1800, -1, 0, 1, 30, 1800, 3600, 5400}) {
                const QDateTime moment = change.atUtc.addSecs(seconds);
                const QDateTime begin = KTAdditions::beginningOfDay(moment);
                const QDateTime end = KTAdditions::endOfDay(moment);
                ASSERT_LE(begin, moment) << name.constData();
                ASSERT_LE(moment, end) << name.constData();
                ASSERT_EQ(KTAdditions::beginningOfDay(begin), begin) << name.constData();
                ASSERT_EQ(KTAdditions::endOfDay(end), end) << name.constData();
                ASSERT_EQ(KTAdditions::beginningOfDay(end.addSecs(1)), end.addSecs(1));
                ASSERT_EQ(KTAdditions::endOfDay(begin.addSecs(-1)), begin.addSecs(-1));
            }
        }
    }
    EXPECT_GT(changes, 10'000);
}

TEST(NSDate_KTAdditions, DaysOfLeapMonthsAreThoseOfTheClock)
{
    const EnvironmentGuard zone("TZ", "Europe/Berlin");
    for (const QString &locale : {u"en_US@calendar=chinese"_s, u"en_US@calendar=dangi"_s}) {
        NSLocale::setCurrentLocale(NSLocale(locale));
        // In the second second month of 2004.
        const QDateTime moment = instant(1081577744);
        EXPECT_EQ(KTAdditions::beginningOfDay(moment), instant(1081548000));
        EXPECT_EQ(KTAdditions::endOfDay(moment), instant(1081634399));
        NSLocale::resetCurrentLocale();
    }
}
