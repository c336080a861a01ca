// A window over more records than are in memory.

#include "SheetSupport.h"

#include "Editing/CopiedRecords.h"
#include "Finding/FilterBar.h"
#include "Finding/NothingFound.h"
#include "Library/SQL.h"
#include "Window/RecordCommands.h"
#include "Window/RecordFinder.h"
#include "Window/RecordSelection.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {
class LargeLibraryTests : public HostSheetTest
{
protected:
    static constexpr int Many = 6000;

    MainWindowController *openMany()
    {
        QByteArray rows = "Name,Visits\n";
        for (int number = 1; number <= Many; ++number)
            rows +=
                "p" + QByteArray::number(number) + "p," + QByteArray::number(Many - number) + '\n';
        import(u"Many.csv"_s, rows);
        return open();
    }
    static bool wait(MainWindowController *window)
    {
        const bool isDone =
            QTest::qWaitFor([window] { return !window->records()->isArranging(); }, 60000);
        QCoreApplication::processEvents();
        return isDone;
    }
    /// Types into the form, and agrees to change so many records.
    void setForMany(FieldEditor *into, const QString &text)
    {
        type(into->input(), text);
        QTest::keyClick(into->input(), Qt::Key_Return);
        turn();
        press(alertBox(), u"Set"_s);
        turn();
    }
    static void click(MainWindowController *window, int column)
    {
        window->mainWindow()->table()->sortByColumn(column, Qt::AscendingOrder);
    }
    static void filter(MainWindowController *window, const QString &text)
    {
        window->finder()->bar()->setText(text);
        window->search();
    }
    /// Does something that the Edit menu has.
    void perform(MainWindowController *window, EditCommand command)
    {
        commands = std::make_unique<RecordCommands>(window);
        commands->perform(command);
        turn();
    }
    static void makeCurrent(MainWindowController *window, int row, int column)
    {
        window->mainWindow()->table()->selectionModel()->setCurrentIndex(
            window->model()->index(row, column), QItemSelectionModel::NoUpdate);
    }
    static QItemSelection inTable(MainWindowController *window)
    {
        return window->mainWindow()->table()->selectionModel()->selection();
    }

    std::unique_ptr<RecordCommands> commands;
};
} // namespace

TEST_F(LargeLibraryTests, RecordsAreReadAsTheyAreShown)
{
    MainWindowController *const window = openMany();
    EXPECT_EQ(window->model()->rowCount(), Many);
    EXPECT_FALSE(window->library()->isInMemory(4500));
    window->mainWindow()->table()->scrollTo(window->model()->index(4499, 0));
    turn();
    EXPECT_EQ(cell(window, 4499, 0), u"p4500p"_s);
    EXPECT_TRUE(window->library()->isInMemory(4500));
    // What was read for every row is not kept.
    for (int row = 0; row < Many; ++row)
        EXPECT_EQ(cell(window, row, 1), QLocale().toString(Many - row - 1));
    EXPECT_FALSE(window->library()->isInMemory(100));
}

TEST_F(LargeLibraryTests, WhatIsSelectedStaysInMemory)
{
    MainWindowController *const window = openMany();
    window->records()->setSelectionIndex(7);
    const QPointer<StoredRecord> selected = window->model()->recordAt(7);
    for (int row = 0; row < Many; row += 3)
        (void)cell(window, row, 0);
    EXPECT_FALSE(selected.isNull());
    EXPECT_EQ(window->model()->recordAt(7), selected.data());
    EXPECT_EQ(editor(window, 0)->text(), u"p8p"_s);
}

TEST_F(LargeLibraryTests, SortingGoesOnBehindTheWindow)
{
    MainWindowController *const window = openMany();
    window->records()->setSelectionIndex(2);
    click(window, 1);
    EXPECT_TRUE(window->records()->isArranging());
    EXPECT_EQ(cell(window, 0, 0), u"p1p"_s);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(cell(window, 0, 0), u"p6000p"_s);
    // The same record is selected, and to be seen.
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({Many - 3}));
    EXPECT_EQ(editor(window, 0)->text(), u"p3p"_s);
    QTableView *const table = window->mainWindow()->table();
    EXPECT_TRUE(table->viewport()->rect().intersects(
        table->visualRect(window->model()->index(Many - 3, 0))));
}

