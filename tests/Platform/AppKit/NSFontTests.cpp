#include <KTUtility/NSFont>

#include "support/TestSupport.h"

#include <QFontMetricsF>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(NSFont, FontsHaveTheAskedSize)
{
    needApplication();
    EXPECT_EQ(NSFont::userFontOfSize(11).pixelSize(), 11);
    EXPECT_EQ(NSFont::userFontOfSize(11).family(), QGuiApplication::font().family());
    EXPECT_EQ(NSFont::systemFontOfSize(0).pixelSize(), NSFont::systemFontSize);
    EXPECT_EQ(NSFont::systemFontOfSize(-7).pixelSize(), NSFont::systemFontSize);
}

TEST(NSFont, TheBoundingRectangleHoldsEveryCharacter)
{
    needApplication();
    const QFont font = NSFont::systemFontOfSize(100);
    const QRectF box = NSFont::boundingRectForFont(font);
    const QRectF letters = QFontMetricsF(font).tightBoundingRect(u"ÅgjQ|"_s);
    EXPECT_LE(box.top(), -letters.bottom() + 1);
    EXPECT_GE(box.bottom(), -letters.top() - 1);
    EXPECT_NEAR(NSFont::boundingRectForFont(NSFont::systemFontOfSize(200)).height(),
                2 * box.height(), 0.01);
    QFont missing(u"No Such Font At All"_s);
    missing.setPixelSize(100);
    EXPECT_GT(NSFont::boundingRectForFont(missing).height(), 50);
}

TEST(NSFont, HasTheAskedSizeWithAndWithoutAnApplication)
{
    EXPECT_EQ(NSFont::systemFontOfSize(NSFont::smallSystemFontSize).pixelSize(), 11);
    testing_support::needApplication();
    EXPECT_EQ(NSFont::systemFontOfSize(NSFont::systemFontSize).pixelSize(), 13);
}
