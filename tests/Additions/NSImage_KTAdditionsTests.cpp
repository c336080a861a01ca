#include <KTUtility/CIImage_KTAdditions>
#include <KTUtility/NSGraphicsContext>
#include <KTUtility/NSImage>
#include <KTUtility/NSImage_KTAdditions>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

using namespace testing_support;

namespace {
/// One bit for each pixel, so that so large a picture is quickly made.
QImage hugePicture()
{
    QImage image(20000, 20000, QImage::Format_Mono);
    image.fill(1);
    return image;
}

QImage rotated(const QImage &image, float degrees, bool flipX = false, bool flipY = false)
{
    return KTAdditions::imageRotated(image, image, degrees, flipX, flipY);
}
} // namespace

TEST(NSImage_KTAdditions, BitmapsHaveThePixelsOfTheTIFFFile)
{
    const QImage picture = quarters(8, 6);
    const QImage bitmap = KTAdditions::bitmap(picture);
    EXPECT_EQ(bitmap.convertToFormat(picture.format()), picture);
    EXPECT_TRUE(KTAdditions::bitmap(QImage()).isNull());
    QImage translucent = solid(4, 4, QColor(200, 100, 50, 128));
    EXPECT_COLOR(KTAdditions::bitmap(translucent).pixelColor(1, 1), QColor(200, 100, 50, 128), 2);
    translucent.setDevicePixelRatio(2);
    EXPECT_EQ(NSImage::sizeOf(KTAdditions::bitmap(translucent)), QSizeF(2, 2));
}

TEST(NSImage_KTAdditions, ToCIImageCoversThePixels)
{
    QImage picture = quarters(8, 6);
    picture.setDevicePixelRatio(2);
    EXPECT_EQ(KTAdditions::toCIImage(picture).extent(), QRectF(0, 0, 8, 6));
    EXPECT_TRUE(KTAdditions::toCIImage(QImage()).isNull());
    EXPECT_EQ(KTAdditions::toNSImage(KTAdditions::toCIImage(quarters(8, 6))), quarters(8, 6));
}

TEST(NSImage_KTAdditions, DrawnFlippedIsUprightWhereYPointsDown)
{
    QImage canvas = NSImage::imageOfSize({10, 10});
    QPainter painter(&canvas);
    KTAdditions::drawFlippedInRect(quarters(4, 4), painter, {1, 2, 4, 4},
                                   QPainter::CompositionMode_SourceOver);
    painter.end();
    EXPECT_COLOR(canvas.pixelColor(1, 2), Qt::blue, 0);
    EXPECT_COLOR(canvas.pixelColor(4, 5), Qt::green, 0);
    EXPECT_EQ(inkOf(canvas), 16);
}

TEST(NSImage_KTAdditions, DrawnFlippedIsUpsideDownWhereYPointsUp)
{
    QImage canvas = NSImage::imageOfSize({4, 4});
    QPainter painter(&canvas);
    NSGraphicsContext::turnUpright(painter, 4);
    KTAdditions::drawFlippedInRect(quarters(4, 4), painter, {0, 0, 4, 4},
                                   QPainter::CompositionMode_SourceOver, 1);
    painter.end();
    EXPECT_COLOR(pixelFromBottom(canvas, 0, 0), Qt::blue, 0);
    EXPECT_COLOR(pixelFromBottom(canvas, 3, 3), Qt::green, 0);
}

TEST(NSImage_KTAdditions, DrawsAPartFlippedWithOperationAndFraction)
{
    QImage canvas = solid(4, 4, Qt::black);
    QPainter painter(&canvas);
    KTAdditions::drawFlippedInRect(quarters(8, 8), painter, {0, 0, 4, 4}, {4, 4, 4, 4},
                                   QPainter::CompositionMode_SourceOver, 0.5);
    EXPECT_COLOR(canvas.pixelColor(2, 2), QColor(128, 128, 128), 2);
    KTAdditions::drawFlippedInRect(quarters(8, 8), painter, {0, 0, 4, 4}, {4, 4, 4, 4},
                                   QPainter::CompositionMode_DestinationOut);
    EXPECT_EQ(inkOf(canvas), 0);
    EXPECT_TRUE(painter.transform().isIdentity());
}

