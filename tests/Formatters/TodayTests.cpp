#include <KTUtility/Formatters/Today_p.h>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QTimeZone>

#include <array>
#include <thread>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QDateTime noonNow(const QTimeZone &zone)
{
    const QDate today = QDateTime::currentDateTimeUtc().toTimeZone(zone).date();
    return QDateTime(today, QTime(12, 0), zone);
}

/// Expects today's noon in a calendar, also if midnight passes meanwhile.
void expectNoon(const NSCalendar &calendar)
{
    const QTimeZone zone = NSCalendar::systemTimeZone();
    const QDateTime before = noonNow(zone);
    const QDateTime noon = todayAtNoon(calendar);
    const QDateTime after = noonNow(zone);
    EXPECT_TRUE(noon == before || noon == after)
        << noon.toString(Qt::ISODate).toStdString() << ' ' << zone.id().toStdString();
}

/// Expects noon of a day to be today's through all of it, asked for as it passes.
void expectAllDayLong(const QDate &day, const QTimeZone &zone)
{
    constexpr qint64 QuarterOfAnHour = 900'000;
    const NSCalendar calendar(NSGregorianCalendar);
    const auto instantOf = [&](const QDate &of) {
        return QDateTime(of, QTime(12, 0), zone).toMSecsSinceEpoch();
    };
    for (qint64 now = instantOf(day.addDays(-1)); now < instantOf(day.addDays(2));
         now += QuarterOfAnHour) {
        const QDateTime clock = QDateTime::fromMSecsSinceEpoch(now, zone);
        EXPECT_EQ(todayAtNoon(calendar, now), QDateTime(clock.date(), QTime(12, 0), zone))
            << zone.id().toStdString() << ' ' << clock.toString(Qt::ISODate).toStdString();
    }
}

const char *const zones[] = {"America/New_York",  "Asia/Kathmandu", "Pacific/Kiritimati",
                             "Pacific/Pago_Pago", "Europe/Berlin",  "UTC"};
} // namespace

TEST(Today, IsNoonInTheMachinesZone)
{
    for (const char *zone : zones) {
        const EnvironmentGuard guard("TZ", zone);
        expectNoon(NSCalendar(NSGregorianCalendar));
    }
}

TEST(Today, IsTheSameInstantInEachCalendar)
{
    for (const char *zone : zones) {
        const EnvironmentGuard guard("TZ", zone);
        expectNoon(NSCalendar(NSJapaneseCalendar));
        expectNoon(NSCalendar(NSGregorianCalendar));
        expectNoon(NSCalendar::calendarOfLocale(NSLocale(u"th_TH"_s)));
    }
}

TEST(Today, FollowsAZoneThatChangesBetweenTwoTexts)
{
    const EnvironmentGuard guard("TZ", "Pacific/Kiritimati");
    const QDateTime first = todayAtNoon(NSCalendar(NSGregorianCalendar));
    qputenv("TZ", "Pacific/Pago_Pago");
    const QDateTime second = todayAtNoon(NSCalendar(NSGregorianCalendar));
    // A day and an hour lie between the two zones, which may have the same date or not.
    constexpr qint64 Day = 24 * 3600;
    EXPECT_NE(first, second);
    EXPECT_EQ((first.secsTo(second) % Day + Day) % Day, 3600);
}

TEST(Today, IsRememberedWhileTheDayLasts)
{
    const NSCalendar calendar(NSGregorianCalendar);
    for (int attempt = 0; attempt < 1000; ++attempt)
        expectNoon(calendar);
}

TEST(Today, IsTheSameForEachThread)
{
    const EnvironmentGuard guard("TZ", "Asia/Kathmandu");
    const NSCalendar calendar(NSGregorianCalendar);
    const QDateTime before = todayAtNoon(calendar);
    QDateTime other;
    std::thread([&] { other = todayAtNoon(calendar); }).join();
    EXPECT_TRUE(other == before || other == todayAtNoon(calendar));
}

TEST(Today, EndsAtMidnightWhereSummerTimeBeginsOrEndsThere)
{
    struct Row
    {
        const char *zone;
        QDate day;
    };
    // 0:00 is skipped in the first four, and exists twice in the others; Samoa skips a whole day.
    const std::array rows{
        Row{"Asia/Beirut", QDate(2026, 3, 29)},     Row{"Africa/Cairo", QDate(2026, 4, 24)},
        Row{"America/Havana", QDate(2026, 3, 8)},   Row{"America/Santiago", QDate(2026, 9, 6)},
        Row{"America/Havana", QDate(2026, 11, 1)},  Row{"Asia/Beirut", QDate(2026, 10, 25)},
        Row{"America/New_York", QDate(2026, 3, 8)}, Row{"Pacific/Apia", QDate(2011, 12, 29)}};
    for (const Row &row : rows) {
        const EnvironmentGuard guard("TZ", row.zone);
        expectAllDayLong(row.day, QTimeZone(row.zone));
    }
}
