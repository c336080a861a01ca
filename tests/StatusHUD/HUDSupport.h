#pragma once

#include <KTUtility/KTStatusHUDController>
#include <KTUtility/NSManualClock>
#include <KTUtility/NSScreen>
#include <KTUtility/NSViewAnimation>
#include <KTUtility/NSWindow>

#include "support/TestSupport.h"

/// A controller with a screen and a resource folder that the test chooses.
class TestHUD : public KTStatusHUDController
{
public:
    using KTStatusHUDController::fadeIn;
    using KTStatusHUDController::fadeOut;
    using KTStatusHUDController::setParentRect;

    QSizeF screen{1280, 800};
    QString bundlePath = NSBundle::frameworkBundle().bundlePath();
    int fadesEnded = 0;
    QStringList announced;

protected:
    QRectF mainScreenFrame() const override { return {QPointF(), screen}; }
    NSBundle interfaceBundle() const override { return NSBundle(bundlePath); }
    void announce(const QString &string) override
    {
        // The name stands before the window is shown.
        EXPECT_FALSE(window()->isVisible());
        announced += string;
        KTStatusHUDController::announce(string);
        EXPECT_EQ(window()->accessibleName(), string);
    }
    void animationDidEnd(NSAnimation *animation) override
    {
        ++fadesEnded;
        KTStatusHUDController::animationDidEnd(animation);
    }
};

class HUDTest : public testing_support::WindowedTest
{
protected:
    void show(const QString &text, double seconds = 1)
    {
        hud.showStatusWindowWithString(text, parent, false, seconds);
    }
    bool isVisible() const { return hud.window() && hud.window()->isVisible(); }
    double opacity() const { return NSViewAnimation::opacityOf(hud.content()); }

    NSManualClock clock;
    TestHUD hud;
    QRectF parent{100, 100, 600, 400};
};
