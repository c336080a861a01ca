// Pictures turned over, turned round, and badged.

#include <KTUtility/CIImage_KTAdditions>
#include <KTUtility/KTImageBadger>
#include <KTUtility/NSFont>
#include <KTUtility/NSGraphicsContext>
#include <KTUtility/NSImage>
#include <KTUtility/NSImage_KTAdditions>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QFontMetricsF>

using namespace Qt::StringLiterals;

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

QImage solid(int width, int height, const QColor &color)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

/// The smallest rectangle, from the bottom left, that holds all pixels as bright as text.
QRect brightPart(const QImage &image, const QImage &background)
{
    QRect part;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != background.pixelColor(x, y))
                part |= QRect(x, image.height() - 1 - y, 1, 1);
    return part;
}
} // namespace

// --- Core Image

TEST(ToNSImage, KeepsThePicture)
{
    const QImage picture = quarters(8, 6);
    EXPECT_EQ(KTAdditions::toNSImage(CIImage(picture)), picture);
    EXPECT_EQ(KTAdditions::toNSImage(CIImage(picture, {100, -7})), picture);
    EXPECT_TRUE(KTAdditions::toNSImage(CIImage()).isNull());
}

TEST(ToNSImage, TheRectangleGivesTheSizeOnly)
{
    const CIImage image(quarters(8, 6));
    const QImage smaller = KTAdditions::toNSImageFromRect(image, {50, 60, 4, 3});
    EXPECT_EQ(smaller, solid(4, 3, Qt::red).convertToFormat(smaller.format()));
    const QImage larger = KTAdditions::toNSImageFromRect(image, {0, 0, 10, 12});
    EXPECT_EQ(larger.size(), QSize(10, 12));
    EXPECT_COLOR(pixelFromBottom(larger, 0, 0), Qt::red, 0);
    EXPECT_COLOR(pixelFromBottom(larger, 7, 5), Qt::white, 0);
    EXPECT_COLOR(pixelFromBottom(larger, 9, 11), Qt::transparent, 0);
}

TEST(ToNSImage, ImpossibleSizes)
{
    const CIImage image(quarters(8, 6));
    for (const QRectF &rect :
         {QRectF(), QRectF(0, 0, -1, 5), QRectF(0, 0, NotANumber, 5), QRectF(0, 0, 20000, 20000)})
        EXPECT_TRUE(KTAdditions::toNSImageFromRect(image, rect).isNull());
}

TEST(Bitmap, HasThePixelsOfTheTIFFFile)
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

TEST(ToCIImage, CoversThePixels)
{
    QImage picture = quarters(8, 6);
    picture.setDevicePixelRatio(2);
    EXPECT_EQ(KTAdditions::toCIImage(picture).extent(), QRectF(0, 0, 8, 6));
    EXPECT_TRUE(KTAdditions::toCIImage(QImage()).isNull());
    EXPECT_EQ(KTAdditions::toNSImage(KTAdditions::toCIImage(quarters(8, 6))), quarters(8, 6));
}

// --- Upside down

TEST(DrawFlipped, IsUprightWhereYPointsDown)
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

TEST(DrawFlipped, IsUpsideDownWhereYPointsUp)
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

TEST(DrawFlipped, APartWithOperationAndFraction)
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

TEST(DrawFlipped, NothingOfNonsense)
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

// --- Turned

TEST(RotatedSize, DropsFractionsOfEachProduct)
{
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 0), QSizeF(100, 50));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 90), QSizeF(50, 100));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 45), QSizeF(105, 105));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, -45), QSizeF(105, 105));
    EXPECT_EQ(KTAdditions::sizeOfRotatedImage({100, 50}, 200), QSizeF(93 + 17, 34 + 46));
    EXPECT_TRUE(KTAdditions::sizeOfRotatedImage({100, 50}, float(NotANumber)).isEmpty());
    EXPECT_TRUE(KTAdditions::sizeOfRotatedImage({100, 50}, float(Infinite)).isEmpty());
}

TEST(RotatedAboutCenter, HasTheSizeAndTheGivenSteps)
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

TEST(RotatedAboutCenter, TheMatricesFollowEachOther)
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

TEST(ImageRotated, TurnsCounterclockwise)
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

TEST(ImageRotated, FlipsInPlace)
{
    const QImage picture = quarters(10, 6);
    EXPECT_EQ(rotated(picture, 0), picture);
    EXPECT_TRUE(areAlike(rotated(picture, 0, true), picture.mirrored(true, false)));
    EXPECT_TRUE(areAlike(rotated(picture, 0, false, true), picture.mirrored(false, true)));
    EXPECT_TRUE(areAlike(rotated(picture, 0, true, true), picture.mirrored(true, true)));
    EXPECT_FALSE(areAlike(rotated(picture, 0, true), picture));
}

