#include "DrawingSamples.h"

#include "GallerySample.h"

#include <KTUtility/KTImageBadger>
#include <KTUtility/NSBezierPath_KTAdditions>
#include <KTUtility/NSGraphicsContext>
#include <KTUtility/NSImage>
#include <KTUtility/NSImage_KTAdditions>

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
using namespace KTAdditions;

void drawCaption(QPainter &painter, const QPointF &center, const QString &text)
{
    painter.setPen(QColor(90, 94, 102));
    painter.drawText(QRectF(center.x() - 60, center.y() - 10, 120, 20), Qt::AlignCenter, text);
}

void drawImageCentered(QPainter &painter, const QImage &image, const QPointF &center)
{
    const QSizeF size = NSImage::sizeOf(image);
    // To whole points, where its pixels are those of the screen.
    painter.drawImage((center - QPointF(size.width(), size.height()) / 2).toPoint(), image);
}

QRectF rectangleAt(int index)
{
    constexpr int Columns = 3;
    return {24.0 + (index % Columns) * 122, 20.0 + int(index / Columns) * 110, 106, 70};
}
} // namespace

QImage drawBadges()
{
    return gallerySample([](QPainter &painter) {
        for (int length = 1; length <= 6; ++length) {
            const QString text = u"123456"_s.first(length);
            const QPointF center(74.0 + (length - 1) % 3 * 126, 72.0 + int((length - 1) / 3) * 98);
            drawImageCentered(painter, KTImageBadger::badgeWithString(text), center);
            drawCaption(painter, center + QPointF(0, 28), text);
        }
    });
}

QImage drawRoundedRectangles()
{
    return gallerySample([](QPainter &painter) {
        int index = 0;
        for (const int radius : {0, 6, 12, 20, 35, 500}) {
            const QRectF rect = rectangleAt(index++);
            painter.setPen(QPen(QColor(52, 90, 150), 2));
            painter.setBrush(QColor(206, 222, 244));
            painter.drawPath(bezierPathWithRoundedRect(rect, radius));
            drawCaption(painter, {rect.center().x(), rect.bottom() + 14},
                        u"radius %1"_s.arg(radius));
        }
    });
}

QImage drawGradients()
{
    return gallerySample([](QPainter &painter) {
        const NSGraphicsState state(painter);
        NSGraphicsContext::turnUpright(painter, GallerySize.height());
        int index = 0;
        for (const QColor &color :
             {QColor(60, 110, 200), QColor(190, 60, 40), QColor(128, 128, 128)})
            linearBlendWithColor(bezierPathWithRoundedRect(rectangleAt(3 + index++), 14), painter,
                                 color);
        linearBlendFromStartColor(bezierPathWithRoundedRect(rectangleAt(0), 14), painter,
                                  QColor(255, 214, 90), QColor(40, 60, 140));
        linearBlendFromStartColor(bezierPathWithRoundedRect(rectangleAt(1), 14), painter,
                                  QColor(0, 140, 110), QColor(0, 140, 110, 0));
        QPainterPath ellipse;
        ellipse.addEllipse(rectangleAt(2));
        linearBlendFromStartColor(ellipse, painter, QColor(150, 40, 110), QColor(250, 190, 210));
    });
}

QImage drawPictures()
{
    return gallerySample([](QPainter &painter) {
        const QImage photo = samplePhoto();
        const QImage badge = KTImageBadger::badgeWithString(u"247"_s);
        const QImage flipped = imageRotated(photo, photo, 0, false, true);
        const std::pair<QImage, QString> images[] = {
            {photo, u"as it is"_s},
            {imageRotated(photo, photo, 0, true, false), u"flipped along x"_s},
            {flipped, u"flipped along y"_s},
            {imageRotated(photo, photo, 90, false, false), u"90°"_s},
            {imageRotated(photo, photo, 30, false, false), u"30°"_s},
            {applyBadge(photo, badge, 1, 0, false), u"badged"_s}};
        int index = 0;
        for (const auto &[image, caption] : images) {
            const QPointF center(74.0 + index % 3 * 126, 56.0 + int(index / 3) * 116);
            drawImageCentered(painter, image, center);
            drawCaption(painter, center + QPointF(0, 55), caption);
            ++index;
        }
    });
}
