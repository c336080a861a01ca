#include <KTUtility/NSViewAnimation>

#include "AnimationSupport.h"
#include "support/TestSupport.h"

#include <QGraphicsEffect>
#include <QWidget>

using NSViewAnimationTests = testing_support::ClockedTest;

TEST_F(NSViewAnimationTests, ViewsFadeInAndOut)
{
    QWidget view;
    NSViewAnimation in(&view, NSViewAnimationEffect::FadeIn, 1, NSAnimationLinear);
    NSViewAnimation out(&view, NSViewAnimationEffect::FadeOut, 1, NSAnimationLinear);
    EXPECT_EQ(in.target(), &view);
    EXPECT_EQ(out.effect(), NSViewAnimationEffect::FadeOut);
    in.setAnimationBlockingMode(NSAnimationNonblocking);
    out.setAnimationBlockingMode(NSAnimationNonblocking);
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 1);
    in.startAnimation();
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 0);
    clock.advance(0.5);
    // The one that starts last goes on from here, and the other one is not seen any more.
    out.startAnimation();
    EXPECT_NEAR(NSViewAnimation::opacityOf(&view), 0.5, 0.02);
    clock.advance(0.4);
    EXPECT_NEAR(NSViewAnimation::opacityOf(&view), 0.3, 0.02);
    clock.advance(0.7);
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 0);
    EXPECT_FALSE(view.isVisible());
    in.startAnimation();
    clock.advance(1.1);
    EXPECT_EQ(NSViewAnimation::opacityOf(&view), 1);
    EXPECT_FALSE(view.graphicsEffect()->isEnabled());
}

TEST_F(NSViewAnimationTests, ViewsMayGoWhileTheyFade)
{
    auto view = std::make_unique<QWidget>();
    NSViewAnimation in(view.get(), NSViewAnimationEffect::FadeIn, 1, NSAnimationLinear);
    TestDelegate delegate;
    in.setDelegate(&delegate);
    in.setAnimationBlockingMode(NSAnimationNonblocking);
    in.startAnimation();
    clock.advance(0.5);
    view.reset();
    clock.advance(1);
    EXPECT_EQ(delegate.ends, 1);
    NSViewAnimation nobody(nullptr, NSViewAnimationEffect::FadeOut, 1, NSAnimationLinear);
    nobody.startAnimation();
    EXPECT_FALSE(nobody.isAnimating());
}
