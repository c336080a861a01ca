#pragma once

#include <QDateTime>

namespace testing_support {
/// The time of day as the whole program sees it: it stands at a moment until the object goes out of
/// scope. Timers go on. They do not nest.
class WallClockAt
{
public:
    explicit WallClockAt(const QDateTime &time);
    ~WallClockAt();
    WallClockAt(WallClockAt &&) = delete;
};
} // namespace testing_support