TEST(ImageRotated, ShowsAllAtAnyAngle)
{
    for (const float degrees : {30.0F, 45.0F, 135.0F, -77.0F, 180.0F, 270.0F, 725.0F}) {
        const int ink = inkOf(rotated(quarters(100, 50), degrees, degrees > 100));
        EXPECT_GT(ink, 4900) << degrees;
        EXPECT_LT(ink, 5600) << degrees;
    }
}

TEST(ImageRotated, SharpPicturesStaySharp)
{
    QImage picture = quarters(100, 50);
    picture.setDevicePixelRatio(2);
    const QImage turned = rotated(picture, 90);
    EXPECT_EQ(turned.size(), QSize(50, 100));
    EXPECT_EQ(NSImage::sizeOf(turned), QSizeF(25, 50));
    EXPECT_EQ(inkOf(turned), 5000);
}

TEST(ImageRotated, BadInputIsNull)
{
    EXPECT_TRUE(rotated(QImage(), 45).isNull());
    EXPECT_TRUE(rotated(quarters(4, 4), float(NotANumber)).isNull());
    EXPECT_TRUE(rotated(quarters(4, 4), float(Infinite)).isNull());
    EXPECT_TRUE(KTAdditions::rotatedImageAboutCenter(QImage(), QImage(), 45, true, true).isNull());
    EXPECT_LE(rotated(quarters(4, 4), 1e30F).width(), 8);
    // Nothing is left of so small a picture.
    EXPECT_TRUE(rotated(quarters(1, 1), 45).isNull());
}

// --- Badged

TEST(ApplyBadge, StandsAtTheBottom)
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

TEST(ApplyBadge, TheScaleIsOfThePicture)
{
    const QImage picture = solid(20, 10, Qt::black);
    const QImage badged = KTAdditions::applyBadge(picture, solid(3, 3, Qt::red), 1, 0.5F, true);
    EXPECT_COLOR(pixelFromBottom(badged, 8, 3), Qt::red, 1);
    EXPECT_COLOR(pixelFromBottom(badged, 11, 1), Qt::black, 0);
    EXPECT_COLOR(pixelFromBottom(badged, 1, 6), Qt::black, 0);
    const QImage whole = KTAdditions::applyBadge(picture, solid(3, 3, Qt::red), 1, 1, false);
    EXPECT_COLOR(whole.pixelColor(10, 0), Qt::red, 1);
}

TEST(ApplyBadge, DissolvesByAlpha)
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

TEST(ApplyBadge, NilAndNonsense)
{
    const QImage picture = solid(4, 4, Qt::black);
    EXPECT_TRUE(KTAdditions::applyBadge(picture, QImage(), 1, 0, true).isNull());
    EXPECT_TRUE(KTAdditions::applyBadge(QImage(), picture, 1, 0, true).isNull());
    for (const float scale : {-1.0F, float(NotANumber), float(Infinite)})
        EXPECT_EQ(KTAdditions::applyBadge(picture, solid(2, 2, Qt::red), 1, scale, true), picture);
    const QImage covered = KTAdditions::applyBadge(picture, solid(2, 2, Qt::red), 1, 1000, true);
    EXPECT_COLOR(covered.pixelColor(0, 0), Qt::red, 1);
}

TEST(ApplyBadge, ScalesBeyondAllPictures)
{
    const QImage picture = solid(4, 4, Qt::black);
    const QImage badged = KTAdditions::applyBadge(picture, solid(2, 2, Qt::red), 1, 1e30F, true);
    EXPECT_EQ(badged.size(), picture.size());
}

TEST(DrawFlipped, RectanglesBeyondAllCanvases)
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

TEST(DrawFlipped, OnlyTheZeroRectangleIsTheWholePicture)
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

TEST(ApplyBadge, MixedResolutions)
{
    QImage sharp = solid(40, 20, Qt::black);
    sharp.setDevicePixelRatio(2);
    const QImage badged = KTAdditions::applyBadge(sharp, solid(4, 3, Qt::red), 1, 0, false);
    EXPECT_EQ(badged.devicePixelRatio(), 2);
    EXPECT_COLOR(pixelFromBottom(badged, 33, 5), Qt::red, 1);
    EXPECT_COLOR(pixelFromBottom(badged, 30, 5), Qt::black, 1);
}

TEST(HugePictures, AreAnsweredAtOnce)
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

// --- Drag badges

