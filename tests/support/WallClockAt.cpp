#include "WallClockAt.h"

#include <atomic>
#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
constexpr qint64 Running = -1;
constexpr qint64 MillisecondsInSecond = 1000;
constexpr qint64 NanosecondsInMillisecond = 1'000'000;

std::atomic<qint64> standing = Running;
} // namespace

/// Stands before the system's own function.
extern "C" __attribute__((visibility("default"))) int clock_gettime(clockid_t clock,
                                                                    timespec *time) noexcept
{
    const qint64 milliseconds = standing;
    if (milliseconds == Running || clock != CLOCK_REALTIME)
        return int(::syscall(SYS_clock_gettime, clock, time));
    time->tv_sec = milliseconds / MillisecondsInSecond;
    time->tv_nsec = milliseconds % MillisecondsInSecond * NanosecondsInMillisecond;
    return 0;
}

testing_support::WallClockAt::WallClockAt(const QDateTime &time)
{
    standing = time.toMSecsSinceEpoch();
}

testing_support::WallClockAt::~WallClockAt()
{
    standing = Running;
}
