#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QRectF>

class QWidget;

/// The level of ordinary windows.
inline constexpr int NSNormalWindowLevel = 0;
/// The level of what shows a status, above all ordinary windows.
inline constexpr int NSStatusWindowLevel = 25;

/// Windows in the system's terms: rectangles count from the bottom left corner of the primary
/// screen, y upwards.
namespace NSWindow {
/// Where a window is, without what the desktop draws around it.
KTUTILITY_EXPORT QRectF frame(const QWidget *window);
/// Moves and resizes a window.
KTUTILITY_EXPORT void setFrame(QWidget *window, const QRectF &frame);
/// Shows a window before the others of its level, without giving it the keyboard.
KTUTILITY_EXPORT void orderFront(QWidget *window);
/// Hides a window.
KTUTILITY_EXPORT void orderOut(QWidget *window);
/// Levels above the normal one keep a window before all others.
KTUTILITY_EXPORT void setLevel(QWidget *window, int level);
} // namespace NSWindow
