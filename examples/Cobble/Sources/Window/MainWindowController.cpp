#include "MainWindowController.h"

#include "Appearance/Counts.h"
#include "Appearance/Icons.h"
#include "Appearance/IsolatedText.h"
#include "Appearance/Sentence.h"
#include "DesktopApplication.h"
#include "DetailPane.h"
#include "Drops/FileDrop.h"
#include "Editing/EditCommands.h"
#include "Editing/TextInputs.h"
#include "FieldDragging.h"
#include "Finding/FilterBar.h"
#include "MainMenu.h"
#include "MainWindow.h"
#include "Making/LibraryActions.h"
#include "RecordFinder.h"
#include "RecordSelection.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"
#include "ShownRecords.h"
#include "SmartLibraryList.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSAlert>
#include <KTUtility/NSApplication>
#include <KTUtility/NSMenuItem>
#include <KTUtility/NSURL>

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
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
    , _steps([this](qint64 step, StepPlayer::Direction direction) { return play(step, direction); })
    , _importSheet(application->bundle())
    , _exportSheet(application->bundle())
{
    setRefusesDuplicateDialogs(true);
    _steps.setReadiness([application] { return application->bundle()->checkChange(); });
    _model->setChanger(
        [this](const std::function<void()> &changes) { return changeRecords(changes); });
    _searchTimer.setSingleShot(true);
    _searchTimer.setInterval(SearchDelay);
    QObject::connect(&_searchTimer, &QTimer::timeout, this, &MainWindowController::search);
}

MainWindowController::~MainWindowController()
{
    forget();
    _smartLibraries.reset();
    _finder.reset();
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
    MainMenu::add(made, this, makeLibraryActions(made), _application, _application->logger(),
                  EditCommands(&_commands));
    made->addContextMenus();
    // In a text field, the key deletes letters.
    auto *const deletion = made->findChild<QAction *>(QString::fromLatin1("deleteRecords:"));
    deletion->setShortcutContext(Qt::WidgetShortcut);
    made->table()->addAction(deletion);
}

LibraryActions *MainWindowController::makeLibraryActions(MainWindow *window)
{
    LibraryActions::Window does;
    does.library = [this] {
        return _library ? std::optional(_library->definition()) : std::nullopt;
    };
    does.bundle = [this] { return _application->bundle()->bundle(); };
    does.change = [this](const StepTitle &title, const auto &changes) {
        return changeLibraries(title, changes);
    };
    does.show = [this](const QString &name) { showLibrary(name); };
    does.tell = [this](const QString &message) { tell(message); };
    return new LibraryActions(window, does);
}

void MainWindowController::windowDidLoad()
{
    KTWindowController::windowDidLoad();
    _selection = std::make_unique<RecordSelection>(&_records, _model.get(), mainWindow()->table());
    _finder = std::make_unique<RecordFinder>(mainWindow(), &_records);
    _smartLibraries =
        std::make_unique<SmartLibraryList>(mainWindow()->libraries(), _application->bundle());
    guardInput();
    connectParts();
    connectDetail(mainWindow()->detail());
    connectSheets();
    connectSmartLibraries();
    connectDrops();
    listLibraries();
    _columns = std::make_unique<RememberedColumns>(mainWindow()->table()->horizontalHeader());
    showLibrary(_application->libraryToShow());
}

void MainWindowController::connectParts()
{
    MainWindow *const shown = mainWindow();
    QObject::connect(shown->libraries(), &QListWidget::currentItemChanged, this,
                     &MainWindowController::showItem);
    QObject::connect(shown->search(), &QLineEdit::textChanged, &_searchTimer,
                     qOverload<>(&QTimer::start));
    QObject::connect(_finder.get(), &RecordFinder::changed, &_searchTimer,
                     qOverload<>(&QTimer::start));
    QObject::connect(shown->search(), &QLineEdit::returnPressed, this,
                     &MainWindowController::searchAndTell);
    QObject::connect(&_records, &RecordList::arrangedObjectsChanged, this,
                     &MainWindowController::showArranged, Qt::QueuedConnection);
    QObject::connect(&_records, &RecordList::arrangedObjectsChanged, this,
                     &MainWindowController::showCount);
    QObject::connect(&_records, &RecordList::slowChanged, this, &MainWindowController::showCount);
    QObject::connect(&_records, &RecordList::failed, this,
                     [this](const QString &why) { tell(Sentence::of(why)); });
    QObject::connect(&_records, &RecordList::selectionChanged, this,
                     &MainWindowController::showSelection);
    QObject::connect(_model.get(), &RecordTableModel::rejected, this,
                     [this](const QModelIndex &, const QString &why) { tell(Sentence::of(why)); });
    QObject::connect(shown->importButton(), &QPushButton::clicked, this, [this] { importFile(); });
    QObject::connect(_application->bundle(), &OpenBundle::librariesChanged, this,
                     &MainWindowController::listLibraries);
    QObject::connect(_application->bundle(), &OpenBundle::stepMade, this,
                     &MainWindowController::addStep);
}

