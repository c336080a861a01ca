#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QFont>

/// The system's font in the platform's sizes.
namespace NSFont {
/// The size of ordinary text in controls, in pixels.
inline constexpr int systemFontSize = 13;
/// The size of text in small controls, in pixels.
inline constexpr int smallSystemFontSize = 11;

/// The desktop's general font at a size in pixels; without a running QGuiApplication, Qt's default
/// family at that size.
KTUTILITY_EXPORT QFont systemFontOfSize(int pixels);
} // namespace NSFont
