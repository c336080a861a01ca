// An hour of use: what somebody does with a table of their own from the first start on, with keys,
// mouse and files, in the locale and at the scale that the environment sets.

#include "Cobble/Window/WindowSupport.h"
#include "DesktopUser.h"
#include "StoredCells.h"

#include "Drops/PictureInput.h"
#include "Editing/PasteProblems.h"
#include "Finding/FilterBar.h"
#include "Finding/FilterRow.h"
#include "Making/NameSheet.h"
#include "Window/FieldDelegate.h"
#include "Window/MediaField.h"

#include <KTUtility/NSLocale>

#include <QClipboard>
#include <QComboBox>
#include <QDebug>
#include <QDialogButtonBox>
#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QInputDialog>
#include <QJsonArray>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace desktop_support;

class DesktopHourTests : public HostWindowTest
{
public:
    /// The columns of the table.
    enum Column { Name, Visits, Paid, Since, Photo };

    DesktopHourTests()
    {
        const QString locale = NSLocale::currentLocale().localeIdentifier();
        for (const QJsonObject &row : testing_support::rowsOf(u"desktop/hours.jsonl"_s)) {
            if (row.value(u"locale").toString() == locale)
                _words = row;
        }
        EXPECT_FALSE(_words.isEmpty()) << locale.toStdString();
    }

    /// What is typed in this locale.
    QString word(const QString &key) const { return _words.value(key).toString(); }

    MainWindow *shown() const { return _window->mainWindow(); }
    RecordTableView *table() const { return shown()->table(); }
    static bool isActive(const QWidget *window)
    {
        return QApplication::activeWindow() == window &&
               QGuiApplication::focusWindow() == window->windowHandle();
    }
    static bool becomesActive(QWidget *window)
    {
        return comes([window] { return isActive(window); });
    }
    static bool becomesActive(KTDialogController *dialog)
    {
        return comes([dialog] { return dialog->isRunningAsDialog(); }) &&
               becomesActive(dialog->window());
    }
    static std::string whereTheKeyboardIs()
    {
        QString text;
        QDebug(&text) << QGuiApplication::applicationState() << QGuiApplication::focusWindow()
                      << QApplication::activeWindow() << QApplication::focusWidget()
                      << QGuiApplication::topLevelWindows();
        return text.toStdString();
    }
    /// A dialog of a class that comes over the window.
    template<typename Dialog>
    static Dialog *dialog()
    {
        const auto active = [] { return qobject_cast<Dialog *>(QApplication::activeWindow()); };
        EXPECT_TRUE(comes([active] { return active() && isActive(active()); }))
            << whereTheKeyboardIs();
        return active();
    }

    /// Presses the button of a dialog that has a role.
    static void pressButton(const QWidget *dialog, QDialogButtonBox::ButtonRole role)
    {
        const auto *const box = dialog->findChild<QDialogButtonBox *>();
        for (QAbstractButton *const button : box->buttons()) {
            if (box->buttonRole(button) == role)
                return click(button);
        }
        FAIL() << "there is no such button";
    }

