#include "NSMenuItem.h"

#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Keys/Invoker.h>
#include <KTUtility/Platform/Keys/MissingSelector_p.h>

#include <QPointer>

#include <algorithm>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr char ActionProperty[] = "_ns_action";
constexpr char TargetProperty[] = "_ns_target";
constexpr char TagProperty[] = "_ns_tag";
constexpr char ValidatedProperty[] = "_ns_validated";
constexpr char FunctionsProperty[] = "_ns_functions";

/// What an item calls that has no selector.
struct Functions
{
    NSMenuItem::Action action;
    NSMenuItem::Validation validation;
};
using SharedFunctions = std::shared_ptr<const Functions>;

/// Null for an item with a selector.
SharedFunctions functionsOf(const QAction *item)
{
    return item->property(FunctionsProperty).value<SharedFunctions>();
}

/// Whether there is somebody to be asked whether an item can be chosen.
bool canBeAsked(const QAction *item)
{
    const QObject *const target = NSMenuItem::target(item);
    if (const SharedFunctions functions = functionsOf(item))
        return functions->validation || !target;
    return target && target->metaObject()->indexOfMethod("validateMenuItem(QAction*)") >= 0;
}

bool askTarget(QAction *item)
{
    QObject *const target = NSMenuItem::target(item);
    if (const SharedFunctions functions = functionsOf(item))
        return target && (!functions->validation || functions->validation(item));
    Invoker validator("validateMenuItem:", {QVariant::fromValue(item)});
    return validator.isTrue(KeyValueTarget::of(target));
}

/// Asks the target. What it raises ends here, since Qt's event loop is left by no exception: the
/// item cannot be chosen then.
bool isWanted(QAction *item)
{
    bool isWanted = false;
    guarded(u"the validation of a menu item", [&] { isWanted = askTarget(item); });
    return isWanted;
}

void validate(QAction *item)
{
    if (!canBeAsked(item))
        return;
    const QPointer<QAction> guard(item);
    const bool isEnabled = isWanted(item);
    if (guard)
        item->setEnabled(isEnabled);
}

bool isInVisibleMenu(const QAction *item)
{
    const QObjectList holders = item->associatedObjects();
    return std::any_of(holders.begin(), holders.end(), [](const QObject *holder) {
        const auto *const menu = qobject_cast<const QMenu *>(holder);
        return menu && menu->isVisible();
    });
}

/// The items of a menu, any of which may be gone once one of them was asked.
QList<QPointer<QAction>> itemsOf(const QMenu *menu)
{
    const QList<QAction *> items = menu->actions();
    return {items.begin(), items.end()};
}

/// Lets the items be chosen by their shortcuts again, which ask the targets then.
void letBeAsked(const QMenu *menu)
{
    for (const QPointer<QAction> &item : itemsOf(menu)) {
        if (item && canBeAsked(item))
            item->setEnabled(true);
    }
}

/// Sends an action. What it raises ends here, as in the event loop of the platform: Qt's is left by
/// no exception.
void performSelector(QAction *item)
{
    const NSSelector action = NSMenuItem::action(item);
    Invoker invoker(action, {QVariant::fromValue(item)});
    guarded(u"the action", action.text(),
            [&] { invoker.perform(KeyValueTarget::of(NSMenuItem::target(item))); });
}

void perform(QAction *item)
{
    const SharedFunctions functions = functionsOf(item);
    const QString title = NSMenuItem::title(item);
    if (!functions)
        performSelector(item);
    else if (NSMenuItem::target(item) && functions->action)
        guarded(u"the action of the menu item", title, functions->action);
}

/// Sends the item's action unless its target does not want it now. Qt has toggled the check mark of
/// a checkable item by now; whose mark stands is for the target to say, so it is asked again.
void send(QAction *item)
{
    const QPointer<QAction> guard(item);
    validate(item);
    if (guard && !item->isEnabled()) {
        item->setEnabled(true);
        return;
    }
    if (guard)
        perform(item);
    if (guard)
        validate(item);
    // A shortcut asks again, by itself; only a menu that is seen shows what cannot be chosen. What
    // nobody is asked about stays as its action left it.
    if (guard && canBeAsked(item) && !isInVisibleMenu(item))
        item->setEnabled(true);
}

/// Makes \a menu ask its targets whenever it is about to be shown.
void keepValidated(QMenu *menu)
{
    if (menu->property(ValidatedProperty).toBool())
        return;
    menu->setProperty(ValidatedProperty, true);
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] { NSMenuItem::validateMenu(menu); });
    QObject::connect(menu, &QMenu::aboutToHide, menu, [menu] { letBeAsked(menu); });
}

/// Appends an item that does nothing yet.
QAction *append(QMenu *menu, const QString &title, QObject *target)
{
    keepValidated(menu);
    // In Qt a "&" marks the letter of a shortcut; titles here have none.
    QAction *const item = menu->addAction(QString(title).replace(u'&', u"&&"_s));
    item->setProperty(TargetProperty, QVariant::fromValue(QPointer<QObject>(target)));
    return item;
}

void connectToSend(QAction *item)
{
    QObject::connect(item, &QAction::triggered, item, [item] { send(item); });
}
} // namespace

QAction *NSMenuItem::addItem(QMenu *menu, const QString &title, const NSSelector &action,
                             QObject *target)
{
    QAction *const item = append(menu, title, target);
    if (action.isNull())
        return item;
    reportMissingSelector(target, action, 1, u"the target of a menu item");
    item->setProperty(ActionProperty, action.text());
    connectToSend(item);
    return item;
}

QAction *NSMenuItem::addFunctionItem(QMenu *menu, const QString &title, QObject *context,
                                     const Action &action, const Validation &validation)
{
    QAction *const item = append(menu, title, context);
    const auto functions = std::make_shared<const Functions>(Functions{action, validation});
    item->setProperty(FunctionsProperty, QVariant::fromValue(SharedFunctions(functions)));
    connectToSend(item);
    return item;
}

QString NSMenuItem::title(const QAction *item)
{
    return item->text().replace(u"&&"_s, u"&"_s);
}

int NSMenuItem::tag(const QAction *item)
{
    return item->property(TagProperty).toInt();
}

void NSMenuItem::setTag(QAction *item, int tag)
{
    item->setProperty(TagProperty, tag);
}

NSSelector NSMenuItem::action(const QAction *item)
{
    return NSSelector(item->property(ActionProperty).toString());
}

QObject *NSMenuItem::target(const QAction *item)
{
    return item->property(TargetProperty).value<QPointer<QObject>>();
}

void NSMenuItem::setState(QAction *item, bool isOn)
{
    if (isOn && !item->isCheckable())
        item->setCheckable(true);
    item->setChecked(isOn);
}

void NSMenuItem::validateMenu(QMenu *menu)
{
    for (const QPointer<QAction> &item : itemsOf(menu)) {
        if (item)
            validate(item);
    }
}
