#pragma once

class KTLogger;
class QMainWindow;
class QObject;

// The menus of a main window.

namespace MainMenu {
/// Adds them. The items send their actions to \a controller, those of the whole program to \a
/// application, and are validated by them.
void add(QMainWindow *window, QObject *controller, QObject *application, KTLogger *logger);
} // namespace MainMenu
