#include "NSTimer.h"

#include "NSApplication.h"

#include <utility>

NSTimer::NSTimer(double seconds, NSRunLoopMode mode, std::function<void()> perform)
    : _mode(mode)
    , _perform(std::move(perform))
    , _alarm(NSClock::currentClock().alarmAfter(seconds, [this] { fallDue(); }))
{
}

NSTimer::~NSTimer() = default;

void NSTimer::fallDue()
{
    if (_mode == NSRunLoopMode::Default && NSApplication::isModalSessionRunning())
        NSApplication::performOnNextTurn(this, [this] { fire(); });
    else
        fire();
}

void NSTimer::fire()
{
    // What is called may destroy the timer.
    const auto perform = std::exchange(_perform, nullptr);
    _alarm.reset();
    if (perform)
        perform();
}

void NSTimer::invalidate()
{
    _perform = nullptr;
    _alarm.reset();
}
