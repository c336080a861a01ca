// Windows, dialogs and their queue.

#include <KTUtility/KTAlertPanelDialogController>
#include <KTUtility/KTWindowManager>
#include <KTUtility/NSApplication>
#include <KTUtility/NSClassRegistry>
#include <KTUtility/NSMenuItem>

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {
/// Lets everything happen that waits for the run loop.
void turn()
{
    for (int round = 0; round < 5; ++round)
        QCoreApplication::processEvents();
}

/// A dialog that writes down what becomes of it.
class TestDialog : public KTDialogController
{
    Q_OBJECT

public:
    TestDialog() : KTDialogController(new QDialog) {}

    void configDialog() override
    {
        KTDialogController::configDialog();
        lent = windowDataSourceObjectForKey(u"record"_s);
        if (endsInConfiguration)
            endDialog();
    }
    void runDialog() override
    {
        ++runs;
        KTDialogController::runDialog();
    }

    QVariant lent;
    int runs = 0;
    bool endsInConfiguration = false;
};

/// One that cannot be made without its arguments.
class OtherObject : public QObject
{
    Q_OBJECT
};

KT_REGISTER_CLASS(TestDialog)
KT_REGISTER_CLASS(OtherObject)

class WindowTest : public testing_support::WindowedTest
{
protected:
    WindowTest()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        host = std::make_unique<KTWindowController>(new QWidget);
        host->showWindow();
        manager->windowControllerBecameMain(host.get());
    }
    ~WindowTest() override
    {
        host.reset();
        turn();
        EXPECT_TRUE(manager->mainWindowArray().isEmpty());
    }

    KTWindowManager *manager = KTWindowManager::sharedWindowManager();
    std::unique_ptr<KTWindowController> host;
    TestDialog first, second;
};
} // namespace

TEST_F(WindowTest, DialogsAppearOneAfterAnother)
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
    // Not before the next turn of the run loop.
    EXPECT_EQ(second.runs, 0);
    turn();
    EXPECT_TRUE(second.window()->isVisible());
    EXPECT_TRUE(host->continueRunningQueue());
    second.endDialog();
    turn();
    EXPECT_FALSE(host->continueRunningQueue());
    EXPECT_EQ(first.runs + second.runs, 2);
}

TEST_F(WindowTest, TheSameDialogServesAgain)
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

TEST_F(WindowTest, ClosingAndEscapeEndADialog)
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

TEST_F(WindowTest, TheFlagsAreCoupled)
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

TEST_F(WindowTest, PlainWindowsBlockNothing)
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

TEST_F(WindowTest, ModalDialogsReturnAtTheirEnd)
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

TEST_F(WindowTest, ASheetWithoutHostIsModal)
{
    QMetaObject::invokeMethod(
        &first, [&] { first.endDialog(); }, Qt::QueuedConnection);
    first.runDialog();
    EXPECT_FALSE(first.window()->isVisible());
}

TEST_F(WindowTest, ObjectsAreLentToDialogs)
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

TEST_F(WindowTest, DialogsThatEndInTheirConfigurationAreNotShown)
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

TEST_F(WindowTest, DialogsDestroyedWhileTheyWaitArePassedOver)
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

TEST_F(WindowTest, TheHostMayGoFirst)
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

TEST_F(WindowTest, AQueueRunTwiceShowsTheNextDialogToo)
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

TEST_F(WindowTest, ARunningDialogThatIsRunAgainEndsOnce)
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

TEST_F(WindowTest, AShownWindowMayBeQueued)
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

TEST_F(WindowTest, ADialogWithoutAWindowLetsTheNextOneRun)
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

TEST_F(WindowTest, ADialogDestroyedWhileItRunsLetsTheNextOneRun)
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

TEST_F(WindowTest, NoDialogFollowsOverAClosedWindow)
{
    host->addDialogControllerToQueue(&first);
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    host->close();
    first.endDialog();
    turn();
    EXPECT_EQ(second.runs, 0);
    EXPECT_FALSE(host->continueRunningQueue());
    // It may be opened again.
    host->showWindow();
    host->addDialogControllerToQueue(&second);
    host->runDialogQueue();
    EXPECT_TRUE(second.window()->isVisible());
    second.endDialog();
    turn();
}

