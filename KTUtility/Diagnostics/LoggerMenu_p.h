#pragma once

#include <QString>

#include <memory>

class QAction;
class QMenu;
class QObject;

// The logging menu: its items, and what they stand for. Choosing one calls the logger by selector.
namespace KTPrivate::LoggerMenu {
enum class Entry { Console, File, FileLine, Level, Other };

/// A component, by its position in the menu, and a level for it.
struct Choice
{
    int position = 0;
    int level = 0;
};

/// Appends the menu to \a menu.
void populate(QMenu &menu, const QStringList &components, QObject *logger);
/// A menu of the eight levels for the component whose position is base / 10.
std::unique_ptr<QMenu> createLevels(int base, QObject *logger);

/// What an item of the menu stands for; Other also for null.
Entry entryOf(const QAction *item);
/// What the tag of an item of Entry::Level stands for; the first component's 0 for null. A tag below
/// 0 stands for a position below 0.
Choice choiceOf(const QAction *item);
/// Sets the check mark of an item.
void setChecked(QAction *item, bool isChecked);
} // namespace KTPrivate::LoggerMenu
