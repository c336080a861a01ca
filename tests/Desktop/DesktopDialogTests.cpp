// Windows, sheets and modal sessions where a window manager gives the keyboard away.

#include <KTUtility/KTDialogController>
#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/KTWindowManager>
#include <KTUtility/NSAlert>
#include <KTUtility/NSApplication>

#include "DesktopDisplay.h"

#include "support/TestSupport.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

using testing_support::turn;

namespace {
/// A window with a button.
class ButtonWindow : public QWidget
{
public:
    explicit ButtonWindow(const QPoint &place)
    {
        auto *const layout = new QVBoxLayout(this);
        layout->addWidget(button = new QPushButton(u"Press"_s));
        setGeometry(QRect(place, QSize(300, 200)));
    }

    /// Clicks as a mouse does: modal windows come first.
    void click() const
    {
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    }

    QPushButton *button;
};

class DialogWindow : public QDialog
{
public:
    DialogWindow() { resize(200, 100); }
};

class DesktopDialogTests : public testing::Test
{
protected:
    DesktopDialogTests()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        show(first);
        show(second);
    }
    ~DesktopDialogTests() override { turn(); }

    static void show(KTWindowController &controller)
    {
        controller.showWindow();
        EXPECT_TRUE(becomesActive(controller.window()));
        KTWindowManager::sharedWindowManager()->windowControllerBecameMain(&controller);
    }
    static ButtonWindow *windowOf(KTWindowController &controller)
    {
        return static_cast<ButtonWindow *>(controller.window());
    }
    static bool becomesActive(QWidget *window) { return desktop_support::becomesActive(window); }
    static bool takesClicks(KTWindowController &controller)
    {
        QSignalSpy clicks(windowOf(controller)->button, &QPushButton::clicked);
        windowOf(controller)->click();
        return clicks.count() == 1;
    }
    static KTWindowController *current()
    {
        return KTWindowManager::sharedWindowManager()->currentMainWindowController();
    }

    KTWindowController first{new ButtonWindow(QPoint(50, 50))};
    KTWindowController second{new ButtonWindow(QPoint(500, 50))};
    KTDialogController dialog{new DialogWindow};
    KTDialogController next{new DialogWindow};
};
} // namespace

TEST_F(DesktopDialogTests, TheWindowThatGetsTheKeyboardIsCurrent)
{
    EXPECT_EQ(current(), &second);
    first.window()->activateWindow();
    ASSERT_TRUE(becomesActive(first.window()));
    EXPECT_EQ(current(), &first);
    second.window()->activateWindow();
    ASSERT_TRUE(becomesActive(second.window()));
    EXPECT_EQ(current(), &second);
    EXPECT_EQ(KTWindowManager::sharedWindowManager()->mainWindowArray(),
              QList<KTWindowController *>({&second, &first}));
}

TEST_F(DesktopDialogTests, ASheetBlocksItsHostOnly)
{
    first.addDialogControllerToQueue(&dialog);
    first.runDialogQueue();
    ASSERT_TRUE(becomesActive(dialog.window()));
    EXPECT_EQ(dialog.window()->windowHandle()->transientParent(), first.window()->windowHandle());
    EXPECT_FALSE(takesClicks(first));
    EXPECT_TRUE(takesClicks(second));
    dialog.endDialog();
    turn();
    EXPECT_TRUE(takesClicks(first));
}

TEST_F(DesktopDialogTests, ARunningDialogIsNoMainWindow)
{
    first.addDialogControllerToQueue(&dialog);
    first.runDialogQueue();
    ASSERT_TRUE(becomesActive(dialog.window()));
    EXPECT_EQ(QApplication::activeWindow(), dialog.window());
    EXPECT_EQ(KTWindowManager::sharedWindowManager()->mainWindowArray(),
              QList<KTWindowController *>({&second, &first}));
    dialog.endDialog();
    turn();
}

