#pragma once

#include "LibrarySteps.h"

#include <KTUtility/KTDatabaseBundle>

#include <QObject>

#include <functional>
#include <optional>

class NameSheet;
class QAction;
class QWidget;

/// What the menus of a window do to libraries as such: make, rename and remove them, and change their
/// fields.
/// Nothing is asked about before something is removed, since it can be undone.
class LibraryActions : public QObject
{
    Q_OBJECT

public:
    /// What the window does for them.
    struct Window
    {
        /// The library that is shown; nothing if there is none.
        std::function<std::optional<Library>()> library;
        /// The bundle that they are in.
        std::function<KTDatabaseBundle()> bundle;
        /// Makes a step of the window, after which the libraries are read anew.
        LibrarySteps::Change change;
        std::function<void(const QString &name)> show;
        std::function<void(const QString &message)> tell;
    };

    /// \param window has the sheets; it owns this.
    LibraryActions(QWidget *window, const Window &does);

    Q_INVOKABLE bool validateMenuItem(QAction *item) const;
    Q_INVOKABLE void newLibrary(QAction *sender = nullptr);
    Q_INVOKABLE void renameLibrary(QAction *sender = nullptr);
    Q_INVOKABLE void removeLibrary(QAction *sender = nullptr);
    Q_INVOKABLE void newField(QAction *sender = nullptr);
    /// Shows all fields, to be changed.
    Q_INVOKABLE void editFields(QAction *sender = nullptr);

private:
    QWidget *_window;
    Window _does;
};
