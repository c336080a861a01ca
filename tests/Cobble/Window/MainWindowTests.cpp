// The main window of the host.

#include "WindowSupport.h"

#include "Editing/EditCommands.h"
#include "Editing/EditResponder.h"
#include "Window/DetailPane.h"
#include "Window/MainMenu.h"

#include <KTUtility/KTWindowManager>
#include <KTUtility/NSMenuItem>

#include <QBrush>
#include <QClipboard>
#include <QFile>
#include <QFocusEvent>
#include <QHeaderView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {
/// Records of which nothing can be made.
class EditNothing : public EditResponder
{
public:
    QWidget *view() const override { return const_cast<QWidget *>(&_view); }
    bool canDo(EditCommand) const override { return false; }
    void perform(EditCommand) override { ADD_FAILURE() << "it cannot be done"; }

private:
    QWidget _view;
};
} // namespace

class MainWindowTests : public HostWindowTest
{
protected:
    /// Whether a text can be read in the window.
    static bool says(MainWindowController *window, const QString &text)
    {
        const QList<QLabel *> labels = window->mainWindow()->findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&text](const QLabel *label) {
            return label->isVisible() && label->text().contains(text);
        });
    }
    /// A connection of another program to the database.
    std::unique_ptr<LibraryStore> otherProgram() const
    {
        return *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    }
};

TEST_F(MainWindowTests, ShowsLibrariesRecordsAndTheForm)
{
    import(u"Animals.csv"_s, "Name\nCat\n");
    MainWindowController *const window = openThings();
    EXPECT_EQ(librariesIn(window), QStringList({u"Animals"_s, u"Things"_s}));
    EXPECT_EQ(window->mainWindow()->windowTitle(), u"Animals – Cobble"_s);
    EXPECT_EQ(countIn(window), u"1 record"_s);
    window->showLibrary(u"Things"_s);
    EXPECT_EQ(window->mainWindow()->libraries()->currentRow(), 1);
    EXPECT_EQ(countIn(window), u"4 records"_s);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
    EXPECT_EQ(column(window, 2), QStringList({u"$5.50"_s, u"$1.00"_s, u"$2.00"_s, u"-$40.00"_s}));
    // The first record is selected.
    EXPECT_EQ(editor(window, 1)->text(), u"7"_s);
    EXPECT_EQ(editor(window, 4)->text(), u"first\nsecond"_s);
}

TEST_F(MainWindowTests, ClickingOnALibraryShowsIt)
{
    import(u"Animals.csv"_s, "Name\nCat\n");
    MainWindowController *const window = openThings();
    QListWidget *const list = window->mainWindow()->libraries();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(window->library()->definition().name, u"Animals"_s);
}

TEST_F(MainWindowTests, WithoutLibrariesItSaysSo)
{
    MainWindowController *const window = open();
    EXPECT_TRUE(librariesIn(window).isEmpty());
    EXPECT_EQ(countIn(window), QString());
    EXPECT_TRUE(says(window, u"no libraries yet"_s));
    EXPECT_FALSE(window->validateMenuItem(menuItem(window, "exportFile:")));
    EXPECT_FALSE(window->validateMenuItem(menuItem(window, "deleteRecords:")));
    // Nothing of this does harm.
    window->exportFile();
    window->deleteRecords();
    window->search();
    window->showLibrary(u"no such"_s);
    EXPECT_EQ(window->library(), nullptr);
}

TEST_F(MainWindowTests, ABundleThatIsAFileIsToldOf)
{
    tree.add(u"b.cobbledb"_s, "no folder");
    MainWindowController *const window = open();
    EXPECT_TRUE(librariesIn(window).isEmpty());
    EXPECT_TRUE(says(window, bundle.bundlePath() + u" is no folder"));
}

TEST_F(MainWindowTests, ADatabaseThatIsNoneIsToldOf)
{
    tree.add(u"b.cobbledb/Contents/Resources/cobble.sql"_s, "");
    QString path = bundle.databaseFilePath();
    testing_support::writeFile(path, QByteArray(4096, 'x'));
    MainWindowController *const window = open();
    EXPECT_TRUE(says(window, u"not a database"_s));
}

// --- Editing ------------------------------------------------------------------------------------

TEST_F(MainWindowTests, CellsReadWhatIsTyped)
{
    MainWindowController *const window = openThings();
    QTableView *const table = window->mainWindow()->table();
    table->edit(window->model()->index(2, 2));
    auto *const line = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), u"$2.00"_s);
    EXPECT_EQ(line->accessibleName(), u"Paid"_s);
    type(line, u"1234.5"_s);
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(cell(window, 2, 2), u"$1,234.50"_s);
    EXPECT_EQ(stored(3, 2), u"$1,234.50"_s);
}

