// How large the display is, where it lies, and what it looks like.

#include <KTUtility/NSFont>

#include "HUDSupport.h"
#include "support/PictureSupport.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
int widthOf(const QString &text, int fontSize)
{
    return int(
        std::ceil(QFontMetricsF(NSFont::systemFontOfSize(fontSize)).horizontalAdvance(text)));
}

int heightOf(int fontSize)
{
    return int(std::ceil(QFontMetricsF(NSFont::systemFontOfSize(fontSize)).height()));
}

class KTStatusHUDControllerLayoutTests : public HUDTest
{
protected:
    QSize sizeFor(const QString &text, bool large = false)
    {
        hud.setLargeText(large);
        show(text);
        const QSize size = hud.window()->size();
        hud.dismissStatusWindow();
        clock.advance(0.5);
        return size;
    }
    int fontSize() const { return hud.text()->font().pixelSize(); }
};
} // namespace

TEST_F(KTStatusHUDControllerLayoutTests, NormalTextsAre24HighIn104)
{
    const QString text = u"247 records"_s;
    EXPECT_EQ(sizeFor(text), QSize(widthOf(text, 24) + 32, 104));
    EXPECT_EQ(fontSize(), 24);
    EXPECT_EQ(hud.text()->geometry(),
              QRect(0, (104 - heightOf(24)) / 2, widthOf(text, 24) + 32, heightOf(24)));
    EXPECT_EQ(hud.content()->geometry(), hud.window()->rect());
    EXPECT_EQ(hud.text()->shownText(), text);
}

TEST_F(KTStatusHUDControllerLayoutTests, WideTextsTakeTheScreenAndAreCutInTheMiddle)
{
    const QString text = u"first "_s + QString(300, u'm') + u" last"_s;
    EXPECT_EQ(sizeFor(text), QSize(1280, 104));
    const QString shown = hud.text()->shownText();
    EXPECT_TRUE(shown.startsWith(u"first"_s));
    EXPECT_TRUE(shown.endsWith(u"last"_s));
    EXPECT_TRUE(shown.contains(u'…'));
    EXPECT_EQ(hud.text()->stringValue(), text);
}

TEST_F(KTStatusHUDControllerLayoutTests, RightToLeftTextsAreCutAtTheirEnd)
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QString text = u"\u05E9\u05DC\u05D5\u05DD 247"_s;
    EXPECT_EQ(sizeFor(text), QSize(widthOf(text, 24) + 32, 104));
    EXPECT_EQ(hud.text()->geometry().x(), 0);
    EXPECT_EQ(hud.text()->width(), hud.window()->width());
    EXPECT_EQ(hud.text()->shownText(), text);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(KTStatusHUDControllerLayoutTests, AnotherWidthShortensAnew)
{
    const QString text = QString(300, u'm');
    sizeFor(text);
    const QString wide = hud.text()->shownText();
    EXPECT_EQ(hud.text()->shownText(), wide);
    hud.text()->resize(200, 30);
    EXPECT_LT(hud.text()->shownText().size(), wide.size());
    hud.text()->setStringValue(u"short"_s);
    EXPECT_EQ(hud.text()->shownText(), u"short"_s);
}

TEST_F(KTStatusHUDControllerLayoutTests, TheScreenLeaves32Points)
{
    const QString text = u"just so wide"_s;
    hud.screen.setWidth(widthOf(text, 24) + 32);
    EXPECT_EQ(sizeFor(text).width(), hud.screen.width());
    hud.screen.setWidth(widthOf(text, 24) + 33);
    EXPECT_EQ(sizeFor(text).width(), hud.screen.width() - 1);
    hud.screen.setWidth(widthOf(text, 24) + 10);
    EXPECT_EQ(sizeFor(text).width(), hud.screen.width());
    EXPECT_EQ(hud.text()->shownText(), text);
}

TEST_F(KTStatusHUDControllerLayoutTests, ShortLargeTextsAre166High)
{
    const QString text = u"12"_s;
    EXPECT_EQ(sizeFor(text, true), QSize(widthOf(text, 166) + 32, heightOf(166) + 16));
    EXPECT_EQ(fontSize(), 166);
    EXPECT_EQ(hud.text()->y(), 8);
}

