// The part of KTLogger that is a menu.

#include "KTLogger.h"

#include <KTUtility/Platform/AppKit/NSMenuItem.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {
/// A tag holds a component's position and a level: position * TagsPerComponent + level.
constexpr int TagsPerComponent = 10;

const NSSelector ConsoleAction("setOutputToConsole:");
const NSSelector FileAction("setOutputToFile:");
const NSSelector FileLineAction("setDisplayFileLine:");
const NSSelector ClearAction("clearAllLoggingState:");
const NSSelector LevelAction("setComponentLogLevel:");

QString titleOfLevel(int level)
{
    switch (level) {
    case 7:
        return u"7 (most detail)"_s;
    case 0:
        return u"0 (off)"_s;
    default:
        return QString::number(level);
    }
}
} // namespace

const QString &KTLogger::componentForTag(int tag) const
{
    const int position = tag / TagsPerComponent;
    if (position < 0 || position >= _allComponentsArray.size())
        NSException::raise(NSRangeException,
                           NSString::stringWithFormat(u"index (%d) beyond bounds (%d)", position,
                                                      _allComponentsArray.size()));
    return _allComponentsArray.at(position);
}

void KTLogger::populateComponentLoggingMenu(QAction *item)
{
    QMenu *const menu = item ? item->menu() : nullptr;
    if (!menu)
        return;
    NSMenuItem::addItem(menu, u"Log To Console"_s, ConsoleAction, this);
    NSMenuItem::addItem(menu, u"Log To File"_s, FileAction, this);
    menu->addSeparator();
    NSMenuItem::addItem(menu, u"Display File and Line"_s, FileLineAction, this);
    menu->addSeparator();
    NSMenuItem::addItem(menu, u"Clear all logging state"_s, ClearAction, this);
    menu->addSeparator();
    for (int position = 0; position < _allComponentsArray.size(); ++position) {
        QAction *component =
            NSMenuItem::addItem(menu, _allComponentsArray.at(position), NSSelector(), this);
        QMenu *levels = createLogLevelSubmenuWithBase(position * TagsPerComponent).release();
        levels->setParent(menu, levels->windowFlags());
        component->setMenu(levels);
    }
}

std::unique_ptr<QMenu> KTLogger::createLogLevelSubmenuWithBase(int base)
{
    auto menu = std::make_unique<QMenu>(u"submenu"_s);
    for (int level = 7; level >= 0; --level) {
        QAction *item = NSMenuItem::addItem(menu.get(), titleOfLevel(level), LevelAction, this);
        NSMenuItem::setTag(item, base + level);
    }
    return menu;
}

bool KTLogger::validateMenuItem(QAction *item)
{
    const NSSelector action = item ? NSMenuItem::action(item) : NSSelector();
    if (action == ConsoleAction) {
        NSMenuItem::setState(item, !_writeToFile);
    } else if (action == FileAction) {
        NSMenuItem::setState(item, _writeToFile);
    } else if (action == FileLineAction) {
        NSMenuItem::setState(item, _displayFileLine);
    } else if (action == LevelAction) {
        const int tag = NSMenuItem::tag(item);
        NSMenuItem::setState(item,
                             levelOfComponent(componentForTag(tag)) == tag % TagsPerComponent);
    }
    return true;
}

void KTLogger::setOutputToConsole(QAction *)
{
    readMissedSettings();
    _writeToFile = false;
    writeConfigFile();
}

void KTLogger::setOutputToFile(QAction *)
{
    readMissedSettings();
    _writeToFile = true;
    writeConfigFile();
}

void KTLogger::setDisplayFileLine(QAction *)
{
    readMissedSettings();
    _displayFileLine = !_displayFileLine;
    writeConfigFile();
}

void KTLogger::clearAllLoggingState(QAction *)
{
    readMissedSettings();
    if (_components) {
        QVariantMap components = *_components;
        for (const QString &component : std::as_const(_allComponentsArray))
            components.insert(component, 0);
        setComponents(components);
    }
    writeConfigFile();
}

void KTLogger::setComponentLogLevel(QAction *sender)
{
    const int tag = sender ? NSMenuItem::tag(sender) : 0;
    setLevelOfComponent(tag % TagsPerComponent, componentForTag(tag));
}