TEST_F(MainWindowTests, ACellThatCannotBeReadStaysOpen)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->table()->edit(window->model()->index(0, 1));
    QPointer<QWidget> line = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<QLineEdit *>(line), nullptr);
    type(line, u"many"_s);
    QTest::keyClick(line, Qt::Key_Return);
    turn();
    ASSERT_FALSE(line.isNull());
    EXPECT_TRUE(line->isVisible());
    EXPECT_FALSE(line->accessibleDescription().isEmpty());
    QTest::keyClick(line, Qt::Key_Escape);
    turn();
    EXPECT_EQ(cell(window, 0, 1), u"7"_s);
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

TEST_F(MainWindowTests, ACellLeftWithSomethingUnreadableStaysOpenAndSaysWhy)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    turn();
    window->mainWindow()->table()->edit(window->model()->index(0, 1));
    const QPointer<QWidget> line = QApplication::focusWidget();
    type(line, u"many"_s);
    window->mainWindow()->search()->setFocus();
    turn();
    ASSERT_FALSE(line.isNull());
    EXPECT_TRUE(line->isVisible());
    EXPECT_TRUE(says(window, u"The text is no number, or has something else in it."_s));
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

TEST_F(MainWindowTests, CellsWithLineBreaksKeepThem)
{
    MainWindowController *const window = openThings();
    EXPECT_EQ(cell(window, 0, 4), u"first…"_s);
    window->mainWindow()->table()->edit(window->model()->index(0, 4));
    auto *const lines = qobject_cast<QPlainTextEdit *>(QApplication::focusWidget());
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(lines->toPlainText(), u"first\nsecond"_s);
    lines->moveCursor(QTextCursor::End);
    QTest::keyClick(lines, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(lines, u"third"_s);
    QTest::keyClick(lines, Qt::Key_Return);
    EXPECT_EQ(stored(1, 4), u"first\nsecond\nthird"_s);
}

TEST_F(MainWindowTests, AnEmptyCellIsNoValue)
{
    MainWindowController *const window = openThings();
    EXPECT_TRUE(window->model()->setData(window->model()->index(0, 3), QString(), Qt::EditRole));
    EXPECT_EQ(cell(window, 0, 3), QString());
    EXPECT_EQ(stored(1, 3), QString());
}

TEST_F(MainWindowTests, NumbersStandAtTheRightAndNegativeAmountsMayHaveAColour)
{
    MainWindowController *const window = openThings();
    const auto alignment = [window](int column) {
        return window->model()->index(0, column).data(Qt::TextAlignmentRole).toInt();
    };
    EXPECT_TRUE(alignment(1) & Qt::AlignRight);
    EXPECT_TRUE(alignment(2) & Qt::AlignRight);
    EXPECT_TRUE(alignment(0) & Qt::AlignLeft);
    EXPECT_TRUE(alignment(3) & Qt::AlignLeft);
    const auto colour = [window](int row, int column) {
        return window->model()->index(row, column).data(Qt::ForegroundRole).value<QBrush>().color();
    };
    EXPECT_EQ(colour(1, 1), QColor(Qt::red));
    EXPECT_EQ(colour(3, 2), QColor(Qt::red));
    EXPECT_FALSE(window->model()->index(0, 1).data(Qt::ForegroundRole).isValid());
}

TEST_F(MainWindowTests, TheFormReadsWhatIsTyped)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndex(1);
    FieldEditor *const since = editor(window, 3);
    type(since->input(), u"March 5, 2010"_s);
    EXPECT_TRUE(since->isEdited());
    QTest::keyClick(since->input(), Qt::Key_Return);
    EXPECT_EQ(since->text(), u"3/5/2010"_s);
    EXPECT_EQ(cell(window, 1, 3), u"3/5/2010"_s);
    EXPECT_EQ(stored(2, 3), u"3/5/2010"_s);
}

TEST_F(MainWindowTests, TheFormSaysWhatItCannotRead)
{
    MainWindowController *const window = openThings();
    FieldEditor *const visits = editor(window, 1);
    type(visits->input(), u"12abc"_s);
    QTest::keyClick(visits->input(), Qt::Key_Return);
    EXPECT_EQ(visits->problem(), u"The text is no number, or has something else in it."_s);
    EXPECT_EQ(visits->input()->accessibleDescription(), visits->problem());
    // What was typed is still there, and the value is what it was.
    EXPECT_EQ(visits->text(), u"12abc"_s);
    EXPECT_EQ(stored(1, 1), u"7"_s);
    QTest::keyClick(visits->input(), Qt::Key_Escape);
    EXPECT_EQ(visits->text(), u"7"_s);
    EXPECT_TRUE(visits->problem().isNull());
}

