#include "NSTimer.h"

#include "NSApplication.h"
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Values/WhileAlive_p.h>

#include <utility>

using namespace KTPrivate;

NSTimer::NSTimer(double seconds, NSRunLoopMode mode, std::function<void()> perform)
    : _mode(mode)
    , _perform(std::move(perform))
    , _alarm(NSClock::currentClock().alarmAfter(seconds, [this] { fallDue(); }))
{
}

NSTimer::NSTimer(double seconds, NSRunLoopMode mode, QObject *context,
                 std::function<void()> perform)
    : NSTimer(seconds, mode, whileAlive(context, std::move(perform)))
{
}

NSTimer::~NSTimer() = default;

void NSTimer::fallDue()
{
    if (_mode == NSRunLoopMode::Default && NSApplication::isModalSessionRunning())
        NSApplication::performOnNextTurn(this, [this] { fire(); });
    else
        guarded(u"a timer", [this] { fire(); });
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
