#include <KTUtility/NSApplication>
#include <KTUtility/NSTimer>

#include "support/ClockedTest.h"
#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QDialog>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

using NSTimerTests = testing_support::ClockedTest;

TEST_F(NSTimerTests, TimersFireOnce)
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

TEST_F(NSTimerTests, TimersFireBeforeTheirTimeIfAsked)
{
    int calls = 0;
    NSTimer timer(1.5, NSRunLoopMode::Default, [&] { ++calls; });
    timer.fire();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(timer.isValid());
    clock.advance(10);
    EXPECT_EQ(calls, 1);
}

TEST_F(NSTimerTests, InvalidTimersDoNotFire)
{
    NSTimer timer(1.5, NSRunLoopMode::Default, [] { FAIL(); });
    timer.invalidate();
    timer.fire();
    clock.advance(10);
    EXPECT_FALSE(timer.isValid());
}

TEST_F(NSTimerTests, TimersMayBeDestroyedByWhatTheyCall)
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

TEST_F(NSTimerTests, DefaultTimersWaitForTheEndOfModalSessions)
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

TEST_F(NSTimerTests, AnExceptionLeavesNoTimerThatFellDue)
{
    const auto raise = [] { throw std::runtime_error("too late"); };
    const NSTimer timer(1, NSRunLoopMode::Default, raise);
    const QString log = testing_support::standardErrorOf([&] { clock.advance(2); });
    EXPECT_TRUE(log.endsWith(u"*** exception in a timer: too late\n")) << log.toStdString();
    EXPECT_FALSE(timer.isValid());
    NSTimer called(1, NSRunLoopMode::Default, raise);
    EXPECT_THROW(called.fire(), std::runtime_error);
}

TEST_F(NSTimerTests, NothingIsCalledForAnObjectThatIsGone)
{
    auto context = std::make_unique<QObject>();
    int calls = 0;
    const auto count = [&] { ++calls; };
    const NSTimer early(1, NSRunLoopMode::Default, context.get(), count);
    const NSTimer late(3, NSRunLoopMode::ModalPanel, context.get(), count);
    clock.advance(2);
    context.reset();
    clock.advance(2);
    EXPECT_EQ(calls, 1);
}
