#include "MainWindowController.h"

#include "Appearance/Counts.h"
#include "DesktopApplication.h"
#include "DetailPane.h"
#include "MainMenu.h"
#include "MainWindow.h"
#include "RecordSearch.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"
#include "Text/PrintableText.h"

#include <KTUtility/KTArraySelection>
#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/NSAlert>
#include <KTUtility/NSMenuItem>
#include <KTUtility/NSURL>

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// How long to wait for more letters before a search, in milliseconds.
constexpr int SearchDelay = 150;
/// How long messages stay in the status bar, in milliseconds.
constexpr int MessageTime = 8000;
} // namespace

MainWindowController::MainWindowController(DesktopApplication *application)
    : _application(application)
    , _model(std::make_unique<RecordTableModel>(&_records))
    , _importSheet(application->bundle())
    , _exportSheet(application->bundle())
{
    setRefusesDuplicateDialogs(true);
    _searchTimer.setSingleShot(true);
    _searchTimer.setInterval(SearchDelay);
    QObject::connect(&_searchTimer, &QTimer::timeout, this, &MainWindowController::search);
}

MainWindowController::~MainWindowController()
{
    forget();
    _selection.reset();
    // Before the model that its table shows.
    setWindow(nullptr);
}

MainWindow *MainWindowController::mainWindow()
{
    return qobject_cast<MainWindow *>(window());
}

void MainWindowController::loadWindow()
{
    auto *const made = new MainWindow(&_records, _model.get());
    setWindow(made);
    MainMenu::add(made, this, _application, _application->logger());
}

void MainWindowController::windowDidLoad()
{
    KTWindowController::windowDidLoad();
    _selection =
        std::make_unique<KTArraySelection>(_model.get(), mainWindow()->table()->selectionModel());
    connectParts();
    connectDetail(mainWindow()->detail());
    connectSheets();
    listLibraries();
    const QList<Library> &libraries = _application->bundle()->libraries();
    showLibrary(libraries.isEmpty() ? QString() : libraries.first().name);
}

void MainWindowController::connectParts()
{
    MainWindow *const shown = mainWindow();
    QObject::connect(shown->libraries(), &QListWidget::currentItemChanged, this,
                     [this](const QListWidgetItem *item) {
                         showLibrary(item ? item->data(Qt::UserRole).toString() : QString());
                     });
    QObject::connect(shown->search(), &QLineEdit::textChanged, &_searchTimer,
                     qOverload<>(&QTimer::start));
    QObject::connect(shown->search(), &QLineEdit::returnPressed, this,
                     &MainWindowController::searchAndTell);
    QObject::connect(&_records, &NSArrayController::arrangedObjectsChanged, this,
                     &MainWindowController::showCount);
    QObject::connect(_model.get(), &RecordTableModel::rejected, this,
                     [this](const QModelIndex &, const QString &why) { tell(why); });
    QObject::connect(_application->bundle(), &OpenBundle::librariesChanged, this,
                     &MainWindowController::listLibraries);
}

void MainWindowController::connectDetail(DetailPane *detail)
{
    detail->setChanger([this](const std::function<void()> &changes) {
        return _library ? _library->change(changes) : Outcome<>();
    });
    detail->setFileFinder([this](const QString &url) {
        const std::optional<NSURL> media = NSURL::URLWithString(url);
        return media ? _application->bundle()->bundle().filePathFromMediaUrl(*media) : QString();
    });
}

void MainWindowController::connectSheets()
{
    QObject::connect(&_importSheet, &ImportSheet::imported, this,
                     &MainWindowController::queueAfterImport);
    QObject::connect(&_exportSheet, &ExportSheet::exported, this,
                     [this](qint64 count, const QString &path) {
                         tellDone(tr("Exported %1 record(s)", nullptr, Counts::plural(count))
                                      .arg(Counts::number(count)));
                         tell(tr("Exported %1 record(s) to %2", nullptr, Counts::plural(count))
                                  .arg(Counts::number(count), path));
                     });
    QObject::connect(&_showLibraryAlert, &ShowLibraryAlert::chosen, this,
                     &MainWindowController::showLibrary);
}

// --- Libraries ----------------------------------------------------------------------------------

/// Fills the list anew, and shows the library of the same name again.
void MainWindowController::listLibraries()
{
    const QString shown = _library ? _library->definition().name : QString();
    QListWidget *const list = mainWindow()->libraries();
    {
        const QSignalBlocker blocker(list);
        list->clear();
        for (const Library &library : _application->bundle()->libraries()) {
            auto *const item = new QListWidgetItem(printableText(library.name), list);
            item->setData(Qt::UserRole, library.name);
        }
    }
    forget();
    showLibrary(shown);
}

