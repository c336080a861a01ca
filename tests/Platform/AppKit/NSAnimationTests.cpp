// Clocks, timers and animations. Nothing here sleeps: time passes when the tests say so.

#include <KTUtility/NSApplication>
#include <KTUtility/NSManualClock>
#include <KTUtility/NSTimer>
#include <KTUtility/NSViewAnimation>

#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QDialog>
#include <QGraphicsEffect>

#include <limits>

using namespace Qt::StringLiterals;

namespace {
/// Keeps what it was given.
class TestAnimation : public NSAnimation
{
public:
    using NSAnimation::NSAnimation;
    QList<double> values;
    int flushes = 0;

protected:
    void setCurrentValue(double value) override { values += value; }
    void flush() override { ++flushes; }
};

class TestDelegate : public NSAnimationDelegate
{
public:
    bool animationShouldStart(NSAnimation *) override { return allows; }
    void animationDidEnd(NSAnimation *) override
    {
        ++ends;
        if (atEnd)
            atEnd();
    }
    bool allows = true;
    int ends = 0;
    std::function<void()> atEnd;
};

class Time : public testing_support::WindowedTest
{
protected:
    NSManualClock clock;
};
} // namespace

// --- Clocks

TEST_F(Time, AlarmsRingInTheirOrder)
{
    QStringList rung;
    const auto late = clock.alarmAfter(2, [&] { rung += u"late"_s; });
    const auto early = clock.alarmAfter(1, [&] { rung += u"early"_s; });
    const auto second = clock.alarmAfter(1, [&] { rung += u"second"_s; });
    clock.advance(0.9);
    EXPECT_TRUE(rung.isEmpty());
    clock.advance(5);
    EXPECT_EQ(rung, QStringList({u"early"_s, u"second"_s, u"late"_s}));
    EXPECT_NEAR(clock.seconds(), 5.9, 1e-9);
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(Time, AlarmsSeeTheirTime)
{
    double seen = 0;
    NSClock::Alarm next;
    const auto first =
        clock.alarmAfter(1, [&] { next = clock.alarmAfter(1, [&] { seen = clock.seconds(); }); });
    clock.advance(10);
    EXPECT_NEAR(seen, 2, 1e-9);
    EXPECT_NEAR(clock.seconds(), 10, 1e-9);
}

TEST_F(Time, DestroyedAlarmsDoNotRing)
{
    int calls = 0;
    auto alarm = clock.alarmAfter(1, [&] { ++calls; });
    alarm.reset();
    EXPECT_EQ(clock.pendingAlarms(), 0);
    NSClock::Alarm own = clock.alarmAfter(1, [&] {
        ++calls;
        own.reset();
    });
    clock.advance(2);
    EXPECT_EQ(calls, 1);
}

TEST_F(Time, ClocksAreNested)
{
    EXPECT_EQ(&NSClock::currentClock(), &clock);
    NSClock::Alarm orphan;
    {
        NSManualClock inner;
        EXPECT_EQ(&NSClock::currentClock(), &inner);
        orphan = inner.alarmAfter(1, [] { FAIL(); });
    }
    EXPECT_EQ(&NSClock::currentClock(), &clock);
    orphan.reset();
    clock.sleepForSeconds(3);
    EXPECT_EQ(clock.seconds(), 3);
    EXPECT_EQ(clock.secondsSlept(), 3);
}

TEST(MachineClock, CallsFromTheRunLoop)
{
    testing_support::needApplication();
    NSClock &machine = NSClock::currentClock();
    const double before = machine.seconds();
    int calls = 0;
    NSClock::Alarm alarm = machine.alarmAfter(-1, [&] {
        ++calls;
        alarm.reset();
    });
    auto cancelled = machine.alarmAfter(0, [&] { calls += 10; });
    const auto never =
        machine.alarmAfter(std::numeric_limits<double>::infinity(), [&] { calls += 100; });
    const auto odd =
        machine.alarmAfter(std::numeric_limits<double>::quiet_NaN(), [&] { calls += 1000; });
    cancelled.reset();
    EXPECT_EQ(calls, 0);
    for (int round = 0; round < 1000 && calls < 1001; ++round)
        QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1001);
    machine.sleepForSeconds(0);
    EXPECT_GE(machine.seconds(), before);
}

// --- Timers