void MainWindowController::connectDetail(DetailPane *detail)
{
    detail->setChanger(
        [this](const std::function<void()> &changes) { return changeRecords(changes); });
    detail->setAsker([this](const QString &field, qsizetype count, const auto &answer) {
        askForMany(field, count, answer);
    });
    detail->setFileStorer([this](const QString &path, const auto &use) {
        return _application->bundle()->storeFile(path, use);
    });
    detail->setManyChanger(
        [this](qsizetype field, const QVariant &value) { return changeSelected(field, value); });
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
                     &MainWindowController::goToLibrary);
}

/// Nothing that was rejected goes without the user's word.
void MainWindowController::guardInput()
{
    MainWindow *const shown = mainWindow();
    _pendingInput = std::make_unique<PendingInput>(
        shown, QList<InputSource *>{shown->cells(), shown->detail()});
    _pendingInput->guard(shown->table());
    QObject::connect(shown->detail(), &DetailPane::inputLost, this,
                     [this](const QString &field, const QString &text) {
                         tell(tr("“%1” was not stored as “%2”").arg(text, field));
                     });
}

void MainWindowController::connectFinder()
{
    QObject::connect(_finder->bar(), &FilterBar::saveRequested, this, [this] {
        if (_library)
            _smartLibraries->askAndSave(_library->definition(), _finder->shownQuery());
    });
    QObject::connect(_finder.get(), &RecordFinder::leftSmartLibrary, this, [this] {
        _columns->comeBack();
        selectInList(_library ? _library->definition().name : QString());
    });
}

void MainWindowController::connectSmartLibraries()
{
    connectFinder();
    SmartLibraryList *const smart = _smartLibraries.get();
    QObject::connect(_application->bundle(), &OpenBundle::smartLibrariesChanged, smart,
                     &SmartLibraryList::addToList);
    QObject::connect(smart, &SmartLibraryList::saved, this, [this, smart](const QString &name) {
        smart->select(name);
        _finder->enterSmartLibrary();
    });
    QObject::connect(smart, &SmartLibraryList::failed, this, &MainWindowController::tell);
}

void MainWindowController::connectDrops()
{
    auto *const drop = new FileDrop(mainWindow());
    // A sheet that is there has to be answered first.
    drop->setCondition([] { return !QApplication::activeModalWidget(); });
    QObject::connect(drop, &FileDrop::dropped, this, &MainWindowController::importFileAtPath);
    QObject::connect(drop, &FileDrop::refused, this, &MainWindowController::tell);
    _dragging = std::make_unique<FieldDragging>(mainWindow()->table()->horizontalHeader(),
                                                [this](int from, int to) { moveField(from, to); });
}

// --- Libraries ----------------------------------------------------------------------------------

/// Fills the list anew. A library that was opened anew is shown anew, whatever its name is now, and as
/// it was shown before.
void MainWindowController::listLibraries()
{
    const QString shown = nameOfShown();
    const std::optional<SmartLibrary> smart = _smartLibraries->current();
    const ShownRecords before(this);
    fillLibraries();
    if (!_application->bundle()->isCurrent(_library))
        forget();
    showLibrary(shown);
    _smartLibraries->addToList();
    if (smart && _finder->isSmart())
        _smartLibraries->select(smart->name);
    before.restore();
}

