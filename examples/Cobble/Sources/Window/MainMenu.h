#pragma once

#include <QCoreApplication>

class EditCommands;
class KTLogger;
class QMainWindow;
class QObject;

/// The menus of a main window.
class MainMenu
{
    Q_DECLARE_TR_FUNCTIONS(MainMenu)

public:
    MainMenu() = delete;

    /// Adds them. The items send their actions to \a controller, those of the whole program to \a
    /// application, and those about libraries as such to \a libraries, and are validated by them.
    /// \param commands what the Edit menu does.
    static void add(QMainWindow *window, QObject *controller, QObject *libraries,
                    QObject *application, KTLogger *logger, const EditCommands &commands);
};
