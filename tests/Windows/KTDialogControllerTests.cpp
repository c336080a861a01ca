// A dialog by itself: how it is shown, and how it ends.

#include <KTUtility/KTDialogController>
#include <KTUtility/NSApplication>
#include <KTUtility/NSMenuItem>

#include "DialogSupport.h"
#include "support/TestSupport.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace testing_support;

using KTDialogControllerTests = DialogTest;

TEST_F(KTDialogControllerTests, ClosingAndEscapeEndADialog)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    first.window()->close();
    EXPECT_FALSE(first.isRunningAsDialog());
    EXPECT_FALSE(NSApplication::isSheet(first.window()));
    turn();
    EXPECT_TRUE(second.window()->isVisible());
    QTest::keyClick(second.window(), Qt::Key_Escape);
    EXPECT_FALSE(second.isRunningAsDialog());
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
    EXPECT_EQ(first.runs + second.runs, 2);
}

TEST_F(KTDialogControllerTests, TheFlagsAreCoupled)
{
    EXPECT_TRUE(first.runAsSheet() && first.runAsModal());
    first.setRunAsModal(false);
    EXPECT_FALSE(first.runAsSheet() || first.runAsModal());
    first.setRunAsModal(true);
    EXPECT_FALSE(first.runAsSheet());
    first.setRunAsSheet(true);
    EXPECT_TRUE(first.runAsSheet() && first.runAsModal());
    first.setRunAsSheet(false);
    EXPECT_TRUE(first.runAsModal());
    first.setRunAsModal(false);
    first.setRunAsSheet(true);
    EXPECT_TRUE(first.runAsModal());
    first.setRunAsModal(false);
    EXPECT_FALSE(first.runAsSheet());
}

TEST_F(KTDialogControllerTests, PlainWindowsBlockNothing)
{
    first.setRunAsModal(false);
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    EXPECT_TRUE(first.window()->isVisible());
    EXPECT_FALSE(NSApplication::isSheet(first.window()));
    EXPECT_EQ(first.window()->windowModality(), Qt::NonModal);
    first.endDialog();
    turn();
}

TEST_F(KTDialogControllerTests, ModalDialogsReturnAtTheirEnd)
{
    first.setRunAsSheet(false);
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    bool wasModal = false;
    QMetaObject::invokeMethod(
        &first,
        [&] {
            wasModal = NSApplication::modalWindow() == first.window();
            first.endDialog();
        },
        Qt::QueuedConnection);
    host->runDialogQueue();
    EXPECT_TRUE(wasModal);
    EXPECT_EQ(NSApplication::modalWindow(), nullptr);
    EXPECT_FALSE(first.window()->isVisible());
    EXPECT_EQ(second.runs, 0);
    turn();
    EXPECT_TRUE(second.window()->isVisible());
    second.endDialog();
    turn();
}

TEST_F(KTDialogControllerTests, ASheetWithoutHostIsModal)
{
    QMetaObject::invokeMethod(
        &first, [&] { first.endDialog(); }, Qt::QueuedConnection);
    first.runDialog();
    EXPECT_FALSE(first.window()->isVisible());
}

TEST_F(KTDialogControllerTests, ObjectsAreLentToDialogs)
{
    host->exposeObjectToDialog(5, u"record"_s);
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    EXPECT_EQ(first.lent, QVariant(5));
    first.endDialog();
    turn();
    EXPECT_FALSE(first.windowDataSourceObjectForKey(u"record"_s).isValid());
    host->exposeObjectToDialog(QVariant(), u"record"_s);
    EXPECT_TRUE(host->exposedDialogDatasource().isEmpty());
}

TEST_F(KTDialogControllerTests, DialogsThatEndInTheirConfigurationAreNotShown)
{
    first.endsInConfiguration = true;
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    EXPECT_EQ(first.runs, 0);
    turn();
    EXPECT_TRUE(second.window()->isVisible());
    second.endDialog();
    turn();
}

TEST_F(KTDialogControllerTests, QuittingWaitsForTheDialog)
{
    QMenu menu;
    QAction *const quit = NSMenuItem::addItem(&menu, u"Quit"_s, "terminate:", &first);
    QAction *const other = NSMenuItem::addItem(&menu, u"Copy"_s, "copy:", &first);
    EXPECT_FALSE(first.validateMenuItem(quit));
    EXPECT_TRUE(first.validateMenuItem(other));
}

TEST_F(KTDialogControllerTests, TellsOnceThatItHasEnded)
{
    QStringList log;
    auto context = std::make_unique<QObject>();
    QObject::connect(&first, &KTDialogController::dialogDidEnd, context.get(),
                     [&] { log += u"first"_s; });
    QObject::connect(&second, &KTDialogController::dialogDidEnd, context.get(), [&] {
        log += u"second"_s;
        throw 5;
    });
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    first.endDialog();
    EXPECT_TRUE(log.isEmpty());
    turn();
    EXPECT_EQ(log, QStringList{u"first"_s});
    second.window()->close();
    const QString console = testing_support::standardErrorOf([] { turn(); });
    EXPECT_EQ(log, (QStringList{u"first"_s, u"second"_s}));
    EXPECT_TRUE(console.contains(u"*** exception in a deferred call: unknown exception"));
    EXPECT_FALSE(host->continueRunningQueue());
    context.reset();
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    first.endDialog();
    turn();
    EXPECT_EQ(log.size(), 2);
}