TEST(NSImage_KTAdditions, DrawsNothingOfNonsense)
{
    QImage canvas = NSImage::imageOfSize({4, 4});
    QPainter painter(&canvas);
    KTAdditions::drawFlippedInRect(QImage(), painter, {0, 0, 4, 4},
                                   QPainter::CompositionMode_Source);
    KTAdditions::drawFlippedInRect(quarters(4, 4), painter, {0, 0, NotANumber, 4},
                                   QPainter::CompositionMode_Source);
    KTAdditions::drawFlippedInRect(quarters(4, 4), painter, {0, 0, 0, 0},
                                   QPainter::CompositionMode_Source);
    painter.end();
    KTAdditions::drawFlippedInRect(quarters(4, 4), painter, {0, 0, 4, 4},
                                   QPainter::CompositionMode_Source);
    EXPECT_EQ(inkOf(canvas), 0);
}

TEST(NSImage_KTAdditions, RotatedSizesDropFractionsOfEachProduct)
{
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 0), QSizeF(100, 50));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 90), QSizeF(50, 100));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 45), QSizeF(105, 105));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, -45), QSizeF(105, 105));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 200), QSizeF(93 + 17, 34 + 46));
    EXPECT_TRUE(KTAdditions::sizeOfRotatedImage({100, 50}, float(NotANumber)).isEmpty());
    EXPECT_TRUE(KTAdditions::sizeOfRotatedImage({100, 50}, float(Infinite)).isEmpty());
}

TEST(NSImage_KTAdditions, RotatingAboutTheCenterTakesTheGivenSteps)
{
    const QImage picture = quarters(100, 50);
    const auto turned = [&](float degrees, bool flipX, bool flipY) {
        return KTAdditions::rotatedImageAboutCenter(QImage(), picture, degrees, flipX, flipY);
    };
    EXPECT_EQ(turned(0, false, false), picture);
    EXPECT_EQ(turned(90, false, false).size(), QSize(50, 100));
    // Where the steps lead: out of the frame, or half of it.
    EXPECT_EQ(inkOf(turned(90, false, false)), 0);
    EXPECT_EQ(inkOf(turned(0, true, false)), 0);
    EXPECT_EQ(inkOf(turned(0, false, true)), 0);
    const QImage half = turned(45, false, false);
    EXPECT_EQ(half.size(), QSize(105, 105));
    EXPECT_GT(inkOf(half), 500);
    EXPECT_LT(inkOf(half), 4500);
}

TEST(NSImage_KTAdditions, TheMatricesOfARotationFollowEachOther)
{
    // Turned by 180 degrees, the picture lies left of and below the origin; a flip along x alone
    // moves it there, too, so that both together leave a corner to see.
    const QImage square = quarters(40, 40);
    const QImage turned = KTAdditions::rotatedImageAboutCenter(square, square, 180, true, false);
    EXPECT_EQ(turned.size(), QSize(40, 40));
    // A point (x, y) goes to (-(x + 40), y + 40), then by the turn to (20 + 20 + x + 40, …).
    EXPECT_EQ(inkOf(turned), 0);
    const QImage back = KTAdditions::rotatedImageAboutCenter(square, square, 360, false, false);
    EXPECT_EQ(inkOf(back), 1600);
}

TEST(NSImage_KTAdditions, RotatingTurnsCounterclockwise)
{
    const QImage turned = rotated(quarters(100, 50), 90);
    EXPECT_EQ(turned.size(), QSize(50, 100));
    // What was at the bottom left is at the bottom right.
    EXPECT_COLOR(pixelFromBottom(turned, 45, 5), Qt::red, 1);
    EXPECT_COLOR(pixelFromBottom(turned, 45, 95), Qt::green, 1);
    EXPECT_COLOR(pixelFromBottom(turned, 5, 95), Qt::white, 1);
    EXPECT_COLOR(pixelFromBottom(turned, 5, 5), Qt::blue, 1);
    EXPECT_EQ(inkOf(turned), 5000);
}

TEST(NSImage_KTAdditions, RotatingFlipsInPlace)
{
    const QImage picture = quarters(10, 6);
    EXPECT_EQ(rotated(picture, 0), picture);
    EXPECT_TRUE(areAlike(rotated(picture, 0, true), picture.mirrored(true, false)));
    EXPECT_TRUE(areAlike(rotated(picture, 0, false, true), picture.mirrored(false, true)));
    EXPECT_TRUE(areAlike(rotated(picture, 0, true, true), picture.mirrored(true, true)));
    EXPECT_FALSE(areAlike(rotated(picture, 0, true), picture));
}

