// Copying, pasting, duplicating and filling, by the keys that people press.

#include "Window/RecordCommands.h"

#include "Editing/CopiedRecords.h"
#include "Journal/ChangeJournal.h"
#include "SheetSupport.h"
#include "Text/HTMLTable.h"

#include <KTUtility/NSMenuItem>

#include <QClipboard>
#include <QDialog>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTableWidget>

using namespace Qt::StringLiterals;

class RecordCommandsTests : public HostSheetTest
{
protected:
    /// A window with the keyboard in the table, on a cell.
    MainWindowController *openAt(int row, int column)
    {
        MainWindowController *const window = openThings();
        window->mainWindow()->activateWindow();
        turn();
        goTo(window, row, column);
        return window;
    }
    static QTableView *table(MainWindowController *window) { return window->mainWindow()->table(); }
    static void goTo(MainWindowController *window, int row, int column)
    {
        window->mainWindow()->activateWindow();
        turn();
        table(window)->setFocus();
        table(window)->selectionModel()->setCurrentIndex(window->model()->index(row, column),
                                                         QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
    }
    /// Presses keys where the keyboard is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        turn();
    }
    static void undo(MainWindowController *window) { window->undoChange(); }
    static void put(const QString &text) { QGuiApplication::clipboard()->setText(text); }
    static const QMimeData *clipboard() { return QGuiApplication::clipboard()->mimeData(); }
    static QDialog *problems(MainWindowController *window)
    {
        const QList<QDialog *> sheets = window->mainWindow()->findChildren<QDialog *>();
        const auto sheet = std::find_if(sheets.begin(), sheets.end(), [](const QDialog *each) {
            return each->isVisible() && each->findChild<QTableWidget *>();
        });
        return sheet == sheets.end() ? nullptr : *sheet;
    }
    qsizetype steps() const
    {
        const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
        return ChangeJournal(*store).steps()->size();
    }
};

// --- Copying ------------------------------------------------------------------------------------

TEST_F(RecordCommandsTests, CopyTakesTheSelectedRowsInAllForms)
{
    MainWindowController *const window = openAt(0, 0);
    window->records()->setSelectionIndexes({0, 2});
    press(Qt::Key_C);
    EXPECT_EQ(clipboard()->text(), u"Ann\t7\t$5.50\t3/4/2008\tfirst second\n"
                                   u"Céline\t1,000\t$2.00\t5/6/2008\ttall\n"_s);
    EXPECT_TRUE(clipboard()->data(u"text/csv"_s).startsWith("Name,Visits,Paid,Since,Notes\r\n"));
    EXPECT_EQ(HTMLTable::rows(clipboard()->html()).at(1).last(), u"first\nsecond"_s);
    const auto exact = CopiedRecords::read(clipboard()->data(CopiedRecords::MimeType));
    ASSERT_TRUE(exact);
    EXPECT_EQ(exact->rows.size(), 2);
    EXPECT_EQ(exact->bundle, bundle.bundlePath());
}

