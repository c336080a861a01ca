#pragma once

#include "Appearance/RememberedColumns.h"
#include "Editing/PendingInput.h"
#include "ExportSheet.h"
#include "ImportSummary.h"
#include "Journal/StepStack.h"
#include "Open/RecordList.h"
#include "RecordCommands.h"
#include "ShowLibraryAlert.h"

#include <KTUtility/KTWindowController>

#include <QAction>
#include <QTimer>

class DesktopApplication;
class DetailPane;
class FieldDragging;
class LibraryActions;
class MainWindow;
class QListWidgetItem;
class RecordFinder;
class RecordSelection;
class RecordTableModel;
class SmartLibraryList;
struct SmartLibrary;
class StoredRecord;

/// A main window: shows the libraries of a bundle and the records of one of them, and lets the user
/// search, edit, import, export and delete. It has a queue of dialogs of its own.
///
/// \code
/// MainWindowController controller(&application);
/// controller.showWindow();
/// controller.showLibrary(u"contacts"_s);
/// \endcode
class MainWindowController : public KTWindowController
{
    Q_OBJECT

public:
    /// \param application must outlive the controller.
    explicit MainWindowController(DesktopApplication *application);
    ~MainWindowController() override;

    MainWindow *mainWindow();
    RecordList *records() { return &_records; }
    RecordTableModel *model() { return _model.get(); }
    ImportSheet *importSheet() { return &_importSheet; }
    ExportSheet *exportSheet() { return &_exportSheet; }
    ImportSummary *importSummary() { return &_importSummary; }
    /// Once the window is loaded.
    RecordFinder *finder() { return _finder.get(); }
    /// The library that is shown; null if there is none.
    const std::shared_ptr<OpenLibrary> &library() const { return _library; }

    /// Shows a library; nil shows none. If that fails, the window says why.
    Outcome<> openLibrary(const QString &name);
    /// The same for those who need not know.
    void showLibrary(const QString &name) { (void)openLibrary(name); }
    /// Shows the records of a smart library. If its filter no longer fits, the window says why, and
    /// shows none.
    void showSmartLibrary(const SmartLibrary &smart);
    /// Once the window is loaded.
    SmartLibraryList *smartLibraries() { return _smartLibraries.get(); }
    /// The same for somebody who may have to finish first what is typed.
    void goToLibrary(const QString &name);
    /// Whether a sheet of the window is importing or exporting, so that it has to stay.
    bool isWorking() const;
    /// Shows the records that the typed text finds.
    void search();

    // --- For what the Edit menu does

    /// Makes changes that this window can undo.
    Outcome<> change(const std::function<Outcome<>()> &changes);
    /// Selects records and scrolls there; a search and a filter that hide them are taken away.
    void showRecordsWithIds(const std::vector<qint64> &ids);
    /// Asks whether so many records may get a value.
    void askForMany(const QString &field, qsizetype count, const std::function<void(bool)> &answer);
    /// Says something in the status bar.
    void tell(const QString &message);
    /// What asks before something rejected is left; once the window is loaded.
    PendingInput *pendingInput() const { return _pendingInput.get(); }

    // --- What the menu sends

    Q_INVOKABLE bool validateMenuItem(QAction *item);
    Q_INVOKABLE void closeWindow(QAction *sender = nullptr);
    Q_INVOKABLE void importFile(QAction *sender = nullptr);
    /// The same, with a file to begin with.
    void importFileAtPath(const QString &path);
    Q_INVOKABLE void exportFile(QAction *sender = nullptr);
    Q_INVOKABLE void findRecords(QAction *sender = nullptr);
    /// Shows the filter bar, or takes it away with its filter.
    Q_INVOKABLE void filterRecords(QAction *sender = nullptr);
    Q_INVOKABLE void undoChange(QAction *sender = nullptr);
    Q_INVOKABLE void redoChange(QAction *sender = nullptr);
    /// Deletes the selected records, without a question: it can be undone.
    Q_INVOKABLE void deleteRecords(QAction *sender = nullptr);
    /// Shows how many records there are, in large type.
    Q_INVOKABLE void showRecordCount(QAction *sender = nullptr);
    Q_INVOKABLE void showAbout(QAction *sender = nullptr);

    void windowDidBecomeKey(const NSNotification &notification) override;
    void windowWillClose(const NSNotification &notification) override;

Q_SIGNALS:
    void closed(MainWindowController *controller);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void loadWindow() override;
    void windowDidLoad() override;

private:
    void run(KTDialogController *dialog);
    void selectInList(const QString &name);
    void listLibraries();
    void fillLibraries();
    QString nameOfShown() const;
    void connectParts();
    void connectDetail(DetailPane *detail);
    void connectSheets();
    void connectFinder();
    void connectSmartLibraries();
    void showItem(const QListWidgetItem *item);
    void connectDrops();
    LibraryActions *makeLibraryActions(MainWindow *window);
    void moveField(int from, int to);
    Outcome<> changeLibraries(const StepTitle &title,
                              const std::function<Outcome<>(StepRecorder &)> &changes);
    void guardInput();
    void leaveFor(const std::function<void()> &elsewhere);
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    void showNothing();
    void forget();
    void lendRecordsToExport();
    void showWholeLibrary(const QString &name);
    void showArranged();
    void showCount();
    void restoreColumns();
    QString emptyText() const;
    void showSelection();
    Outcome<> changeSelected(qsizetype field, const QVariant &value);
    void showNotice(const QString &error);
    void tellDone(const QString &message);
    void showDone();
    void searchAndTell();
    void find();
    bool mayClose();
    void deleteSelected();
    QString foundText() const;
    void queueAfterImport(const QString &libraryName);
    Outcome<> changeRecords(const std::function<void()> &changes);
    Outcome<> play(qint64 step, StepPlayer::Direction direction);
    void addStep(qint64 step, const StepTitle &title);
    bool validateStep(QAction *item, bool isUndo) const;
    void showEffect(const StepEffect &effect);
    void showLibraryOf(const StepEffect &effect);
    bool selectRecords(const std::vector<qint64> &ids);
    void uncover(const std::vector<qint64> &ids);
    void uncoverAwaited();
    void tellUnfit();

    DesktopApplication *_application;
    RecordList _records;
    std::unique_ptr<RecordTableModel> _model;
    std::unique_ptr<RecordSelection> _selection;
    std::unique_ptr<RecordFinder> _finder;
    std::unique_ptr<SmartLibraryList> _smartLibraries;
    RecordCommands _commands{this};
    std::unique_ptr<PendingInput> _pendingInput;
    std::shared_ptr<OpenLibrary> _library;
    std::unique_ptr<RememberedColumns> _columns;
    std::unique_ptr<FieldDragging> _dragging;
    QTimer _searchTimer;
    /// What is done when the records are found that are looked for.
    bool _tellsFound = false;
    /// What is to be shown once it is known which records are.
    std::vector<qint64> _awaited;
    /// What was done and is still to be reported.
    QString _done;
    /// What was done in this window.
    StepStack _steps;
    /// Whether what is being changed was asked for in this window.
    bool _isChanging = false;
    ImportSheet _importSheet;
    ExportSheet _exportSheet;
    ImportSummary _importSummary;
    ShowLibraryAlert _showLibraryAlert;
};
