#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QFont>
#include <QRectF>

/// The user's fonts in the platform's sizes, and their measures.
namespace NSFont {
/// The size of ordinary text in controls, in pixels.
inline constexpr int systemFontSize = 13;
/// The size of text in small controls, in pixels.
inline constexpr int smallSystemFontSize = 11;

/// The desktop's general font at a size in pixels, systemFontSize for 0 and below; without a
/// running QGuiApplication, Qt's default family at that size.
KTUTILITY_EXPORT QFont systemFontOfSize(int pixels);

/// The font that the application was given for its texts, at a size in pixels; otherwise as
/// systemFontOfSize().
KTUTILITY_EXPORT QFont userFontOfSize(int pixels);

/// The smallest rectangle that holds every character of a font when all are drawn at the origin,
/// y upwards. A font that does not exist is measured as the one that stands in for it. Needs a
/// QGuiApplication; empty without one.
KTUTILITY_EXPORT QRectF boundingRectForFont(const QFont &font);
} // namespace NSFont