TEST_F(Time, TimersFireOnce)
{
    int calls = 0;
    NSTimer timer(1.5, NSRunLoopMode::Default, [&] { ++calls; });
    EXPECT_TRUE(timer.isValid());
    clock.advance(1.4);
    EXPECT_EQ(calls, 0);
    clock.advance(0.2);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(timer.isValid());
    timer.fire();
    clock.advance(10);
    EXPECT_EQ(calls, 1);
}

TEST_F(Time, TimersFireBeforeTheirTimeIfAsked)
{
    int calls = 0;
    NSTimer timer(1.5, NSRunLoopMode::Default, [&] { ++calls; });
    timer.fire();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(timer.isValid());
    clock.advance(10);
    EXPECT_EQ(calls, 1);
}

TEST_F(Time, InvalidTimersDoNotFire)
{
    NSTimer timer(1.5, NSRunLoopMode::Default, [] { FAIL(); });
    timer.invalidate();
    timer.fire();
    clock.advance(10);
    EXPECT_FALSE(timer.isValid());
}

TEST_F(Time, TimersMayBeDestroyedByWhatTheyCall)
{
    std::unique_ptr<NSTimer> timer;
    int calls = 0;
    const auto perform = [&] {
        ++calls;
        timer.reset();
    };
    timer = std::make_unique<NSTimer>(1, NSRunLoopMode::Default, perform);
    clock.advance(2);
    timer = std::make_unique<NSTimer>(1, NSRunLoopMode::ModalPanel, perform);
    timer->fire();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(timer, nullptr);
}

