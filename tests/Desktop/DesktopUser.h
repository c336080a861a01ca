#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include <functional>

class QAction;
class QMainWindow;
class QMimeData;

// What somebody before a desktop does to the windows of this process. Keys go to the window that has
// the keyboard, and clicks to whatever lies under the mouse, a sheet before its window.
namespace desktop_support {
/// Waits for something that has to come, without asking how fast the machine is.
/// \return false if it has not come after a long time.
bool comes(const std::function<bool()> &condition);

/// Presses a key, once a window has the keyboard.
void pressKey(int key, Qt::KeyboardModifiers modifiers = {});
/// Types a text where the keyboard is.
void typeText(const QString &text);
/// Types a text in place of the one that is there.
void typeAnew(const QString &text);

/// Clicks at a place of a view.
void clickAt(const QWidget *view, const QPoint &place, Qt::KeyboardModifiers modifiers = {});
/// Clicks in the middle of it.
void click(const QWidget *view);
/// Opens the menu of an item with the mouse, and chooses the item.
void chooseItem(const QMainWindow *window, const QString &name);
/// Drags something from another program to the middle of a view, and lets go of it there.
/// \return whether it was taken.
bool dropOn(const QWidget *view, const QMimeData &data);
} // namespace desktop_support
