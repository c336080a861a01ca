#include "NSMenuItem.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Keys/Invoker.h>

#include <QPointer>

#include <algorithm>
#include <exception>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr char ActionProperty[] = "_ns_action";
constexpr char TargetProperty[] = "_ns_target";
constexpr char TagProperty[] = "_ns_tag";
constexpr char ValidatedProperty[] = "_ns_validated";

bool answers(const QObject *object, const char *signature)
{
    return object && object->metaObject()->indexOfMethod(signature) >= 0;
}

/// Asks the target. What it raises ends here, since Qt's event loop is left by no exception: the
/// item cannot be chosen then.
bool isWanted(QAction *item, QObject *target)
{
    Invoker validator("validateMenuItem:", {QVariant::fromValue(item)});
    try {
        return validator.isTrue(KeyValueTarget::of(target));
    } catch (const std::exception &failure) {
        NSLog(u"*** exception in the validation of a menu item: %s", failure.what());
    }
    return false;
}

void validate(QAction *item)
{
    QObject *target = NSMenuItem::target(item);
    if (answers(target, "validateMenuItem(QAction*)"))
        item->setEnabled(isWanted(item, target));
}

bool isInVisibleMenu(const QAction *item)
{
    const QObjectList holders = item->associatedObjects();
    return std::any_of(holders.begin(), holders.end(), [](const QObject *holder) {
        const auto *const menu = qobject_cast<const QMenu *>(holder);
        return menu && menu->isVisible();
    });
}

/// Lets the items be chosen by their shortcuts again, which ask the targets then.
void letBeAsked(const QMenu *menu)
{
    for (QAction *const item : menu->actions()) {
        if (answers(NSMenuItem::target(item), "validateMenuItem(QAction*)"))
            item->setEnabled(true);
    }
}

/// Sends an action. What it raises ends here, as in the event loop of the platform: Qt's is left by
/// no exception.
void perform(Invoker &action, QAction *item)
{
    const QString name = NSMenuItem::action(item).text();
    try {
        action.perform(KeyValueTarget::of(NSMenuItem::target(item)));
    } catch (const std::exception &failure) {
        NSLog(u"*** exception in the action %@: %s", name, failure.what());
    }
}

/// Sends the item's action unless its target does not want it now. Qt has toggled the check mark of
/// a checkable item by now; whose mark stands is for the target to say, so it is asked again.
void send(QAction *item)
{
    const QPointer<QAction> guard(item);
    Invoker action(NSMenuItem::action(item), {QVariant::fromValue(item)});
    validate(item);
    if (!item->isEnabled()) {
        item->setEnabled(true);
        return;
    }
    perform(action, item);
    if (!guard)
        return;
    validate(item);
    // A shortcut asks again, by itself; only a menu that is seen shows what cannot be chosen.
    if (!isInVisibleMenu(item))
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
} // namespace

QAction *NSMenuItem::addItem(QMenu *menu, const QString &title, const NSSelector &action,
                             QObject *target)
{
    keepValidated(menu);
    // In Qt a "&" marks the letter of a shortcut; titles here have none.
    QAction *item = menu->addAction(QString(title).replace(u'&', u"&&"_s));
    item->setProperty(TargetProperty, QVariant::fromValue(QPointer<QObject>(target)));
    if (!action.isNull()) {
        item->setProperty(ActionProperty, action.text());
        QObject::connect(item, &QAction::triggered, item, [item] { send(item); });
    }
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
    for (QAction *item : menu->actions())
        validate(item);
}
