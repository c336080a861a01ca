// Rounded rectangles and gradients.

#include <KTUtility/NSBezierPath>
#include <KTUtility/NSBezierPath_KTAdditions>
#include <KTUtility/NSGraphicsContext>
#include <KTUtility/NSImage>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

using namespace testing_support;

namespace {
QList<QPointF> cornersOf(const QPainterPath &path)
{
    QList<QPointF> points;
    for (int index = 0; index < path.elementCount(); ++index) {
        const auto element = path.elementAt(index);
        if (element.type == QPainterPath::MoveToElement ||
            element.type == QPainterPath::LineToElement)
            points += QPointF(element.x, element.y);
    }
    return points;
}

QImage filled(const QPainterPath &path, const QSize &size,
              const std::function<void(QPainter &, const QPainterPath &)> &fill)
{
    QImage image = NSImage::imageOfSize(size);
    QPainter painter(&image);
    NSGraphicsContext::turnUpright(painter, size.height());
    fill(painter, path);
    return image;
}

QImage blended(const QPainterPath &path, const QSize &size, const QColor &start, const QColor &end)
{
    return filled(path, size, [&](QPainter &painter, const QPainterPath &shape) {
        KTAdditions::linearBlendFromStartColor(shape, painter, start, end);
    });
}

int largestDifference(const QImage &left, const QImage &right)
{
    int difference = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x)
            difference = std::max(difference, std::abs(left.pixelColor(x, y).alpha() -
                                                       right.pixelColor(x, y).alpha()));
    return difference;
}

void paintWhite(QPainter &painter, const QPainterPath &path)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, Qt::white);
}
} // namespace

TEST(NSBezierPath_KTAdditions, RoundedRectanglesGoRoundByTheLeftSideFirst)
{
    const QPainterPath path = KTAdditions::bezierPathWithRoundedRect({5, 7, 100, 50}, 10);
    EXPECT_EQ(path.boundingRect(), QRectF(5, 7, 100, 50));
    EXPECT_EQ(path.elementAt(0), QPointF(5, 17));
    const QList<QPointF> corners = cornersOf(path);
    ASSERT_GE(corners.size(), 5);
    EXPECT_EQ(corners.at(1), QPointF(5, 47));
    for (const QPointF &corner : {QPointF(95, 57), QPointF(105, 17), QPointF(15, 7)})
        EXPECT_TRUE(corners.contains(corner)) << corner.x() << ", " << corner.y();
    EXPECT_EQ(path.currentPosition(), QPointF(5, 17));
}

TEST(NSBezierPath_KTAdditions, RoundedRectanglesLookLikeOnes)
{
    const QRectF rect(3, 4, 60, 40);
    QPainterPath expected;
    expected.addRoundedRect(rect, 9, 9);
    EXPECT_LE(largestDifference(
                  filled(KTAdditions::bezierPathWithRoundedRect(rect, 9), {70, 50}, paintWhite),
                  filled(expected, {70, 50}, paintWhite)),
              2);
}

TEST(NSBezierPath_KTAdditions, RadiiBeyondHalfOfASideMakeRoundEnds)
{
    const QRectF rect(0, 0, 100, 40);
    const QPainterPath half = KTAdditions::bezierPathWithRoundedRect(rect, 20);
    EXPECT_EQ(KTAdditions::bezierPathWithRoundedRect(rect, 21), half);
    EXPECT_EQ(KTAdditions::bezierPathWithRoundedRect(rect, 1e6), half);
    EXPECT_EQ(KTAdditions::bezierPathWithRoundedRect(rect, Infinite), half);
    EXPECT_FALSE(half.contains(QPointF(3, 5)));
    EXPECT_TRUE(half.contains(QPointF(1, 20)));
    const QPainterPath upright = KTAdditions::bezierPathWithRoundedRect({0, 0, 40, 100}, 50);
    EXPECT_TRUE(upright.contains(QPointF(20, 1)));
    EXPECT_FALSE(upright.contains(QPointF(5, 3)));
}

