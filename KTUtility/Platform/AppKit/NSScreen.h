#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QRect>
#include <QRectF>

/// Places on the screens. The system counts from the bottom left corner of the primary screen, y
/// upwards; Qt counts from its top left corner, y downwards. Without a QGuiApplication all is
/// empty.
///
/// \code
/// const QRectF frame = NSScreen::systemRect(window->frameGeometry());
/// hud->showStatusWindowWithString(u"247 records"_s, frame, false);
/// \endcode
namespace NSScreen {
/// The screen of the window that has the keyboard, else the primary one, in the system's
/// coordinates.
KTUTILITY_EXPORT QRectF mainScreenFrame();

/// A rectangle of Qt's global coordinates in those of the system.
KTUTILITY_EXPORT QRectF systemRect(const QRectF &qtRect);
/// A rectangle of the system's coordinates in those of Qt, in whole points; what is far outside of
/// every screen is moved to where Qt still counts.
KTUTILITY_EXPORT QRect qtRect(const QRectF &systemRect);
} // namespace NSScreen