TEST_F(MainWindowTests, LeavingAnEditorCommits)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    editor(window, 0)->input()->setFocus();
    turn();
    type(editor(window, 0)->input(), u"Anne"_s);
    EXPECT_EQ(stored(1, 0), u"Ann"_s);
    QTest::keyClick(editor(window, 0)->input(), Qt::Key_Tab);
    EXPECT_EQ(stored(1, 0), u"Anne"_s);
    EXPECT_EQ(QApplication::focusWidget(), editor(window, 1)->input());
}

TEST_F(MainWindowTests, SeveralRecordsAreEditedAtOnce)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->table()->selectAll();
    EXPECT_EQ(window->records()->selectionIndexes().size(), 4);
    EXPECT_EQ(editor(window, 0)->text(), QString());
    auto *const visits = qobject_cast<QLineEdit *>(editor(window, 1)->input());
    EXPECT_EQ(visits->placeholderText(), u"Multiple values"_s);
    type(visits, u"5"_s);
    QTest::keyClick(visits, Qt::Key_Return);
    EXPECT_EQ(column(window, 1), QStringList(4, u"5"_s));
    EXPECT_EQ(stored(4, 1), u"5"_s);
    EXPECT_EQ(visits->text(), u"5"_s);
}

TEST_F(MainWindowTests, WithoutASelectionTheFormIsEmpty)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->table()->clearSelection();
    EXPECT_EQ(editor(window, 0)->text(), QString());
    EXPECT_FALSE(editor(window, 0)->isEnabled());
    window->records()->setSelectionIndex(2);
    EXPECT_EQ(editor(window, 0)->text(), u"Céline"_s);
    EXPECT_TRUE(editor(window, 0)->isEnabled());
    EXPECT_TRUE(window->mainWindow()->table()->selectionModel()->isRowSelected(2, {}));
}

TEST_F(MainWindowTests, WhatTheDatabaseRejectsIsNotShown)
{
    MainWindowController *const window = openThings();
    const auto store = otherProgram();
    ASSERT_TRUE(store->beginChange());
    application->bundle()->store()->setPatience(1);
    type(editor(window, 0)->input(), u"Anne"_s);
    QTest::keyClick(editor(window, 0)->input(), Qt::Key_Return);
    turn();
    EXPECT_EQ(cell(window, 0, 0), u"Ann"_s);
    // What was typed is not lost.
    EXPECT_EQ(editor(window, 0)->text(), u"Anne"_s);
    EXPECT_TRUE(editor(window, 0)->problem().contains(u"locked"))
        << editor(window, 0)->problem().toStdString();
    store->rollback();
    QTest::keyClick(editor(window, 0)->input(), Qt::Key_Return);
    EXPECT_EQ(cell(window, 0, 0), u"Anne"_s);
    EXPECT_EQ(stored(1, 0), u"Anne"_s);
}

TEST_F(MainWindowTests, WhatAnotherProgramHasReplacedIsNotWrittenOver)
{
    MainWindowController *const window = openThings();
    tree.add(u"New.csv"_s, "Name,Visits\nYan,1\n");
    ASSERT_EQ(runInProcess({u"import"_s, tree.path(u"New.csv"_s), u"--library"_s, u"Things"_s,
                            u"--replace"_s, u"--bundle"_s, bundle.bundlePath()})
                  .exitCode,
              0);
    const QString reason = window->model()->take(u"Anne"_s, window->model()->index(0, 0)).reason();
    EXPECT_TRUE(reason.contains(u"another program")) << reason.toStdString();
    EXPECT_EQ(stored(1, 0), u"Yan"_s);
    turn();
    EXPECT_EQ(column(window, 0), QStringList(u"Yan"_s));
}

TEST_F(MainWindowTests, SeveralRecordsChangeAllOrNotAtAll)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->table()->selectAll();
    // The last one is deleted, in a way that nobody can see.
    LibraryStore *const store = application->bundle()->store();
    ASSERT_TRUE(store->removeRecord(window->library()->definition(), 4));
    type(editor(window, 1)->input(), u"5"_s);
    QTest::keyClick(editor(window, 1)->input(), Qt::Key_Return);
    turn();
    EXPECT_EQ(editor(window, 1)->problem(), u"The record is no longer there."_s);
    EXPECT_EQ(column(window, 1), QStringList({u"7"_s, u"-12"_s, u"1,000"_s, u"3"_s}));
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