TEST(NSBezierPath_KTAdditions, NegativeRadiiMakeSquareCorners)
{
    for (const qreal radius : {0.0, -1.0, -1e9, NotANumber, -Infinite}) {
        const QPainterPath path = KTAdditions::bezierPathWithRoundedRect({2, 3, 10, 8}, radius);
        EXPECT_EQ(path.boundingRect(), QRectF(2, 3, 10, 8));
        EXPECT_TRUE(path.contains(QPointF(2.01, 3.01)));
    }
}

TEST(NSBezierPath_KTAdditions, RectanglesWithoutAreaOrEndMakeNoPath)
{
    EXPECT_TRUE(KTAdditions::bezierPathWithRoundedRect({5, 5, 0, 0}, 4).boundingRect().isEmpty());
    EXPECT_TRUE(KTAdditions::bezierPathWithRoundedRect({5, 5, 30, 0}, 4).boundingRect().isEmpty());
    for (const QRectF &rect : {QRectF(NotANumber, 0, 5, 5), QRectF(0, Infinite, 5, 5),
                               QRectF(0, 0, Infinite, 5), QRectF(0, 0, 5, NotANumber)})
        EXPECT_EQ(KTAdditions::bezierPathWithRoundedRect(rect, 4).elementCount(), 0);
}

TEST(NSBezierPath_KTAdditions, RectanglesBeyondAllCanvasesAreTaken)
{
    for (const double far : {1e9, 1e100}) {
        const QPainterPath path =
            KTAdditions::bezierPathWithRoundedRect({-far, -far, 2 * far, 2 * far}, far);
        EXPECT_TRUE(path.isEmpty() || path.contains(QPointF(0, 0))) << far;
    }
}

TEST(NSBezierPath_KTAdditions, BlendsRunFromTheBottomToTheTop)
{
    QPainterPath path;
    path.addRect(2, 4, 6, 100);
    const QImage image = blended(path, {10, 110}, Qt::red, Qt::blue);
    EXPECT_COLOR(pixelFromBottom(image, 5, 4), Qt::red, 3);
    EXPECT_COLOR(pixelFromBottom(image, 5, 103), Qt::blue, 3);
    EXPECT_COLOR(pixelFromBottom(image, 5, 54), QColor(127, 0, 128), 3);
    EXPECT_COLOR(pixelFromBottom(image, 5, 2), Qt::transparent, 0);
    EXPECT_COLOR(pixelFromBottom(image, 5, 106), Qt::transparent, 0);
    EXPECT_COLOR(pixelFromBottom(image, 0, 54), Qt::transparent, 0);
}

TEST(NSBezierPath_KTAdditions, BlendsChangeEachComponentByItself)
{
    QPainterPath path;
    path.addRect(0, 0, 4, 256);
    const QColor start(200, 0, 40, 0);
    const QColor end(0, 100, 240, 255);
    const QImage image = blended(path, {4, 256}, start, end);
    for (const int y : {64, 128, 192}) {
        const double part = (y + 0.5) / 256;
        const auto between = [part](int from, int to) {
            return int(std::lround((1 - part) * from + part * to));
        };
        const QColor expected(between(200, 0), between(0, 100), between(40, 240), between(0, 255));
        // Few bits are left of the colours of what is almost transparent.
        EXPECT_COLOR(pixelFromBottom(image, 2, y), expected, 4);
    }
}

TEST(NSBezierPath_KTAdditions, BlendsStayInsideOfThePath)
{
    QPainterPath path;
    path.addEllipse(0, 0, 20, 20);
    const QImage image = blended(path, {20, 20}, Qt::red, Qt::red);
    EXPECT_COLOR(image.pixelColor(0, 0), Qt::transparent, 0);
    EXPECT_COLOR(image.pixelColor(10, 10), Qt::red, 0);
}

