#include "KTImageBadger.h"

#include <KTUtility/Platform/AppKit/NSFont.h>
#include <KTUtility/Platform/AppKit/NSGraphicsContext.h>
#include <KTUtility/Platform/AppKit/NSImage.h>

#include <QFontMetricsF>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {
constexpr int FontSize = 11;

// Part of the picture is the shadow below the pill, so that the text stands above the middle.
constexpr QPointF TextOffset(0.5, 1.7);

QString nameForLength(unsigned length)
{
    switch (length) {
    case 3:
    case 4:
    case 5:
        return u"dragBadge%1.tif"_s.arg(length);
    default:
        return u"dragBadge1-2.tif"_s;
    }
}

/// Writes a text with the bottom left corner of its rectangle at the place for it, y upwards.
void writeCentered(const QString &text, QPainter &painter, const QSizeF &imageSize)
{
    const QFont font = NSFont::userFontOfSize(FontSize);
    const QSizeF size = QFontMetricsF(font).size(0, text);
    const QPointF origin =
        QPointF(imageSize.width() - size.width(), imageSize.height() - size.height()) * 0.5 +
        TextOffset;
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF({origin.x(), imageSize.height() - origin.y() - size.height()}, size),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, text);
}

QImage copyOfPill(const QImage &badge)
{
    QImage image = NSImage::imageOfSize(NSImage::sizeOf(badge), badge.devicePixelRatio());
    if (!image.isNull()) {
        const QSizeF size = NSImage::sizeOf(image);
        QPainter painter(&image);
        NSGraphicsContext::turnUpright(painter, size.height());
        NSImage::drawInRect(badge, painter, {QPointF(), size});
    }
    return image;
}
} // namespace

QImage KTImageBadger::badgeOfSize(unsigned countOfCharacters)
{
    return NSImage::imageNamed(nameForLength(countOfCharacters));
}

QImage KTImageBadger::badgeWithString(const QString &string)
{
    const QString text = string.size() > MaximumLength ? u"?!"_s : string;
    QImage image = copyOfPill(badgeOfSize(unsigned(text.size())));
    if (image.isNull() || !qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    writeCentered(text, painter, NSImage::sizeOf(image));
    return image;
}
