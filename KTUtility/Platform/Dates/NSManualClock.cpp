#include "NSManualClock.h"

#include <algorithm>

/// A call at a time; the clock lists it until it is made or destroyed.
class NSManualClock::ManualAlarm : public QObject
{
public:
    ManualAlarm(NSManualClock *clock, double time, std::function<void()> call)
        : _clock(clock), _time(time), _call(std::move(call))
    {
        _clock->_alarms.append(this);
    }
    ~ManualAlarm() override { leave(); }

    double time() const { return _time; }
    void forgetClock() { _clock = nullptr; }
    void ring()
    {
        leave();
        // The call may destroy the alarm.
        const auto call = std::move(_call);
        call();
    }

private:
    void leave()
    {
        if (_clock)
            _clock->_alarms.removeOne(this);
        _clock = nullptr;
    }

    NSManualClock *_clock;
    double _time;
    std::function<void()> _call;
};

NSManualClock::NSManualClock() : _outer(replaceCurrentClock(this)) {}

NSManualClock::~NSManualClock()
{
    for (ManualAlarm *const alarm : std::as_const(_alarms))
        alarm->forgetClock();
    replaceCurrentClock(_outer);
}

/// The first alarm that falls due; of those for the same time, the one that was asked for first.
NSManualClock::ManualAlarm *NSManualClock::nextUntil(double end) const
{
    const auto next = std::ranges::min_element(_alarms, {}, &ManualAlarm::time);
    return next != _alarms.end() && (*next)->time() <= end ? *next : nullptr;
}

void NSManualClock::advance(double seconds)
{
    // A little more, since sums of times are not exact.
    constexpr double Tolerance = 1e-9;
    const double end = _seconds + seconds;
    while (ManualAlarm *const next = nextUntil(end + Tolerance)) {
        _seconds = std::max(_seconds, next->time());
        next->ring();
    }
    _seconds = std::max(_seconds, end);
}

NSClock::Alarm NSManualClock::alarmAfter(double seconds, std::function<void()> call)
{
    const double delay = seconds > 0 ? seconds : 0;
    return std::make_unique<ManualAlarm>(this, _seconds + delay, std::move(call));
}

void NSManualClock::sleepForSeconds(double seconds)
{
    _secondsSlept += seconds;
    _seconds += seconds;
}
