#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>

#include <functional>
#include <memory>

/// The time that timers and animations run by: that of the machine, unless a test has put a
/// NSManualClock in its place. For the main thread.
///
/// \code
/// NSClock &clock = NSClock::currentClock();
/// alarm = clock.alarmAfter(1.5, [this] { hide(); });    // destroy it to cancel
/// \endcode
class KTUTILITY_EXPORT NSClock
{
public:
    /// A call that is to come. Destroying it, also from within the call, cancels what is left.
    using Alarm = std::unique_ptr<QObject>;

    NSClock() = default;
    virtual ~NSClock();
    NSClock(const NSClock &) = delete;
    NSClock &operator=(const NSClock &) = delete;

    /// The clock that is in use.
    static NSClock &currentClock();

    /// The seconds since some moment; they never go back.
    virtual double seconds() const = 0;
    /// Has a function called once, from the event loop.
    /// \param seconds below 0 and not a number count as 0, more than 24 days as 24 days.
    virtual Alarm alarmAfter(double seconds, std::function<void()> call) = 0;
    /// Waits; nothing else happens in the thread meanwhile.
    virtual void sleepForSeconds(double seconds) = 0;

protected:
    /// Puts a clock in the place of the current one, which is returned.
    static NSClock *replaceCurrentClock(NSClock *clock);
};
