#include <KTUtility/CIImage>
#include <KTUtility/NSGraphicsContext>
#include <KTUtility/NSImage>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(NSImage, PicturesAreFoundByName)
{
    needApplication();
    EXPECT_EQ(NSImage::imageNamed(u"dragBadge3.tif"_s).size(), QSize(40, 22));
    EXPECT_EQ(NSImage::imageNamed(u"book_dash_sliderthumb"_s).size(), QSize(15, 16));
    EXPECT_TRUE(NSImage::imageNamed(u"nothing"_s).isNull());
    EXPECT_TRUE(NSImage::imageNamed(u"nothing.png"_s).isNull());
    EXPECT_TRUE(NSImage::imageNamed(QString()).isNull());
}

TEST(NSImage, SharpPicturesHaveTwiceThePixels)
{
    for (const char16_t *const name :
         {u"dragBadge1-2", u"dragBadge3", u"dragBadge4", u"dragBadge5"}) {
        const QString file = QString::fromUtf16(name);
        const QSize size = NSImage::imageNamed(file + u".tif").size();
        EXPECT_FALSE(size.isEmpty());
        EXPECT_EQ(NSImage::imageNamed(file + u"@2x.tif").size(), size * 2) << file.toStdString();
    }
    EXPECT_EQ(NSImage::imageNamed(u"book_dash_sliderthumb@2x"_s).size(), QSize(30, 32));
}

TEST(NSImage, SizesAreInPoints)
{
    const QImage image = NSImage::imageOfSize({100, 50}, 2);
    EXPECT_EQ(image.size(), QSize(200, 100));
    EXPECT_EQ(NSImage::sizeOf(image), QSizeF(100, 50));
    EXPECT_EQ(inkOf(image), 0);
    EXPECT_EQ(NSImage::imageOfSize({10.2, 10}).size(), QSize(11, 10));
}

TEST(NSImage, ImpossiblePicturesAreNull)
{
    for (const QSizeF &size :
         {QSizeF(), QSizeF(0, 5), QSizeF(-5, 5), QSizeF(NotANumber, 5), QSizeF(Infinite, 5),
          QSizeF(20000, 20000), QSizeF(40000, 1), QSizeF(1e300, 1e300)}) {
        EXPECT_FALSE(NSImage::canMakeImageOfPixels(size));
        EXPECT_TRUE(NSImage::imageOfSize(size).isNull());
    }
    EXPECT_TRUE(NSImage::canMakeImageOfPixels({5700, 5700}));
    EXPECT_TRUE(NSImage::drawableCopy(QImage()).isNull());
    EXPECT_TRUE(NSImage::TIFFRepresentation(QImage()).isEmpty());
}

TEST(NSImage, UprightCoordinatesStartAtTheBottom)
{
    QImage image = NSImage::imageOfSize({10, 10});
    QPainter painter(&image);
    NSGraphicsContext::turnUpright(painter, 10);
    painter.fillRect(0, 0, 2, 2, Qt::red);
    painter.end();
    EXPECT_COLOR(image.pixelColor(0, 9), Qt::red, 0);
    EXPECT_COLOR(image.pixelColor(0, 0), Qt::transparent, 0);
}

TEST(NSImage, DrawsUprightWhereYPointsUp)
{
    const QImage picture = quarters(4, 4);
    QImage canvas = NSImage::imageOfSize({10, 10});
    {
        QPainter painter(&canvas);
        NSGraphicsContext::turnUpright(painter, 10);
        NSImage::drawInRect(picture, painter, {1, 2, 4, 4});
    }
    EXPECT_COLOR(pixelFromBottom(canvas, 1, 2), Qt::red, 0);
    EXPECT_COLOR(pixelFromBottom(canvas, 4, 5), Qt::white, 0);
    EXPECT_EQ(inkOf(canvas), 16);
    QImage flipped = NSImage::imageOfSize({10, 10});
    QPainter painter(&flipped);
    NSImage::drawInRect(picture, painter, {0, 0, 4, 4});
    EXPECT_COLOR(flipped.pixelColor(0, 0), Qt::red, 0);
}

TEST(NSImage, PartsAreMeasuredFromTheBottomLeft)
{
    QImage canvas = NSImage::imageOfSize({4, 4});
    QPainter painter(&canvas);
    NSGraphicsContext::turnUpright(painter, 4);
    NSImage::drawInRect(quarters(8, 8), painter, {0, 0, 4, 4}, {4, 0, 4, 4});
    painter.end();
    EXPECT_COLOR(canvas.pixelColor(1, 1), Qt::green, 0);
    EXPECT_COLOR(canvas.pixelColor(3, 3), Qt::green, 0);
}

TEST(NSImage, NothingIsDrawnOfNonsense)
{
    QImage canvas = NSImage::imageOfSize({4, 4});
    QPainter painter(&canvas);
    const QImage picture = quarters(4, 4);
    NSImage::drawInRect(QImage(), painter, {0, 0, 4, 4});
    NSImage::drawInRect(picture, painter, {0, NotANumber, 4, 4});
    NSImage::drawInRect(picture, painter, {0, 0, Infinite, 4});
    NSImage::drawInRect(picture, painter, {0, 0, 4, 4}, {NotANumber, 0, 4, 4});
    NSImage::drawInRect(picture, painter, {0, 0, 0, 0});
    NSImage::drawInRect(picture, painter, {0, 0, 4, 4}, {}, QPainter::CompositionMode_SourceOver,
                        NotANumber);
    painter.end();
    NSImage::drawInRect(picture, painter, {0, 0, 4, 4});
    EXPECT_EQ(inkOf(canvas), 0);
}

TEST(NSImage, TheStateOfThePainterIsKept)
{
    QImage canvas = NSImage::imageOfSize({4, 4});
    QPainter painter(&canvas);
    painter.setOpacity(0.25);
    NSImage::drawInRect(quarters(4, 4), painter, {1, 1, 2, 2}, {}, QPainter::CompositionMode_Source,
                        0.5);
    EXPECT_EQ(painter.opacity(), 0.25);
    EXPECT_TRUE(painter.transform().isIdentity());
    EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
}
