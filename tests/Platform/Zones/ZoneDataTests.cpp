#include <KTUtility/NSCalendar>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/Platform/Zones/SystemTimeZone_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>
#include <KTUtility/Platform/Zones/ZoneData_p.h>

#include "support/EnvironmentGuard.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QProcess>

#include <filesystem>
#include <sched.h>
#include <sys/mount.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace fs = std::filesystem;

namespace {
constexpr char ZoneFolder[] = "/usr/share/zoneinfo";
/// What a process of these tests ends with where nobody may have a view of the files of one's own.
constexpr int NotAllowed = 77;

/// Puts a folder in the place of the system's zones, for this process alone.
bool showZonesOf(const fs::path &folder)
{
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           ::mount(folder.c_str(), ZoneFolder, nullptr, MS_BIND, nullptr) == 0;
}

/// A copy of some of the system's zones, with a new Berlin beside the old one that keeps the time
/// of Tokyo.
class ZonesOfTheirOwn : public testing::Test
{
protected:
    void SetUp() override
    {
        folder = fs::path(_folder.path().toStdString()) / "zones";
        fs::create_directories(folder);
        for (const char *const part : {"Europe", "Asia"})
            fs::copy(fs::path(ZoneFolder) / part, folder / part, fs::copy_options::recursive);
        fs::copy_file(fs::path(ZoneFolder) / "tzdata.zi", folder / "tzdata.zi");
        fs::copy_file(fs::path(ZoneFolder) / "zone1970.tab", folder / "zone1970.tab");
        fs::copy_file(fs::path(ZoneFolder) / "zone.tab", folder / "zone.tab");
        fs::copy_file(folder / "Asia/Tokyo", folder / "new Berlin");
    }

    /// Runs \a check in a process that sees the copy as the system's zones.
    void expectInOwnView(const std::function<bool()> &check) const
    {
        const OtherProcess process([this, &check] {
            if (!showZonesOf(folder))
                return NotAllowed;
            ZoneData::look();
            return check() ? 0 : 1;
        });
        const int code = process.exitCode();
        if (code == NotAllowed)
            GTEST_SKIP() << "This system lets no process have a view of the files of its own.";
        EXPECT_EQ(code, 0);
    }

    static void replaceBerlin()
    {
        fs::rename(fs::path(ZoneFolder) / "new Berlin", fs::path(ZoneFolder) / "Europe/Berlin");
        ZoneData::look();
    }

    fs::path folder;

private:
    QTemporaryDir _folder;
};

const QDateTime &noon()
{
    static const QDateTime date(QDate(2026, 7, 1), QTime(12, 0), QTimeZone::utc());
    return date;
}

int hoursOfBerlin()
{
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(QTimeZone("Europe/Berlin"));
    return rules.offsetAt(noon().toMSecsSinceEpoch()) / 3'600'000;
}
} // namespace

TEST(ZoneData, StaysTheSameWhileNothingChanges)
{
    const QByteArray before = ZoneData::fingerprint();
    const unsigned generation = ZoneData::generation();
    ZoneData::look();
    EXPECT_EQ(ZoneData::fingerprint(), before);
    EXPECT_EQ(ZoneData::generation(), generation);
    EXPECT_FALSE(before.isEmpty());
}

TEST_F(ZonesOfTheirOwn, ReplacedRulesCountInTheRunningProcess)
{
    expectInOwnView([] {
        const int before = hoursOfBerlin();
        const unsigned generation = ZoneData::generation();
        replaceBerlin();
        return before == 2 && hoursOfBerlin() == 9 && ZoneData::generation() == generation + 1;
    });
}

TEST_F(ZonesOfTheirOwn, FormattersAndCalendarsFollowReplacedRules)
{
    expectInOwnView([] {
        NSDateFormatter formatter;
        formatter.setLocale(NSLocale(u"en_US_POSIX"_s));
        formatter.setTimeZone(QTimeZone("Europe/Berlin"));
        formatter.setDateFormat(u"HH:mm"_s);
        NSCalendar calendar(NSGregorianCalendar);
        calendar.setTimeZone(QTimeZone("Europe/Berlin"));
        const QString before = formatter.stringFromDate(noon());
        const int hourBefore = calendar.components(NSHourCalendarUnit, noon()).hour;
        replaceBerlin();
        const int hour = calendar.components(NSHourCalendarUnit, noon()).hour;
        return before == u"14:00" && hourBefore == 14 &&
               formatter.stringFromDate(noon()) == u"21:00" && hour == 21;
    });
}

TEST_F(ZonesOfTheirOwn, TheZoneOfTheProcessFollowsReplacedRules)
{
    const EnvironmentGuard zone("TZ", "Europe/Berlin");
    expectInOwnView([] {
        const int before = NSCalendar::systemTimeZone().offsetFromUtc(noon());
        replaceBerlin();
        return before == 7'200 && NSCalendar::systemTimeZone().offsetFromUtc(noon()) == 32'400;
    });
}

/// The last change that the data list is that of the rule, on 1 October; October's own comes by the
/// rule.
TEST_F(ZonesOfTheirOwn, RulesBehindTheLastListedChangeCount)
{
    const QString zones = QString::fromStdString(folder.string());
    QFile source(zones + u"/source"_s);
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("Rule E 1996 max - Oct lastSun 1:00u 0 -\n"
                 "Rule E 1981 max - Mar lastSun 1:00u 1:00 S\n"
                 "Zone Europe/Berlin 2:00 - X 2011 Oct 1\n"
                 "                   1:00 E CE%sT\n");
    source.close();
    const QStringList arguments{u"-b"_s, u"slim"_s, u"-d"_s, zones, source.fileName()};
    ASSERT_EQ(QProcess::execute(u"/usr/sbin/zic"_s, arguments), 0);
    expectInOwnView([] {
        const TimeZoneRules &rules = TimeZoneRules::rulesOf(QTimeZone("Europe/Berlin"));
        const QDateTime before(QDate(2011, 10, 15), QTime(12, 0), QTimeZone::utc());
        return rules.offsetAt(before.toMSecsSinceEpoch()) == 7'200'000 &&
               rules.offsetAt(before.addDays(31).toMSecsSinceEpoch()) == 3'600'000;
    });
}
