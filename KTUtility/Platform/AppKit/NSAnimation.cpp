#include "NSAnimation.h"

#include "NSWorkspace.h"
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include <QEasingCurve>
#include <QPointF>
#include <QPointer>

#include <algorithm>

namespace {
/// Between two steps, in seconds.
constexpr double StepInterval = 1.0 / 60;
constexpr double BlockingStepInterval = 0.01;

QEasingCurve bezier(const QPointF &first, const QPointF &second)
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, {1, 1});
    return curve;
}

QEasingCurve easingOf(NSAnimationCurve curve)
{
    switch (curve) {
    case NSAnimationEaseInOut:
        return bezier({0.42, 0}, {0.58, 1});
    case NSAnimationEaseIn:
        return bezier({0.42, 0}, {1, 1});
    case NSAnimationEaseOut:
        return bezier({0, 0}, {0.58, 1});
    case NSAnimationLinear:
        break;
    }
    return QEasingCurve(QEasingCurve::Linear);
}
} // namespace

NSAnimationDelegate::~NSAnimationDelegate() = default;

bool NSAnimationDelegate::animationShouldStart(NSAnimation * /*animation*/)
{
    return true;
}

void NSAnimationDelegate::animationDidEnd(NSAnimation * /*animation*/) {}

NSAnimation::NSAnimation(double duration, NSAnimationCurve animationCurve)
    : _duration(duration), _curve(animationCurve)
{
}

NSAnimation::~NSAnimation() = default;

double NSAnimation::valueOf(NSAnimationCurve curve, double progress)
{
    return easingOf(curve).valueForProgress(std::clamp(progress, 0.0, 1.0));
}

void NSAnimation::willStart() {}
void NSAnimation::flush() {}

void NSAnimation::startAnimation()
{
    if (_isAnimating || (_delegate && !_delegate->animationShouldStart(this)))
        return;
    _isAnimating = true;
    _startTime = NSClock::currentClock().seconds();
    const QPointer<NSAnimation> self(this);
    try {
        runFromStart();
    } catch (...) {
        // What raises does not go on; who has started it is told.
        if (self)
            stopAnimation();
        throw;
    }
}

void NSAnimation::runFromStart()
{
    willStart();
    if (_blockingMode == NSAnimationBlocking)
        runBlocking();
    else
        runStep();
}

void NSAnimation::stopAnimation()
{
    _isAnimating = false;
    _nextStep.reset();
}

/// Shows the state of now.
/// \return whether that is the end.
bool NSAnimation::step()
{
    const double elapsed = NSClock::currentClock().seconds() - _startTime;
    const bool isLong = _duration > 0 && !NSWorkspace::accessibilityDisplayShouldReduceMotion();
    const double progress = isLong ? std::min(elapsed / _duration, 1.0) : 1.0;
    // What is left after rounding is not worth another step.
    const bool isEnd = progress > 1 - 1e-9;
    setCurrentValue(isEnd ? 1.0 : valueOf(_curve, progress));
    return isEnd;
}

void NSAnimation::runBlocking()
{
    while (!step() && _isAnimating) {
        flush();
        NSClock::currentClock().sleepForSeconds(BlockingStepInterval);
    }
    flush();
    // Whoever stops an animation is not notified of its end.
    if (_isAnimating)
        end();
}

void NSAnimation::runStep()
{
    const bool isEnd = step();
    if (!_isAnimating)
        return;
    if (isEnd) {
        end();
        return;
    }
    _nextStep = NSClock::currentClock().alarmAfter(StepInterval, [this] { runNextStep(); });
}

/// An animation that raises does not go on; it may be started again.
void NSAnimation::runNextStep()
{
    const QPointer<NSAnimation> self(this);
    const bool isDone = KTPrivate::guarded(u"an animation", [this] { runStep(); });
    if (!isDone && self)
        stopAnimation();
}

void NSAnimation::end()
{
    _isAnimating = false;
    if (_delegate)
        _delegate->animationDidEnd(this);
}
