#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSSelector.h>

#include <QAction>
#include <QMenu>
#include <QString>

#include <functional>
#include <type_traits>

/// Menu items with an action named by a selector, a target and a tag: what a QAction lacks of the
/// platform's menu items.
///
/// Choosing an item calls the target's invokable method of the action's name with the item as its
/// argument. Before a menu is shown, and before an item is chosen by its shortcut or by code, the
/// target is asked `validateMenuItem(QAction *)`, if it answers that: it may set the check mark,
/// and its answer enables the item in the menu; chosen by its shortcut,
/// an item that the target does not want does nothing. An exception that an action raises is written
/// to the console and goes no further. A selector that the target has no method for is written to the
/// console when the item is made.
///
/// In place of a selector and its target, an item may have functions of an object.
///
/// \code
/// QMenu menu;
/// QAction *item = NSMenuItem::addItem(&menu, title, "setComponentLogLevel:", logger);
/// NSMenuItem::setTag(item, 173);
/// item->trigger();    // calls logger->setComponentLogLevel(item)
///
/// NSMenuItem::addItem(&menu, tr("Delete"), this, [this] { deleteRecords(); });
/// \endcode
namespace NSMenuItem {
/// Appends an item to \a menu.
/// \param action the selector that \a target is sent; a null one for items that only hold a menu.
/// \return the item, owned by the menu.
KTUTILITY_EXPORT QAction *addItem(QMenu *menu, const QString &title, const NSSelector &action,
                                  QObject *target);

/// What choosing an item calls.
using Action = std::function<void()>;
/// What is asked before: whether the item can be chosen now. It may set the check mark.
using Validation = std::function<bool(QAction *item)>;

/// Appends an item that calls functions. They are not called any more once \a context is destroyed;
/// nothing can be chosen by it then.
/// \param context the object that they belong to, which target() gives.
/// \param validation empty if the item can be chosen always.
KTUTILITY_EXPORT QAction *addFunctionItem(QMenu *menu, const QString &title, QObject *context,
                                          const Action &action, const Validation &validation = {});

/// The same for whatever can be called, such as a lambda expression.
template<typename Function>
requires std::is_invocable_v<Function &> QAction *addItem(QMenu *menu, const QString &title,
                                                          QObject *context, const Function &action,
                                                          const Validation &validation = {})
{
    return addFunctionItem(menu, title, context, Action(action), validation);
}

/// The title as it was given; the text of the action doubles its "&", which marks a letter in Qt.
KTUTILITY_EXPORT QString title(const QAction *item);

/// The number that an item carries for its action; 0 unless set.
KTUTILITY_EXPORT int tag(const QAction *item);
KTUTILITY_EXPORT void setTag(QAction *item, int tag);

/// The selector that the item sends; null if it has none.
KTUTILITY_EXPORT NSSelector action(const QAction *item);
/// The object that the item sends its action to.
KTUTILITY_EXPORT QObject *target(const QAction *item);

/// Sets the check mark; an item that never had one becomes checkable.
KTUTILITY_EXPORT void setState(QAction *item, bool isOn);

/// Asks the targets of all items of \a menu, as showing it does.
KTUTILITY_EXPORT void validateMenu(QMenu *menu);
} // namespace NSMenuItem