TEST(NSBezierPath_KTAdditions, BlendsFillNothingWherePathsHaveNoArea)
{
    EXPECT_EQ(inkOf(blended(QPainterPath(), {4, 4}, Qt::red, Qt::blue)), 0);
    QPainterPath line;
    line.lineTo(4, 0);
    EXPECT_EQ(inkOf(blended(line, {4, 4}, Qt::red, Qt::blue)), 0);
    QPainterPath square;
    square.addRect(0, 0, 4, 4);
    EXPECT_EQ(inkOf(blended(square, {4, 4}, QColor(), QColor())), 0);
    QPainter nowhere;
    KTAdditions::linearBlendFromStartColor(square, nowhere, Qt::red, Qt::blue);
    KTAdditions::linearBlendWithColor(square, nowhere, Qt::red);
    EXPECT_FALSE(nowhere.isActive());
}

TEST(NSBezierPath_KTAdditions, BlendsOfOneColourAreLighterAtTheTop)
{
    const auto colors = KTAdditions::blendColorsOf(QColor::fromHsvF(0.6F, 0.5F, 0.5F, 0.75F));
    EXPECT_NEAR(colors.start.hsvHueF(), 0.6, 1e-4);
    EXPECT_NEAR(colors.start.hsvSaturationF(), 0.38, 1e-4);
    EXPECT_NEAR(colors.start.valueF(), 0.8, 1e-4);
    EXPECT_NEAR(colors.start.alphaF(), 0.75, 1e-4);
    EXPECT_NEAR(colors.end.hsvHueF(), 0.6, 1e-4);
    EXPECT_NEAR(colors.end.hsvSaturationF(), 0.62, 1e-4);
    EXPECT_NEAR(colors.end.valueF(), 0.455, 1e-4);
    EXPECT_NEAR(colors.end.alphaF(), 0.75, 1e-4);
}

TEST(NSBezierPath_KTAdditions, BlendsOfOneColourStayWithinBounds)
{
    const auto strong = KTAdditions::blendColorsOf(QColor::fromHsvF(0.1F, 0.95F, 0.9F));
    EXPECT_NEAR(strong.start.valueF(), 1, 1e-4);
    EXPECT_NEAR(strong.end.hsvSaturationF(), 1, 1e-4);
    const auto dark = KTAdditions::blendColorsOf(QColor::fromHsvF(0.1F, 0.1F, 0.02F));
    EXPECT_NEAR(dark.start.hsvSaturationF(), 0, 1e-4);
    EXPECT_NEAR(dark.end.valueF(), 0, 1e-4);
}

TEST(NSBezierPath_KTAdditions, BlendsOfGreysStayGrey)
{
    for (const QColor &grey : {QColor(128, 128, 128), QColor::fromHsvF(0.3F, 0.035F, 0.5F)}) {
        const auto colors = KTAdditions::blendColorsOf(grey);
        EXPECT_NEAR(colors.end.hsvSaturationF(), 0, 1e-4);
        EXPECT_NEAR(colors.start.hsvSaturationF(), 0, 1e-4);
        EXPECT_GT(colors.start.valueF(), colors.end.valueF());
    }
    const auto tinted = KTAdditions::blendColorsOf(QColor::fromHsvF(0.3F, 0.05F, 0.5F));
    EXPECT_NEAR(tinted.end.hsvSaturationF(), 0.17, 1e-3);
}

TEST(NSBezierPath_KTAdditions, APillIsBlendedOfOneColour)
{
    QImage image = NSImage::imageOfSize({100, 32});
    QPainter painter(&image);
    NSGraphicsContext::turnUpright(painter, image.height());
    const QPainterPath pill = KTAdditions::bezierPathWithRoundedRect({4, 4, 92, 24}, 12);
    const QColor color(60, 110, 200);
    KTAdditions::linearBlendWithColor(pill, painter, color);
    painter.end();
    EXPECT_COLOR(pixelFromBottom(image, 50, 4), KTAdditions::blendColorsOf(color).start, 6);
    EXPECT_COLOR(pixelFromBottom(image, 50, 27), KTAdditions::blendColorsOf(color).end, 6);
    EXPECT_COLOR(pixelFromBottom(image, 4, 4), Qt::transparent, 0);
}