    bool hasRows(int count) const
    {
        return comes([this, count] {
            return !_window->records()->isArranging() && _window->model()->rowCount() == count;
        });
    }
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QModelIndex cell = _window->model()->index(row, column);
        table()->scrollTo(cell);
        clickAt(table()->viewport(), table()->visualRect(cell).center(), modifiers);
    }
    /// Where something is typed, in the table or elsewhere.
    static QWidget *input() { return QApplication::focusWidget(); }
    bool isEditingCell() const { return input() && table()->viewport()->isAncestorOf(input()); }
    void typeIntoCell(int row, int column, const QString &text) const
    {
        clickCell(row, column);
        pressKey(Qt::Key_F2);
        ASSERT_TRUE(comes([this] { return isEditingCell(); })) << whereTheKeyboardIs();
        typeAnew(text);
        pressKey(Qt::Key_Return);
    }
    /// Brings an editor of the form where it is seen.
    QWidget *formInput(qsizetype field) const
    {
        QWidget *const input = shown()->detail()->editor(field)->input();
        reveal(input);
        return input;
    }
    void reveal(QWidget *part) const
    {
        for (QWidget *around = part->parentWidget(); around; around = around->parentWidget()) {
            if (auto *const scroller = qobject_cast<QScrollArea *>(around))
                scroller->ensureWidgetVisible(part);
        }
    }

    /// Waits until something else is stored than before.
    void stores()
    {
        ASSERT_TRUE(comes([this] { return storedCells(bundle) != _states.last(); }));
        _states += storedCells(bundle);
    }
    bool holds(qsizetype state) const
    {
        return comes([this, state] { return storedCells(bundle) == _states.at(state); });
    }
    /// The records of a library as they are stored.
    QStringList records(const QString &library) const { return storedCells(bundle).value(library); }

    void start();
    void quit();
    void importFirst();
    void editInTheTable();
    void isRefusedInTheTable();
    void isRefusedInTheForm();
    void editInTheForm();
    void sort();
    void search();
    void filterAndKeepTheFilter();
    void addARecord();
    void duplicate();
    void fillDown();
    void pasteRecords();
    void pasteIntoCells();
    void copyAndDelete();
    void addAField();
    void dropAPicture();
    void undoAndRedoAll();
    void dropATable();
    void rename();
    void startAgain();
    void undoFromOutside();
    void compare();

    void startImport(const QString &file);
    void waitForImport();

private:
    QJsonObject _words;
    MainWindowController *_window = nullptr;
    /// What was stored at first, and after each change.
    QList<StoredCells> _states{StoredCells()};
    QRect _place;
};

void DesktopHourTests::start()
{
    application = std::make_unique<DesktopApplication>(bundle, &logger);
    application->newWindow();
    _window = application->windows().last();
    EXPECT_TRUE(becomesActive(shown()));
    EXPECT_EQ(shown()->devicePixelRatioF(),
              qMax(1.0, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble()));
}

void DesktopHourTests::quit()
{
    pressKey(Qt::Key_Q, Qt::ControlModifier);
    ASSERT_TRUE(comes([this] { return application->windows().isEmpty(); }));
    application.reset();
}

// --- Importing ----------------------------------------------------------------------------------

/// The sheet and its summary are answered with Return.
void DesktopHourTests::waitForImport()
{
    pressKey(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(_window->importSummary()));
    stores();
    pressKey(Qt::Key_Return);
}

void DesktopHourTests::importFirst()
{
    tree.add(u"Friends.csv"_s, word(u"file"_s).toUtf8());
    EXPECT_EQ(_window->library(), nullptr);
    click(shown()->importButton());
    ASSERT_TRUE(becomesActive(_window->importSheet()));
    typeText(tree.path(u"Friends.csv"_s));
    waitForImport();
    ASSERT_NE(dialog<QMessageBox>(), nullptr);
    pressKey(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(shown()));
    ASSERT_TRUE(hasRows(5));
    EXPECT_EQ(records(u"Friends"_s).first(), u"1|Ann|1000|1250|2008-03-04T12:00:00-05:00"_s);
}

void DesktopHourTests::dropATable()
{
    tree.add(u"Pets.csv"_s, word(u"dropped"_s).toUtf8());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(tree.path(u"Pets.csv"_s))});
    EXPECT_TRUE(dropOn(table()->viewport(), data));
    ASSERT_TRUE(becomesActive(_window->importSheet()));
    waitForImport();
    ASSERT_NE(dialog<QMessageBox>(), nullptr);
    pressKey(Qt::Key_Escape);
    ASSERT_TRUE(becomesActive(shown()));
    EXPECT_EQ(records(u"Pets"_s), QStringList({u"1|Cat|4.5"_s, u"2|Dog|1030.25"_s}));
}

// --- Editing ------------------------------------------------------------------------------------

void DesktopHourTests::editInTheTable()
{
    typeIntoCell(0, Visits, word(u"visits"_s));
    stores();
    EXPECT_EQ(table()->currentIndex(), _window->model()->index(1, Visits));
}

void DesktopHourTests::isRefusedInTheTable()
{
    typeIntoCell(1, Visits, u"many"_s);
    EXPECT_TRUE(isEditingCell());
    EXPECT_FALSE(input()->accessibleDescription().isEmpty());
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(comes([this] { return !isEditingCell(); }));
    EXPECT_TRUE(holds(_states.size() - 1));
}