TEST_F(WindowTest, DuplicatesAreRefusedWhereTheHostWantsThat)
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

TEST_F(WindowTest, AnEmptyQueueComesToRest)
{
    host->runDialogQueue();
    EXPECT_FALSE(host->continueRunningQueue());
    host->dialogClosed(&first);
    EXPECT_FALSE(host->continueRunningQueue());
}

TEST_F(WindowTest, MainWindowsMoveToTheFront)
{
    KTWindowController other(new QWidget);
    EXPECT_EQ(manager->currentMainWindowController(), host.get());
    manager->windowControllerBecameVisible(&other, true);
    manager->windowControllerBecameVisible(&other, true);
    EXPECT_EQ(manager->mainWindowArray(), QList<KTWindowController *>({host.get(), &other}));
    other.windowDidBecomeKey({other.window()});
    EXPECT_EQ(manager->currentMainWindowController(), &other);
    other.showWindow();
    other.close();
    EXPECT_EQ(manager->mainWindowArray(), QList<KTWindowController *>({host.get()}));
}

TEST_F(WindowTest, AWindowMayRefuseToClose)
{
    class Stubborn : public QWidget
    {
        void closeEvent(QCloseEvent *event) override { event->ignore(); }
    };
    KTWindowController stubborn(new Stubborn);
    stubborn.showWindow();
    manager->windowControllerBecameMain(&stubborn);
    stubborn.close();
    EXPECT_TRUE(manager->mainWindowArray().contains(&stubborn));
}

TEST_F(WindowTest, RunningDialogsAreNoMainWindows)
{
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    first.windowDidBecomeKey({first.window()});
    EXPECT_EQ(manager->currentMainWindowController(), host.get());
    first.endDialog();
    turn();
    first.windowDidBecomeKey({first.window()});
    EXPECT_EQ(manager->currentMainWindowController(), &first);
    manager->windowControllerBecameVisible(&first, false);
}

TEST_F(WindowTest, DialogsAreMadeOnceByTheirClass)
{
    KTWindowManager fresh;
    const QString name = u"TestDialog"_s;
    EXPECT_EQ(fresh.dialogControllerForKey(name), nullptr);
    fresh.registerDialogControllerClassName(name);
    KTDialogController *const made = fresh.dialogControllerForKey(name);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(fresh.dialogControllerForKey(name), made);
    EXPECT_TRUE(fresh.currentLoadedDialog().contains(name));
    fresh.registerDialogControllerClassName(u"OtherObject"_s);
    EXPECT_EQ(fresh.dialogControllerForKey(u"OtherObject"_s), nullptr);
    fresh.registerDialogControllerClassName(u"Nobody"_s);
    EXPECT_EQ(fresh.dialogControllerForKey(u"Nobody"_s), nullptr);
    fresh.registerDialogController(nullptr, name);
    EXPECT_FALSE(fresh.currentLoadedDialog().contains(name));
}

TEST_F(WindowTest, QueueingToTheCurrentWindow)
{
    const QString key = u"ready"_s;
    const auto dialog = std::make_shared<TestDialog>();
    EXPECT_FALSE(manager->queueDialogToCurrentMainWindowForKey(key, true));
    manager->registerDialogController(dialog, key);
    EXPECT_TRUE(manager->queueDialogToCurrentMainWindowForKey(key, false));
    EXPECT_EQ(dialog->runs, 0);
    host->runDialogQueue();
    EXPECT_TRUE(dialog->window()->isVisible());
    dialog->endDialog();
    turn();
    EXPECT_TRUE(manager->queueDialogToCurrentMainWindowForKey(key, true));
    EXPECT_EQ(dialog->runs, 2);
    dialog->endDialog();
    turn();
    manager->windowControllerBecameVisible(host.get(), false);
    EXPECT_FALSE(manager->queueDialogToCurrentMainWindowForKey(key, true));
    manager->registerDialogController(nullptr, key);
}