void MainWindowController::fillLibraries()
{
    QListWidget *const list = mainWindow()->libraries();
    const QSignalBlocker blocker(list);
    list->clear();
    for (const Library &library : _application->bundle()->libraries()) {
        auto *const item = new QListWidgetItem(printableText(library.name), list);
        item->setData(Qt::UserRole, library.name);
        item->setIcon(Icons::named(u"x-office-spreadsheet"_s));
    }
}

/// The library with the same table as the one that is shown, else the one of its name; nil if there
/// is neither any more.
QString MainWindowController::nameOfShown() const
{
    QString sameName;
    for (const Library &library : _application->bundle()->libraries()) {
        if (_library && library.tableName == _library->definition().tableName)
            return library.name;
        if (_library && library.name == _library->definition().name)
            sameName = library.name;
    }
    return sameName;
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

/// Shows what was chosen in the list, once what is typed is through.
void MainWindowController::showItem(const QListWidgetItem *item)
{
    if (const std::optional<SmartLibrary> smart = _smartLibraries->of(item)) {
        leaveFor([this, smart] { showSmartLibrary(*smart); });
        return;
    }
    const QString name = item ? item->data(Qt::UserRole).toString() : QString();
    if (_library && _library->definition().name == name && !_finder->isSmart())
        return;
    leaveFor([this, name] { showWholeLibrary(name); });
}

void MainWindowController::showWholeLibrary(const QString &name)
{
    const bool wasSmart = _finder->isSmart();
    showLibrary(name);
    if (wasSmart)
        _finder->setShowsFilter(false);
}

void MainWindowController::showSmartLibrary(const SmartLibrary &smart)
{
    const auto library = SmartLibraries::libraryOf(smart, _application->bundle()->libraries());
    if (!library || !openLibrary(library->name))
        return;
    // Its columns and its order are not those that the library is left with.
    _columns->leave();
    const Outcome<> shown = _finder->showSmartLibrary(smart);
    _smartLibraries->select(smart.name);
    search();
    if (!shown)
        tell(tr("The filter of “%1” no longer fits: %2").arg(smart.name, shown.reason()));
}

void MainWindowController::goToLibrary(const QString &name)
{
    if (!_library || _library->definition().name != name)
        leaveFor([this, name] { showLibrary(name); });
}

/// Goes elsewhere, unless what is typed is to stay.
void MainWindowController::leaveFor(const std::function<void()> &elsewhere)
{
    if (_pendingInput->leave(elsewhere))
        return;
    // The list is in the middle of selecting another one.
    NSApplication::performOnNextTurn(this, [this] {
        if (_library)
            selectInList(_library->definition().name);
    });
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
void MainWindowController::showNothing()
{
    mainWindow()->table()->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    mainWindow()->detail()->setFields({});
    _finder->setLibrary(nullptr);
}

void MainWindowController::forget()
{
    if (_finder && isWindowLoaded())
        _finder->keep();
    if (_columns && _library && isWindowLoaded() && _application->remembers())
        _columns->save();
    _tellsFound = false;
    _records.setLibrary(nullptr);
    _model->setLibrary(nullptr);
    if (isWindowLoaded())
        showNothing();
    if (_library)
        QObject::disconnect(_library.get(), nullptr, this, nullptr);
    _library.reset();
}

void MainWindowController::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    forget();
    _awaited.clear();
    _library = library;
    mainWindow()->setWindowTitle(
        library ? tr("%1 – Cobble").arg(printableText(library->definition().name)) : u"Cobble"_s);
    if (!library) {
        showCount();
        return;
    }
    QObject::connect(library.get(), &OpenLibrary::refused, this,
                     [this](const QString &why) { tell(Sentence::of(why)); });
    mainWindow()->detail()->setFields(library->fields());
    _model->setLibrary(library);
    _finder->setLibrary(library);
    _records.setLibrary(library);
    find();
    mainWindow()->fitColumns();
    restoreColumns();
    _records.setSelectionIndex(0);
}

/// As they were left when this library was shown last.
void MainWindowController::restoreColumns()
{
    QStringList keys;
    for (const LibraryField &field : _library->definition().fields)
        keys += field.columnName;
    if (_application->remembers())
        _columns->open(_application->bundle()->bundle().bundlePath() + u' ' +
                           _library->definition().name,
                       keys);
    if (_finder->isSmart())
        _columns->leave();
    _finder->showKept();
    tellUnfit();
}

/// A filter that was kept may ask for what is gone.
void MainWindowController::tellUnfit()
{
    const RecordFilter &filter = _finder->bar()->filter();
    if (filter.problem())
        tell(tr("The filter no longer fits: %1").arg(filter.outcome().reason()));
}

/// When all are found, the selected ones are to be seen.
void MainWindowController::showArranged()
{
    if (!_selection || _records.isArranging())
        return;
    _finder->showResult();
    _selection->reveal();
    uncoverAwaited();
    if (std::exchange(_tellsFound, false))
        tellDone(foundText());
}

void MainWindowController::showCount()
{
    QString text;
    if (_library) {
        const qsizetype shown = _records.count();
        const qsizetype all = _library->recordCount();
        text = shown == all ? Counts::records(all) : Counts::recordsOf(shown, all);
    }
    if (_records.isSlow())
        text = (_records.isFiltering() ? tr("Searching… %1") : tr("Sorting… %1")).arg(text);
    mainWindow()->count()->setText(text);
    mainWindow()->table()->setEmptyText(emptyText());
}

QString MainWindowController::emptyText() const
{
    const bool isEmpty = _library && !_records.isArranging() && _library->recordCount() == 0;
    return isEmpty ? tr("There are no records yet.") : QString();
}

/// So many records are edited without being in memory.
void MainWindowController::showSelection()
{
    mainWindow()->detail()->setManySelected(
        _records.isSelectionInDetail() ? 0 : _records.selectedCount());
}

Outcome<> MainWindowController::changeSelected(qsizetype field, const QVariant &value)
{
    return _library
               ? change([&] { return _library->changeAll(_records.selectedIds(), field, value); })
               : Outcome<>();
}

void MainWindowController::showNotice(const QString &error)
{
    const QString problem = error.isNull() ? _application->bundle()->errorText() : error;
    if (_library)
        mainWindow()->setNotice(QString());
    else if (!problem.isNull())
        mainWindow()->setNotice(Sentence::of(problem));
    else if (_application->bundle()->libraries().isEmpty())
        mainWindow()->setNotice(
            tr("There are no libraries yet.\nFile ▸ Import… makes one of a table or of "
               "address cards."),
            true);
    else
        mainWindow()->setNotice(tr("Choose a library from the list."));
}

void MainWindowController::tell(const QString &message)
{
    mainWindow()->statusBar()->showMessage(IsolatedText::of(printableText(message)), MessageTime);
}

/// Reports it in the middle of the window, too, as soon as the user is with it.
void MainWindowController::tellDone(const QString &message)
{
    tell(message);
    _done = message;
    if (QApplication::activeWindow() == mainWindow())
        showDone();
}

/// Not over dialogs that are still to come.
void MainWindowController::showDone()
{
    if (!dialogQueue().isEmpty())
        return;
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
    return Counts::records(_records.count());
}

void MainWindowController::searchAndTell()
{
    search();
    _tellsFound = _library && _records.isArranging();
    if (_library && !_tellsFound)
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
    if (_library)
        _pendingInput->leave([this] { find(); });
}

void MainWindowController::find()
{
    _searchTimer.stop();
    _finder->apply();
    _records.setSearch(mainWindow()->search()->text());
    _finder->showResult();
}

// --- Menu ---------------------------------------------------------------------------------------

bool MainWindowController::validateMenuItem(QAction *item)
{
    const NSSelector action = NSMenuItem::action(item);
    if (action == NSSelector("showRecordCount:"))
        return _library != nullptr;
    if (action == NSSelector("exportFile:"))
        return _library != nullptr && !isWorking();
    if (action == NSSelector("filterRecords:")) {
        item->setCheckable(true);
        item->setChecked(_finder->showsFilter());
        return _library != nullptr;
    }
    if (action == NSSelector("deleteRecords:"))
        return !_records.selection().isEmpty();
    if (action == NSSelector("undoChange:") || action == NSSelector("redoChange:"))
        return validateStep(item, action == NSSelector("undoChange:"));
    if (action == NSSelector("closeWindow:") || action == NSSelector("importFile:"))
        return !isWorking();
    return true;
}

bool MainWindowController::isWorking() const
{
    return _importSheet.isWorking() || _exportSheet.isWorking();
}

bool MainWindowController::mayClose()
{
    return !isWorking() && (!_pendingInput || _pendingInput->isSettled([this] { close(); }));
}

/// What the window's sheets are doing needs the window, and so does what was rejected.
bool MainWindowController::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Close || mayClose())
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
    if (isWorking())
        return;
    run(&_importSheet);
}

