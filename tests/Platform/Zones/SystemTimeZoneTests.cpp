#include <KTUtility/NSCalendar>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/Platform/Zones/SystemTimeZone_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include "support/LibcZone.h"
#include "support/TestSupport.h"

#include <filesystem>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
constexpr qint64 Hour = 3600;
constexpr qint64 Day = 24 * Hour;
constexpr qint64 EndOf2037 = 2'145'916'800;

/// The first difference to the C library from 1970 to 2037: one look every ten days, and all that
/// matters around each change.
std::optional<qint64> firstDifference(const TimeZoneRules &rules)
{
    const auto differs = [&rules](qint64 time) {
        return rules.offsetAt(time * 1000) != LibcZone::offsetAt(time) * 1000;
    };
    qint64 last = LibcZone::offsetAt(0);
    for (qint64 time = 0; time < EndOf2037; time += Day) {
        const qint64 now = LibcZone::offsetAt(time);
        if (now == last && time % (10 * Day) != 0)
            continue;
        // A change within the last day, to the second.
        qint64 before = time - Day;
        qint64 after = time;
        while (now != last && after - before > 1) {
            const qint64 middle = (before + after) / 2;
            (LibcZone::offsetAt(middle) == last ? before : after) = middle;
        }
        for (const qint64 look : {before, after, time}) {
            if (look >= 0 && differs(look))
                return look;
        }
        last = now;
    }
    return {};
}

/// Every zone's name below the system's folder.
QList<QByteArray> namesOfZones()
{
    namespace fs = std::filesystem;
    const fs::path folder("/usr/share/zoneinfo");
    QList<QByteArray> names;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() &&
            contentsOf(QString::fromStdString(entry.path().string())).startsWith("TZif"))
            names += QByteArray::fromStdString(fs::relative(entry.path(), folder).string());
    }
    names.removeIf([](const QByteArray &name) { return name.startsWith("right/"); });
    return names;
}
} // namespace

TEST(SystemTimeZone, EveryZoneHasTheRulesOfTheSystem)
{
    const QList<QByteArray> names = namesOfZones();
    EXPECT_GT(names.size(), 300);
    for (const QByteArray &name : names) {
        const LibcZone libc(name);
        const QTimeZone zone = SystemTimeZone::zoneOf(name);
        ASSERT_TRUE(zone.isValid()) << name.data();
        EXPECT_EQ(firstDifference(TimeZoneRules::rulesOf(zone)), std::nullopt) << name.data();
    }
}

TEST(SystemTimeZone, EveryFormOfTheVariableIsReadAsTheCLibraryDoes)
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"copied zone"_s);
    // Tokyo has had no summer time since 1951, so that its file says all by its last rule.
    ASSERT_TRUE(QFile::copy(u"/usr/share/zoneinfo/Asia/Tokyo"_s, copy));
    const QByteArray forms[] = {
        "UTC",
        "UTC0",
        "GMT+3",
        "UTC+3",
        "UTC-5:30",
        "GMT0",
        "EST5EDT,M3.2.0,M11.1.0",
        "EST5EDT,M3.2.0/2:00:00,M11.1.0/2:00:00",
        "CET-1CEST,M3.5.0,M10.5.0/3",
        "<+0330>-3:30",
        "<-03>3<-02>,M3.5.0/-2,M10.5.0/-1",
        "NZST-12NZDT,M9.5.0,M4.1.0/3",
        "XYZ-5:45",
        ":Europe/Berlin",
        "posix/Europe/Berlin",
        "/usr/share/zoneinfo/America/Mexico_City",
        ":/usr/share/zoneinfo/Africa/Cairo",
        ":" + QFile::encodeName(copy),
        "Nowhere/City",
        "nonsense",
        "",
        ":",
        "/etc/passwd",
        "/nowhere",
    };
    for (const QByteArray &form : forms) {
        const LibcZone libc(form);
        const QTimeZone zone = SystemTimeZone::zoneOf(form);
        const TimeZoneRules &rules = TimeZoneRules::rulesOf(zone);
        EXPECT_EQ(firstDifference(rules), std::nullopt) << form.data();
    }
}

/// Not compared with what the C library does by itself: without a file of the name, glibc 2.41 lets
/// summer time end four hours early.
TEST(SystemTimeZone, EasternTimeByRuleIsThatOfNewYork)
{
    const LibcZone libc("America/New_York");
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(SystemTimeZone::zoneOf("EST5EDT"));
    EXPECT_EQ(firstDifference(rules), std::nullopt);
}

/// The days are those of New York. What the C library makes of the text itself depends on its
/// version and on the form of the zone data.
TEST(SystemTimeZone, SummerTimeWithoutDatesIsTheAmericanOne)
{
    const LibcZone newYork("America/New_York");
    const QTimeZone zone = SystemTimeZone::zoneOf("CET-1CEST");
    ASSERT_TRUE(zone.isValid());
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(zone);
    // Of the rule since 2007, and until 2037.
    for (int year = 2008; year < 2037; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const QDateTime date(QDate(year, month, 20), QTime(12, 0), QTimeZone::utc());
            const qint64 time = date.toSecsSinceEpoch();
            const qint64 expected = LibcZone::offsetAt(time) + 6 * Hour;
            ASSERT_EQ(rules.offsetAt(time * 1000), expected * 1000) << time;
        }
    }
}

TEST(SystemTimeZone, IsFollowedByCalendarsAndFormatters)
{
    struct Row
    {
        QByteArray variable;
        QDateTime utc;
        QString shown;
    };
    const auto at = [](int year, int month, int day, int hour) {
        return QDateTime(QDate(year, month, day), QTime(hour, 30), QTimeZone::utc());
    };
    // Mexico gave up summer time in 2022, Egypt took it up again in 2023, Kazakhstan has had one
    // zone since 2024.
    const Row rows[] = {
        {"America/Mexico_City", at(2026, 7, 15, 18), u"2026-07-15 12:30 -0600"_s},
        {"Africa/Cairo", at(2026, 7, 15, 9), u"2026-07-15 12:30 +0300"_s},
        {"Asia/Almaty", at(2026, 7, 15, 7), u"2026-07-15 12:30 +0500"_s},
        {"CET-1CEST", at(2026, 7, 15, 10), u"2026-07-15 12:30 +0200"_s},
        {"<-03>3<-02>,M3.5.0/-2,M10.5.0/-1", at(2026, 7, 15, 14), u"2026-07-15 12:30 -0200"_s},
    };
    for (const Row &row : rows) {
        const LibcZone libc(row.variable);
        NSCalendar::resetSystemTimeZone();
        NSDateFormatter formatter;
        formatter.setLocale(NSLocale(u"en_US_POSIX"_s));
        formatter.setDateFormat(u"yyyy-MM-dd HH:mm Z"_s);
        EXPECT_EQ(formatter.stringFromDate(row.utc), row.shown);
        EXPECT_EQ(formatter.dateFromString(row.shown), row.utc);
        const NSDateComponents fields =
            NSCalendar(NSGregorianCalendar)
                .components(NSHourCalendarUnit | NSWeekCalendarUnit, row.utc);
        EXPECT_EQ(fields.hour, 12);
    }
    NSCalendar::resetSystemTimeZone();
}
