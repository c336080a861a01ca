#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSClock.h>

#include <QObject>

#include <functional>

/// When a timer may fire.
enum class NSRunLoopMode {
    /// Not while a modal session runs (see NSApplication): it waits for the end.
    Default,
    /// Also while a modal session runs.
    ModalPanel,
};

/// Calls a function once, after a time. It runs by the current NSClock. What the function raises
/// when its time has come is written to the console and goes no further; fire() passes it on. For
/// the main thread.
///
/// \code
/// _timer = std::make_unique<NSTimer>(1.5, NSRunLoopMode::Default, [this] { hide(); });
/// …
/// if (_timer->isValid())
///     _timer->fire();    // now, and not again
/// \endcode
class KTUTILITY_EXPORT NSTimer : public QObject
{
public:
    /// \param seconds below 0 and not a number count as 0.
    /// \param perform may destroy the timer.
    NSTimer(double seconds, NSRunLoopMode mode, std::function<void()> perform);
    /// The same for a function that is not called any more once \a context is destroyed.
    NSTimer(double seconds, NSRunLoopMode mode, QObject *context, std::function<void()> perform);
    ~NSTimer() override;

    /// Whether it is still to fire.
    bool isValid() const { return bool(_perform); }
    /// Fires at once; nothing if it is not valid any more.
    void fire();
    /// Keeps it from firing.
    void invalidate();

private:
    void fallDue();

    NSRunLoopMode _mode;
    std::function<void()> _perform;
    NSClock::Alarm _alarm;
};
