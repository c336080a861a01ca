#include <KTUtility/Platform/Dates/TimeZoneRules_p.h>

#include "support/TestSupport.h"

#include <random>

using namespace KTPrivate;

namespace {
const TimeZoneRules &rulesOf(const char *zone)
{
    return TimeZoneRules::rulesOf(QTimeZone(zone));
}

/// ICU's own answer.
int offsetByICU(const TimeZoneRules &rules, qint64 instant)
{
    int32_t standard = 0;
    int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    rules.zone().getOffset(double(instant), false, standard, saving, status);
    return standard + saving;
}

qint64 instantByICU(const TimeZoneRules &rules, qint64 localTime)
{
    int32_t standard = 0;
    int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    const auto &zone = dynamic_cast<const icu::BasicTimeZone &>(rules.zone());
    zone.getOffsetFromLocal(double(localTime), UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_LATTER, standard,
                            saving, status);
    return localTime - standard - saving;
}

constexpr qint64 Second = 1000;
constexpr qint64 Hour = 3600 * Second;

class NSTimeZoneRulesOf : public testing::TestWithParam<const char *>
{
};
} // namespace

TEST_P(NSTimeZoneRulesOf, HasTheOffsetsOfICU)
{
    const TimeZoneRules &rules = rulesOf(GetParam());
    std::mt19937 random(7);
    std::uniform_int_distribution<qint64> seconds(-13'000'000'000, 20'000'000'000);
    for (int count = 0; count < 5000; ++count) {
        const qint64 time = seconds(random) / (count % 4 + 1) * Second;
        ASSERT_EQ(rules.offsetAt(time), offsetByICU(rules, time)) << time;
        ASSERT_EQ(rules.instantOf(time), instantByICU(rules, time)) << time;
        ASSERT_EQ(rules.localTimeOf(time) - time, rules.offsetAt(time));
    }
}

TEST_P(NSTimeZoneRulesOf, AgreesWithICUAroundChanges)
{
    const TimeZoneRules &rules = rulesOf(GetParam());
    const auto &zone = dynamic_cast<const icu::BasicTimeZone &>(rules.zone());
    icu::TimeZoneTransition change;
    qint64 time = -4'000'000'000 * Second;
    for (int count = 0; count < 300 && zone.getNextTransition(double(time), false, change);
         ++count) {
        time = qint64(change.getTime());
        for (qint64 distance = -30 * Hour; distance <= 30 * Hour; distance += Hour / 2) {
            for (const qint64 near : {time + distance - 1, time + distance}) {
                ASSERT_EQ(rules.offsetAt(near), offsetByICU(rules, near)) << near;
                ASSERT_EQ(rules.instantOf(near), instantByICU(rules, near)) << near;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, NSTimeZoneRulesOf,
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
