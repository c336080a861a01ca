// The status display and focus rings where there is a window system.

#include <KTUtility/KTFocusRingView>
#include <KTUtility/KTStatusHUDController>
#include <KTUtility/NSManualClock>
#include <KTUtility/NSWindow>

#include "DesktopDisplay.h"

#include "support/TestSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {
/// What the screen shows.
QImage screenShot()
{
    QTest::qWait(0);
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

class DesktopVisualTests : public testing::Test
{
protected:
    DesktopVisualTests()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        window.setGeometry(100, 100, 500, 300);
        window.setAutoFillBackground(true);
        window.setPalette(QPalette(Qt::white));
        window.show();
        EXPECT_TRUE(desktop_support::becomesActive(&window));
    }

    NSManualClock clock;
    QWidget window;
};
} // namespace

TEST_F(DesktopVisualTests, TheDisplayLiesOverTheWindowAndTakesNoKeyboard)
{
    KTStatusHUDController hud;
    hud.showStatusWindowWithString(u"247 records"_s, NSWindow::frame(&window), false, 60);
    clock.advance(0.5);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(hud.window()));
    EXPECT_TRUE(window.isActiveWindow());
    const QRect frame = hud.window()->frameGeometry();
    EXPECT_NEAR(frame.center().x(), window.geometry().center().x(), 1);
    EXPECT_NEAR(frame.center().y(), window.geometry().center().y(), 1);
    EXPECT_TRUE(hud.isDisplayingWindow());
}

TEST_F(DesktopVisualTests, CornersAreRoundWithoutACompositor)
{
    KTStatusHUDController hud;
    hud.showStatusWindowWithString(u"247 records"_s, NSWindow::frame(&window), false, 60);
    clock.advance(0.5);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(hud.window()));
    EXPECT_FALSE(hud.window()->mask().isEmpty());
    EXPECT_FALSE(hud.window()->mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(hud.window()->mask().contains(QPoint(8, 0)));
    const QRect frame = hud.window()->geometry();
    const auto isDarkAt = [](const QPoint &place) {
        return qGray(screenShot().pixel(place)) < 140;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDarkAt(frame.topLeft() + QPoint(20, 20)); }));
    EXPECT_FALSE(isDarkAt(frame.topLeft()));
    EXPECT_FALSE(isDarkAt(frame.bottomRight()));
}

TEST_F(DesktopVisualTests, AClickThroughTheWindowSystemDismisses)
{
    KTStatusHUDController hud;
    hud.showStatusWindowWithString(u"247 records"_s, NSWindow::frame(&window), false, 60);
    clock.advance(0.5);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(hud.window()));
    QTest::mouseClick(hud.window()->windowHandle(), Qt::LeftButton, {}, QPoint(30, 50));
    EXPECT_FALSE(hud.isDisplayingWindow());
    clock.advance(0.3);
    EXPECT_FALSE(hud.window()->isVisible());
}

TEST_F(DesktopVisualTests, TheRingFollowsTheKeyboardFromWindowToWindow)
{
    auto *const view = new KTFocusRingView(&window);
    view->setGeometry(20, 20, 200, 100);
    auto *const field = new QLineEdit(view);
    view->show();
    field->setFocus();
    EXPECT_TRUE(view->shouldDrawFocusRing());
    EXPECT_NE(view->previousResponder(), nullptr);
    QWidget other;
    other.setGeometry(650, 100, 100, 100);
    other.show();
    EXPECT_TRUE(desktop_support::becomesActive(&other));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view->previousResponder(); }));
    EXPECT_FALSE(view->shouldDrawFocusRing());
    window.activateWindow();
    EXPECT_TRUE(desktop_support::becomesActive(&window));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->previousResponder() == field; }));
}