TEST_F(RecordCommandsTests, CopyCellTakesTheCurrentOne)
{
    openAt(0, 4);
    press(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(clipboard()->text(), u"first\nsecond"_s);
}

TEST_F(RecordCommandsTests, ATextFieldCopiesItsOwn)
{
    MainWindowController *const window = openAt(0, 0);
    for (QWidget *const field : {editor(window, 1)->input(), editor(window, 0)->input(),
                                 static_cast<QWidget *>(window->mainWindow()->search())}) {
        field->setFocus();
        type(field, u"12"_s);
        press(Qt::Key_A);
        press(Qt::Key_C);
        EXPECT_EQ(clipboard()->text(), u"12"_s) << field->metaObject()->className();
        press(Qt::Key_X);
        press(Qt::Key_V);
        press(Qt::Key_V);
        EXPECT_EQ(field->property(qobject_cast<QLineEdit *>(field) ? "text" : "plainText"),
                  u"1212"_s);
        press(Qt::Key_Escape, {});
    }
    EXPECT_EQ(window->library()->recordCount(), 4);
}

TEST_F(RecordCommandsTests, AnInlineEditorHasTheKeysOfTexts)
{
    MainWindowController *const window = openAt(0, 0);
    press(Qt::Key_F2, {});
    type(QApplication::focusWidget(), u"Eve"_s);
    press(Qt::Key_A);
    press(Qt::Key_C);
    EXPECT_EQ(clipboard()->text(), u"Eve"_s);
    press(Qt::Key_V);
    press(Qt::Key_V);
    press(Qt::Key_Return, {});
    EXPECT_EQ(stored(1, 0), u"EveEve"_s);
    EXPECT_EQ(window->library()->recordCount(), 4);
}

TEST_F(RecordCommandsTests, SelectAllSelectsTheRecords)
{
    MainWindowController *const window = openAt(0, 0);
    press(Qt::Key_A);
    EXPECT_EQ(window->records()->selectionIndexes().size(), 4);
}

TEST_F(RecordCommandsTests, CutCopiesAndDeletesInOneStep)
{
    MainWindowController *const window = openAt(0, 0);
    window->records()->setSelectionIndexes({0, 1});
    press(Qt::Key_X);
    EXPECT_EQ(column(window, 0), QStringList({u"Céline"_s, u"Ann"_s}));
    EXPECT_TRUE(clipboard()->text().startsWith(u"Ann\t"));
    EXPECT_EQ(steps(), 2); // With the import.
    undo(window);
    EXPECT_EQ(window->library()->recordCount(), 4);
}

// --- Pasting ------------------------------------------------------------------------------------

TEST_F(RecordCommandsTests, CopiedRecordsArePastedExactly)
{
    MainWindowController *const window = openAt(0, 0);
    press(Qt::Key_C);
    press(Qt::Key_V);
    EXPECT_EQ(window->library()->recordCount(), 5);
    for (int field = 0; field < 5; ++field)
        EXPECT_EQ(stored(5, field), stored(1, field)) << field;
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>{4});
    undo(window);
    EXPECT_EQ(window->library()->recordCount(), 4);
    window->redoChange();
    EXPECT_EQ(stored(5, 4), u"first\nsecond"_s);
}

TEST_F(RecordCommandsTests, TextsGoThroughTheFields)
{
    MainWindowController *const window = openAt(0, 0);
    put(u"Visits\tName\n8\tEve\n1,500\tBob\n"_s);
    press(Qt::Key_V);
    EXPECT_EQ(window->library()->recordCount(), 6);
    EXPECT_EQ(stored(5, 0), u"Eve"_s);
    EXPECT_EQ(stored(6, 1), u"1,500"_s);
    EXPECT_EQ(steps(), 2);
}

TEST_F(RecordCommandsTests, NothingIsStoredBeforeTheRestIsWanted)
{
    MainWindowController *const window = openAt(0, 0);
    put(u"Eve\ta cow\nBob\t2\n"_s);
    press(Qt::Key_V);
    ASSERT_NE(problems(window), nullptr);
    EXPECT_EQ(problems(window)->findChild<QTableWidget *>()->item(0, 2)->text(), u"a cow"_s);
    EXPECT_EQ(window->library()->recordCount(), 4);
    QTest::keyClick(problems(window), Qt::Key_Escape);
    turn();
    EXPECT_EQ(window->library()->recordCount(), 4);
    goTo(window, 0, 0);
    press(Qt::Key_V);
    HostWindowTest::press(problems(window), u"Paste the Rest"_s);
    turn();
    EXPECT_EQ(window->library()->recordCount(), 6);
    EXPECT_EQ(stored(5, 0), u"Eve"_s);
    EXPECT_EQ(stored(5, 1), QString());
    EXPECT_EQ(stored(6, 1), u"2"_s);
}

