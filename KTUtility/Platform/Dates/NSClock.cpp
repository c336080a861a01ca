#include "NSClock.h"

#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include <QThread>
#include <QTimerEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace {
constexpr double MillisecondsPerSecond = 1000;

int millisecondsOf(double seconds)
{
    // As many as a timer of Qt can count.
    constexpr double Most = std::numeric_limits<int>::max();
    return seconds > 0 ? int(std::min(std::ceil(seconds * MillisecondsPerSecond), Most)) : 0;
}

class SystemAlarm : public QObject
{
public:
    SystemAlarm(int milliseconds, std::function<void()> call) : _call(std::move(call))
    {
        _timer = startTimer(milliseconds, Qt::PreciseTimer);
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        killTimer(_timer);
        // The call may destroy the alarm.
        const auto call = std::move(_call);
        KTPrivate::guarded(u"an alarm", call);
    }

private:
    std::function<void()> _call;
    int _timer = 0;
};

class SystemClock : public NSClock
{
public:
    double seconds() const override
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration<double>(now).count();
    }

    Alarm alarmAfter(double seconds, std::function<void()> call) override
    {
        return std::make_unique<SystemAlarm>(millisecondsOf(seconds), std::move(call));
    }

    void sleepForSeconds(double seconds) override
    {
        QThread::msleep(static_cast<unsigned long>(millisecondsOf(seconds)));
    }
};

NSClock *&current()
{
    static SystemClock system;
    static NSClock *clock = &system;
    return clock;
}
} // namespace

NSClock::~NSClock() = default;

NSClock &NSClock::currentClock()
{
    return *current();
}

NSClock *NSClock::replaceCurrentClock(NSClock *clock)
{
    return std::exchange(current(), clock);
}
