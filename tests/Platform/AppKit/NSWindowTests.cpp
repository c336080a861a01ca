#include <KTUtility/NSWindow>

#include "support/TestSupport.h"

#include <QWidget>

using namespace testing_support;

TEST(NSWindow, WindowsComeAndGo)
{
    needApplication();
    QWidget window;
    NSWindow::setLevel(&window, NSStatusWindowLevel);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    NSWindow::orderFront(&window);
    EXPECT_TRUE(window.isVisible());
    NSWindow::orderOut(&window);
    EXPECT_FALSE(window.isVisible());
    NSWindow::setLevel(&window, NSNormalWindowLevel);
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}
