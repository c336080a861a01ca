#include "MainMenu.h"

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
        added->setObjectName(QString::fromLatin1(item.action));
    }
}

const Item Line{{}, nullptr, nullptr, {}};

void addLoggingMenu(QMenu *help, KTLogger *logger)
{
    QMenu *const logging = help->addMenu(u"&Logging"_s);
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

void MainMenu::add(QMainWindow *window, QObject *controller, QObject *application, KTLogger *logger)
{
    QMenuBar *const bar = window->menuBar();
    addItems(bar->addMenu(u"&File"_s),
             {{u"&New Window"_s, "newWindow:", application, QKeySequence::New},
              {u"&Close Window"_s, "closeWindow:", controller, QKeySequence::Close},
              Line,
              {u"&Import…"_s, "importFile:", controller, QKeySequence(u"Ctrl+I"_qs)},
              {u"&Export…"_s, "exportFile:", controller, QKeySequence(u"Ctrl+E"_qs)},
              Line,
              {u"&Quit"_s, "terminate:", application, QKeySequence(u"Ctrl+Q"_qs)}});
    addItems(
        bar->addMenu(u"&Edit"_s),
        {{u"&Find"_s, "findRecords:", controller, QKeySequence::Find},
         Line,
         {u"&Delete Record…"_s, "deleteRecords:", controller, QKeySequence(u"Ctrl+Backspace"_qs)},
         Line,
         {u"&Silenced Alerts…"_s, "showSilencedAlerts:", application, QKeySequence()}});
    addItems(bar->addMenu(u"&View"_s), {{u"&Record Count"_s, "showRecordCount:", controller,
                                         QKeySequence(u"Ctrl+Shift+C"_qs)}});
    QMenu *const help = bar->addMenu(u"&Help"_s);
    addItems(help, {{u"&About Cobble"_s, "showAbout:", controller, QKeySequence()}});
    addLoggingMenu(help, logger);
}