void DesktopHourTests::isRefusedInTheForm()
{
    QWidget *const paid = formInput(Paid);
    click(paid);
    typeAnew(u"much"_s);
    pressKey(Qt::Key_Return);
    EXPECT_FALSE(editor(_window, Paid)->problem().isNull());
    clickCell(3, Name);
    ASSERT_NE(dialog<QMessageBox>(), nullptr);
    pressKey(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(shown()));
    EXPECT_EQ(editor(_window, Paid)->text(), u"much"_s);
    EXPECT_EQ(input(), paid);
    clickCell(3, Name);
    QMessageBox *const question = dialog<QMessageBox>();
    ASSERT_NE(question, nullptr);
    pressButton(question, QDialogButtonBox::DestructiveRole);
    ASSERT_TRUE(becomesActive(shown()));
    EXPECT_TRUE(comes([this] { return _window->records()->selectionIndex() == 3; }));
    EXPECT_TRUE(holds(_states.size() - 1));
}

void DesktopHourTests::editInTheForm()
{
    click(formInput(Paid));
    typeAnew(word(u"paid"_s));
    pressKey(Qt::Key_Return);
    stores();
    EXPECT_EQ(editor(_window, Paid)->text(), cell(_window, 3, Paid));
}

void DesktopHourTests::addARecord()
{
    pressKey(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    stores();
    for (const QJsonValue &value : _words.value(u"record").toArray()) {
        ASSERT_TRUE(comes([this] { return isEditingCell(); }));
        typeText(value.toString());
        pressKey(Qt::Key_Tab);
        stores();
    }
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(hasRows(6));
}

void DesktopHourTests::duplicate()
{
    clickCell(5, Name);
    pressKey(Qt::Key_D, Qt::ControlModifier);
    stores();
    ASSERT_TRUE(hasRows(7));
    typeIntoCell(6, Name, u"Gil"_s);
    stores();
}

void DesktopHourTests::fillDown()
{
    clickCell(2, Visits);
    clickCell(4, Visits, Qt::ShiftModifier);
    pressKey(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    stores();
}

void DesktopHourTests::pasteRecords()
{
    QGuiApplication::clipboard()->setText(word(u"pasted"_s));
    clickCell(0, Name);
    pressKey(Qt::Key_V, Qt::ControlModifier);
    auto *const problems = dialog<PasteProblems>();
    ASSERT_NE(problems, nullptr);
    EXPECT_TRUE(holds(_states.size() - 1));
    pressButton(problems, QDialogButtonBox::AcceptRole);
    ASSERT_TRUE(becomesActive(shown()));
    stores();
    EXPECT_TRUE(hasRows(9));
}

void DesktopHourTests::pasteIntoCells()
{
    QGuiApplication::clipboard()->setText(u"Anna"_s);
    clickCell(0, Name);
    pressKey(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    stores();
}

void DesktopHourTests::copyAndDelete()
{
    clickCell(3, Name);
    pressKey(Qt::Key_C, Qt::ControlModifier);
    pressKey(Qt::Key_V, Qt::ControlModifier);
    stores();
    ASSERT_TRUE(hasRows(10));
    clickCell(1, Name);
    pressKey(Qt::Key_Delete);
    stores();
    EXPECT_TRUE(hasRows(9));
}

// --- Finding ------------------------------------------------------------------------------------

void DesktopHourTests::sort()
{
    const QHeaderView *const titles = table()->horizontalHeader();
    const QStringList before = column(_window, Name);
    const auto clickTitle = [titles] {
        const int left = titles->sectionViewportPosition(Visits);
        clickAt(titles->viewport(),
                QPoint(left + titles->sectionSize(Visits) / 2, titles->height() / 2));
    };
    const QStringList byVisits = {u"Bjørn"_s, u"Dan"_s, u"Céline"_s, u"Eve"_s, u"Ann"_s};
    const QStringList backwards(byVisits.rbegin(), byVisits.rend());
    for (const QStringList &order : {byVisits, backwards, before}) {
        clickTitle();
        EXPECT_TRUE(comes([&] { return column(_window, Name) == order; }));
    }
}

void DesktopHourTests::search()
{
    pressKey(Qt::Key_F, Qt::ControlModifier);
    typeText(u"céline"_s);
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(hasRows(1));
    EXPECT_EQ(cell(_window, 0, Name), u"Céline"_s);
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(hasRows(5));
}

void DesktopHourTests::filterAndKeepTheFilter()
{
    pressKey(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(comes([this] { return shown()->filterBar()->isVisible(); }));
    FilterRow *const row = shown()->filterBar()->rows().first();
    EXPECT_EQ(input(), row->valueInput());
    row->fieldBox()->setFocus();
    pressKey(Qt::Key_Down);
    EXPECT_EQ(row->fieldBox()->currentIndex(), Visits);
    row->operatorBox()->setFocus();
    const int greater = row->operatorBox()->findData(int(FilterOperator::Greater));
    ASSERT_GE(greater, 0);
    pressKey(Qt::Key_Home);
    while (row->operatorBox()->currentIndex() < greater)
        pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Tab);
    typeText(word(u"least"_s));
    ASSERT_TRUE(hasRows(1));
    EXPECT_EQ(cell(_window, 0, Name), u"Ann"_s);
    click(shown()->filterBar()->saveButton());
    ASSERT_NE(dialog<QInputDialog>(), nullptr);
    typeAnew(u"Often here"_s);
    pressKey(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(shown()));
    const QListWidget *const libraries = shown()->libraries();
    ASSERT_TRUE(comes([libraries] { return libraries->count() == 2; }));
    EXPECT_EQ(libraries->currentItem()->text().trimmed(), u"Often here"_s);
    clickAt(libraries->viewport(), libraries->visualItemRect(libraries->item(0)).center());
    EXPECT_TRUE(hasRows(5));
    EXPECT_FALSE(shown()->filterBar()->isVisible());
}

// --- Making -------------------------------------------------------------------------------------

void DesktopHourTests::addAField()
{
    chooseItem(shown(), u"newField:"_s);
    const NameSheet *const sheet = dialog<NameSheet>();
    ASSERT_NE(sheet, nullptr);
    typeText(u"Photo"_s);
    pressKey(Qt::Key_Tab);
    pressKey(Qt::Key_End);
    pressKey(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(shown()));
    stores();
    EXPECT_EQ(_window->model()->columnCount(), 5);
}

void DesktopHourTests::dropAPicture()
{
    QImage picture(32, 16, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(tree.path(u"red.png"_s)));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(tree.path(u"red.png"_s))});
    clickCell(0, Name);
    MediaField *const field = shown()->detail()->mediaField(Photo);
    ASSERT_NE(field, nullptr);
    reveal(field);
    EXPECT_TRUE(dropOn(field, data));
    stores();
    EXPECT_EQ(field->picture().size(), QSize(32, 16));
    EXPECT_EQ(testing_support::contentsOf(bundle.mediaFolderPath() + u"/red.0.png"),
              testing_support::contentsOf(tree.path(u"red.png"_s)));
}

void DesktopHourTests::rename()
{
    chooseItem(shown(), u"renameLibrary:"_s);
    ASSERT_NE(dialog<NameSheet>(), nullptr);
    typeAnew(u"Old Friends"_s);
    pressKey(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(shown()));
    stores();
    EXPECT_TRUE(shown()->windowTitle().startsWith(u"Old Friends"));
}

// --- Taking back --------------------------------------------------------------------------------

void DesktopHourTests::undoAndRedoAll()
{
    table()->setFocus();
    for (qsizetype state = _states.size() - 2; state >= 0; --state) {
        pressKey(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_TRUE(holds(state)) << state;
    }
    EXPECT_FALSE(_window->validateMenuItem(menuItem(_window, "undoChange:")));
    EXPECT_EQ(_window->library(), nullptr);
    for (qsizetype state = 1; state < _states.size(); ++state) {
        pressKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(holds(state)) << state;
    }
    EXPECT_FALSE(_window->validateMenuItem(menuItem(_window, "redoChange:")));
    EXPECT_TRUE(hasRows(9));
}

void DesktopHourTests::startAgain()
{
    shown()->setGeometry(70, 90, 860, 620);
    ASSERT_TRUE(comes([this] { return shown()->size() == QSize(860, 620); }));
    _place = shown()->geometry();
    quit();
    start();
    EXPECT_EQ(_window->library()->definition().name, u"Old Friends"_s);
    EXPECT_TRUE(comes([this] { return shown()->geometry() == _place; }));
    EXPECT_TRUE(hasRows(9));
    EXPECT_FALSE(_window->validateMenuItem(menuItem(_window, "undoChange:")));
    typeIntoCell(0, Name, u"Nobody"_s);
    stores();
    pressKey(Qt::Key_Z, Qt::ControlModifier);
    _states.removeLast();
    EXPECT_TRUE(holds(_states.size() - 1));
    quit();
}

/// The history of the windows that are closed is in the database.
void DesktopHourTests::undoFromOutside()
{
    const auto run = [this](const QString &command) {
        return runInProcess({command, u"--bundle"_s, bundle.bundlePath()}).exitCode;
    };
    EXPECT_EQ(run(u"undo"_s), 0);
    EXPECT_TRUE(holds(_states.size() - 2));
    EXPECT_EQ(run(u"redo"_s), 0);
    EXPECT_TRUE(holds(_states.size() - 1));
}

void DesktopHourTests::compare()
{
    const QStringList friends = {
        u"1|Anna|2500|1250|2008-03-04T12:00:00-05:00|cobblemedia://red.0.png"_s,
        u"3|Céline|7|2.5|2008-05-06T12:00:00-04:00|NULL"_s,
        u"4|Dan|7|99.5|2008-03-04T12:00:00-05:00|NULL"_s,
        u"5|Eve|7|5|2008-12-31T12:00:00-05:00|NULL"_s,
        u"6|Finn|1234|99.5|2011-11-05T12:00:00-04:00|NULL"_s,
        u"7|Gil|1234|99.5|2011-11-05T12:00:00-04:00|NULL"_s,
        u"8|Hal|8|NULL|2003-01-02T12:00:00-05:00|NULL"_s,
        u"9|Ida|9|4.25|2003-01-02T12:00:00-05:00|NULL"_s,
        u"10|Dan|7|99.5|2008-03-04T12:00:00-05:00|NULL"_s,
    };
    const StoredCells cells = storedCells(bundle);
    EXPECT_EQ(cells.keys(), QStringList({u"Old Friends"_s, u"Pets"_s}));
    EXPECT_EQ(cells.value(u"Old Friends"_s), friends);
    EXPECT_EQ(cells.value(u"Pets"_s), QStringList({u"1|Cat|4.5"_s, u"2|Dog|1030.25"_s}));
}

TEST_F(DesktopHourTests, EverythingThatWasDoneIsStored)
{
    using Step = void (DesktopHourTests::*)();
    const std::pair<const char *, Step> steps[] = {
        {"start", &DesktopHourTests::start},
        {"import", &DesktopHourTests::importFirst},
        {"edit in the table", &DesktopHourTests::editInTheTable},
        {"refused in the table", &DesktopHourTests::isRefusedInTheTable},
        {"refused in the form", &DesktopHourTests::isRefusedInTheForm},
        {"edit in the form", &DesktopHourTests::editInTheForm},
        {"sort", &DesktopHourTests::sort},
        {"search", &DesktopHourTests::search},
        {"filter", &DesktopHourTests::filterAndKeepTheFilter},
        {"add a record", &DesktopHourTests::addARecord},
        {"duplicate", &DesktopHourTests::duplicate},
        {"fill down", &DesktopHourTests::fillDown},
        {"paste records", &DesktopHourTests::pasteRecords},
        {"paste into cells", &DesktopHourTests::pasteIntoCells},
        {"copy and delete", &DesktopHourTests::copyAndDelete},
        {"add a field", &DesktopHourTests::addAField},
        {"drop a picture", &DesktopHourTests::dropAPicture},
        {"undo and redo all", &DesktopHourTests::undoAndRedoAll},
        {"drop a table", &DesktopHourTests::dropATable},
        {"rename", &DesktopHourTests::rename},
        {"start again", &DesktopHourTests::startAgain},
        {"undo from outside", &DesktopHourTests::undoFromOutside},
        {"compare", &DesktopHourTests::compare},
    };
    for (const auto &[name, step] : steps) {
        (this->*step)();
        ASSERT_FALSE(HasFailure()) << name;
    }
}