TEST_F(Time, DefaultTimersWaitForTheEndOfModalSessions)
{
    QDialog dialog;
    QStringList fired;
    NSTimer waiting(1, NSRunLoopMode::Default, [&] { fired += u"default"_s; });
    NSTimer modal(1, NSRunLoopMode::ModalPanel, [&] { fired += u"modal"_s; });
    QMetaObject::invokeMethod(
        &dialog,
        [&] {
            EXPECT_TRUE(NSApplication::isModalSessionRunning());
            clock.advance(2);
            QCoreApplication::processEvents();
            EXPECT_EQ(fired, QStringList{u"modal"_s});
            EXPECT_TRUE(waiting.isValid());
            NSApplication::stopModal();
        },
        Qt::QueuedConnection);
    NSApplication::runModalForWindow(&dialog);
    EXPECT_FALSE(NSApplication::isModalSessionRunning());
    EXPECT_EQ(fired.size(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(fired.size(), 2);
}

// --- Animations

TEST_F(Time, AnimationsRunByTheClock)
{
    TestDelegate delegate;
    TestAnimation animation(1, NSAnimationLinear);
    animation.setDelegate(&delegate);
    animation.setAnimationBlockingMode(NSAnimationNonblocking);
    animation.startAnimation();
    EXPECT_TRUE(animation.isAnimating());
    EXPECT_EQ(animation.values, QList<double>{0});
    clock.advance(0.5);
    EXPECT_NEAR(animation.values.last(), 0.5, 0.02);
    EXPECT_EQ(delegate.ends, 0);
    clock.advance(0.6);
    EXPECT_EQ(animation.values.last(), 1);
    EXPECT_FALSE(animation.isAnimating());
    EXPECT_EQ(delegate.ends, 1);
    EXPECT_TRUE(std::is_sorted(animation.values.begin(), animation.values.end()));
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(Time, BlockingAnimationsEndBeforeTheyReturn)
{
    TestDelegate delegate;
    TestAnimation animation(0.15, NSAnimationEaseIn);
    EXPECT_EQ(animation.animationBlockingMode(), NSAnimationBlocking);
    animation.setDelegate(&delegate);
    const auto other = clock.alarmAfter(0.05, [] { FAIL() << "something else happened"; });
    animation.startAnimation();
    EXPECT_EQ(delegate.ends, 1);
    EXPECT_EQ(animation.values.first(), 0);
    EXPECT_EQ(animation.values.last(), 1);
    EXPECT_EQ(animation.values.size(), animation.flushes);
    EXPECT_NEAR(clock.secondsSlept(), 0.15, 0.011);
}

TEST_F(Time, AnimationsStartIfTheyMay)
{
    TestDelegate delegate;
    TestAnimation animation(1, NSAnimationLinear);
    animation.setDelegate(&delegate);
    animation.setAnimationBlockingMode(NSAnimationNonblocking);
    delegate.allows = false;
    animation.startAnimation();
    EXPECT_FALSE(animation.isAnimating());
    delegate.allows = true;
    animation.startAnimation();
    clock.advance(0.5);
    const qsizetype steps = animation.values.size();
    animation.startAnimation();
    EXPECT_EQ(animation.values.size(), steps);
    animation.stopAnimation();
    clock.advance(5);
    EXPECT_EQ(animation.values.size(), steps);
    EXPECT_EQ(delegate.ends, 0);
    NSAnimationDelegate indifferent;
    animation.setDelegate(&indifferent);
    animation.startAnimation();
    clock.advance(2);
    EXPECT_EQ(animation.values.last(), 1);
}

TEST_F(Time, AnimationsWithoutDurationEndAtOnce)
{
    for (const double duration : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        TestAnimation animation(duration, NSAnimationLinear);
        animation.setAnimationBlockingMode(NSAnimationNonblocking);
        animation.startAnimation();
        EXPECT_EQ(animation.values, QList<double>{1});
        EXPECT_FALSE(animation.isAnimating());
    }
}

TEST_F(Time, AnimationsMayBeDestroyedAtTheirEnd)
{
    TestDelegate delegate;
    auto animation = std::make_unique<TestAnimation>(0.1, NSAnimationLinear);
    animation->setDelegate(&delegate);
    animation->setAnimationBlockingMode(NSAnimationNonblocking);
    delegate.atEnd = [&] { animation.reset(); };
    animation->startAnimation();
    clock.advance(1);
    EXPECT_EQ(animation, nullptr);
    EXPECT_EQ(delegate.ends, 1);
}

TEST(AnimationCurves, GoFromStartToEnd)
{
    for (const auto curve :
         {NSAnimationEaseInOut, NSAnimationEaseIn, NSAnimationEaseOut, NSAnimationLinear}) {
        EXPECT_NEAR(NSAnimation::valueOf(curve, 0), 0, 1e-6);
        EXPECT_NEAR(NSAnimation::valueOf(curve, 1), 1, 1e-6);
        EXPECT_NEAR(NSAnimation::valueOf(curve, -3), 0, 1e-6);
        EXPECT_NEAR(NSAnimation::valueOf(curve, 3), 1, 1e-6);
    }
    EXPECT_LT(NSAnimation::valueOf(NSAnimationEaseIn, 0.3), 0.25);
    EXPECT_GT(NSAnimation::valueOf(NSAnimationEaseOut, 0.3), 0.35);
    EXPECT_NEAR(NSAnimation::valueOf(NSAnimationEaseInOut, 0.5), 0.5, 0.01);
}

TEST_F(Time, ViewsFadeInAndOut)
{
    QWidget view;
    NSViewAnimation in(&view, NSViewAnimationEffect::FadeIn, 1, NSAnimationLinear);
    NSViewAnimation out(&view, NSViewAnimationEffect::FadeOut, 1, NSAnimationLinear);
    EXPECT_EQ(in.target(), &view);
    EXPECT_EQ(out.effect(), NSViewAnimationEffect::FadeOut);
    in.setAnimationBlockingMode(NSAnimationNonblocking);
    out.setAnimationBlockingMode(NSAnimationNonblocking);
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 1);
    in.startAnimation();
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 0);
    clock.advance(0.5);
    // The one that starts last goes on from here, and the other one is not seen any more.
    out.startAnimation();
    EXPECT_NEAR(NSViewAnimation::opacityOf(&view), 0.5, 0.02);
    clock.advance(0.4);
    EXPECT_NEAR(NSViewAnimation::opacityOf(&view), 0.3, 0.02);
    clock.advance(0.7);
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 0);
    EXPECT_FALSE(view.isVisible());
    in.startAnimation();
    clock.advance(1.1);
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 1);
    EXPECT_FALSE(view.graphicsEffect()->isEnabled());
}

TEST_F(Time, ViewsMayGoWhileTheyFade)
{
    auto view = std::make_unique<QWidget>();
    NSViewAnimation in(view.get(), NSViewAnimationEffect::FadeIn, 1, NSAnimationLinear);
    TestDelegate delegate;
    in.setDelegate(&delegate);
    in.setAnimationBlockingMode(NSAnimationNonblocking);
    in.startAnimation();
    clock.advance(0.5);
    view.reset();
    clock.advance(1);
    EXPECT_EQ(delegate.ends, 1);
    NSViewAnimation nobody(nullptr, NSViewAnimationEffect::FadeOut, 1, NSAnimationLinear);
    nobody.startAnimation();
    EXPECT_FALSE(nobody.isAnimating());
}
