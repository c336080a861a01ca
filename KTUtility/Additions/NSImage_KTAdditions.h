#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/CIImage.h>

#include <QImage>
#include <QPainter>

/// Pictures turned over, turned round, and badged.
///
/// Sizes and rectangles are in points (NSImage::sizeOf()), with y upwards: (0, 0) is the bottom
/// left corner of a picture. Pictures for sharp screens stay sharp. What would take more memory
/// than NSImage allows is null.
///
/// \code
/// const QImage icon = NSImage::imageNamed(u"record.png"_s);
/// const QImage badge = KTImageBadger::badgeWithString(u"247"_s);
/// QImage dragged = KTAdditions::applyBadge(icon, badge, 1, 0, false);    // at the bottom right
/// QImage upright = KTAdditions::imageRotated(photo, photo, 90, false, false);
/// \endcode
namespace KTAdditions {
/// The pixels as their TIFF file would give them; null if there are none.
KTUTILITY_EXPORT QImage bitmap(const QImage &receiver);

/// The picture for image processing, made of its bitmap; its extent is in pixels.
KTUTILITY_EXPORT CIImage toCIImage(const QImage &receiver);

/// Draws a picture upside down in the coordinates of the painter. This is for flipped views, where
/// y points down: a plain QPainter shows it upright. Nothing is drawn for rectangles that are not
/// finite.
/// \param fromRect the part to draw, y upwards; the whole picture if it has neither width
/// nor height, and nothing if one of them is not above 0.
/// \param fraction how opaque it is, 0 to 1.
KTUTILITY_EXPORT void drawFlippedInRect(const QImage &receiver, QPainter &painter,
                                        const QRectF &rect, const QRectF &fromRect,
                                        QPainter::CompositionMode operation, qreal fraction);
/// The same, opaque.
KTUTILITY_EXPORT void drawFlippedInRect(const QImage &receiver, QPainter &painter,
                                        const QRectF &rect, const QRectF &fromRect,
                                        QPainter::CompositionMode operation);
/// The same with the whole picture.
KTUTILITY_EXPORT void drawFlippedInRect(const QImage &receiver, QPainter &painter,
                                        const QRectF &rect, QPainter::CompositionMode operation,
                                        qreal fraction);
/// The same with the whole picture, opaque.
KTUTILITY_EXPORT void drawFlippedInRect(const QImage &receiver, QPainter &painter,
                                        const QRectF &rect, QPainter::CompositionMode operation);

/// How large a picture of a size is when it is turned: each side is made of two products of a side
/// with the sine or cosine, of which the fractions are dropped. Empty if \a degrees is no number.
KTUTILITY_EXPORT QSizeF sizeOfRotatedImage(const QSizeF &size, float degrees);

/// Turns a picture, in an order of steps that is kept for those who know it: only the size of the
/// result is right for most arguments, and the picture lies partly or wholly outside of it. Use
/// imageRotated() to show it.
/// \param receiver is not used.
/// \param degrees counterclockwise.
/// \return null if \a image is null, \a degrees is no number, or the result too large.
KTUTILITY_EXPORT QImage rotatedImageAboutCenter(const QImage &receiver, const QImage &image,
                                                float degrees, bool flipHorizontal,
                                                bool flipVertical);

/// Turns a picture about its centre, after it was flipped in its place: all of it is in the result,
/// which has the same size as that of rotatedImageAboutCenter(). Arguments and result are the
/// same, too.
KTUTILITY_EXPORT QImage imageRotated(const QImage &receiver, const QImage &image, float degrees,
                                     bool flipHorizontal, bool flipVertical);

/// A copy of \a receiver with a badge in its bottom left or right corner.
/// \param withAlpha how opaque the badge is, 0 to 1.
/// \param withScale unless 0, the badge is drawn that many times the size of \a receiver (not of
/// the badge), both sides by themselves.
/// \return null if either picture is null, or \a receiver too large. With a scale that is negative
/// or no number, a copy without badge.
KTUTILITY_EXPORT QImage applyBadge(const QImage &receiver, const QImage &badge, qreal withAlpha,
                                   float withScale, bool inLeftCorner);
} // namespace KTAdditions