void MainWindowController::importFileAtPath(const QString &path)
{
    if (isWorking())
        return tellDone(tr("Only one import or export at a time: please wait until it is done."));
    _importSheet.propose(path);
    run(&_importSheet);
}

void MainWindowController::lendRecordsToExport()
{
    const bool isArranged =
        !_records.isArranging() && (_records.isFiltering() || !_records.sorts().isEmpty());
    exposeObjectToDialog(isArranged ? QVariant::fromValue(_records.ids()) : QVariant(),
                         ExportSheet::ShownKey);
    exposeObjectToDialog(
        QVariant::fromValue<SharedRecordIds>(std::make_shared<RecordIds>(_records.selectedIds())),
        ExportSheet::SelectedKey);
}

void MainWindowController::exportFile(QAction *)
{
    if (!_library || isWorking())
        return;
    exposeObjectToDialog(_library->definition().name, ExportSheet::LibraryKey);
    lendRecordsToExport();
    run(&_exportSheet);
}

void MainWindowController::queueAfterImport(const QString &libraryName)
{
    _application->bundle()->reload();
    const auto result =
        exposedDialogDatasource().value(ImportSheet::ResultKey).value<ImportResult>();
    if (result.stored.step > 0)
        _steps.add(result.stored.step, result.stored.stepTitle);
    const qsizetype count = result.stored.recordCount;
    addDialogControllerToQueue(&_importSummary);
    if (!_library || _library->definition().name != libraryName)
        addDialogControllerToQueue(&_showLibraryAlert);
    tellDone(
        tr("Imported %1 record(s)", nullptr, Counts::plural(count)).arg(Counts::number(count)));
}