TEST_F(RecordCommandsTests, CellsArePastedOverOthers)
{
    MainWindowController *const window = openAt(1, 1);
    put(u"5\t$9\n6\t$8\n"_s);
    press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(column(window, 1), QStringList({u"7"_s, u"5"_s, u"6"_s, u"3"_s}));
    EXPECT_EQ(stored(3, 2), u"$8.00"_s);
    EXPECT_EQ(window->library()->recordCount(), 4);
    EXPECT_EQ(steps(), 2);
    undo(window);
    EXPECT_EQ(stored(2, 1), u"-12"_s);
    EXPECT_EQ(stored(3, 2), u"$2.00"_s);
}

TEST_F(RecordCommandsTests, CellsArePastedOverTheRecordsThatWereShown)
{
    MainWindowController *const window = openAt(1, 1);
    put(u"5\na cow\n"_s);
    press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_NE(problems(window), nullptr);
    // Meanwhile the rows become those of others.
    window->records()->setSort(1, Qt::DescendingOrder);
    HostWindowTest::press(problems(window), u"Paste the Rest"_s);
    turn();
    EXPECT_EQ(stored(2, 1), u"5"_s);
    EXPECT_EQ(stored(1, 1), u"7"_s);
    EXPECT_EQ(stored(3, 1), u"1,000"_s);
}

TEST_F(RecordCommandsTests, CellsBelowTheLastRecordAreTold)
{
    MainWindowController *const window = openAt(3, 1);
    put(u"5\n6\n"_s);
    press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_NE(problems(window), nullptr);
    EXPECT_EQ(stored(4, 1), u"3"_s);
    HostWindowTest::press(problems(window), u"Paste the Rest"_s);
    EXPECT_EQ(stored(4, 1), u"5"_s);
}

TEST_F(RecordCommandsTests, RecordsGoToOtherLibraries)
{
    import(u"Animals.csv"_s, "Notes,Name\nold,Cat\n");
    MainWindowController *const window = openAt(0, 0);
    window->showLibrary(u"Things"_s);
    goTo(window, 0, 0);
    press(Qt::Key_C);
    window->showLibrary(u"Animals"_s);
    goTo(window, 0, 0);
    press(Qt::Key_V);
    ASSERT_NE(problems(window), nullptr);
    EXPECT_EQ(problems(window)->findChild<QTableWidget *>()->rowCount(), 3);
    HostWindowTest::press(problems(window), u"Paste the Rest"_s);
    EXPECT_EQ(stored(2, 1, u"Animals"_s), u"Ann"_s);
    EXPECT_EQ(stored(2, 0, u"Animals"_s), u"first\nsecond"_s);
}

TEST_F(RecordCommandsTests, WithoutALibraryNothingCanBeDone)
{
    MainWindowController *const window = open();
    put(u"text"_s);
    const RecordCommands commands(window);
    for (const EditCommand command :
         {EditCommand::Cut, EditCommand::Copy, EditCommand::CopyCell, EditCommand::Paste,
          EditCommand::PasteIntoCells, EditCommand::SelectAll, EditCommand::Duplicate,
          EditCommand::FillDown, EditCommand::NewRecord})
        EXPECT_FALSE(commands.canDo(command)) << int(command);
}

TEST_F(RecordCommandsTests, DuringAnImportNothingIsPasted)
{
    MainWindowController *const window = openAt(0, 0);
    application->bundle()->setBusy(true);
    put(u"Eve\n"_s);
    press(Qt::Key_V);
    application->bundle()->setBusy(false);
    EXPECT_EQ(window->library()->recordCount(), 4);
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().contains(u"import"));
}

// --- Records ------------------------------------------------------------------------------------

TEST_F(RecordCommandsTests, ANewRecordCanBeTypedIntoAtOnce)
{
    MainWindowController *const window = openAt(0, 0);
    search(window, u"ann"_s);
    goTo(window, 0, 0);
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window->library()->recordCount(), 5);
    // A search that hides it is cleared.
    EXPECT_EQ(window->model()->rowCount(), 5);
    QTest::keyClicks(QApplication::focusWidget(), u"Eve"_s);
    press(Qt::Key_Tab, {});
    QTest::keyClicks(QApplication::focusWidget(), u"12"_s);
    press(Qt::Key_Return, {});
    EXPECT_EQ(stored(5, 0), u"Eve"_s);
    EXPECT_EQ(stored(5, 1), u"12"_s);
}

