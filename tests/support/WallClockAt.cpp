#include "WallClockAt.h"

#include <atomic>
#include <ctime>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {
constexpr qint64 Running = -1;
constexpr qint64 MillisecondsInSecond = 1000;
constexpr qint64 NanosecondsInMillisecond = 1'000'000;
constexpr qint64 NanosecondsInMicrosecond = 1000;

std::atomic<qint64> standing = Running;
} // namespace

// They stand before the system's own functions; some versions of Qt ask the one, some the other.
extern "C" {
__attribute__((visibility("default"))) int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    const qint64 milliseconds = standing;
    if (milliseconds == Running || clock != CLOCK_REALTIME)
        return int(::syscall(SYS_clock_gettime, clock, time));
    time->tv_sec = milliseconds / MillisecondsInSecond;
    time->tv_nsec = milliseconds % MillisecondsInSecond * NanosecondsInMillisecond;
    return 0;
}

__attribute__((visibility("default"))) int gettimeofday(timeval *time, void *) noexcept
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / NanosecondsInMicrosecond;
    return 0;
}
}

testing_support::WallClockAt::WallClockAt(const QDateTime &time)
{
    standing = time.toMSecsSinceEpoch();
}

testing_support::WallClockAt::~WallClockAt()
{
    standing = Running;
}