TEST_F(LargeLibraryTests, SearchesTellWhenTheyHaveFoundAll)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->activateWindow();
    search(window, u"p77"_s);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(countIn(window), u"11 of 6,000 records"_s);
    EXPECT_EQ(window->records()->selectionIndex(), 0);
    EXPECT_EQ(editor(window, 0)->text(), u"p77p"_s);
    search(window, QString());
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(countIn(window), u"6,000 records"_s);
    // What was selected in the search still is, and to be seen.
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({76}));
    QTableView *const table = window->mainWindow()->table();
    EXPECT_TRUE(
        table->viewport()->rect().intersects(table->visualRect(window->model()->index(76, 0))));
}

TEST_F(LargeLibraryTests, AllAreSelectedAsOneRange)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->table()->selectAll();
    EXPECT_EQ(window->records()->selectedCount(), Many);
    EXPECT_EQ(inTable(window).size(), 1);
    click(window, 1);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(window->records()->selectedCount(), Many);
    EXPECT_EQ(inTable(window).size(), 1);
    search(window, u"p59"_s);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(window->records()->selectedCount(), window->model()->rowCount());
    EXPECT_EQ(inTable(window).size(), 1);
}

TEST_F(LargeLibraryTests, AScatteredSelectionBecomesItsFirstRecord)
{
    MainWindowController *const window = openMany();
    QList<qsizetype> rows;
    for (qsizetype row = 5; row < Many; row += 3)
        rows += row;
    ASSERT_GT(rows.size(), RecordList::MostRuns);
    window->records()->setSelectionIndexes(rows);
    click(window, 1);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(window->records()->selectedCount(), 1);
    EXPECT_EQ(inTable(window).size(), 1);
}

TEST_F(LargeLibraryTests, TheFormStandsForSoManySelectedRecords)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->table()->selectAll();
    auto *const visits = qobject_cast<QLineEdit *>(editor(window, 1)->input());
    ASSERT_NE(visits, nullptr);
    EXPECT_EQ(visits->placeholderText(), u"Multiple values"_s);
    EXPECT_EQ(visits->text(), QString());
    EXPECT_TRUE(editor(window, 1)->isEnabled());
    type(visits, u"many"_s);
    QTest::keyClick(visits, Qt::Key_Return);
    turn();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_FALSE(editor(window, 1)->problem().isEmpty());
    EXPECT_EQ(stored(1, 1, u"Many"_s), u"5,999"_s);
    window->records()->setSelection(RowRuns::upTo(300));
    setForMany(editor(window, 1), u"5"_s);
    EXPECT_EQ(visits->text(), u"5"_s);
    EXPECT_EQ(cell(window, 0, 1), u"5"_s);
    EXPECT_EQ(cell(window, 299, 1), u"5"_s);
    EXPECT_EQ(cell(window, 300, 1), u"5,699"_s);
    EXPECT_EQ(stored(300, 1, u"Many"_s), u"5"_s);
    window->records()->setSelectionIndex(300);
    EXPECT_EQ(editor(window, 1)->text(), u"5,699"_s);
    window->undoChange();
    EXPECT_EQ(cell(window, 299, 1), u"5,700"_s);
    EXPECT_EQ(window->records()->selectedCount(), 300);
}

TEST_F(LargeLibraryTests, ManyRecordsAreRemovedAtOnce)
{
    MainWindowController *const window = openMany();
    window->records()->setSelection(RowRuns({{10, 999}}));
    EXPECT_TRUE(window->library()->removeRecords(window->records()->selectedIds()));
    EXPECT_EQ(window->model()->rowCount(), Many - 990);
    EXPECT_EQ(cell(window, 10, 0), u"p1001p"_s);
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({10}));
    EXPECT_TRUE(application->bundle()->play(application->bundle()->lastStep()->number,
                                            StepPlayer::Direction::Undo));
    EXPECT_EQ(cell(window, 10, 0), u"p11p"_s);
    EXPECT_EQ(window->model()->rowCount(), Many);
}

TEST_F(LargeLibraryTests, WhatOthersHaveChangedIsReadAgain)
{
    MainWindowController *const window = openMany();
    LibraryStore *const store = application->bundle()->store();
    ASSERT_TRUE(store->beginChange());
    ASSERT_TRUE(store->removeRecord(window->library()->definition(), 2));
    ASSERT_TRUE(store->update(window->library()->definition(), 1, 0, u"Eve"_s));
    ASSERT_TRUE(store->commit());
    EXPECT_EQ(cell(window, 0, 0), u"p1p"_s);
    EXPECT_TRUE(window->library()->refresh({1, 2}));
    EXPECT_EQ(cell(window, 0, 0), u"Eve"_s);
    EXPECT_EQ(cell(window, 1, 0), u"p3p"_s);
    EXPECT_EQ(editor(window, 0)->text(), u"Eve"_s);
}