TEST_F(KTStatusHUDControllerLayoutTests, LongLargeTextsShrinkToTheScreen)
{
    const QString text = u"1,234,567 records in all"_s;
    const QSize size = sizeFor(text, true);
    const int expected = int(166.0 * (1280 - 96) / widthOf(text, 166));
    EXPECT_LT(expected, 166);
    EXPECT_EQ(fontSize(), expected);
    EXPECT_EQ(size.height(), heightOf(expected) + 16);
    EXPECT_EQ(size.width(), widthOf(text, expected) + 32);
    EXPECT_LE(widthOf(text, expected), 1280 - 96 + 2);
    hud.screen.setWidth(2560);
    sizeFor(text, true);
    EXPECT_GT(fontSize(), expected);
}

TEST_F(KTStatusHUDControllerLayoutTests, LargeTextIsForOneDisplay)
{
    hud.setLargeText(true);
    EXPECT_TRUE(hud.largeText());
    show(u"12"_s);
    EXPECT_FALSE(hud.largeText());
    clock.advance(2);
    show(u"12"_s);
    EXPECT_EQ(fontSize(), 24);
    EXPECT_EQ(hud.window()->height(), 104);
}

TEST_F(KTStatusHUDControllerLayoutTests, RequestsThatAreIgnoredKeepTheFlag)
{
    show(u"12"_s);
    hud.setLargeText(true);
    show(u"34"_s);
    EXPECT_TRUE(hud.largeText());
    clock.advance(2);
    show(u"34"_s);
    EXPECT_EQ(fontSize(), 166);
}

TEST_F(KTStatusHUDControllerLayoutTests, IsCentredOverTheRectangle)
{
    show(u"247 records"_s);
    const QRectF frame = NSWindow::frame(hud.window());
    EXPECT_NEAR(frame.center().x(), parent.center().x(), 1);
    EXPECT_NEAR(frame.center().y(), parent.center().y(), 1);
    hud.setParentRect({0, 0, 10, 10});
    EXPECT_NEAR(NSWindow::frame(hud.window()).center().x(), 5, 1);
    EXPECT_EQ(hud.window()->size(), frame.size().toSize());
}

TEST_F(KTStatusHUDControllerLayoutTests, IsCentredOverAWindow)
{
    QWidget window;
    window.setGeometry(120, 60, 400, 300);
    parent = NSWindow::frame(&window);
    show(u"247 records"_s);
    EXPECT_NEAR(hud.window()->geometry().center().x(), window.geometry().center().x(), 1);
    EXPECT_NEAR(hud.window()->geometry().center().y(), window.geometry().center().y(), 1);
}

TEST_F(KTStatusHUDControllerLayoutTests, TakesRectanglesWithoutSizeOrEnd)
{
    parent = QRectF(400, 300, 0, 0);
    show(u"here"_s);
    EXPECT_NEAR(NSWindow::frame(hud.window()).center().x(), 400, 1);
    for (const QRectF &rect : {QRectF(NotANumber, 0, 5, 5), QRectF(0, 0, Infinite, 5)}) {
        hud.setParentRect(rect);
        EXPECT_NEAR(NSWindow::frame(hud.window()).center().x(), 640, 1);
        EXPECT_NEAR(NSWindow::frame(hud.window()).center().y(), 400, 1);
    }
    hud.setParentRect({1e300, -1e300, 5, 5});
    EXPECT_TRUE(hud.window()->isVisible());
}

TEST_F(KTStatusHUDControllerLayoutTests, FitsASmallScreen)
{
    hud.screen = {320, 200};
    EXPECT_EQ(sizeFor(u"A text that is wider than so small a screen"_s), QSize(320, 104));
    const QSize large = sizeFor(u"247 records"_s, true);
    EXPECT_LE(large.width(), 320);
    EXPECT_LE(large.height(), 200);
    EXPECT_EQ(fontSize(), int(166.0 * (320 - 96) / widthOf(u"247 records"_s, 166)));
}

TEST_F(KTStatusHUDControllerLayoutTests, TakesScreensNarrowerThanTheMargins)
{
    hud.screen = {50, 40};
    EXPECT_EQ(sizeFor(u"247 records"_s, true).width(), 50);
    EXPECT_EQ(fontSize(), NSFont::systemFontSize);
    EXPECT_EQ(sizeFor(u"247 records"_s).width(), 50);
}

