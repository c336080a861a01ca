#pragma once

// Private to the library. The time of day, asked for in one place so that all dates of a moment agree.

#include <QtGlobal>

#include <chrono>

namespace KTPrivate::WallClock {
/// The milliseconds since 1970 that have passed.
///
/// Newer versions of Qt round to the nearest millisecond when asked for the current time: half of the
/// times that would be a millisecond after the one in the log, and at the end of a day it would be
/// tomorrow already.
inline qint64 milliseconds()
{
    using namespace std::chrono;
    return floor<std::chrono::milliseconds>(system_clock::now().time_since_epoch()).count();
}
} // namespace KTPrivate::WallClock