TEST(NSImage_KTAdditions, RotatingShowsAllAtAnyAngle)
{
    for (const float degrees : {30.0F, 45.0F, 135.0F, -77.0F, 180.0F, 270.0F, 725.0F}) {
        const int ink = inkOf(rotated(quarters(100, 50), degrees, degrees > 100));
        EXPECT_GT(ink, 4900) << degrees;
        EXPECT_LT(ink, 5600) << degrees;
    }
}

TEST(NSImage_KTAdditions, RotatedSharpPicturesStaySharp)
{
    QImage picture = quarters(100, 50);
    picture.setDevicePixelRatio(2);
    const QImage turned = rotated(picture, 90);
    EXPECT_EQ(turned.size(), QSize(50, 100));
    EXPECT_EQ(NSImage::sizeOf(turned), QSizeF(25, 50));
    EXPECT_EQ(inkOf(turned), 5000);
}

TEST(NSImage_KTAdditions, RotatingBadInputGivesNull)
{
    EXPECT_TRUE(rotated(QImage(), 45).isNull());
    EXPECT_TRUE(rotated(quarters(4, 4), float(NotANumber)).isNull());
    EXPECT_TRUE(rotated(quarters(4, 4), float(Infinite)).isNull());
    EXPECT_TRUE(KTAdditions::rotatedImageAboutCenter(QImage(), QImage(), 45, true, true).isNull());
    EXPECT_LE(rotated(quarters(4, 4), 1e30F).width(), 8);
    // Nothing is left of so small a picture.
    EXPECT_TRUE(rotated(quarters(1, 1), 45).isNull());
}

TEST(NSImage_KTAdditions, BadgesStandAtTheBottom)
{
    const QImage picture = solid(20, 10, Qt::black);
    const QImage badge = solid(4, 3, Qt::red);
    const QImage right = KTAdditions::applyBadge(picture, badge, 1, 0, false);
    EXPECT_EQ(right.size(), picture.size());
    EXPECT_COLOR(pixelFromBottom(right, 16, 0), Qt::red, 0);
    EXPECT_COLOR(pixelFromBottom(right, 19, 2), Qt::red, 0);
    EXPECT_COLOR(pixelFromBottom(right, 15, 0), Qt::black, 0);
    EXPECT_COLOR(pixelFromBottom(right, 19, 3), Qt::black, 0);
    const QImage left = KTAdditions::applyBadge(picture, badge, 1, 0, true);
    EXPECT_COLOR(pixelFromBottom(left, 0, 0), Qt::red, 0);
    EXPECT_COLOR(pixelFromBottom(left, 4, 0), Qt::black, 0);
    EXPECT_COLOR(picture.pixelColor(0, 9), Qt::black, 0);
}

TEST(NSImage_KTAdditions, TheScaleOfABadgeIsOfThePicture)
{
    const QImage picture = solid(20, 10, Qt::black);
    const QImage badged = KTAdditions::applyBadge(picture, solid(3, 3, Qt::red), 1, 0.5F, true);
    EXPECT_COLOR(pixelFromBottom(badged, 8, 3), Qt::red, 1);
    EXPECT_COLOR(pixelFromBottom(badged, 11, 1), Qt::black, 0);
    EXPECT_COLOR(pixelFromBottom(badged, 1, 6), Qt::black, 0);
    const QImage whole = KTAdditions::applyBadge(picture, solid(3, 3, Qt::red), 1, 1, false);
    EXPECT_COLOR(whole.pixelColor(10, 0), Qt::red, 1);
}

TEST(NSImage_KTAdditions, BadgesDissolveByAlpha)
{
    const QImage picture = solid(4, 4, Qt::black);
    const QImage badge = solid(4, 4, Qt::white);
    const auto badged = [&](qreal alpha) {
        return KTAdditions::applyBadge(picture, badge, alpha, 0, true).pixelColor(1, 1);
    };
    EXPECT_COLOR(badged(0.25), QColor(64, 64, 64), 1);
    EXPECT_COLOR(badged(0), Qt::black, 0);
    EXPECT_COLOR(badged(7), Qt::white, 0);
    EXPECT_COLOR(badged(-1), Qt::black, 0);
    EXPECT_COLOR(badged(NotANumber), Qt::black, 0);
}