TEST_F(DesktopDialogTests, TheKeyboardGoesBackToTheHost)
{
    first.window()->activateWindow();
    ASSERT_TRUE(becomesActive(first.window()));
    windowOf(first)->button->setFocus();
    first.addDialogControllerToQueue(&dialog);
    first.addDialogControllerToQueue(&next);
    first.runDialogQueue();
    ASSERT_TRUE(becomesActive(dialog.window()));
    QTest::keyClick(dialog.window()->windowHandle(), Qt::Key_Escape);
    ASSERT_TRUE(becomesActive(next.window()));
    next.window()->close();
    ASSERT_TRUE(becomesActive(first.window()));
    EXPECT_EQ(QApplication::focusWidget(), windowOf(first)->button);
    EXPECT_EQ(current(), &first);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !first.continueRunningQueue(); }));
}

TEST_F(DesktopDialogTests, AModalDialogBlocksAllWindows)
{
    dialog.setRunAsSheet(false);
    first.addDialogControllerToQueue(&dialog);
    bool didBlock = false;
    QMetaObject::invokeMethod(
        dialog.window(),
        [&] {
            didBlock = becomesActive(dialog.window()) && !takesClicks(first) &&
                       !takesClicks(second) && NSApplication::modalWindow() == dialog.window();
            QTest::keyClick(dialog.window()->windowHandle(), Qt::Key_Escape);
        },
        Qt::QueuedConnection);
    first.runDialogQueue();
    EXPECT_TRUE(didBlock);
    EXPECT_EQ(NSApplication::modalWindow(), nullptr);
    turn();
    EXPECT_TRUE(takesClicks(first));
    EXPECT_TRUE(takesClicks(second));
}

TEST_F(DesktopDialogTests, APlainWindowBlocksNothing)
{
    dialog.setRunAsModal(false);
    first.addDialogControllerToQueue(&dialog);
    first.runDialogQueue();
    ASSERT_TRUE(becomesActive(dialog.window()));
    EXPECT_TRUE(takesClicks(first));
    EXPECT_TRUE(takesClicks(second));
    dialog.endDialog();
    turn();
}

TEST_F(DesktopDialogTests, TwoWindowsHaveSheetsAtOnce)
{
    first.addDialogControllerToQueue(&dialog);
    second.addDialogControllerToQueue(&next);
    first.runDialogQueue();
    second.runDialogQueue();
    ASSERT_TRUE(becomesActive(next.window()));
    EXPECT_TRUE(dialog.window()->isVisible());
    EXPECT_FALSE(takesClicks(first));
    EXPECT_FALSE(takesClicks(second));
    next.endDialog();
    turn();
    EXPECT_TRUE(takesClicks(second));
    EXPECT_FALSE(takesClicks(first));
    dialog.endDialog();
    turn();
}

TEST_F(DesktopDialogTests, AnAlertIsASheetWithTheKeyboardOnItsDefaultButton)
{
    auto *const alert = new NSAlert(u"Delete?"_s, u"Delete"_s, u"Keep"_s, QString(), QString());
    QPointer<NSAlert> guard(alert);
    int code = 99;
    alert->beginSheetModalForWindow(first.window(),
                                    [&code](NSAlert *, int result) { code = result; });
    ASSERT_TRUE(becomesActive(alert->window()));
    EXPECT_FALSE(takesClicks(first));
    EXPECT_TRUE(takesClicks(second));
    QTest::keyClick(alert->window()->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(code, NSAlertDefaultReturn);
    EXPECT_TRUE(QTest::qWaitFor([&guard] { return guard.isNull(); }));
    EXPECT_TRUE(takesClicks(first));
}

TEST_F(DesktopDialogTests, TheHostMayGoUnderItsSheet)
{
    auto host = std::make_unique<KTWindowController>(new ButtonWindow(QPoint(200, 400)));
    show(*host);
    host->addDialogControllerToQueue(&dialog);
    host->addDialogControllerToQueue(&next);
    host->runDialogQueue();
    ASSERT_TRUE(becomesActive(dialog.window()));
    host.reset();
    turn();
    dialog.endDialog();
    turn();
    EXPECT_FALSE(next.window()->isVisible());
    EXPECT_TRUE(takesClicks(first));
}
