#pragma once

#include <QImage>

class QWidget;

// Pictures of windows, also where there is no display.

namespace WindowPicture {
/// A window with the sheets and menus that lie over it, as a desktop shows them: the window behind a
/// sheet is darkened.
QImage of(QWidget *window);
/// Whether a sheet lies over a window.
bool hasSheet(const QWidget *window);
} // namespace WindowPicture
