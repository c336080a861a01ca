#include <KTUtility/NSClock>

#include "support/TestSupport.h"

#include <QCoreApplication>

TEST(NSClock, CallsFromTheRunLoop)
{
    testing_support::needApplication();
    NSClock &machine = NSClock::currentClock();
    const double before = machine.seconds();
    int calls = 0;
    NSClock::Alarm alarm = machine.alarmAfter(-1, [&] {
        ++calls;
        alarm.reset();
    });
    auto cancelled = machine.alarmAfter(0, [&] { calls += 10; });
    const auto never =
        machine.alarmAfter(std::numeric_limits<double>::infinity(), [&] { calls += 100; });
    const auto odd =
        machine.alarmAfter(std::numeric_limits<double>::quiet_NaN(), [&] { calls += 1000; });
    cancelled.reset();
    EXPECT_EQ(calls, 0);
    for (int round = 0; round < 1000 && calls < 1001; ++round)
        QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1001);
    machine.sleepForSeconds(0);
    EXPECT_GE(machine.seconds(), before);
}
