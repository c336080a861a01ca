// Nothing here sleeps: time passes when the tests say so.

#include <KTUtility/NSAnimation>
#include <KTUtility/NSManualClock>
#include <KTUtility/NSViewAnimation>

#include "AnimationSupport.h"
#include "support/TestSupport.h"

#include <limits>
#include <stdexcept>

using NSAnimationTests = testing_support::ClockedTest;

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
} // namespace

TEST_F(NSAnimationTests, AnimationsRunByTheClock)
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

TEST_F(NSAnimationTests, BlockingAnimationsEndBeforeTheyReturn)
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

TEST_F(NSAnimationTests, WhatRaisesAtItsFirstStepIsToldAndMayStartAgain)
{
    class Raising : public NSAnimation
    {
    public:
        using NSAnimation::NSAnimation;
        bool raises = true;

    protected:
        void setCurrentValue(double) override
        {
            if (raises)
                throw std::runtime_error("no more");
        }
    };
    for (const NSAnimationBlockingMode mode : {NSAnimationBlocking, NSAnimationNonblocking}) {
        Raising animation(1, NSAnimationLinear);
        animation.setAnimationBlockingMode(mode);
        EXPECT_THROW(animation.startAnimation(), std::runtime_error);
        EXPECT_FALSE(animation.isAnimating());
        EXPECT_EQ(clock.pendingAlarms(), 0);
        animation.raises = false;
        EXPECT_NO_THROW(animation.startAnimation());
        EXPECT_EQ(animation.isAnimating(), mode == NSAnimationNonblocking);
        animation.stopAnimation();
    }
}

TEST_F(NSAnimationTests, AnimationsStartIfTheyMay)
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

TEST_F(NSAnimationTests, AnimationsWithoutDurationEndAtOnce)
{
    for (const double duration : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        TestAnimation animation(duration, NSAnimationLinear);
        animation.setAnimationBlockingMode(NSAnimationNonblocking);
        animation.startAnimation();
        EXPECT_EQ(animation.values, QList<double>{1});
        EXPECT_FALSE(animation.isAnimating());
    }
}

TEST_F(NSAnimationTests, AnimationsMayBeDestroyedAtTheirEnd)
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

TEST(NSAnimation, CurvesGoFromStartToEnd)
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

TEST_F(NSAnimationTests, AnAnimationThatRaisesStopsAndMayStartAgain)
{
    TestDelegate delegate;
    TestAnimation animation(1, NSAnimationLinear);
    animation.setAnimationBlockingMode(NSAnimationNonblocking);
    animation.setDelegate(&delegate);
    delegate.atEnd = [] { throw std::runtime_error("no more"); };
    animation.startAnimation();
    const QString log = testing_support::standardErrorOf([&] { clock.advance(2); });
    EXPECT_TRUE(log.endsWith(u"*** exception in an animation: no more\n")) << log.toStdString();
    EXPECT_FALSE(animation.isAnimating());
    delegate.atEnd = nullptr;
    animation.startAnimation();
    clock.advance(2);
    EXPECT_EQ(delegate.ends, 2);
}
