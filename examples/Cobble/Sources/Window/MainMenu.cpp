#include "MainMenu.h"

#include "Appearance/Icons.h"
#include "Editing/EditMenu.h"

#include <KTUtility/KTLogger>
#include <KTUtility/NSMenuItem>

#include <QMainWindow>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {
struct Item
{
    /// With "&" before the letter that chooses it; nil for a line between items.
    QString title;
    const char *action;
    QObject *target;
    QKeySequence shortcut;
};

void addItems(QMenu *menu, const QList<Item> &items)
{
    for (const Item &item : items) {
        if (item.title.isNull()) {
            menu->addSeparator();
            continue;
        }
        QAction *const added =
            NSMenuItem::addItem(menu, QString(), NSSelector(item.action), item.target);
        added->setText(item.title);
        added->setShortcut(item.shortcut);
        added->setIcon(Icons::ofAction(QString::fromLatin1(item.action)));
        added->setObjectName(QString::fromLatin1(item.action));
    }
}

const Item Line{{}, nullptr, nullptr, {}};

void addLoggingMenu(QMenu *help, KTLogger *logger)
{
    QMenu *const logging = help->addMenu(MainMenu::tr("&Logging"));
    logging->setObjectName(u"logging"_s);
    logger->populateComponentLoggingMenu(logging->menuAction());
    // The items save the levels, which there have to be.
    QObject::connect(logging, &QMenu::aboutToShow, logging, [logging, logger] {
        if (!logger->components())
            logger->setLevelOfComponent(0, kLog_Lifecycle);
        for (QAction *const item : logging->actions())
            item->setEnabled(logger->components().has_value());
    });
}
} // namespace

void MainMenu::add(QMainWindow *window, QObject *controller, QObject *libraries,
                   QObject *application, KTLogger *logger, const EditCommands &commands)
{
    QMenuBar *const bar = window->menuBar();
    addItems(bar->addMenu(tr("&File")),
             {{tr("&New Window"), "newWindow:", application, QKeySequence::New},
              {tr("New &Library…"), "newLibrary:", libraries, QKeySequence()},
              {tr("&Close Window"), "closeWindow:", controller, QKeySequence::Close},
              Line,
              {tr("&Import…"), "importFile:", controller, QKeySequence(u"Ctrl+I"_qs)},
              {tr("&Export…"), "exportFile:", controller, QKeySequence(u"Ctrl+E"_qs)},
              Line,
              {tr("&Quit"), "terminate:", application, QKeySequence(u"Ctrl+Q"_qs)}});
    QMenu *const edit = bar->addMenu(tr("&Edit"));
    addItems(edit, {{tr("&Undo"), "undoChange:", controller, QKeySequence(u"Ctrl+Z"_qs)},
                    {tr("&Redo"), "redoChange:", controller, QKeySequence(u"Ctrl+Shift+Z"_qs)},
                    Line});
    EditMenu::addItems(edit, controller, commands);
    addItems(edit,
             {Line,
              {tr("&Find"), "findRecords:", controller, QKeySequence::Find},
              {tr("Fi&lter…"), "filterRecords:", controller, QKeySequence(u"Ctrl+Shift+F"_qs)},
              Line,
              {tr("Delete Rec&ords"), "deleteRecords:", controller, QKeySequence(u"Del"_qs)},
              Line,
              {tr("&Silenced Alerts…"), "showSilencedAlerts:", application, QKeySequence()}});
    addItems(bar->addMenu(tr("&Library")),
             {{tr("New &Field…"), "newField:", libraries, QKeySequence()},
              {tr("F&ields…"), "editFields:", libraries, QKeySequence()},
              Line,
              {tr("&Rename Library…"), "renameLibrary:", libraries, QKeySequence()},
              {tr("Re&move Library"), "removeLibrary:", libraries, QKeySequence()}});
    addItems(bar->addMenu(tr("&View")), {{tr("&Record Count"), "showRecordCount:", controller,
                                          QKeySequence(u"Ctrl+Shift+C"_qs)}});
    QMenu *const help = bar->addMenu(tr("&Help"));
    addItems(help, {{tr("Cobble &Help"), "showHelp:", application, QKeySequence::HelpContents},
                    {tr("&Keyboard Shortcuts"), "showShortcuts:", application, QKeySequence()},
                    Line,
                    {tr("&About Cobble"), "showAbout:", controller, QKeySequence()}});
    addLoggingMenu(help, logger);
}
