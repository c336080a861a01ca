#pragma once

#include "Filter/SmartLibraries.h"

#include <QObject>

class OpenBundle;
class QListWidget;
class QListWidgetItem;
class QMenu;

/// The smart libraries in the list of libraries of a window: each below the library that it filters,
/// with a menu of its own for renaming and removing it.
///
/// \code
/// list->addItems(names);    // with the library's name in Qt::UserRole
/// smart.addToList();
/// if (const auto chosen = smart.of(list->currentItem()))
///     show(*chosen);
/// \endcode
class SmartLibraryList : public QObject
{
    Q_OBJECT

public:
    SmartLibraryList(QListWidget *list, OpenBundle *bundle);

    /// Adds them to a list that has been filled with libraries.
    void addToList();
    /// The smart library that an item stands for; nothing for a library.
    std::optional<SmartLibrary> of(const QListWidgetItem *item) const;
    /// Makes the item of one the current one.
    void select(const QString &name);
    /// The smart library that is current; nothing if a library is.
    std::optional<SmartLibrary> current() const;

    /// Asks for a name, and saves a query of a library under it.
    void askAndSave(const Library &library, const RecordQuery &query);
    Outcome<> save(const SmartLibrary &smart);
    Outcome<> rename(const QString &name, const QString &newName);
    Outcome<> remove(const QString &name);

Q_SIGNALS:
    /// One was saved, and is to be shown.
    void saved(const QString &name);
    void failed(const QString &reason);

private:
    void add(const SmartLibrary &smart);
    void showMenu(const QPoint &place);
    void addActions(const SmartLibrary &smart, QMenu *menu);
    void askAndRemove(const QString &name);
    void ask(const QString &title, const QString &name,
             const std::function<void(const QString &)> &take);
    Outcome<> change(const std::function<Outcome<>(LibraryStore &store)> &changes);

    QListWidget *_list;
    OpenBundle *_bundle;
    QList<SmartLibrary> _all;
};
