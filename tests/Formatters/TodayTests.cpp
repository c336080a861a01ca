#include <KTUtility/Formatters/Today_p.h>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QTimeZone>

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
    // A day and an hour lie between the two zones.
    EXPECT_NE(first, second);
    EXPECT_EQ(first.secsTo(second) % (24 * 3600), 3600);
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