Outcome<> MainWindowController::openLibrary(const QString &name)
{
    const auto opened =
        name.isNull() ? std::shared_ptr<OpenLibrary>() : _application->bundle()->open(name);
    const std::shared_ptr<OpenLibrary> library = opened.valueOr(nullptr);
    selectInList(library ? library->definition().name : QString());
    if (!library || library != _library)
        setLibrary(library);
    showNotice(opened.reason());
    return opened ? Outcome<>() : opened.failure();
}

void MainWindowController::selectInList(const QString &name)
{
    QListWidget *const list = mainWindow()->libraries();
    const QSignalBlocker blocker(list);
    list->setCurrentRow(-1);
    for (int row = 0; row < list->count(); ++row) {
        if (!name.isNull() && list->item(row)->data(Qt::UserRole).toString() == name)
            list->setCurrentRow(row);
    }
}

/// Releases the library, before its records are destroyed.
void MainWindowController::forget()
{
    _toDelete.clear();
    // The next records may lack the keys of these.
    _records.setContent({});
    _records.setFilterPredicate({});
    _records.setSortDescriptors({});
    _model->setLibrary(nullptr);
    if (isWindowLoaded()) {
        mainWindow()->table()->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
        mainWindow()->detail()->setFields({});
    }
    if (_library)
        QObject::disconnect(_library.get(), nullptr, this, nullptr);
    _library.reset();
}

void MainWindowController::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    forget();
    _library = library;
    mainWindow()->setWindowTitle(
        library ? tr("%1 – Cobble").arg(printableText(library->definition().name)) : u"Cobble"_s);
    if (!library) {
        showCount();
        return;
    }
    QObject::connect(library.get(), &OpenLibrary::recordsWillGo, this,
                     &MainWindowController::showRecords);
    QObject::connect(library.get(), &OpenLibrary::refused, this, &MainWindowController::tell);
    mainWindow()->detail()->setFields(library->fields());
    _model->setLibrary(library);
    showRecords();
    search();
    mainWindow()->fitColumns();
    _records.setSelectionIndex(0);
}

void MainWindowController::showRecords()
{
    const qsizetype place = _records.selectionIndex();
    _records.setContent(_library->records());
    // Where the selected ones were, if they were removed.
    if (place >= 0 && _records.selectionIndexes().isEmpty())
        _records.setSelectionIndex(qMin(place, _records.arrangedObjects().size() - 1));
}

void MainWindowController::showCount()
{
    QString text;
    if (_library) {
        const qsizetype shown = _records.arrangedObjects().size();
        const qsizetype all = _library->recordCount();
        text = shown == all ? Counts::records(all) : Counts::recordsOf(shown, all);
    }
    mainWindow()->count()->setText(text);
}

void MainWindowController::showNotice(const QString &error)
{
    const QString problem = error.isNull() ? _application->bundle()->errorText() : error;
    if (_library)
        mainWindow()->setNotice(QString());
    else if (!problem.isNull())
        mainWindow()->setNotice(problem);
    else if (_application->bundle()->libraries().isEmpty())
        mainWindow()->setNotice(
            tr("There are no libraries yet.\nFile ▸ Import… makes one of a table or of "
               "address cards."));
    else
        mainWindow()->setNotice(tr("Choose a library from the list."));
}

void MainWindowController::tell(const QString &message)
{
    mainWindow()->statusBar()->showMessage(printableText(message), MessageTime);
}

/// Reports it in the middle of the window, too, as soon as the user is with it.
void MainWindowController::tellDone(const QString &message)
{
    tell(message);
    _done = message;
    if (QApplication::activeWindow() == mainWindow())
        showDone();
}

void MainWindowController::showDone()
{
    const QString message = std::exchange(_done, QString());
    if (!message.isNull())
        _application->showStatus(message, mainWindow());
}

void MainWindowController::windowDidBecomeKey(const NSNotification &notification)
{
    KTWindowController::windowDidBecomeKey(notification);
    showDone();
}

QString MainWindowController::foundText() const
{
    return Counts::records(_records.arrangedObjects().size());
}

void MainWindowController::searchAndTell()
{
    search();
    if (_library)
        tellDone(foundText());
}

void MainWindowController::showRecordCount(QAction *)
{
    if (_library)
        _application->showStatus(foundText(), mainWindow(), true);
}

