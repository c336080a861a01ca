#include <KTUtility/NSScreen>
#include <KTUtility/NSWindow>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

using namespace testing_support;

TEST(NSScreen, CoordinatesCountFromTheBottomLeft)
{
    needApplication();
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    EXPECT_EQ(NSScreen::systemRect({10, 20, 30, 40}), QRectF(10, screen.height() - 60, 30, 40));
    EXPECT_EQ(NSScreen::qtRect(NSScreen::systemRect({10, 20, 30, 40})), QRect(10, 20, 30, 40));
    EXPECT_EQ(NSScreen::mainScreenFrame().size(), QSizeF(screen.size()));
    QWidget window;
    NSWindow::setFrame(&window, {50, 60, 200, 100});
    EXPECT_EQ(window.geometry(), QRect(50, screen.height() - 160, 200, 100));
    EXPECT_EQ(NSWindow::frame(&window), QRectF(50, 60, 200, 100));
}

TEST(NSScreen, FarAwayIsStillSomewhere)
{
    needApplication();
    EXPECT_EQ(NSScreen::qtRect({1e300, 0, 10, 10}).x(), 30000);
    EXPECT_EQ(NSScreen::qtRect({NotANumber, 0, 10, 10}).x(), 0);
    EXPECT_EQ(NSScreen::qtRect({0, 0, -Infinite, 10}).width(), 0);
}