void MainWindowController::findRecords(QAction *)
{
    mainWindow()->search()->setFocus(Qt::ShortcutFocusReason);
    mainWindow()->search()->selectAll();
}

void MainWindowController::filterRecords(QAction *)
{
    _finder->setShowsFilter(!_finder->showsFilter());
}

void MainWindowController::deleteRecords(QAction *)
{
    _pendingInput->leave([this] { deleteSelected(); });
}

void MainWindowController::deleteSelected()
{
    const RecordIds records = _records.selectedIds();
    if (records.empty() || !_library)
        return;
    const Outcome<> removed = change([&] { return _library->removeRecords(records); });
    const auto count = qint64(records.size());
    tell(removed
             ? tr("Deleted %1 record(s)", nullptr, Counts::plural(count)).arg(Counts::number(count))
             : Sentence::of(removed.reason()));
}

// --- Steps --------------------------------------------------------------------------------------

/// Makes changes that this window can undo.
Outcome<> MainWindowController::change(const std::function<Outcome<>()> &changes)
{
    const QScopedValueRollback<bool> changing(_isChanging, true);
    return changes();
}

/// Makes a step after which libraries have other names or fields; the first one makes the bundle.
Outcome<>
MainWindowController::changeLibraries(const StepTitle &title,
                                      const std::function<Outcome<>(StepRecorder &)> &changes)
{
    OpenBundle *const bundle = _application->bundle();
    const Outcome<> changed = bundle->needStore().andThen(
        [&] { return change([&] { return bundle->change(title, changes); }); });
    if (changed)
        bundle->reload();
    return changed;
}

/// Once what is typed is through.
void MainWindowController::moveField(int from, int to)
{
    _pendingInput->leave([this, from, to, library = _library] {
        if (!library || library != _library)
            return;
        const auto change = [this](const StepTitle &title, const auto &changes) {
            return changeLibraries(title, changes);
        };
        const Outcome<> moved = LibrarySteps::moveField(change, library->definition(), from, to);
        if (!moved)
            tell(Sentence::of(moved.reason()));
    });
}

Outcome<> MainWindowController::changeRecords(const std::function<void()> &changes)
{
    return _library ? change([&] { return _library->change(changes); }) : Outcome<>();
}

