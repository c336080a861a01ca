#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/CIImage.h>

#include <QImage>
#include <QRectF>

/// From what image processing gives to pictures that can be shown.
///
/// \code
/// const CIImage photo = KTAdditions::toCIImage(QImage(path));
/// QImage whole = KTAdditions::toNSImage(photo);
/// QImage corner = KTAdditions::toNSImageFromRect(photo, {0, 0, 32, 32});    // the bottom left
/// \endcode
namespace KTAdditions {
/// A picture as large as a rectangle, one pixel a point, that holds \a receiver in its own size
/// from the bottom left corner on: larger rectangles leave the rest transparent, smaller ones cut.
/// The rectangle's origin is not used.
/// \return null for sizes that are empty, not finite, or too large; see NSImage.
KTUTILITY_EXPORT QImage toNSImageFromRect(const CIImage &receiver, const QRectF &rect);

/// The same with the extent of \a receiver: the whole picture.
KTUTILITY_EXPORT QImage toNSImage(const CIImage &receiver);
} // namespace KTAdditions