TEST_F(LargeLibraryTests, AnotherProgramsChangeIsSeenWhenRecordsAreRead)
{
    MainWindowController *const window = openMany();
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(other->beginChange());
    ASSERT_TRUE(other->removeRecord(window->library()->definition(), 1));
    ASSERT_TRUE(other->commit());
    EXPECT_EQ(cell(window, 3000, 0), u"p3001p"_s);
    turn();
    EXPECT_EQ(window->model()->rowCount(), Many - 1);
    EXPECT_EQ(cell(window, 0, 0), u"p2p"_s);
}

TEST_F(LargeLibraryTests, RecordsThatCannotBeReadNowAreReadLater)
{
    MainWindowController *const window = openMany();
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(other->beginChange());
    ASSERT_TRUE(SQL::run(other->database(), u"COMMIT"_s));
    ASSERT_TRUE(SQL::run(other->database(), u"BEGIN EXCLUSIVE"_s));
    EXPECT_EQ(cell(window, 4000, 0), QString());
    ASSERT_TRUE(SQL::run(other->database(), u"ROLLBACK"_s));
    EXPECT_TRUE(QTest::qWaitFor([this, window] { return cell(window, 4000, 0) == u"p4001p"_s; }));
}

TEST_F(LargeLibraryTests, NothingIsCopiedCutOrTypedOverThatCannotBeRead)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->table()->selectAll();
    QGuiApplication::clipboard()->setText(u"before"_s);
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(other->beginChange() && other->commit());
    application->bundle()->store()->setPatience(1);
    ASSERT_TRUE(SQL::run(other->database(), u"BEGIN EXCLUSIVE"_s));
    perform(window, EditCommand::Copy);
    perform(window, EditCommand::Cut);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"before"_s);
    EXPECT_FALSE(window->mainWindow()->statusBar()->currentMessage().isEmpty());
    EXPECT_EQ(window->model()->mimeData({window->model()->index(4000, 0)}), nullptr);
    EXPECT_FALSE(window->model()->take(u"new"_s, window->model()->index(4000, 0)));
    ASSERT_TRUE(SQL::run(other->database(), u"ROLLBACK"_s));
    EXPECT_EQ(window->library()->recordCount(), Many);
    perform(window, EditCommand::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), Many);
}

TEST_F(LargeLibraryTests, ViewsFindNothingWrongWithTheModel)
{
    MainWindowController *const window = openMany();
    const QAbstractItemModelTester tester(window->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const QString &text : {u"p12"_s, u"nobody"_s, u"p5"_s, QString()}) {
        search(window, text);
        ASSERT_TRUE(wait(window));
    }
    click(window, 1);
    ASSERT_TRUE(wait(window));
    EXPECT_TRUE(window->library()->removeRecords(RecordIds{5, 6, 4000}));
    EXPECT_EQ(window->model()->rowCount(), Many - 3);
}

TEST_F(LargeLibraryTests, AnEditorStaysWithItsRecord)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->table()->edit(window->model()->index(1, 0));
    const QPointer<QWidget> line = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<QPlainTextEdit *>(line), nullptr);
    type(line, u"Eve"_s);
    window->model()->sort(1);
    ASSERT_TRUE(wait(window));
    ASSERT_FALSE(line.isNull());
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(stored(2, 0, u"Many"_s), u"Eve"_s);
}

// --- Filters and sums ---------------------------------------------------------------------------

TEST_F(LargeLibraryTests, FiltersGoOnBehindTheWindow)
{
    MainWindowController *const window = openMany();
    filter(window, u"visits < 20 AND NOT name CONTAINS 5990"_s);
    EXPECT_TRUE(window->records()->isArranging());
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(countIn(window), u"19 of 6,000 records"_s);
    EXPECT_EQ(cell(window, 0, 0), u"p5981p"_s);
    search(window, u"P6"_s);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(column(window, 0), QStringList(u"p6000p"_s));
    search(window, QString());
    filter(window, QString());
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(countIn(window), u"6,000 records"_s);
}

