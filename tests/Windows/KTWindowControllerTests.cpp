// The queue of the dialogs of a window.

#include <KTUtility/KTWindowController>
#include <KTUtility/NSApplication>

#include "DialogSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

using KTWindowControllerTests = DialogTest;

TEST_F(KTWindowControllerTests, DialogsAppearOneAfterAnother)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    EXPECT_EQ(host->dialogQueue(), QList<KTDialogController *>({&first, &second}));
    EXPECT_FALSE(host->continueRunningQueue());
    host->runDialogQueue();
    EXPECT_TRUE(first.window()->isVisible());
    EXPECT_TRUE(NSApplication::isSheet(first.window()));
    EXPECT_EQ(first.hostWindowController(), host.get());
    EXPECT_TRUE(first.isRunningAsDialog());
    EXPECT_FALSE(second.window()->isVisible());
    first.endDialog();
    EXPECT_FALSE(first.window()->isVisible());
    EXPECT_FALSE(first.isRunningAsDialog());
    EXPECT_EQ(first.hostWindowController(), nullptr);
    // Not before the next iteration of the event loop.
    EXPECT_EQ(second.runs, 0);
    turn();
    EXPECT_TRUE(second.window()->isVisible());
    EXPECT_TRUE(host->continueRunningQueue());
    second.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
    EXPECT_EQ(first.runs + second.runs, 2);
}

TEST_F(KTWindowControllerTests, TheSameDialogServesAgain)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    first.endDialog();
    turn();
    EXPECT_TRUE(first.window()->isVisible());
    EXPECT_EQ(first.runs, 2);
    first.endDialog();
    turn();
}

TEST_F(KTWindowControllerTests, DialogsDestroyedWhileTheyWaitArePassedOver)
{
    auto waiting = std::make_unique<TestDialog>();
    host->addDialogControllerToQueue(waiting.get());
    host->addDialogControllerToQueue(&second);
    waiting.reset();
    EXPECT_EQ(host->dialogQueue().size(), 1);
    host->runDialogQueue();
    EXPECT_TRUE(second.window()->isVisible());
    second.endDialog();
    turn();
    auto running = std::make_unique<TestDialog>();
    host->addDialogControllerToQueue(running.get());
    host->runDialogQueue();
    running.reset();
    turn();
}

TEST_F(KTWindowControllerTests, TheHostMayGoFirst)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    host->window()->close();
    host.reset();
    first.endDialog();
    turn();
    EXPECT_EQ(second.runs, 0);
}

TEST_F(KTWindowControllerTests, AQueueRunTwiceShowsTheNextDialogToo)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    host->runDialogQueue();
    EXPECT_TRUE(first.window()->isVisible());
    EXPECT_TRUE(second.window()->isVisible());
    second.endDialog();
    first.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
}

TEST_F(KTWindowControllerTests, ARunningDialogThatIsRunAgainEndsOnce)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    host->runDialogQueue();
    EXPECT_TRUE(first.window()->isVisible());
    EXPECT_TRUE(first.isRunningAsDialog());
    EXPECT_EQ(first.hostWindowController(), host.get());
    first.endDialog();
    turn();
    EXPECT_EQ(second.runs, 1);
    second.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
}

TEST_F(KTWindowControllerTests, AShownWindowMayBeQueued)
{
    second.showWindow();
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    EXPECT_TRUE(second.isRunningAsDialog());
    EXPECT_TRUE(NSApplication::isSheet(second.window()));
    EXPECT_EQ(second.hostWindowController(), host.get());
    second.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
    manager->windowControllerBecameVisible(&second, false);
}

TEST_F(KTWindowControllerTests, ADialogWithoutAWindowLetsTheNextOneRun)
{
    KTDialogController missing(u"/no/such/file.ui"_s);
    host->addDialogControllerToQueue(&missing);
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    EXPECT_FALSE(missing.isRunningAsDialog());
    turn();
    EXPECT_TRUE(first.window()->isVisible());
    first.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
}

TEST_F(KTWindowControllerTests, ADialogDestroyedWhileItRunsLetsTheNextOneRun)
{
    auto doomed = std::make_unique<TestDialog>();
    host->addDialogControllerToQueue(doomed.get());
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    EXPECT_TRUE(doomed->window()->isVisible());
    doomed.reset();
    turn();
    EXPECT_TRUE(first.window()->isVisible());
    first.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
}

TEST_F(KTWindowControllerTests, DialogsOfAClosedWindowWaitUntilItIsOpenedAgain)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    host->close();
    first.endDialog();
    turn();
    EXPECT_EQ(second.runs, 0);
    EXPECT_EQ(host->dialogQueue(), QList<KTDialogController *>{&second});
    host->showWindow();
    turn();
    EXPECT_TRUE(second.window()->isVisible());
    second.endDialog();
    turn();
}

TEST_F(KTWindowControllerTests, AWindowThatWasClosedOnceRunsItsQueue)
{
    host->showWindow();
    host->close();
    for (const bool isShown : {true, false}) {
        if (isShown)
            host->showWindow();
        host->addDialogControllerToQueue(&first);
        host->addDialogControllerToQueue(&second);
        host->runDialogQueue();
        host->window()->hide();
        first.endDialog();
        turn();
        EXPECT_TRUE(second.isRunningAsDialog()) << isShown;
        second.endDialog();
        turn();
        EXPECT_FALSE(host->continueRunningQueue()) << isShown;
    }
}

TEST_F(KTWindowControllerTests, ASheetGoesWithItsHost)
{
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    ASSERT_TRUE(NSApplication::isSheet(first.window()));
    host.reset();
    EXPECT_FALSE(first.window()->isVisible());
    EXPECT_FALSE(first.isRunningAsDialog());
    EXPECT_EQ(first.hostWindowController(), nullptr);
    EXPECT_FALSE(NSApplication::isSheet(first.window()));
    turn();
    // It may run over another one, which the first one's end has nothing to do with any more.
    QWidget other;
    NSApplication::beginSheet(first.window(), &other);
    EXPECT_TRUE(first.window()->isVisible());
    NSApplication::endSheet(first.window());
}

TEST_F(KTWindowControllerTests, DuplicatesAreRejectedWhereTheHostWantsThat)
{
    EXPECT_FALSE(host->refusesDuplicateDialogs());
    host->setRefusesDuplicateDialogs(true);
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&first);
    EXPECT_EQ(host->dialogQueue().size(), 1);
    host->runDialogQueue();
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    EXPECT_EQ(host->dialogQueue(), QList<KTDialogController *>({&second}));
    first.endDialog();
    turn();
    host->addDialogControllerToQueue(&first);
    EXPECT_EQ(host->dialogQueue(), QList<KTDialogController *>({&first}));
    second.endDialog();
    turn();
    first.endDialog();
    turn();
}

TEST_F(KTWindowControllerTests, AnEmptyQueueComesToRest)
{
    host->runDialogQueue();
    EXPECT_FALSE(host->continueRunningQueue());
    host->dialogClosed(&first);
    EXPECT_FALSE(host->continueRunningQueue());
}
