#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include "support/LibcZone.h"
#include "support/TestSupport.h"

#include <unicode/gregocal.h>

#include <random>

using namespace KTPrivate;
using namespace testing_support;

namespace {
const TimeZoneRules &rulesOf(const char *zone)
{
    return TimeZoneRules::rulesOf(QTimeZone(zone));
}

constexpr qint64 Second = 1000;
constexpr qint64 Hour = 3600 * Second;

class TimeZoneRulesTests : public testing::TestWithParam<const char *>
{
};
} // namespace

TEST_P(TimeZoneRulesTests, HasTheOffsetsOfTheCLibrary)
{
    const LibcZone libc(GetParam());
    const TimeZoneRules &rules = rulesOf(GetParam());
    std::mt19937 random(7);
    std::uniform_int_distribution<qint64> seconds(-2'000'000'000, 2'140'000'000);
    for (int count = 0; count < 5000; ++count) {
        const qint64 time = seconds(random) / (count % 4 + 1);
        ASSERT_EQ(rules.offsetAt(time * Second), LibcZone::offsetAt(time) * Second) << time;
        ASSERT_EQ(rules.localTimeOf(time * Second), (time + LibcZone::offsetAt(time)) * Second);
    }
}

TEST_P(TimeZoneRulesTests, ReadsLocalTimesAroundEachChange)
{
    const QTimeZone zone(GetParam());
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(zone);
    const QDateTime start(QDate(1900, 1, 1), QTime(0, 0), QTimeZone::utc());
    for (const auto &change : zone.transitions(start, start.addYears(140))) {
        const qint64 time = change.atUtc.toMSecsSinceEpoch();
        for (qint64 distance = -30 * Hour; distance <= 30 * Hour; distance += Hour / 2) {
            for (const qint64 near : {time + distance - 1, time + distance}) {
                const qint64 local = rules.localTimeOf(near);
                const qint64 read = rules.instantOf(local);
                // The clock shows that time then, and does not show it again.
                ASSERT_EQ(rules.localTimeOf(read), local) << near;
                ASSERT_GE(read, near);
            }
        }
    }
}

TEST_P(TimeZoneRulesTests, AreTheSameForICU)
{
    const TimeZoneRules &rules = rulesOf(GetParam());
    for (qint64 time = -2'000'000'000; time < 3'000'000'000; time += 1'234'567) {
        for (const bool isLocal : {false, true}) {
            int32_t standard = 0;
            int32_t saving = 0;
            UErrorCode status = U_ZERO_ERROR;
            rules.zone().getOffset(double(time * Second), isLocal, standard, saving, status);
            const qint64 instant = isLocal ? rules.instantOf(time * Second) : time * Second;
            ASSERT_EQ(standard + saving,
                      isLocal ? time * Second - instant : rules.offsetAt(instant))
                << time;
            ASSERT_GE(saving, 0);
        }
    }
}

TEST(TimeZoneRules, KnowTheYearBeforeTheFirst)
{
    const icu::TimeZone &zone = rulesOf("America/New_York").zone();
    constexpr int LocalMeanTime = -(4 * 3600 + 56 * 60 + 2) * 1000;
    for (const auto era : {icu::GregorianCalendar::BC, icu::GregorianCalendar::AD}) {
        UErrorCode status = U_ZERO_ERROR;
        EXPECT_EQ(zone.getOffset(uint8_t(era), 1, UCAL_JANUARY, 1, UCAL_SATURDAY, 0, status),
                  LocalMeanTime);
        EXPECT_TRUE(U_SUCCESS(status));
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, TimeZoneRulesTests,
                         testing::Values("UTC", "America/New_York", "Europe/Berlin",
                                         "Europe/Dublin", "Asia/Kathmandu", "America/St_Johns",
                                         "Pacific/Apia", "Australia/Lord_Howe", "Africa/Casablanca",
                                         "Antarctica/Troll", "America/Caracas", "Asia/Manila"),
                         [](const auto &zone) {
                             QByteArray name(zone.param);
                             return name.replace('/', '_').toStdString();
                         });

TEST(TimeZoneRules, ReadsSkippedTimesWithTheOffsetBefore)
{
    const TimeZoneRules &rules = rulesOf("America/New_York");
    const qint64 change = 1'205'046'000 * Second; // 9 March 2008, 2:00 EST
    const qint64 local = change - 5 * Hour;
    EXPECT_EQ(rules.instantOf(local - Second), change - Second);
    EXPECT_EQ(rules.instantOf(local), change);
    EXPECT_EQ(rules.instantOf(local + Hour / 2), change + Hour / 2);
    EXPECT_EQ(rules.instantOf(local + Hour), change);
}

TEST(TimeZoneRules, ReadsDoubledTimesAsTheLater)
{
    const TimeZoneRules &rules = rulesOf("America/New_York");
    const qint64 change = 1'225'605'600 * Second; // 2 November 2008, 2:00 EDT
    const qint64 local = change - 5 * Hour;
    EXPECT_EQ(rules.instantOf(local), change);
    EXPECT_EQ(rules.instantOf(local - Second), change - Hour - Second);
    EXPECT_EQ(rules.instantOf(local + Hour - Second), change + Hour - Second);
}

TEST(TimeZoneRules, KnowsZonesWithoutRules)
{
    EXPECT_EQ(rulesOf("UTC+05:30").offsetAt(0), 5 * Hour + Hour / 2);
    EXPECT_EQ(rulesOf("UTC-03:00").offsetAt(1'000'000'000'000), -3 * Hour);
    EXPECT_EQ(rulesOf("UTC-03:00").instantOf(0), 3 * Hour);
}

TEST(TimeZoneRules, AreTheSameForTheSameZone)
{
    EXPECT_EQ(&rulesOf("Europe/Berlin"), &rulesOf("Europe/Berlin"));
    EXPECT_NE(&rulesOf("Europe/Berlin"), &rulesOf("Europe/Paris"));
    EXPECT_EQ(&TimeZoneRules::rulesOf(QTimeZone()), &TimeZoneRules::rulesOf(QTimeZone()));
}
