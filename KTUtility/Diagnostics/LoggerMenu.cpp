#include "LoggerMenu_p.h"

#include <KTUtility/Platform/AppKit/NSMenuItem.h>

#include <QCoreApplication>
#include <QMenu>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A tag holds a component's position and a level: position * TagsPerComponent + level.
constexpr int TagsPerComponent = 10;

const NSSelector ConsoleAction("setOutputToConsole:");
const NSSelector FileAction("setOutputToFile:");
const NSSelector FileLineAction("setDisplayFileLine:");
const NSSelector ClearAction("clearAllLoggingState:");
const NSSelector LevelAction("setComponentLogLevel:");

QString translated(const char *text)
{
    return QCoreApplication::translate("KTLogger", text);
}

QString titleOfLevel(int level)
{
    switch (level) {
    case 7:
        return translated(QT_TRANSLATE_NOOP("KTLogger", "7 (most detail)"));
    case 0:
        return translated(QT_TRANSLATE_NOOP("KTLogger", "0 (off)"));
    default:
        return QString::number(level);
    }
}

void addComponent(QMenu &menu, const QString &name, int position, QObject *logger)
{
    QAction *const component = NSMenuItem::addItem(&menu, name, NSSelector(), logger);
    QMenu *const levels = LoggerMenu::createLevels(position * TagsPerComponent, logger).release();
    levels->setParent(&menu, levels->windowFlags());
    component->setMenu(levels);
}
} // namespace

void LoggerMenu::populate(QMenu &menu, const QStringList &components, QObject *logger)
{
    NSMenuItem::addItem(&menu, translated(QT_TRANSLATE_NOOP("KTLogger", "Log To Console")),
                        ConsoleAction, logger);
    NSMenuItem::addItem(&menu, translated(QT_TRANSLATE_NOOP("KTLogger", "Log To File")), FileAction,
                        logger);
    menu.addSeparator();
    NSMenuItem::addItem(&menu, translated(QT_TRANSLATE_NOOP("KTLogger", "Display File and Line")),
                        FileLineAction, logger);
    menu.addSeparator();
    NSMenuItem::addItem(&menu, translated(QT_TRANSLATE_NOOP("KTLogger", "Clear all logging state")),
                        ClearAction, logger);
    menu.addSeparator();
    for (int position = 0; position < components.size(); ++position)
        addComponent(menu, components.at(position), position, logger);
}

std::unique_ptr<QMenu> LoggerMenu::createLevels(int base, QObject *logger)
{
    auto menu = std::make_unique<QMenu>(u"submenu"_s);
    for (int level = 7; level >= 0; --level) {
        QAction *item = NSMenuItem::addItem(menu.get(), titleOfLevel(level), LevelAction, logger);
        NSMenuItem::setTag(item, base + level);
    }
    return menu;
}

LoggerMenu::Entry LoggerMenu::entryOf(const QAction *item)
{
    const NSSelector action = item ? NSMenuItem::action(item) : NSSelector();
    if (action == ConsoleAction)
        return Entry::Console;
    if (action == FileAction)
        return Entry::File;
    if (action == FileLineAction)
        return Entry::FileLine;
    return action == LevelAction ? Entry::Level : Entry::Other;
}

LoggerMenu::Choice LoggerMenu::choiceOf(const QAction *item)
{
    const int tag = item ? NSMenuItem::tag(item) : 0;
    if (tag >= 0)
        return {tag / TagsPerComponent, tag % TagsPerComponent};
    // Below the first component, whatever the level.
    return {tag / TagsPerComponent - 1, 0};
}

void LoggerMenu::setChecked(QAction *item, bool isChecked)
{
    NSMenuItem::setState(item, isChecked);
}