TEST_F(LargeLibraryTests, NothingIsSaidToBeMissingWhileItIsLookedFor)
{
    MainWindowController *const window = openMany();
    filter(window, u"visits < 0"_s);
    EXPECT_EQ(window->finder()->nothingFound()->text(), QString());
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(window->finder()->nothingFound()->text(), u"No record fits the filter."_s);
}

TEST_F(LargeLibraryTests, EditedValuesAreFilteredAsTheyAre)
{
    MainWindowController *const window = openMany();
    filter(window, u"visits = 7"_s);
    ASSERT_TRUE(wait(window));
    ASSERT_EQ(column(window, 0), QStringList(u"p5993p"_s));
    EXPECT_TRUE(window->library()->changeAll({1, 2}, 1, 7));
    window->search();
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(column(window, 0), QStringList({u"p1p"_s, u"p2p"_s, u"p5993p"_s}));
}

TEST_F(LargeLibraryTests, TheSumOfAllIsMadeBehindTheWindow)
{
    MainWindowController *const window = openMany();
    const QLabel *const label = window->mainWindow()->summary();
    makeCurrent(window, 0, 1);
    window->mainWindow()->table()->selectAll();
    const bool isSummed =
        QTest::qWaitFor([label] { return label->text().contains(u"Sum"); }, 60000);
    EXPECT_TRUE(isSummed);
    EXPECT_EQ(
        label->text(),
        u"6,000 selected · Visits: Sum 17,997,000 · Average 2,999.5 · Least 0 · Most 5,999"_s);
}

// --- Editing ------------------------------------------------------------------------------------

TEST_F(LargeLibraryTests, ManyAreCopied)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->table()->selectAll();
    perform(window, EditCommand::Copy);
    const auto copied = CopiedRecords::read(
        QGuiApplication::clipboard()->mimeData()->data(CopiedRecords::MimeType));
    ASSERT_TRUE(copied);
    ASSERT_EQ(copied->rows.size(), Many);
    EXPECT_EQ(copied->texts(Many - 1), QStringList({u"p6000p"_s, u"0"_s}));
}

TEST_F(LargeLibraryTests, ManyAreDuplicatedInTheirOrder)
{
    MainWindowController *const window = openMany();
    click(window, 1);
    ASSERT_TRUE(wait(window));
    window->records()->setSelection(RowRuns::upTo(1200));
    perform(window, EditCommand::Duplicate);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(window->library()->recordCount(), Many + 1200);
    EXPECT_EQ(stored(Many + 1, 0, u"Many"_s), u"p6000p"_s);
    EXPECT_EQ(stored(Many + 1200, 0, u"Many"_s), u"p4801p"_s);
    // They are selected where they are sorted to.
    EXPECT_EQ(window->records()->selectedCount(), 1);
    EXPECT_EQ(window->records()->selectedIds(), RecordIds{Many + 1});
    window->undoChange();
    EXPECT_EQ(window->library()->recordCount(), Many);
}

TEST_F(LargeLibraryTests, ManyAreFilledByTheirNumbers)
{
    MainWindowController *const window = openMany();
    makeCurrent(window, 0, 0);
    window->records()->setSelection(RowRuns({{1, 3000}}));
    perform(window, EditCommand::FillDown);
    press(alertBox(), u"Set"_s);
    turn();
    EXPECT_EQ(stored(2, 0, u"Many"_s), u"p2p"_s);
    EXPECT_EQ(stored(3001, 0, u"Many"_s), u"p2p"_s);
    EXPECT_EQ(stored(3002, 0, u"Many"_s), u"p3002p"_s);
    EXPECT_EQ(cell(window, 3000, 0), u"p2p"_s);
}

TEST_F(LargeLibraryTests, ANewRecordIsEditedWhenItIsAtItsPlace)
{
    MainWindowController *const window = openMany();
    window->mainWindow()->activateWindow();
    window->model()->sort(0, Qt::DescendingOrder);
    ASSERT_TRUE(wait(window));
    perform(window, EditCommand::NewRecord);
    ASSERT_TRUE(wait(window));
    turn();
    EXPECT_EQ(window->records()->selectedIds(), RecordIds{Many + 1});
    QWidget *const line = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<QPlainTextEdit *>(line), nullptr);
    QTest::keyClicks(line, u"Eve"_s);
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(stored(Many + 1, 0, u"Many"_s), u"Eve"_s);
}
