#include "NSImage_KTAdditions.h"

#include <KTUtility/Platform/AppKit/NSGraphicsContext.h>
#include <KTUtility/Platform/AppKit/NSImage.h>

#include <QTransform>
#include <QtMath>

#include <cmath>

namespace {
/// A new picture of the turned size, with the image drawn through a matrix of the system's
/// coordinates.
QImage transformed(const QImage &image, const QSizeF &newSize, const QTransform &matrix)
{
    QImage result = NSImage::imageOfSize(newSize, image.devicePixelRatio());
    if (result.isNull())
        return result;
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    NSGraphicsContext::turnUpright(painter, NSImage::sizeOf(result).height());
    painter.setTransform(matrix, true);
    NSImage::drawInRect(image, painter, {QPointF(), NSImage::sizeOf(image)}, {},
                        QPainter::CompositionMode_Source);
    return result;
}

/// Flips; a horizontal flip moves along both axes, a vertical one alone does not move. Kept so.
QTransform flipOutOfPlace(const QSizeF &size, bool horizontal, bool vertical)
{
    QTransform flip;
    flip.scale(horizontal ? -1 : 1, vertical ? -1 : 1);
    if (horizontal)
        flip.translate(size.width(), size.height());
    return flip;
}

QTransform turnAbout(const QSizeF &size, float degrees, const QSizeF &newSize)
{
    QTransform turn;
    turn.translate(size.width() * 0.5, size.height() * 0.5);
    turn.rotate(double(degrees));
    turn.translate(-newSize.width() * 0.5, -newSize.height() * 0.5);
    return turn;
}

QTransform turnInPlace(const QSizeF &size, float degrees, const QSizeF &newSize, bool flipsX,
                       bool flipsY)
{
    QTransform turn;
    turn.translate(newSize.width() * 0.5, newSize.height() * 0.5);
    turn.rotate(double(degrees));
    turn.scale(flipsX ? -1 : 1, flipsY ? -1 : 1);
    turn.translate(-size.width() * 0.5, -size.height() * 0.5);
    return turn;
}

/// The size of a badge in points; empty if it cannot be drawn.
QSizeF badgeSize(const QImage &receiver, const QImage &badge, float scale)
{
    if (scale == 0)
        return NSImage::sizeOf(badge);
    return std::isfinite(scale) && scale > 0 ? NSImage::sizeOf(receiver) * double(scale) : QSizeF();
}
} // namespace

QImage KTAdditions::bitmap(const QImage &receiver)
{
    QImage image = QImage::fromData(NSImage::TIFFRepresentation(receiver), "tiff");
    image.setDevicePixelRatio(receiver.devicePixelRatio());
    return image;
}

CIImage KTAdditions::toCIImage(const QImage &receiver)
{
    return CIImage(bitmap(receiver));
}

void KTAdditions::drawFlippedInRect(const QImage &receiver, QPainter &painter, const QRectF &rect,
                                    const QRectF &fromRect, QPainter::CompositionMode operation,
                                    qreal fraction)
{
    if (!painter.isActive() || !NSImage::isFinite(rect))
        return;
    const NSGraphicsState state(painter);
    painter.translate(0, rect.y() + rect.height());
    painter.scale(1, -1);
    NSImage::drawInRect(receiver, painter, {rect.x(), 0, rect.width(), rect.height()}, fromRect,
                        operation, fraction);
}

void KTAdditions::drawFlippedInRect(const QImage &receiver, QPainter &painter, const QRectF &rect,
                                    const QRectF &fromRect, QPainter::CompositionMode operation)
{
    drawFlippedInRect(receiver, painter, rect, fromRect, operation, 1);
}

void KTAdditions::drawFlippedInRect(const QImage &receiver, QPainter &painter, const QRectF &rect,
                                    QPainter::CompositionMode operation, qreal fraction)
{
    drawFlippedInRect(receiver, painter, rect, QRectF(), operation, fraction);
}

void KTAdditions::drawFlippedInRect(const QImage &receiver, QPainter &painter, const QRectF &rect,
                                    QPainter::CompositionMode operation)
{
    drawFlippedInRect(receiver, painter, rect, QRectF(), operation, 1);
}

QSizeF KTAdditions::sizeOfRotatedImage(const QSizeF &size, float degrees)
{
    if (!std::isfinite(degrees))
        return {};
    const double angle = double(degrees) * M_PI / 180;
    const auto whole = [](double product) { return std::abs(std::trunc(product)); };
    return {whole(size.width() * std::cos(angle)) + whole(size.height() * std::sin(angle)),
            whole(size.width() * std::sin(angle)) + whole(size.height() * std::cos(angle))};
}

QImage KTAdditions::rotatedImageAboutCenter(const QImage & /*receiver*/, const QImage &image,
                                            float degrees, bool flipHorizontal, bool flipVertical)
{
    const QSizeF size = NSImage::sizeOf(image);
    const QSizeF newSize = sizeOfRotatedImage(size, degrees);
    return transformed(image, newSize,
                       flipOutOfPlace(size, flipHorizontal, flipVertical) *
                           turnAbout(size, degrees, newSize));
}

QImage KTAdditions::imageRotated(const QImage & /*receiver*/, const QImage &image, float degrees,
                                 bool flipHorizontal, bool flipVertical)
{
    const QSizeF size = NSImage::sizeOf(image);
    const QSizeF newSize = sizeOfRotatedImage(size, degrees);
    return transformed(image, newSize,
                       turnInPlace(size, degrees, newSize, flipHorizontal, flipVertical));
}

QImage KTAdditions::applyBadge(const QImage &receiver, const QImage &badge, qreal withAlpha,
                               float withScale, bool inLeftCorner)
{
    QImage copy = badge.isNull() ? QImage() : NSImage::drawableCopy(receiver);
    if (copy.isNull())
        return copy;
    const QSizeF size = badgeSize(receiver, badge, withScale);
    if (size.isEmpty())
        return copy;
    const QSizeF copySize = NSImage::sizeOf(copy);
    QPainter painter(&copy);
    NSGraphicsContext::turnUpright(painter, copySize.height());
    const qreal x = inLeftCorner ? 0 : copySize.width() - size.width();
    NSImage::drawInRect(badge, painter, {QPointF(x, 0), size}, {},
                        QPainter::CompositionMode_SourceOver, withAlpha);
    return copy;
}