TEST(ImageBadger, PillsByTheNumberOfCharacters)
{
    needApplication();
    const QImage one = KTImageBadger::badgeOfSize(1);
    ASSERT_FALSE(one.isNull());
    for (const unsigned count : {0U, 2U, 6U, 7U, 4000000000U})
        EXPECT_EQ(KTImageBadger::badgeOfSize(count), one);
    EXPECT_EQ(one, NSImage::imageNamed(u"dragBadge1-2.tif"_s));
    for (const unsigned count : {3U, 4U, 5U}) {
        EXPECT_EQ(KTImageBadger::badgeOfSize(count),
                  NSImage::imageNamed(u"dragBadge%1.tif"_s.arg(count)));
        EXPECT_GT(KTImageBadger::badgeOfSize(count).width(),
                  KTImageBadger::badgeOfSize(count - 1).width());
    }
}

TEST(ImageBadger, PillsAreRedWithRoundEnds)
{
    const QImage pill = KTImageBadger::badgeOfSize(5);
    EXPECT_EQ(pill.pixelColor(0, 0).alpha(), 0);
    const QColor middle = pill.pixelColor(pill.width() / 2, pill.height() / 2);
    EXPECT_EQ(middle.alpha(), 255);
    EXPECT_GT(middle.red(), 2 * middle.green());
    EXPECT_GT(middle.red(), 3 * middle.blue());
}

TEST(ImageBadger, PillsHoldTheWidestCharacters)
{
    needApplication();
    const QFontMetricsF metrics(NSFont::userFontOfSize(11));
    for (const unsigned count : {1U, 2U, 3U, 4U, 5U}) {
        const qreal width = metrics.horizontalAdvance(QString(qsizetype(count), u'W'));
        EXPECT_LE(width, NSImage::sizeOf(KTImageBadger::badgeOfSize(count)).width() - 5) << count;
    }
}

TEST(ImageBadger, TextStandsInTheMiddle)
{
    needApplication();
    const QString text = u"247"_s;
    const QImage pill = KTImageBadger::badgeOfSize(3);
    const QImage badge = KTImageBadger::badgeWithString(text);
    EXPECT_EQ(badge.size(), pill.size());
    const QRect ink = brightPart(badge, pill.convertToFormat(badge.format()));
    ASSERT_FALSE(ink.isEmpty());
    const QFontMetricsF metrics(NSFont::userFontOfSize(11));
    const QRectF tight = metrics.tightBoundingRect(text);
    const qreal x = (pill.width() - metrics.horizontalAdvance(text)) * 0.5 + 0.5;
    const qreal y = (pill.height() - metrics.height()) * 0.5 + 1.7;
    EXPECT_NEAR(ink.left(), x + tight.left(), 1.5);
    EXPECT_NEAR(ink.left() + ink.width(), x + tight.right(), 1.5);
    EXPECT_NEAR(ink.top(), y + metrics.descent() - tight.bottom(), 1.5);
    EXPECT_NEAR(ink.top() + ink.height(), y + metrics.descent() - tight.top(), 1.5);
}

TEST(ImageBadger, LongTextsAreReplaced)
{
    needApplication();
    const QImage question = KTImageBadger::badgeWithString(u"?!"_s);
    EXPECT_EQ(question.size(), KTImageBadger::badgeOfSize(2).size());
    EXPECT_EQ(KTImageBadger::badgeWithString(u"123456"_s), question);
    EXPECT_EQ(KTImageBadger::badgeWithString(megabyteOf(u"12"_s)), question);
    EXPECT_NE(KTImageBadger::badgeWithString(u"12345"_s), question);
    EXPECT_EQ(KTImageBadger::badgeWithString(u"12345"_s).size(),
              KTImageBadger::badgeOfSize(5).size());
}

TEST(ImageBadger, AnyTextIsTaken)
{
    needApplication();
    const QImage empty = KTImageBadger::badgeWithString(QString());
    EXPECT_EQ(empty, KTImageBadger::badgeWithString(u""_s));
    EXPECT_EQ(empty.size(), KTImageBadger::badgeOfSize(0).size());
    for (const QString &text : hostileTexts())
        EXPECT_FALSE(KTImageBadger::badgeWithString(text).isNull());
    EXPECT_FALSE(KTImageBadger::badgeWithString(u"1\n2"_s).isNull());
}

TEST(ImageBadger, ABadgedPicture)
{
    needApplication();
    const QImage picture = solid(64, 64, Qt::black);
    const QImage badge = KTImageBadger::badgeWithString(u"12"_s);
    const QImage dragged = KTAdditions::applyBadge(picture, badge, 1, 0, false);
    const QColor corner = pixelFromBottom(dragged, 63 - badge.width() + 6, 10);
    EXPECT_GT(corner.red(), 150);
    EXPECT_COLOR(pixelFromBottom(dragged, 5, 10), Qt::black, 0);
}