void MainWindowController::search()
{
    _searchTimer.stop();
    if (!_library)
        return;
    _records.setFilterPredicate(
        RecordSearch::predicateFor(*_library, mainWindow()->search()->text()));
    if (_records.selectionIndexes().isEmpty())
        _records.setSelectionIndex(0);
}

// --- Menu ---------------------------------------------------------------------------------------

bool MainWindowController::validateMenuItem(QAction *item)
{
    const NSSelector action = NSMenuItem::action(item);
    if (action == NSSelector("exportFile:") || action == NSSelector("showRecordCount:"))
        return _library != nullptr;
    if (action == NSSelector("deleteRecords:"))
        return !_records.selectionIndexes().isEmpty();
    if (action == NSSelector("closeWindow:"))
        return !isWorking();
    return true;
}

bool MainWindowController::isWorking() const
{
    return _importSheet.isWorking() || _exportSheet.isWorking();
}

/// What the window's sheets are doing needs the window.
bool MainWindowController::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Close || !isWorking())
        return KTWindowController::eventFilter(object, event);
    event->ignore();
    return true;
}

void MainWindowController::closeWindow(QAction *)
{
    close();
}

void MainWindowController::run(KTDialogController *dialog)
{
    addDialogControllerToQueue(dialog);
    if (!continueRunningQueue())
        runDialogQueue();
}

void MainWindowController::importFile(QAction *)
{
    run(&_importSheet);
}

void MainWindowController::exportFile(QAction *)
{
    if (!_library)
        return;
    exposeObjectToDialog(_library->definition().name, ExportSheet::LibraryKey);
    run(&_exportSheet);
}

void MainWindowController::queueAfterImport(const QString &libraryName)
{
    _application->bundle()->reload();
    const auto result =
        exposedDialogDatasource().value(ImportSheet::ResultKey).value<ImportResult>();
    const qsizetype count = result.stored.recordCount;
    tellDone(
        tr("Imported %1 record(s)", nullptr, Counts::plural(count)).arg(Counts::number(count)));
    addDialogControllerToQueue(&_importSummary);
    if (!_library || _library->definition().name != libraryName)
        addDialogControllerToQueue(&_showLibraryAlert);
}

void MainWindowController::findRecords(QAction *)
{
    mainWindow()->search()->setFocus(Qt::ShortcutFocusReason);
    mainWindow()->search()->selectAll();
}

QList<StoredRecord *> MainWindowController::selectedRecords() const
{
    QList<StoredRecord *> selected;
    for (const QVariant &record : _records.selectedObjects())
        selected += record.value<StoredRecord *>();
    return selected;
}

void MainWindowController::deleteRecords(QAction *)
{
    _toDelete.clear();
    for (StoredRecord *const record : selectedRecords())
        _toDelete += record;
    if (_toDelete.isEmpty())
        return;
    KTDoNotShowAlert::beginCriticalAlertSheet(
        {.title = tr("Delete %1 record(s)?", nullptr, Counts::plural(_toDelete.size()))
                      .arg(Counts::number(_toDelete.size())),
         .defaultButton = tr("Delete"),
         .alternateButton = tr("Cancel"),
         .otherButton = QString(),
         .window = mainWindow(),
         .modalDelegate = this,
         .didEndSelector = NSSelector("deleteAlertDidEnd:returnCode:contextInfo:"),
         .contextInfo = nullptr,
         .msg = tr("This cannot be undone. Media files that nothing else uses go, too."),
         .suppressionKey = DeleteSuppressionKey});
}

void MainWindowController::deleteAlertDidEnd(NSAlert *, int returnCode, void *)
{
    QList<StoredRecord *> records;
    for (const QPointer<StoredRecord> &record : std::exchange(_toDelete, {})) {
        if (record)
            records += record;
    }
    if (returnCode != NSAlertDefaultReturn || !_library || records.isEmpty())
        return;
    const Outcome<> removed = _library->removeRecords(records);
    tell(removed ? tr("Deleted %1 record(s)", nullptr, Counts::plural(records.size()))
                       .arg(Counts::number(records.size()))
                 : removed.reason());
}

void MainWindowController::showAbout(QAction *)
{
    auto *const alert = new NSAlert(QStringLiteral("Cobble " COBBLE_VERSION), QString(), QString(),
                                    QString(), tr("A database for one person."));
    alert->setAlertStyle(NSInformationalAlertStyle);
    alert->beginSheetModalForWindow(mainWindow(), {});
}

void MainWindowController::windowWillClose(const NSNotification &notification)
{
    KTWindowController::windowWillClose(notification);
    Q_EMIT closed(this);
}
