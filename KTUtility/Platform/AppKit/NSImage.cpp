#include "NSImage.h"

#include "NSGraphicsContext.h"
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>
#include <cmath>

namespace {
constexpr double BytesPerPixel = 4;
constexpr qreal BytesPerMegabyte = 1024.0 * 1024.0;

bool isOnSharpScreen()
{
    const auto *const application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    return application && application->devicePixelRatio() > 1;
}

/// The file of a name in the program or the framework; nil if there is none.
QString fileOfResource(const QString &name, const QString &extension)
{
    const QString inProgram = NSBundle::mainBundle().pathForResource(name, extension);
    return inProgram.isNull() ? NSBundle::frameworkBundle().pathForResource(name, extension)
                              : inProgram;
}

QImage imageFromFile(const QString &path, qreal devicePixelRatio)
{
    QImage image = path.isNull() ? QImage() : QImage(path);
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

QImage imageWithExtension(const QString &name, const QString &extension)
{
    const QImage sharp =
        isOnSharpScreen() ? imageFromFile(fileOfResource(name + u"@2x", extension), 2) : QImage();
    return sharp.isNull() ? imageFromFile(fileOfResource(name, extension), 1) : sharp;
}

/// A part of the picture in Qt's terms: in pixels, y downwards.
QRectF pixelsOfPart(const QImage &image, const QRectF &part)
{
    const qreal scale = image.devicePixelRatio();
    if (part.isNull())
        return QRectF(image.rect());
    return {part.x() * scale, image.height() - (part.y() + part.height()) * scale,
            part.width() * scale, part.height() * scale};
}
} // namespace

QImage NSImage::imageNamed(const QString &name)
{
    const QString extension = NSString::pathExtension(name);
    if (!extension.isEmpty())
        return imageWithExtension(NSString::stringByDeletingPathExtension(name), extension);
    for (const auto *const candidate : {u"png", u"tif", u"tiff"}) {
        QImage image = imageWithExtension(name, QString::fromUtf16(candidate));
        if (!image.isNull())
            return image;
    }
    return {};
}

QSizeF NSImage::sizeOf(const QImage &image)
{
    return QSizeF(image.size()) / image.devicePixelRatio();
}

bool NSImage::canMakeImageOfPixels(const QSizeF &pixels)
{
    if (!(pixels.width() > 0 && pixels.height() > 0))
        return false;
    const double limit = QImageReader::allocationLimit() > 0
                             ? BytesPerMegabyte * QImageReader::allocationLimit()
                             : BytesPerMegabyte * 1024 * 1024;
    constexpr double LongestSide = 32767; // of what QPainter draws into
    return std::max(pixels.width(), pixels.height()) <= LongestSide &&
           std::ceil(pixels.width()) * std::ceil(pixels.height()) * BytesPerPixel <= limit;
}

QImage NSImage::imageOfSize(const QSizeF &size, qreal devicePixelRatio)
{
    const QSizeF pixels = size * devicePixelRatio;
    if (!canMakeImageOfPixels(pixels))
        return {};
    QImage image(int(std::ceil(pixels.width())), int(std::ceil(pixels.height())),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

QImage NSImage::drawableCopy(const QImage &image)
{
    if (!canMakeImageOfPixels(image.size()))
        return {};
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QByteArray NSImage::TIFFRepresentation(const QImage &image)
{
    if (!canMakeImageOfPixels(image.size()))
        return {};
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QImageWriter writer(&file, "tiff");
    return writer.write(image) ? file.data() : QByteArray();
}

void NSImage::drawInRect(const QImage &image, QPainter &painter, const QRectF &rect,
                         const QRectF &fromRect, QPainter::CompositionMode operation,
                         qreal fraction)
{
    if (image.isNull() || !painter.isActive() || !isFinite(rect) || !isFinite(fromRect))
        return;
    const bool isWhole = fromRect.isNull();
    if (!isWhole && fromRect.isEmpty())
        return;
    const NSGraphicsState state(painter);
    painter.setCompositionMode(operation);
    painter.setOpacity(std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0.0);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // Qt draws from the top.
    painter.translate(0, rect.y() + rect.height());
    painter.scale(1, -1);
    painter.drawImage(QRectF(rect.x(), 0, rect.width(), rect.height()), image,
                      pixelsOfPart(image, fromRect));
}

bool NSImage::isFinite(const QRectF &rect)
{
    return std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
           std::isfinite(rect.height());
}
