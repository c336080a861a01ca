// Clocks, timers and animations. Nothing here sleeps: time passes when the tests say so.

#include <KTUtility/NSManualClock>

#include "support/ClockedTest.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using NSManualClockTests = testing_support::ClockedTest;

TEST_F(NSManualClockTests, AlarmsRingInTheirOrder)
{
    QStringList rung;
    const auto late = clock.alarmAfter(2, [&] { rung += u"late"_s; });
    const auto early = clock.alarmAfter(1, [&] { rung += u"early"_s; });
    const auto second = clock.alarmAfter(1, [&] { rung += u"second"_s; });
    clock.advance(0.9);
    EXPECT_TRUE(rung.isEmpty());
    clock.advance(5);
    EXPECT_EQ(rung, QStringList({u"early"_s, u"second"_s, u"late"_s}));
    EXPECT_NEAR(clock.seconds(), 5.9, 1e-9);
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(NSManualClockTests, AlarmsSeeTheirTime)
{
    double seen = 0;
    NSClock::Alarm next;
    const auto first =
        clock.alarmAfter(1, [&] { next = clock.alarmAfter(1, [&] { seen = clock.seconds(); }); });
    clock.advance(10);
    EXPECT_NEAR(seen, 2, 1e-9);
    EXPECT_NEAR(clock.seconds(), 10, 1e-9);
}

TEST_F(NSManualClockTests, DestroyedAlarmsDoNotRing)
{
    int calls = 0;
    auto alarm = clock.alarmAfter(1, [&] { ++calls; });
    alarm.reset();
    EXPECT_EQ(clock.pendingAlarms(), 0);
    NSClock::Alarm own = clock.alarmAfter(1, [&] {
        ++calls;
        own.reset();
    });
    clock.advance(2);
    EXPECT_EQ(calls, 1);
}

TEST_F(NSManualClockTests, ClocksAreNested)
{
    EXPECT_EQ(&NSClock::currentClock(), &clock);
    NSClock::Alarm orphan;
    {
        NSManualClock inner;
        EXPECT_EQ(&NSClock::currentClock(), &inner);
        orphan = inner.alarmAfter(1, [] { FAIL(); });
    }
    EXPECT_EQ(&NSClock::currentClock(), &clock);
    orphan.reset();
    clock.sleepForSeconds(3);
    EXPECT_EQ(clock.seconds(), 3);
    EXPECT_EQ(clock.secondsSlept(), 3);
}
