#pragma once

#include <QRect>

class QMainWindow;

// Where main windows stand, from one run of the program to the next.

namespace WindowPlace {
/// A rectangle moved and made smaller until it lies on a screen, with the window's title above it.
QRect fitted(const QRect &wanted, const QRect &screen);
/// Where one more window stands if there is one at \a other: below and beside it, until the screen
/// ends.
QRect beside(const QRect &other, const QRect &screen);

/// Puts a window where the last one was closed, as large as that, with its splitters; or beside
/// another one.
/// \param other null for the first window.
void restore(QMainWindow *window, const QMainWindow *other);
/// Remembers where a window is.
void save(const QMainWindow *window);
} // namespace WindowPlace
