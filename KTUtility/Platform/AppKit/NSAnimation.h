#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSClock.h>

#include <QObject>

/// How an animation runs.
enum NSAnimationBlockingMode {
    /// startAnimation() returns at the end; nothing else happens meanwhile.
    NSAnimationBlocking = 0,
    /// startAnimation() returns at once; the event loop makes the steps.
    NSAnimationNonblocking = 1,
};

/// How fast it is at which time.
enum NSAnimationCurve {
    NSAnimationEaseInOut = 0, ///< slow at the start and at the end
    /// Slow at the start.
    NSAnimationEaseIn = 1,
    NSAnimationEaseOut = 2, ///< slow at the end
    NSAnimationLinear = 3,  ///< equally fast all the time
};

class NSAnimation;

/// Is asked about an animation and notified of it.
class KTUTILITY_EXPORT NSAnimationDelegate
{
public:
    virtual ~NSAnimationDelegate();
    /// Whether it may start; yes unless overridden.
    virtual bool animationShouldStart(NSAnimation *animation);
    /// It has come to its end.
    virtual void animationDidEnd(NSAnimation *animation);
};

/// Something that changes over a time, by the current NSClock. Subclasses say what, in
/// setCurrentValue(). For the main thread.
///
/// Where the desktop asks for less motion (NSWorkspace), animations are at their end as soon as
/// they start.
class KTUTILITY_EXPORT NSAnimation : public QObject
{
public:
    /// \param duration in seconds; what is not above 0 ends at once.
    NSAnimation(double duration, NSAnimationCurve animationCurve);
    ~NSAnimation() override;

    /// How long it runs, in seconds.
    double duration() const { return _duration; }
    /// How its value grows with time.
    NSAnimationCurve animationCurve() const { return _curve; }
    /// Whether startAnimation() returns at once or after the end; after the end unless set.
    NSAnimationBlockingMode animationBlockingMode() const { return _blockingMode; }
    void setAnimationBlockingMode(NSAnimationBlockingMode mode) { _blockingMode = mode; }
    /// Is not owned; may be null.
    NSAnimationDelegate *delegate() const { return _delegate; }
    void setDelegate(NSAnimationDelegate *delegate) { _delegate = delegate; }

    /// Starts from the beginning if the delegate lets it; one that runs is left alone. The delegate
    /// may destroy the animation at its end.
    void startAnimation();
    /// Stops where it is; the delegate is not notified of an end.
    void stopAnimation();
    /// Whether it has started and has not ended since.
    bool isAnimating() const { return _isAnimating; }

    /// What the curve makes of a part of the time; both go from 0 to 1.
    static double valueOf(NSAnimationCurve curve, double progress);

protected:
    /// It starts now.
    virtual void willStart();
    /// Shows the state at a value from 0, the start, to 1, the end.
    virtual void setCurrentValue(double value) = 0;
    /// Brings what is shown to the screen at once, since the event loop does not.
    virtual void flush();

private:
    bool step();
    void runFromStart();
    void runBlocking();
    void runStep();
    void runNextStep();
    void end();

    double _duration;
    NSAnimationCurve _curve;
    NSAnimationBlockingMode _blockingMode = NSAnimationBlocking;
    NSAnimationDelegate *_delegate = nullptr;
    bool _isAnimating = false;
    double _startTime = 0;
    NSClock::Alarm _nextStep;
};
