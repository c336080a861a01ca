// Text fields of one line, and the system's coordinates of windows.

#include <KTUtility/NSScreen>
#include <KTUtility/NSTextField>
#include <KTUtility/NSWindow>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

using namespace Qt::StringLiterals;

using namespace testing_support;

namespace {
class TextField : public WindowedTest
{
protected:
    NSTextField field;
};
} // namespace

TEST_F(TextField, FitsItsText)
{
    field.setStringValue(u"247 records"_s);
    field.sizeToFit();
    const QFontMetricsF metrics(field.font());
    EXPECT_EQ(field.width(), std::ceil(metrics.horizontalAdvance(u"247 records"_s)));
    EXPECT_EQ(field.height(), std::ceil(metrics.height()));
    EXPECT_EQ(field.shownText(), u"247 records"_s);
    EXPECT_EQ(field.minimumSizeHint().width(), 0);
}

TEST_F(TextField, ShortensWhereItIsTold)
{
    field.setStringValue(u"/home/somebody/pictures/of/last/summer/photo.jpg"_s);
    field.resize(150, 20);
    EXPECT_TRUE(field.shownText().startsWith(u"/home"_s));
    EXPECT_TRUE(field.shownText().endsWith(u".jpg"_s));
    field.setLineBreakMode(Qt::ElideRight);
    EXPECT_EQ(field.lineBreakMode(), Qt::ElideRight);
    EXPECT_TRUE(field.shownText().endsWith(u'…'));
}

TEST_F(TextField, IsOneLine)
{
    field.setStringValue(u"one\r\ntwo\n\u2029three"_s);
    field.sizeToFit();
    EXPECT_EQ(field.shownText(), u"one  two  three"_s);
    EXPECT_EQ(field.stringValue(), u"one\r\ntwo\n\u2029three"_s);
}

TEST_F(TextField, EndsOfHugeTextsAreShown)
{
    field.setStringValue(u"first "_s + megabyteOf(u"word "_s) + u" last"_s);
    EXPECT_GT(field.stringWidth(), 32768);
    field.resize(400, 20);
    EXPECT_TRUE(field.shownText().startsWith(u"first"_s));
    EXPECT_TRUE(field.shownText().endsWith(u"last"_s));
}

TEST_F(TextField, DrawsInItsColour)
{
    QPalette palette = field.palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Window, Qt::white);
    field.setPalette(palette);
    field.setStringValue(u"MMMM"_s);
    field.setAlignment(Qt::AlignCenter);
    field.resize(200, 40);
    const QImage image = field.grab().toImage();
    int red = 0;
    for (int x = 60; x < 140; ++x)
        for (int y = 0; y < 40; ++y)
            red += areClose(image.pixelColor(x, y), Qt::red, 40) ? 1 : 0;
    EXPECT_GT(red, 20);
    EXPECT_COLOR(image.pixelColor(5, 20), Qt::white, 0);
}

TEST(SystemCoordinates, CountFromTheBottomLeft)
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

TEST(SystemCoordinates, FarAwayIsStillSomewhere)
{
    needApplication();
    EXPECT_EQ(NSScreen::qtRect({1e300, 0, 10, 10}).x(), 30000);
    EXPECT_EQ(NSScreen::qtRect({NotANumber, 0, 10, 10}).x(), 0);
    EXPECT_EQ(NSScreen::qtRect({0, 0, -Infinite, 10}).width(), 0);
}

TEST(SystemCoordinates, WindowsComeAndGo)
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
