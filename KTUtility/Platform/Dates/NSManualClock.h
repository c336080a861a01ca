#pragma once

#include "NSClock.h"
#include <KTUtility/KTUtilityExport.h>

#include <QList>

/// A clock that stands still until it is advanced, for tests of what takes time. It is the
/// current clock while it lives; clocks may be nested.
///
/// \code
/// NSManualClock clock;
/// hud->showStatusWindowWithString(u"247 records"_s, frame, false);
/// clock.advance(1.0);    // the second is over, the fade-out begins
/// clock.advance(0.25);
/// EXPECT_FALSE(hud->isDisplayingWindow());
/// \endcode
class KTUTILITY_EXPORT NSManualClock : public NSClock
{
public:
    NSManualClock();
    ~NSManualClock() override;

    /// Lets time pass and calls what falls due meanwhile, in the order of the times, each at its
    /// time; also what these calls ask for.
    void advance(double seconds);
    /// How many calls are to come.
    qsizetype pendingAlarms() const { return _alarms.size(); }
    /// How long was slept in all. Sleeping lets time pass, and calls nothing.
    double secondsSlept() const { return _secondsSlept; }

    double seconds() const override { return _seconds; }
    Alarm alarmAfter(double seconds, std::function<void()> call) override;
    void sleepForSeconds(double seconds) override;

private:
    class ManualAlarm;

    ManualAlarm *nextUntil(double end) const;

    NSClock *_outer;
    double _seconds = 0;
    double _secondsSlept = 0;
    QList<ManualAlarm *> _alarms;
};
