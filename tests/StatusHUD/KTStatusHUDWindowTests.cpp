#include <KTUtility/KTStatusHUDWindow>

#include "HUDSupport.h"

using namespace Qt::StringLiterals;

using KTStatusHUDWindowTests = HUDTest;

TEST_F(KTStatusHUDWindowTests, TheWindowHasNoFrameAndTakesNoFocus)
{
    const KTStatusHUDWindow window({10, 20, 300, 100}, Qt::Window | Qt::WindowTitleHint);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::NoDropShadowWindowHint));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(window.testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_EQ(NSWindow::frame(&window), QRectF(10, 20, 300, 100));
    show(u"247 records"_s);
    EXPECT_TRUE(hud.window()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}
