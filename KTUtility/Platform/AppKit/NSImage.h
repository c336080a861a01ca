#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>

/// Pictures: QImage with what the platform's images have beyond it. Sizes are in points; a picture
/// for a sharp screen has several pixels for each (QImage::devicePixelRatio()). Nil is a null
/// picture.
///
/// No picture is made that would take more memory than QImageReader::allocationLimit() allows
/// (128 MB unless set: about 5,790 × 5,790 pixels; 1 GB where there is no limit); it is null
/// instead.
///
/// \code
/// QImage canvas = NSImage::imageOfSize({100, 50}, 2);    // 200 × 100 pixels
/// QPainter painter(&canvas);
/// NSImage::drawInRect(NSImage::imageNamed(u"dragBadge3.tif"_s), painter, {10, 10, 38, 20});
/// \endcode
namespace NSImage {
/// The picture of a name among the resources of the program, else of the framework: the file of
/// that name, or, for a name without extension, the one with "png", "tif" or "tiff". Where the
/// application has a screen with several pixels a point, "name@2x" goes before "name". Null if
/// there is none that can be read.
KTUTILITY_EXPORT QImage imageNamed(const QString &name);

/// The size in points.
KTUTILITY_EXPORT QSizeF sizeOf(const QImage &image);

/// Whether a picture of that many pixels may be made.
KTUTILITY_EXPORT bool canMakeImageOfPixels(const QSizeF &pixels);

/// A transparent picture; null for sizes that are empty, not finite, or too large.
/// \param size in points; part of a pixel counts as one.
KTUTILITY_EXPORT QImage imageOfSize(const QSizeF &size, qreal devicePixelRatio = 1);

/// A copy to draw into; null if it would be too large.
KTUTILITY_EXPORT QImage drawableCopy(const QImage &image);

/// The picture as a TIFF file; empty if it is null or too large.
KTUTILITY_EXPORT QByteArray TIFFRepresentation(const QImage &image);

/// Draws a picture into a rectangle of the painter's coordinates. As on the platform, its bottom
/// lies at the rectangle's smaller y: it is upright where y points up (see NSGraphicsContext), and
/// upside down in a plain QPainter. Nothing is drawn for rectangles that are not finite.
/// \param fromRect the part to draw, in points with y upwards; the whole picture if
/// it has neither width nor height, and nothing if one of them is not above 0.
/// \param fraction how opaque it is, 0 to 1.
KTUTILITY_EXPORT void
drawInRect(const QImage &image, QPainter &painter, const QRectF &rect, const QRectF &fromRect = {},
           QPainter::CompositionMode operation = QPainter::CompositionMode_SourceOver,
           qreal fraction = 1);

/// Whether all four numbers are.
KTUTILITY_EXPORT bool isFinite(const QRectF &rect);
} // namespace NSImage