TEST_F(MainWindowTests, WhatIsBeingTypedStaysWhenOtherRecordsGo)
{
    MainWindowController *const first = openThings();
    MainWindowController *const second = open();
    type(editor(first, 0)->input(), u"half ty"_s);
    EXPECT_TRUE(second->library()->removeRecords({second->model()->recordAt(3)->id()}));
    EXPECT_EQ(editor(first, 0)->text(), u"half ty"_s);
    first->records()->setSelectionIndex(1);
    EXPECT_EQ(editor(first, 0)->text(), u"Bjørn"_s);
}

TEST_F(MainWindowTests, SpacesThatDoNotBreakStay)
{
    MainWindowController *const window = openThings();
    const QString text = u"price\u00A05 EUR\u2028more"_s;
    ASSERT_TRUE(window->model()->take(text, window->model()->index(1, 4)));
    window->records()->setSelectionIndex(1);
    EXPECT_EQ(editor(window, 4)->text(), text);
    QTest::keyClick(editor(window, 4)->input(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(editor(window, 4)->input(), Qt::Key_Exclam, Qt::NoModifier);
    QTest::keyClick(editor(window, 4)->input(), Qt::Key_Return);
    EXPECT_EQ(stored(2, 4), QString(text + u'!'));
}

TEST_F(MainWindowTests, AMenuOverAnEditorCommitsNothing)
{
    MainWindowController *const window = openThings();
    type(editor(window, 1)->input(), u"1234"_s);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(editor(window, 1)->input(), &menu);
    EXPECT_EQ(stored(1, 1), u"7"_s);
    QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(editor(window, 1)->input(), &leaving);
    EXPECT_EQ(stored(1, 1), u"1,234"_s);
}

TEST_F(MainWindowTests, TitlesMayHoldAmpersands)
{
    import(u"Odd.csv"_s, "R&D\n5\n");
    MainWindowController *const window = open();
    EXPECT_TRUE(says(window, u"R&&D:"_s));
    EXPECT_EQ(editor(window, 0)->input()->accessibleName(), u"R&D"_s);
}

TEST_F(MainWindowTests, NothingIsWrittenDuringAnImport)
{
    MainWindowController *const window = openThings();
    application->bundle()->setBusy(true);
    window->model()->setData(window->model()->index(0, 0), u"Anne"_s, Qt::EditRole);
    EXPECT_EQ(cell(window, 0, 0), u"Ann"_s);
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().contains(u"import"));
    EXPECT_FALSE(application->validateMenuItem(menuItem(window, "terminate:")));
    application->bundle()->setBusy(false);
    EXPECT_TRUE(application->validateMenuItem(menuItem(window, "terminate:")));
}

// --- Windows ------------------------------------------------------------------------------------

TEST_F(MainWindowTests, TwoWindowsShareTheRecordsAndNothingElse)
{
    MainWindowController *const first = openThings();
    MainWindowController *const second = open();
    EXPECT_EQ(second->library(), first->library());
    second->records()->setSelectionIndex(2);
    EXPECT_EQ(first->records()->selectionIndex(), 0);
    search(second, u"ann"_s);
    EXPECT_EQ(first->model()->rowCount(), 4);
    second->model()->setData(second->model()->index(0, 0), u"Anne"_s, Qt::EditRole);
    EXPECT_EQ(cell(first, 0, 0), u"Anne"_s);
    EXPECT_EQ(editor(first, 0)->text(), u"Anne"_s);
    first->importFile();
    turn();
    EXPECT_TRUE(first->continueRunningQueue());
    EXPECT_FALSE(second->continueRunningQueue());
    first->importSheet()->endDialog();
    turn();
}

TEST_F(MainWindowTests, TheLastWindowThatClosesEndsTheProgram)
{
    MainWindowController *const first = openThings();
    open();
    QSignalSpy ended(application.get(), &DesktopApplication::lastWindowClosed);
    first->closeWindow();
    turn();
    EXPECT_EQ(application->windows().size(), 1);
    EXPECT_EQ(ended.count(), 0);
    EXPECT_EQ(KTWindowManager::sharedWindowManager()->mainWindowArray().size(), 1);
    menuItem(application->windows().first(), "terminate:")->trigger();
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(MainWindowTests, AWindowMayCloseUnderItsSheet)
{
    MainWindowController *const window = openThings();
    window->importFile();
    turn();
    QPointer<QWidget> sheet = window->importSheet()->window();
    window->closeWindow();
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
    EXPECT_TRUE(sheet.isNull());
}

TEST_F(MainWindowTests, TheMenuOpensWindows)
{
    openThings();
    menuItem(application->windows().first(), "newWindow:")->trigger();
    EXPECT_EQ(application->windows().size(), 2);
}

TEST_F(MainWindowTests, LevelsAreChosenUnderHelp)
{
    MainWindowController *const window = openThings();
    auto *const logging = window->mainWindow()->findChild<QMenu *>(u"logging"_s);
    ASSERT_NE(logging, nullptr);
    const auto items = logging->actions();
    const auto component = std::find_if(items.begin(), items.end(), [](const QAction *item) {
        return NSMenuItem::title(item) == QString(kLog_FormattersNumbers);
    });
    ASSERT_NE(component, items.end());
    QAction *const five = (*component)->menu()->actions().at(2);
    EXPECT_EQ(NSMenuItem::title(five), u"5"_s);
    five->trigger();
    EXPECT_EQ(logger.levelOfComponent(kLog_FormattersNumbers), 5);
    EXPECT_TRUE(five->isChecked());
}

TEST_F(MainWindowTests, OpeningAWindowWritesNoLogSettings)
{
    openThings();
    EXPECT_FALSE(QFile::exists(logger.userFile()));
    EXPECT_FALSE(logger.components().has_value());
}

TEST_F(MainWindowTests, TheLoggingMenuIsOffWhereItCannotSave)
{
    qputenv("HOME", "/proc/nohome");
    KTLogger unsaved;
    QMainWindow window;
    QObject target;
    EditNothing nothing;
    MainMenu::add(&window, &target, &target, &target, &unsaved, EditCommands(&nothing));
    auto *const logging = window.findChild<QMenu *>(u"logging"_s);
    Q_EMIT logging->aboutToShow();
    for (const QAction *const item : logging->actions())
        EXPECT_EQ(item->isEnabled(), unsaved.components().has_value());
    testing_support::useFreshHome();
}

TEST_F(MainWindowTests, AShortcutWorksAgainAfterItWasRejected)
{
    MainWindowController *const window = openThings();
    QAction *const item = menuItem(window, "deleteRecords:");
    search(window, u"tall"_s);
    item->trigger();
    EXPECT_EQ(countIn(window), u"0 of 3 records"_s);
    item->trigger();
    search(window, QString());
    item->trigger();
    EXPECT_EQ(countIn(window), u"2 records"_s);
}

TEST_F(MainWindowTests, EverythingHasANameForScreenReaders)
{
    MainWindowController *const window = openThings();
    const MainWindow *const shown = window->mainWindow();
    for (const QWidget *const part : {static_cast<const QWidget *>(shown->libraries()),
                                      static_cast<const QWidget *>(shown->table()),
                                      static_cast<const QWidget *>(shown->search()),
                                      static_cast<const QWidget *>(editor(window, 0)->input())})
        EXPECT_FALSE(part->accessibleName().isEmpty()) << part->metaObject()->className();
    EXPECT_EQ(editor(window, 1)->input()->accessibleName(), u"Visits"_s);
}

TEST_F(MainWindowTests, HostileTextsAreShown)
{
    import(u"Odd.csv"_s, "Name,Text\n\"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D\",\"%d %@ 100%\"\n\"" +
                             QByteArray(1 << 20, 'w') + "\",<b>bold</b>\n");
    MainWindowController *const window = open();
    EXPECT_EQ(cell(window, 0, 1), u"%d %@ 100%"_s);
    EXPECT_LT(cell(window, 1, 0).size(), 400);
    window->records()->setSelectionIndex(1);
    EXPECT_EQ(editor(window, 0)->text().size(), 1 << 20);
    EXPECT_EQ(editor(window, 1)->text(), u"<b>bold</b>"_s);
    EXPECT_FALSE(window->mainWindow()->grab().isNull());
}

TEST_F(MainWindowTests, PastedTextsMayBeLongToo)
{
    MainWindowController *const window = openThings();
    QGuiApplication::clipboard()->setText(testing_support::megabyteOf(u"w"_s));
    auto *const lines = qobject_cast<QPlainTextEdit *>(editor(window, 4)->input());
    lines->paste();
    EXPECT_GT(editor(window, 4)->text().size(), 1 << 20);
    EXPECT_FALSE(window->mainWindow()->grab().isNull());
}