TEST_F(KTStatusHUDControllerLayoutTests, EmptyTextsHaveAPanelAllTheSame)
{
    EXPECT_EQ(sizeFor(u""_s), QSize(32, 104));
    EXPECT_EQ(sizeFor(u""_s, true), QSize(32, heightOf(166) + 16));
    EXPECT_EQ(fontSize(), 166);
}

TEST_F(KTStatusHUDControllerLayoutTests, HugeTextsAreShortened)
{
    const QString text = megabyteOf(u"records "_s);
    EXPECT_EQ(sizeFor(text), QSize(1280, 104));
    EXPECT_LT(hud.text()->shownText().size(), 300);
    EXPECT_EQ(sizeFor(text, true).width(), 1280);
    EXPECT_EQ(fontSize(), NSFont::systemFontSize);
}

TEST_F(KTStatusHUDControllerLayoutTests, TextsOfSeveralLinesAreOne)
{
    const QString lines = u"one\ntwo\tthree\u2028four"_s;
    const QString line = u"one two three four"_s;
    EXPECT_EQ(sizeFor(lines), QSize(widthOf(line, 24) + 32, 104));
    EXPECT_EQ(hud.text()->shownText(), line);
    EXPECT_EQ(hud.text()->stringValue(), lines);
    EXPECT_EQ(sizeFor(QString(10000, u'\n'), true).height(), heightOf(NSFont::systemFontSize) + 16);
}

TEST_F(KTStatusHUDControllerLayoutTests, HostileTextsAreShown)
{
    for (const QString &text : hostileTexts()) {
        if (text.isNull())
            continue;
        const QSize size = sizeFor(text);
        EXPECT_EQ(size.height(), 104);
        EXPECT_LE(size.width(), 1280);
        EXPECT_LE(sizeFor(text, true).width(), 1280);
    }
}

TEST_F(KTStatusHUDControllerLayoutTests, TextsAreNoHTMLAndMarkNoLetters)
{
    const QString text = u"<b>R&D</b> & more"_s;
    EXPECT_EQ(sizeFor(text).width(), widthOf(text, 24) + 32);
    EXPECT_EQ(hud.text()->shownText(), text);
}

TEST_F(KTStatusHUDControllerLayoutTests, ThePanelIsDarkTranslucentAndRound)
{
    show(u"247 records"_s);
    clock.advance(0.3);
    const QImage image = hud.window()->grab().toImage();
    EXPECT_COLOR(image.pixelColor(10, 10), QColor(0, 0, 0, 153), 1);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() - 1).alpha(), 0);
    EXPECT_GT(image.pixelColor(8, 0).alpha(), 140);
    const QRect field = hud.text()->geometry();
    int bright = 0;
    for (int y = field.top(); y <= field.bottom(); ++y)
        for (int x = field.left(); x <= field.right(); ++x)
            bright +=
                image.pixelColor(x, y).lightness() > 240 && image.pixelColor(x, y).alpha() > 240;
    EXPECT_GT(bright, 100);
}

TEST_F(KTStatusHUDControllerLayoutTests, ThePanelFadesAsAWhole)
{
    show(u"247 records"_s);
    clock.advance(0.3);
    hud.dismissStatusWindow();
    clock.advance(0.2);
    const double half = opacity();
    const QImage image = hud.window()->grab().toImage();
    EXPECT_NEAR(image.pixelColor(10, 10).alpha(), 153 * half, 3);
}

TEST_F(KTStatusHUDControllerLayoutTests, ScreenReadersAreToldTheText)
{
    show(u"247 records"_s);
    show(u"ignored"_s);
    EXPECT_EQ(hud.announced, QStringList{u"247 records"_s});
    const QAccessibleInterface *const window = QAccessible::queryAccessibleInterface(hud.window());
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->role(), QAccessible::Notification);
    EXPECT_EQ(window->text(QAccessible::Name), u"247 records"_s);
    const QAccessibleInterface *const text = QAccessible::queryAccessibleInterface(hud.text());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(QAccessible::Name), u"247 records"_s);
}

TEST_F(KTStatusHUDControllerLayoutTests, NothingIsToldOfWhatIsNotShown)
{
    show(QString());
    EXPECT_TRUE(hud.announced.isEmpty());
}
