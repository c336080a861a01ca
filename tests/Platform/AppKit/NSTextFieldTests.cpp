// Text fields of one line, and the system's coordinates of windows.

#include <KTUtility/NSTextField>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QFontMetricsF>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
class NSTextFieldTests : public WindowedTest
{
protected:
    NSTextField field;
};
} // namespace

TEST_F(NSTextFieldTests, FitsItsText)
{
    field.setStringValue(u"247 records"_s);
    field.sizeToFit();
    const QFontMetricsF metrics(field.font());
    EXPECT_EQ(field.width(), std::ceil(metrics.horizontalAdvance(u"247 records"_s)));
    EXPECT_EQ(field.height(), std::ceil(metrics.height()));
    EXPECT_EQ(field.shownText(), u"247 records"_s);
    EXPECT_EQ(field.minimumSizeHint().width(), 0);
}

TEST_F(NSTextFieldTests, ShortensWhereItIsTold)
{
    field.setStringValue(u"/home/somebody/pictures/of/last/summer/photo.jpg"_s);
    field.resize(150, 20);
    EXPECT_TRUE(field.shownText().startsWith(u"/home"_s));
    EXPECT_TRUE(field.shownText().endsWith(u".jpg"_s));
    field.setLineBreakMode(Qt::ElideRight);
    EXPECT_EQ(field.lineBreakMode(), Qt::ElideRight);
    EXPECT_TRUE(field.shownText().endsWith(u'…'));
}

TEST_F(NSTextFieldTests, IsOneLine)
{
    field.setStringValue(u"one\r\ntwo\n\u2029three"_s);
    field.sizeToFit();
    EXPECT_EQ(field.shownText(), u"one  two  three"_s);
    EXPECT_EQ(field.stringValue(), u"one\r\ntwo\n\u2029three"_s);
}

TEST_F(NSTextFieldTests, EndsOfHugeTextsAreShown)
{
    field.setStringValue(u"first "_s + megabyteOf(u"word "_s) + u" last"_s);
    EXPECT_GT(field.stringWidth(), 32768);
    field.resize(400, 20);
    EXPECT_TRUE(field.shownText().startsWith(u"first"_s));
    EXPECT_TRUE(field.shownText().endsWith(u"last"_s));
}

TEST_F(NSTextFieldTests, DrawsInItsColour)
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
