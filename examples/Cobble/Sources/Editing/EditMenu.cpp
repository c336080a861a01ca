#include "EditMenu.h"

#include <KTUtility/NSMenuItem>

using namespace Qt::StringLiterals;

namespace {
struct EditItem
{
    QString title;
    /// What the item is found by.
    const char *name;
    EditCommand command;
    QKeySequence shortcut;
    bool isFirstOfGroup = false;
};

QList<EditItem> items()
{
    return {{EditMenu::tr("Cu&t"), "cut:", EditCommand::Cut, QKeySequence::Cut},
            {EditMenu::tr("&Copy"), "copy:", EditCommand::Copy, QKeySequence::Copy},
            {EditMenu::tr("Copy C&ell"), "copyCell:", EditCommand::CopyCell,
             QKeySequence(u"Ctrl+Alt+C"_qs)},
            {EditMenu::tr("&Paste"), "paste:", EditCommand::Paste, QKeySequence::Paste},
            {EditMenu::tr("Paste &Into Cells"), "pasteIntoCells:", EditCommand::PasteIntoCells,
             QKeySequence(u"Ctrl+Shift+V"_qs)},
            {EditMenu::tr("Select &All"), "selectAll:", EditCommand::SelectAll,
             QKeySequence::SelectAll},
            {EditMenu::tr("&New Record"), "newRecord:", EditCommand::NewRecord,
             QKeySequence(u"Ctrl+Shift+N"_qs), true},
            {EditMenu::tr("&Duplicate"), "duplicate:", EditCommand::Duplicate,
             QKeySequence(u"Ctrl+D"_qs)},
            {EditMenu::tr("Fill Do&wn"), "fillDown:", EditCommand::FillDown,
             QKeySequence(u"Ctrl+Shift+D"_qs)}};
}
} // namespace

void EditMenu::addItems(QMenu *menu, QObject *context, const EditCommands &commands)
{
    for (const EditItem &item : items()) {
        if (item.isFirstOfGroup)
            menu->addSeparator();
        const EditCommand command = item.command;
        QAction *const added = NSMenuItem::addItem(
            menu, QString(), context, [commands, command] { commands.perform(command); },
            [commands, command](QAction *) { return commands.canDo(command); });
        added->setText(item.title);
        added->setShortcut(item.shortcut);
        added->setObjectName(QString::fromLatin1(item.name));
    }
}