TEST_F(RecordCommandsTests, DuplicatesAreOneStep)
{
    MainWindowController *const window = openAt(0, 0);
    window->records()->setSelectionIndexes({0, 3});
    press(Qt::Key_D);
    EXPECT_EQ(window->library()->recordCount(), 6);
    EXPECT_EQ(stored(5, 4), u"first\nsecond"_s);
    EXPECT_EQ(stored(6, 2), u"-$40.00"_s);
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({4, 5}));
    undo(window);
    EXPECT_EQ(window->library()->recordCount(), 4);
}

TEST_F(RecordCommandsTests, FillDownTakesTheFirstValue)
{
    MainWindowController *const window = openAt(0, 1);
    window->records()->setSelectionIndexes({1, 2, 3});
    table(window)->selectionModel()->setCurrentIndex(window->model()->index(2, 1),
                                                     QItemSelectionModel::NoUpdate);
    press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(column(window, 1), QStringList({u"7"_s, u"-12"_s, u"-12"_s, u"-12"_s}));
    EXPECT_EQ(steps(), 2);
    undo(window);
    EXPECT_EQ(stored(3, 1), u"1,000"_s);
    EXPECT_EQ(stored(4, 1), u"3"_s);
}

TEST_F(RecordCommandsTests, ManyAreFilledAfterAQuestion)
{
    QByteArray rows = "Name,Visits\n";
    for (int number = 1; number <= 30; ++number)
        rows += "N" + QByteArray::number(number) + "," + QByteArray::number(number) + "\n";
    import(u"Many.csv"_s, rows);
    MainWindowController *const window = open();
    window->mainWindow()->activateWindow();
    turn();
    goTo(window, 0, 1);
    window->records()->setSelectionIndexes([] {
        QList<qsizetype> all;
        for (qsizetype row = 0; row < 30; ++row)
            all += row;
        return all;
    }());
    press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_NE(alertBox(), nullptr);
    EXPECT_TRUE(alertBox()->text().contains(u"30 records")) << alertBox()->text().toStdString();
    EXPECT_EQ(stored(30, 1, u"Many"_s), u"30"_s);
    QTest::keyClick(alertBox(), Qt::Key_Return);
    turn();
    EXPECT_EQ(stored(30, 1, u"Many"_s), u"1"_s);
}

TEST_F(RecordCommandsTests, UndoInTheMenuTakesBackWhatIsBeingTyped)
{
    MainWindowController *const window = openAt(0, 0);
    press(Qt::Key_D);
    window->mainWindow()->search()->setFocus();
    QTest::keyClicks(window->mainWindow()->search(), u"x"_s);
    menuItem(window, "undoChange:")->trigger();
    EXPECT_EQ(window->mainWindow()->search()->text(), QString());
    EXPECT_EQ(window->library()->recordCount(), 5);
    window->mainWindow()->table()->setFocus();
    menuItem(window, "undoChange:")->trigger();
    EXPECT_EQ(window->library()->recordCount(), 4);
}

TEST_F(RecordCommandsTests, TheMenuShowsWhatCanBeDone)
{
    MainWindowController *const window = openAt(0, 0);
    const auto isEnabled = [window](const char *name) {
        QAction *const item = menuItem(window, name);
        NSMenuItem::validateMenu(qobject_cast<QMenu *>(item->parent()));
        return item->isEnabled();
    };
    EXPECT_TRUE(isEnabled("copy:"));
    EXPECT_FALSE(isEnabled("fillDown:"));
    window->mainWindow()->search()->setFocus();
    EXPECT_FALSE(isEnabled("copy:"));
    EXPECT_FALSE(isEnabled("pasteIntoCells:"));
    EXPECT_TRUE(isEnabled("newRecord:"));
    window->mainWindow()->libraries()->setFocus();
    EXPECT_FALSE(isEnabled("cut:"));
    EXPECT_TRUE(isEnabled("duplicate:"));
}