TEST(NSImage_KTAdditions, BadgesOfNilAndNonsenseChangeNothing)
{
    const QImage picture = solid(4, 4, Qt::black);
    EXPECT_TRUE(KTAdditions::applyBadge(picture, QImage(), 1, 0, true).isNull());
    EXPECT_TRUE(KTAdditions::applyBadge(QImage(), picture, 1, 0, true).isNull());
    for (const float scale : {-1.0F, float(NotANumber), float(Infinite)})
        EXPECT_EQ(KTAdditions::applyBadge(picture, solid(2, 2, Qt::red), 1, scale, true), picture);
    const QImage covered = KTAdditions::applyBadge(picture, solid(2, 2, Qt::red), 1, 1000, true);
    EXPECT_COLOR(covered.pixelColor(0, 0), Qt::red, 1);
}

TEST(NSImage_KTAdditions, BadgesTakeScalesBeyondAllPictures)
{
    const QImage picture = solid(4, 4, Qt::black);
    const QImage badged = KTAdditions::applyBadge(picture, solid(2, 2, Qt::red), 1, 1e30F, true);
    EXPECT_EQ(badged.size(), picture.size());
}

TEST(NSImage_KTAdditions, DrawsIntoRectanglesBeyondAllCanvases)
{
    const QImage picture = solid(4, 4, Qt::red);
    for (const double far : {1e9, 1e300}) {
        QImage canvas = solid(8, 8, Qt::black);
        QPainter painter(&canvas);
        KTAdditions::drawFlippedInRect(picture, painter, {far, far, 4, 4},
                                       QPainter::CompositionMode_SourceOver);
        painter.end();
        EXPECT_EQ(canvas, solid(8, 8, Qt::black)) << far;
    }
}

TEST(NSImage_KTAdditions, OnlyTheZeroRectangleIsTheWholePicture)
{
    const QImage picture = solid(4, 4, Qt::red);
    const auto draws = [&picture](const QRectF &part) {
        QImage canvas = solid(8, 8, Qt::black);
        QPainter painter(&canvas);
        KTAdditions::drawFlippedInRect(picture, painter, {0, 0, 8, 8}, part,
                                       QPainter::CompositionMode_SourceOver);
        painter.end();
        return canvas != solid(8, 8, Qt::black);
    };
    EXPECT_TRUE(draws({}));
    EXPECT_TRUE(draws({0, 0, 4, 4}));
    EXPECT_FALSE(draws({1, 1, 0, 2}));
    EXPECT_FALSE(draws({1, 1, -2, 2}));
}

TEST(NSImage_KTAdditions, BadgesMayHaveAnotherResolution)
{
    QImage sharp = solid(40, 20, Qt::black);
    sharp.setDevicePixelRatio(2);
    const QImage badged = KTAdditions::applyBadge(sharp, solid(4, 3, Qt::red), 1, 0, false);
    EXPECT_EQ(badged.devicePixelRatio(), 2);
    EXPECT_COLOR(pixelFromBottom(badged, 33, 5), Qt::red, 1);
    EXPECT_COLOR(pixelFromBottom(badged, 30, 5), Qt::black, 1);
}

TEST(NSImage_KTAdditions, HugePicturesAreAnsweredAtOnce)
{
    const QImage huge = hugePicture();
    EXPECT_TRUE(KTAdditions::bitmap(huge).isNull());
    EXPECT_TRUE(KTAdditions::toCIImage(huge).isNull());
    EXPECT_TRUE(KTAdditions::toNSImage(CIImage(huge)).isNull());
    EXPECT_TRUE(rotated(huge, 30).isNull());
    EXPECT_TRUE(KTAdditions::rotatedImageAboutCenter(huge, huge, 0, false, false).isNull());
    EXPECT_TRUE(KTAdditions::applyBadge(huge, quarters(4, 4), 1, 0, true).isNull());
    const QImage badged = KTAdditions::applyBadge(quarters(8, 8), huge, 1, 0.5F, true);
    EXPECT_COLOR(pixelFromBottom(badged, 2, 2), huge.pixelColor(0, 0), 0);
}