TEST_F(WindowTest, WithoutAWindowNothingIsMade)
{
    KTWindowManager fresh;
    fresh.registerDialogControllerClassName(u"TestDialog"_s);
    EXPECT_EQ(fresh.currentMainWindowController(), nullptr);
    EXPECT_FALSE(fresh.queueDialogToCurrentMainWindowForKey(u"TestDialog"_s, true));
    EXPECT_TRUE(fresh.currentLoadedDialog().isEmpty());
}

TEST_F(WindowTest, AlertsTakeTheirTurn)
{
    class Alert : public KTAlertPanelDialogController
    {
    public:
        void runDialog() override
        {
            KTAlertPanelDialogController::runDialog();
            ++runs;
        }
        int runs = 0;
    } alert;
    host->addDialogControllerToQueue(&alert);
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    EXPECT_EQ(alert.runs, 1);
    EXPECT_TRUE(alert.isRunningAsDialog());
    EXPECT_FALSE(alert.isWindowLoaded());
    EXPECT_EQ(alert.hostWindowController(), host.get());
    alert.endDialog();
    EXPECT_FALSE(alert.isRunningAsDialog());
    EXPECT_EQ(alert.hostWindowController(), nullptr);
    EXPECT_EQ(first.runs, 0);
    turn();
    EXPECT_TRUE(first.window()->isVisible());
    first.endDialog();
    turn();
}

TEST_F(WindowTest, QuittingWaitsForTheDialog)
{
    QMenu menu;
    QAction *const quit = NSMenuItem::addItem(&menu, u"Quit"_s, "terminate:", &first);
    QAction *const other = NSMenuItem::addItem(&menu, u"Copy"_s, "copy:", &first);
    EXPECT_FALSE(first.validateMenuItem(quit));
    EXPECT_TRUE(first.validateMenuItem(other));
}

TEST_F(WindowTest, Descriptions)
{
    host->addDialogControllerToQueue(&first);
    EXPECT_TRUE(host->description().startsWith(u"<KTWindowController 0x"));
    EXPECT_TRUE(host->description().contains(u">\nDialogQueue:("));
    EXPECT_TRUE(host->description().contains(u"<TestDialog 0x"));
    EXPECT_TRUE(host->description().endsWith(u")\n"));
    const QString text = manager->description();
    for (const char16_t *part :
         {u"<KTWindowManager 0x", u"\nWindows:(", u"\nDialog Classnames:", u"\nLoaded dialogs:"})
        EXPECT_TRUE(text.contains(QString::fromUtf16(part))) << text.toStdString();
}

TEST(WindowController, ReadsItsWindowFromAnInterfaceFile)
{
    testing_support::needApplication();
    const testing_support::FileTree tree;
    tree.add(u"Editor.ui"_s,
             "<ui version=\"4.0\"><class>Editor</class><widget class=\"QWidget\" name=\"Editor\">"
             "<layout class=\"QVBoxLayout\"><item><widget class=\"QLineEdit\" name=\"name\"/>"
             "</item></layout></widget></ui>");
    class Editor : public NSWindowController
    {
    public:
        using NSWindowController::NSWindowController;
        int loads = 0;

    protected:
        void windowDidLoad() override { ++loads; }
    };
    Editor editor(tree.path(u"Editor.ui"_s));
    EXPECT_FALSE(editor.isWindowLoaded());
    EXPECT_NE(editor.outlet<QLineEdit>(u"name"_s), nullptr);
    EXPECT_EQ(editor.outlet<QDialog>(u"name"_s), nullptr);
    EXPECT_EQ(editor.loads, 1);
    EXPECT_EQ(NSWindowController::delegateOf(editor.window()), &editor);
    Editor missing(tree.path(u"None.ui"_s));
    EXPECT_EQ(missing.window(), nullptr);
    missing.showWindow();
    missing.close();
    tree.add(u"Bad.ui"_s, "<ui");
    Editor bad(tree.path(u"Bad.ui"_s));
    EXPECT_EQ(bad.window(), nullptr);
}

#include "KTWindowManagerTests.moc"
