// What is shown when, and what takes it away. Time passes when the tests say so.

#include "HUDSupport.h"

#include <KTUtility/KTLogCapture>
#include <KTUtility/NSApplication>

#include <QDialog>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QTest>

using namespace Qt::StringLiterals;

using testing_support::turn;
using KTStatusHUDControllerTests = HUDTest;

namespace {
const QString Text = u"247 records"_s;

/// A style of a desktop that wants nothing to move.
class StillStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// Runs a modal session, in which a function is called.
void inModalSession(const std::function<void()> &perform)
{
    QDialog dialog;
    QMetaObject::invokeMethod(
        &dialog,
        [&perform] {
            // The window of the session has the keyboard before anything is shown.
            turn();
            perform();
            NSApplication::stopModal();
        },
        Qt::QueuedConnection);
    NSApplication::runModalForWindow(&dialog);
}
} // namespace

TEST_F(KTStatusHUDControllerTests, FadesInStaysAndFadesOut)
{
    EXPECT_FALSE(hud.isDisplayingWindow());
    EXPECT_EQ(hud.window(), nullptr);
    show(Text);
    EXPECT_TRUE(isVisible());
    EXPECT_TRUE(hud.isDisplayingWindow());
    EXPECT_EQ(hud.text()->stringValue(), Text);
    EXPECT_EQ(opacity(), 0);
    clock.advance(0.1);
    EXPECT_GT(opacity(), 0.1);
    EXPECT_LT(opacity(), 0.7);
    clock.advance(0.07);
    EXPECT_EQ(opacity(), 1);
    clock.advance(0.82);
    EXPECT_EQ(opacity(), 1);
    clock.advance(0.02);
    EXPECT_FALSE(hud.isDisplayingWindow());
    EXPECT_TRUE(isVisible());
    clock.advance(0.15);
    EXPECT_LT(opacity(), 1);
    EXPECT_GT(opacity(), 0);
    clock.advance(0.12);
    EXPECT_FALSE(isVisible());
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(KTStatusHUDControllerTests, ASecondIsTheUsualTime)
{
    hud.showStatusWindowWithString(Text, parent, false);
    clock.advance(0.99);
    EXPECT_TRUE(hud.isDisplayingWindow());
    clock.advance(0.02);
    EXPECT_FALSE(hud.isDisplayingWindow());
}

TEST_F(KTStatusHUDControllerTests, TheTimeIsGivenInSeconds)
{
    show(Text, 7.5);
    clock.advance(7.4);
    EXPECT_TRUE(hud.isDisplayingWindow());
    clock.advance(0.2);
    EXPECT_FALSE(hud.isDisplayingWindow());
}

TEST_F(KTStatusHUDControllerTests, OddTimesAreNone)
{
    for (const double seconds : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        show(Text, seconds);
        clock.advance(0.3);
        EXPECT_FALSE(hud.isDisplayingWindow());
        clock.advance(0.3);
        EXPECT_FALSE(isVisible());
    }
    show(Text, std::numeric_limits<double>::infinity());
    clock.advance(1e6);
    EXPECT_TRUE(hud.isDisplayingWindow());
}

TEST_F(KTStatusHUDControllerTests, ASecondRequestIsIgnored)
{
    show(Text);
    clock.advance(0.5);
    const QRect frame = hud.window()->geometry();
    show(u"another, longer text"_s, 100);
    EXPECT_EQ(hud.text()->stringValue(), Text);
    EXPECT_EQ(hud.window()->geometry(), frame);
    clock.advance(0.51);
    // It fades out, and is still in the way of the next.
    show(u"a third one"_s);
    EXPECT_EQ(hud.text()->stringValue(), Text);
    EXPECT_FALSE(hud.isDisplayingWindow());
    clock.advance(0.3);
    show(u"a fourth one"_s);
    EXPECT_EQ(hud.text()->stringValue(), u"a fourth one"_s);
    EXPECT_TRUE(isVisible());
    clock.advance(0.2);
    EXPECT_EQ(opacity(), 1);
}

TEST_F(KTStatusHUDControllerTests, NilShowsNothingAndKeepsRunning)
{
    show(QString());
    EXPECT_EQ(hud.window(), nullptr);
    EXPECT_TRUE(hud.isDisplayingWindow());
    show(Text);
    EXPECT_EQ(hud.window(), nullptr);
    clock.advance(100);
    EXPECT_TRUE(hud.isDisplayingWindow());
    hud.setRunning(false);
    EXPECT_FALSE(hud.isDisplayingWindow());
    show(Text);
    EXPECT_TRUE(isVisible());
}

TEST_F(KTStatusHUDControllerTests, AFadeOutEndsWhatNilBegan)
{
    show(QString());
    hud.dismissStatusWindow();
    EXPECT_FALSE(hud.isDisplayingWindow());
    show(Text);
    EXPECT_TRUE(isVisible());
}

TEST_F(KTStatusHUDControllerTests, RunningStopsRequestsOnly)
{
    hud.setRunning(true);
    show(Text);
    EXPECT_EQ(hud.window(), nullptr);
    hud.setRunning(false);
    show(Text);
    hud.setRunning(false);
    EXPECT_TRUE(hud.isDisplayingWindow());
    show(u"other"_s);
    EXPECT_EQ(hud.text()->stringValue(), Text);
}

TEST_F(KTStatusHUDControllerTests, DismissingFadesOutAtOnce)
{
    show(Text, 60);
    clock.advance(0.5);
    hud.dismissStatusWindow();
    EXPECT_FALSE(hud.isDisplayingWindow());
    EXPECT_TRUE(isVisible());
    clock.advance(0.26);
    EXPECT_FALSE(isVisible());
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(KTStatusHUDControllerTests, DismissingWhileItFadesInStaysInOrder)
{
    show(Text, 60);
    clock.advance(0.1);
    const double before = opacity();
    hud.dismissStatusWindow();
    clock.advance(0.02);
    EXPECT_LE(opacity(), before);
    clock.advance(0.3);
    EXPECT_FALSE(isVisible());
    show(Text, 60);
    clock.advance(0.2);
    EXPECT_EQ(opacity(), 1);
    EXPECT_TRUE(hud.content()->isVisible());
}

TEST_F(KTStatusHUDControllerTests, DismissingTwiceIsOneFading)
{
    show(Text, 60);
    clock.advance(0.5);
    hud.fadesEnded = 0;
    hud.dismissStatusWindow();
    clock.advance(0.2);
    hud.dismissStatusWindow();
    clock.advance(0.06);
    EXPECT_FALSE(isVisible());
    EXPECT_EQ(hud.fadesEnded, 1);
}

TEST_F(KTStatusHUDControllerTests, DismissingWithoutADisplayFadesUnseen)
{
    hud.dismissStatusWindow();
    EXPECT_EQ(hud.window(), nullptr);
    show(Text);
    clock.advance(2);
    hud.fadesEnded = 0;
    hud.setRunning(true);
    hud.dismissStatusWindow();
    EXPECT_FALSE(hud.isDisplayingWindow());
    EXPECT_FALSE(isVisible());
    clock.advance(0.3);
    EXPECT_EQ(hud.fadesEnded, 1);
}

TEST_F(KTStatusHUDControllerTests, AFadeOutThatNobodySeesTakesNoLaterDisplayAway)
{
    show(Text);
    clock.advance(2);
    hud.dismissStatusWindow();
    clock.advance(0.1);
    show(u"later"_s);
    clock.advance(0.5);
    EXPECT_TRUE(isVisible());
    EXPECT_EQ(opacity(), 1);
    EXPECT_TRUE(hud.isDisplayingWindow());
    clock.advance(1);
    EXPECT_FALSE(isVisible());
    show(Text);
    EXPECT_TRUE(isVisible());
}

TEST_F(KTStatusHUDControllerTests, NobodyWaitsForAFadeOutThatCannotBeSeen)
{
    hud.showStatusWindowWithString(Text, parent, true, 1);
    clock.advance(2);
    EXPECT_FALSE(isVisible());
    const double slept = clock.secondsSlept();
    hud.dismissStatusWindow();
    EXPECT_EQ(clock.secondsSlept(), slept);
}

TEST_F(KTStatusHUDControllerTests, AClickDismisses)
{
    show(Text, 60);
    clock.advance(0.5);
    QTest::mouseClick(hud.content(), Qt::LeftButton);
    EXPECT_FALSE(hud.isDisplayingWindow());
    clock.advance(0.3);
    EXPECT_FALSE(isVisible());
    show(Text, 60);
    clock.advance(0.5);
    // Also one on the text, which covers most of the panel.
    QTest::mouseClick(hud.window()->windowHandle(), Qt::LeftButton, {},
                      hud.text()->geometry().center());
    EXPECT_FALSE(hud.isDisplayingWindow());
}

TEST_F(KTStatusHUDControllerTests, LeavingTheApplicationDismisses)
{
    show(Text, 60);
    clock.advance(0.5);
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_TRUE(hud.isDisplayingWindow());
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_FALSE(hud.isDisplayingWindow());
    clock.advance(0.3);
    show(Text, 60);
    // It was left already.
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationHidden);
    EXPECT_TRUE(hud.isDisplayingWindow());
}

TEST_F(KTStatusHUDControllerTests, TheFadeInDoesNotStartTwice)
{
    show(Text, 60);
    clock.advance(0.1);
    const double before = opacity();
    hud.fadeIn();
    EXPECT_EQ(opacity(), before);
    clock.advance(0.06);
    EXPECT_EQ(opacity(), 1);
    hud.fadeIn();
    EXPECT_EQ(opacity(), 0);
}

// --- Modal sessions

TEST_F(KTStatusHUDControllerTests, InModalModeFadingBlocks)
{
    hud.showStatusWindowWithString(Text, parent, true, 2);
    EXPECT_NEAR(clock.secondsSlept(), 0.15, 0.011);
    EXPECT_EQ(opacity(), 1);
    EXPECT_TRUE(isVisible());
    EXPECT_TRUE(hud.isDisplayingWindow());
    hud.dismissStatusWindow();
    EXPECT_NEAR(clock.secondsSlept(), 0.4, 0.025);
    EXPECT_FALSE(isVisible());
    EXPECT_FALSE(hud.isDisplayingWindow());
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(KTStatusHUDControllerTests, InModalModeTheTimeEndsInTheSession)
{
    inModalSession([&] {
        hud.showStatusWindowWithString(Text, parent, true, 1);
        EXPECT_TRUE(isVisible());
        clock.advance(1.01);
        EXPECT_FALSE(isVisible());
    });
    EXPECT_FALSE(hud.isDisplayingWindow());
}

TEST_F(KTStatusHUDControllerTests, OtherwiseTheTimeEndsAfterTheSession)
{
    inModalSession([&] {
        show(Text);
        clock.advance(5);
        turn();
        EXPECT_EQ(opacity(), 1);
        EXPECT_TRUE(hud.isDisplayingWindow());
    });
    EXPECT_TRUE(isVisible());
    turn();
    EXPECT_FALSE(hud.isDisplayingWindow());
    clock.advance(0.3);
    EXPECT_FALSE(isVisible());
}

TEST_F(KTStatusHUDControllerTests, AClickEndsItAlsoWhileItWaitsForTheSession)
{
    inModalSession([&] {
        show(Text);
        clock.advance(5);
        hud.userClickedHUDOnEvent(nullptr);
        clock.advance(0.3);
        EXPECT_FALSE(isVisible());
    });
    turn();
    EXPECT_EQ(clock.pendingAlarms(), 0);
    show(Text);
    EXPECT_TRUE(isVisible());
}

TEST_F(KTStatusHUDControllerTests, ModesChangeFromDisplayToDisplay)
{
    hud.showStatusWindowWithString(Text, parent, true, 1);
    clock.advance(1.1);
    const double slept = clock.secondsSlept();
    show(Text);
    EXPECT_EQ(clock.secondsSlept(), slept);
    EXPECT_EQ(opacity(), 0);
}

// --- What the desktop wants

TEST_F(KTStatusHUDControllerTests, NothingMovesWhereTheDesktopWantsThat)
{
    const QString usual = QApplication::style()->name();
    QApplication::setStyle(new StillStyle);
    show(Text);
    EXPECT_EQ(opacity(), 1);
    EXPECT_TRUE(isVisible());
    clock.advance(1.0);
    EXPECT_FALSE(isVisible());
    EXPECT_FALSE(hud.isDisplayingWindow());
    hud.showStatusWindowWithString(Text, parent, true, 1);
    EXPECT_EQ(clock.secondsSlept(), 0);
    hud.dismissStatusWindow();
    EXPECT_FALSE(isVisible());
    QApplication::setStyle(usual);
}

// --- The interface file

TEST_F(KTStatusHUDControllerTests, AMissingFileIsLoggedOncePerAttempt)
{
    KTLogCapture log(kLog_invalid, 4);
    const QTemporaryDir empty;
    hud.bundlePath = empty.path();
    show(Text);
    EXPECT_EQ(log.messages(), QStringList{u"could not load StatusHUD nib"_s});
    EXPECT_EQ(log.entries().first().level, 4);
    EXPECT_EQ(hud.window(), nullptr);
    EXPECT_TRUE(hud.isDisplayingWindow());
    show(Text);
    EXPECT_EQ(log.messages().size(), 1);
    hud.setRunning(false);
    show(Text);
    EXPECT_EQ(log.messages().size(), 2);
    hud.setRunning(false);
    hud.bundlePath = NSBundle::frameworkBundle().bundlePath();
    show(Text);
    EXPECT_TRUE(isVisible());
    EXPECT_EQ(log.messages().size(), 2);
}

TEST_F(KTStatusHUDControllerTests, BrokenFilesAreAsGoodAsMissing)
{
    KTLogCapture log(kLog_invalid, 4);
    const QTemporaryDir folder;
    hud.bundlePath = folder.path();
    const QString path = folder.filePath(u"Resources/StatusHUD.ui"_s);
    qsizetype attempts = 0;
    for (const QByteArray &contents :
         {QByteArray(), QByteArray("<ui"),
          QByteArray("<ui version=\"4.0\"><widget class=\"QWidget\" name=\"window\"/></ui>"),
          QByteArray("<ui version=\"4.0\"><widget class=\"KTStatusHUDWindow\" name=\"window\"/>"
                     "</ui>")}) {
        testing_support::writeFile(path, contents);
        testing_support::standardErrorOf([&] { show(Text); });
        EXPECT_EQ(log.messages().size(), ++attempts) << contents.toStdString();
        EXPECT_TRUE(hud.isDisplayingWindow());
        EXPECT_EQ(hud.window(), nullptr);
        hud.dismissStatusWindow();
        clock.advance(1);
    }
}

TEST_F(KTStatusHUDControllerTests, TheFileIsLoadedOnce)
{
    show(Text);
    const KTStatusHUDWindow *const window = hud.window();
    clock.advance(2);
    show(Text);
    EXPECT_EQ(hud.window(), window);
    EXPECT_EQ(hud.content()->delegate(), &hud);
}

TEST_F(KTStatusHUDControllerTests, TheWindowGoesWithItsController)
{
    auto other = std::make_unique<TestHUD>();
    other->showStatusWindowWithString(Text, parent, false);
    const QPointer<KTStatusHUDWindow> window = other->window();
    EXPECT_FALSE(window.isNull());
    other.reset();
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(clock.pendingAlarms(), 0);
}

TEST_F(KTStatusHUDControllerTests, AWindowThatIsTakenAwayIsMadeAnew)
{
    show(Text, 60);
    delete hud.window();
    clock.advance(0.5);
    hud.dismissStatusWindow();
    clock.advance(0.3);
    EXPECT_FALSE(hud.isDisplayingWindow());
    show(Text);
    EXPECT_TRUE(isVisible());
}

TEST_F(KTStatusHUDControllerTests, TheSharedControllerIsOneForAll)
{
    KTStatusHUDController *const shared = KTStatusHUDController::defaultController();
    ASSERT_NE(shared, nullptr);
    EXPECT_EQ(KTStatusHUDController::defaultController(), shared);
    QWidget window;
    window.setGeometry(100, 100, 300, 200);
    shared->setLargeText(true);
    shared->showStatusWindowWithString(u"1,204"_s, NSWindow::frame(&window), false, 3);
    EXPECT_TRUE(shared->window()->isVisible());
    clock.advance(4);
    EXPECT_FALSE(shared->window()->isVisible());
}