void MainWindowController::addStep(qint64 step, const StepTitle &title)
{
    if (_isChanging)
        _steps.add(step, title);
}

void MainWindowController::undoChange(QAction *)
{
    if (TextInputs::performInFocused(EditCommand::Undo))
        return;
    _pendingInput->leave([this] {
        const Outcome<> undone = _steps.undo();
        if (!undone)
            tell(undone.reason());
    });
}

void MainWindowController::redoChange(QAction *)
{
    if (TextInputs::performInFocused(EditCommand::Redo))
        return;
    _pendingInput->leave([this] {
        const Outcome<> redone = _steps.redo();
        if (!redone)
            tell(redone.reason());
    });
}

Outcome<> MainWindowController::play(qint64 step, StepPlayer::Direction direction)
{
    const Outcome<StepEffect> played = _application->bundle()->play(step, direction);
    if (!played)
        return played.failure();
    showEffect(*played);
    return {};
}

/// Names the step in the menu.
bool MainWindowController::validateStep(QAction *item, bool isUndo) const
{
    const QWidget *const input = TextInputs::focused();
    const bool isForText =
        input && TextInputs::canDo(input, isUndo ? EditCommand::Undo : EditCommand::Redo);
    const QString made = isUndo ? _steps.undoText() : _steps.redoText();
    const QString step = isForText ? QString() : QString(made).replace(u'&', u"&&"_s);
    if (isUndo)
        item->setText(step.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(step));
    else
        item->setText(step.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(step));
    return isForText || (isUndo ? _steps.canUndo() : _steps.canRedo());
}

/// Shows what has come back, or what has changed.
void MainWindowController::showEffect(const StepEffect &effect)
{
    showLibraryOf(effect);
    if (_library)
        showRecordsWithIds(effect.records.value(_library->definition().tableName));
}

void MainWindowController::showRecordsWithIds(const std::vector<qint64> &ids)
{
    _awaited.clear();
    if (!ids.empty() && !selectRecords(ids))
        uncover(ids);
    else if (_records.isArranging())
        _awaited = ids;
}

/// What hides records goes: the search, and if they still do not show, the filter.
void MainWindowController::uncover(const std::vector<qint64> &ids)
{
    if (!mainWindow()->search()->text().isEmpty())
        mainWindow()->search()->clear();
    else if (_finder->isSmart())
        showWholeLibrary(_library->definition().name);
    else if (!_finder->bar()->text().isEmpty())
        _finder->setShowsFilter(false);
    else
        return;
    search();
    showRecordsWithIds(ids);
}

/// Now it is known whether any of them is shown.
void MainWindowController::uncoverAwaited()
{
    const std::vector<qint64> ids = std::exchange(_awaited, {});
    const bool isShown =
        std::any_of(ids.begin(), ids.end(), [this](qint64 id) { return _records.rowOf(id) >= 0; });
    if (!ids.empty() && !isShown)
        uncover(ids);
}

void MainWindowController::showLibraryOf(const StepEffect &effect)
{
    const QStringList tables = effect.records.keys() + effect.libraries.values();
    if (_library && (tables.isEmpty() || tables.contains(_library->definition().tableName)))
        return;
    const QList<Library> &libraries = _application->bundle()->libraries();
    for (const Library &library : libraries) {
        if (tables.contains(library.tableName)) {
            showLibrary(library.name);
            return;
        }
    }
    if (!_library && !libraries.isEmpty())
        showLibrary(libraries.first().name);
}

/// \return false if none of them is in the table.
bool MainWindowController::selectRecords(const std::vector<qint64> &ids)
{
    if (!_records.selectIds(ids))
        return false;
    _selection->reveal();
    return true;
}

/// Says how many records will change.
void MainWindowController::askForMany(const QString &field, qsizetype count,
                                      const std::function<void(bool)> &answer)
{
    auto *const alert = new NSAlert(tr("Set “%1” of %2 record(s)?", nullptr, Counts::plural(count))
                                        .arg(printableText(field), Counts::number(count)),
                                    tr("Set"), tr("Cancel"), QString(),
                                    tr("All selected records get the same value."));
    alert->beginSheetModalForWindow(mainWindow(), this, [answer](NSAlert *, int returnCode) {
        answer(returnCode == NSAlertDefaultReturn);
    });
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
