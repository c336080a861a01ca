#include <KTUtility/Platform/Values/WallClock_p.h>

#include "support/TestSupport.h"

#include <ctime>

using namespace KTPrivate;

namespace {
/// The milliseconds that have passed by the clock of the system.
qint64 passed()
{
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}
} // namespace

TEST(WallClock, NeverRunsAhead)
{
    // Enough to meet the second half of a millisecond many times.
    for (int round = 0; round < 20'000; ++round) {
        const qint64 before = passed();
        const qint64 shown = WallClock::milliseconds();
        EXPECT_LE(before, shown);
        EXPECT_LE(shown, passed());
    }
}
