// Filtering, clearing, and what is said of it, in the host's main window.

#include "WindowSupport.h"

#include "Finding/FilterBar.h"
#include "Finding/FilterRow.h"
#include "Finding/NothingFound.h"
#include "Open/OpenBundle.h"
#include "Window/RecordCommands.h"
#include "Window/RecordFinder.h"

#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QStatusBar>

using namespace Qt::StringLiterals;

class RecordFinderTests : public HostWindowTest
{
protected:
    static void filter(MainWindowController *window, const QString &text)
    {
        window->finder()->bar()->setText(text);
        window->search();
    }
    static bool wait(MainWindowController *window)
    {
        const bool isDone =
            QTest::qWaitFor([window] { return !window->records()->isArranging(); }, 60000);
        turn();
        return isDone;
    }
    /// Another program does something with the bundle, which is then read again.
    void doElsewhere(const QStringList &arguments)
    {
        const CommandResult result =
            runInProcess(arguments + QStringList{u"--bundle"_s, bundle.bundlePath()});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        application->bundle()->reload();
        turn();
    }
    static QString summaryIn(MainWindowController *window)
    {
        QLabel *const label = window->mainWindow()->summary();
        for (int tries = 0; tries < 100 && label->text().isEmpty(); ++tries)
            QTest::qWait(10);
        return label->text();
    }
};

TEST_F(RecordFinderTests, TheBarFiltersTogetherWithTheSearch)
{
    MainWindowController *const window = openThings();
    EXPECT_FALSE(window->finder()->showsFilter());
    menuItem(window, "filterRecords:")->trigger();
    EXPECT_TRUE(window->finder()->showsFilter());
    filter(window, u"visits > 0 AND since in 2008"_s);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Céline"_s, u"Ann"_s}));
    EXPECT_EQ(countIn(window), u"3 of 4 records"_s);
    search(window, u"ann"_s);
    EXPECT_EQ(column(window, 1), QStringList({u"7"_s, u"3"_s}));
    filter(window, u"visits > 5"_s);
    EXPECT_EQ(column(window, 1), QStringList(u"7"_s));
    // Nothing is filtered unseen.
    menuItem(window, "filterRecords:")->trigger();
    window->search();
    EXPECT_FALSE(window->finder()->showsFilter());
    EXPECT_EQ(column(window, 1), QStringList({u"7"_s, u"3"_s}));
}

TEST_F(RecordFinderTests, TypingInTheBarFiltersLive)
{
    MainWindowController *const window = openThings();
    menuItem(window, "filterRecords:")->trigger();
    FilterRow *const row = window->finder()->bar()->rows().first();
    row->fieldBox()->setCurrentText(u"Visits"_s);
    row->operatorBox()->setCurrentText(u"is less than"_s);
    QTest::keyClicks(row->valueInput(), u"0"_s);
    for (int tries = 0; tries < 100 && window->model()->rowCount() != 1; ++tries)
        QTest::qWait(10);
    EXPECT_EQ(column(window, 0), QStringList(u"Bjørn"_s));
}

TEST_F(RecordFinderTests, EditedValuesAreFilteredAsTheyAre)
{
    MainWindowController *const window = openThings();
    filter(window, u"notes = purple"_s);
    EXPECT_EQ(window->model()->rowCount(), 0);
    filter(window, QString());
    window->model()->setData(window->model()->index(1, 4), u"purple"_s, Qt::EditRole);
    filter(window, u"notes = purple"_s);
    EXPECT_EQ(column(window, 0), QStringList(u"Bjørn"_s));
}

TEST_F(RecordFinderTests, WhereNothingIsFoundAButtonShowsAll)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    NothingFound *const nothing = window->finder()->nothingFound();
    EXPECT_EQ(nothing->text(), QString());
    search(window, u"zzz"_s);
    EXPECT_EQ(nothing->text(), u"No record fits “zzz”."_s);
    EXPECT_EQ(nothing->size(), window->mainWindow()->table()->viewport()->size());
    filter(window, u"visits = 7"_s);
    EXPECT_EQ(nothing->text(), u"No record fits “zzz” and the filter."_s);
    QTest::mouseClick(nothing->showAllButton(), Qt::LeftButton);
    window->search();
    EXPECT_EQ(window->model()->rowCount(), 4);
    EXPECT_EQ(nothing->text(), QString());
    EXPECT_EQ(window->mainWindow()->search()->text(), QString());
    filter(window, u"visits = 8"_s);
    EXPECT_EQ(nothing->text(), u"No record fits the filter."_s);
}

TEST_F(RecordFinderTests, WhatIsNotFoundIsNotInTheFormEither)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndex(2);
    EXPECT_EQ(editor(window, 0)->text(), u"Céline"_s);
    search(window, u"zzz"_s);
    EXPECT_EQ(editor(window, 0)->text(), QString());
    EXPECT_FALSE(editor(window, 0)->isEnabled());
    search(window, QString());
    filter(window, u"visits > 5000"_s);
    EXPECT_EQ(window->model()->rowCount(), 0);
    EXPECT_EQ(editor(window, 0)->text(), QString());
}

TEST_F(RecordFinderTests, EscapeClearsTheSearch)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    window->mainWindow()->activateWindow();
    search(window, u"tall"_s);
    EXPECT_EQ(window->model()->rowCount(), 1);
    window->mainWindow()->search()->setFocus();
    QTest::keyClick(window->mainWindow()->search(), Qt::Key_Escape);
    EXPECT_EQ(window->mainWindow()->search()->text(), QString());
}

TEST_F(RecordFinderTests, TheSelectedRecordComesIntoSight)
{
    QByteArray rows = "Name\n";
    for (int row = 0; row < 500; ++row)
        rows += "Person " + QByteArray::number(row) + "\n";
    import(u"Many.csv"_s, rows + "Needle\n");
    MainWindowController *const window = open();
    window->mainWindow()->show();
    search(window, u"needle"_s);
    search(window, QString());
    EXPECT_EQ(window->records()->selectionIndex(), 500);
    RecordTableView *const table = window->mainWindow()->table();
    const QRect place = table->visualRect(window->model()->index(500, 0));
    EXPECT_TRUE(table->viewport()->rect().contains(place.center()));
}

TEST_F(RecordFinderTests, TheStatusBarSumsWhatIsSelected)
{
    MainWindowController *const window = openThings();
    QLabel *const label = window->mainWindow()->summary();
    EXPECT_EQ(label->text(), QString());
    RecordTableView *const table = window->mainWindow()->table();
    table->selectAll();
    table->selectionModel()->setCurrentIndex(window->model()->index(0, 1),
                                             QItemSelectionModel::NoUpdate);
    EXPECT_EQ(summaryIn(window),
              u"4 selected · Visits: Sum 998 · Average 249.5 · Least -12 · Most 1,000"_s);
    window->model()->setData(window->model()->index(0, 1), u"8"_s, Qt::EditRole);
    for (int tries = 0; tries < 100 && !label->text().contains(u"999"); ++tries)
        QTest::qWait(10);
    EXPECT_TRUE(label->text().contains(u"Sum 999")) << label->text().toStdString();
    table->selectionModel()->setCurrentIndex(window->model()->index(0, 3),
                                             QItemSelectionModel::NoUpdate);
    for (int tries = 0; tries < 100 && !label->text().contains(u"Since"); ++tries)
        QTest::qWait(10);
    EXPECT_EQ(label->text(), u"4 selected · Since: From 3/4/2008 to 5/6/2008"_s);
    window->records()->setSelectionIndex(0);
    for (int tries = 0; tries < 100 && !label->text().isEmpty(); ++tries)
        QTest::qWait(10);
    EXPECT_EQ(label->text(), QString());
}

TEST_F(RecordFinderTests, AllSelectedIsSortedAndSearchedInNoTime)
{
    QByteArray rows = "Name,Number\n";
    for (int row = 0; row < 20000; ++row)
        rows += "Person " + QByteArray::number((row * 7919) % 20000) + "," +
                QByteArray::number((row * 104729) % 20000) + "\n";
    import(u"Many.csv"_s, rows);
    MainWindowController *const window = open();
    window->mainWindow()->show();
    turn();
    RecordTableView *const table = window->mainWindow()->table();
    EXPECT_FALSE(table->horizontalHeader()->highlightSections());
    table->selectAll();
    const testing_support::ProcessorTime time;
    table->sortByColumn(1, Qt::AscendingOrder);
    turn();
    search(window, u"1"_s);
    search(window, QString());
    EXPECT_TRUE(QTest::qWaitFor([window] { return !window->records()->isArranging(); }, 60000));
    turn();
    EXPECT_EQ(window->records()->count(), 20000);
    EXPECT_LT(time.elapsed(), 8000);
}

// --- What may not show all ----------------------------------------------------------------------

TEST_F(RecordFinderTests, WhatCanBeTypedFilters)
{
    MainWindowController *const window = openThings();
    QString list = u"Visits IN (1000,100001"_s;
    for (int number = 100002; list.size() < 18500; ++number)
        list += u',' + QString::number(number);
    const std::pair<QString, QStringList> rows[] = {
        {list + u')', {u"Céline"_s}},
        {u"NOT Since = 12/31/10000 AND Visits > 5"_s, {u"Ann"_s, u"Céline"_s}},
        {u"Since = 12/31/10000"_s, {}},
        {QString(60, u'!') + u"(Visits = 7 OR Visits = 8)", {u"Ann"_s}},
    };
    for (const auto &[text, names] : rows) {
        filter(window, text);
        EXPECT_EQ(window->finder()->bar()->problem(), QString());
        EXPECT_EQ(column(window, 0), names) << text.left(40).toStdString();
        EXPECT_EQ(window->records()->isFiltering(), true);
    }
}

TEST_F(RecordFinderTests, WhatCannotBeReadFindsNothingAndSaysWhy)
{
    MainWindowController *const window = openThings();
    filter(window, u"vists > 5"_s);
    EXPECT_EQ(window->model()->rowCount(), 0);
    NothingFound *const nothing = window->finder()->nothingFound();
    EXPECT_EQ(nothing->text(), u"The filter cannot be used: “vists”: there is no field “vists”"_s);
    filter(window, u"visitors > 5"_s);
    EXPECT_TRUE(nothing->text().contains(u"“visitors”")) << nothing->text().toStdString();
    QTest::mouseClick(nothing->showAllButton(), Qt::LeftButton);
    window->search();
    EXPECT_EQ(window->model()->rowCount(), 4);
}

TEST_F(RecordFinderTests, AFilterThatTakesTooLongFindsNothingAndSaysWhy)
{
    MainWindowController *const window = openThings();
    ASSERT_TRUE(window->model()->take(QString(40, u'a'), window->model()->index(1, 0)));
    filter(window, u"Name MATCHES \"(a+)+[bc]\""_s);
    // The window does not wait.
    EXPECT_TRUE(window->records()->isArranging());
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(window->model()->rowCount(), 0);
    EXPECT_TRUE(window->finder()->nothingFound()->text().startsWith(
        u"The filter cannot be used: it takes too long "))
        << window->finder()->nothingFound()->text().toStdString();
    filter(window, u"Name MATCHES \"C.*\""_s);
    ASSERT_TRUE(wait(window));
    EXPECT_EQ(column(window, 0), QStringList(u"Céline"_s));
}

// --- When the library is opened anew ------------------------------------------------------------

TEST_F(RecordFinderTests, AnotherProgramsChangeKeepsTheFilter)
{
    MainWindowController *const window = openThings();
    window->finder()->setShowsFilter(true);
    filter(window, u"visits > 0"_s);
    search(window, u"ann"_s);
    ASSERT_EQ(column(window, 1), QStringList({u"7"_s, u"3"_s}));
    doElsewhere({u"new"_s, u"Things"_s, u"--record"_s, u"Name=Anna"_s});
    EXPECT_EQ(countIn(window), u"2 of 5 records"_s);
    EXPECT_EQ(window->finder()->bar()->text(), u"visits > 0"_s);
    EXPECT_TRUE(window->finder()->showsFilter());
    doElsewhere({u"rename"_s, u"Things"_s, u"Besuche"_s, u"--field"_s, u"Visits"_s});
    EXPECT_EQ(countIn(window), u"2 of 5 records"_s);
    EXPECT_EQ(window->finder()->bar()->text(), u"Besuche > 0"_s);
}

TEST_F(RecordFinderTests, AFilterWhoseFieldIsGoneShowsNoRecords)
{
    MainWindowController *const window = openThings();
    filter(window, u"visits > 5"_s);
    doElsewhere({u"field"_s, u"remove"_s, u"Things"_s, u"Visits"_s});
    EXPECT_EQ(countIn(window), u"0 of 4 records"_s);
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().startsWith(
        u"The filter no longer fits: "))
        << window->mainWindow()->statusBar()->currentMessage().toStdString();
    EXPECT_TRUE(window->finder()->bar()->problem().contains(u"“Visits”"));
    EXPECT_TRUE(
        window->finder()->nothingFound()->text().startsWith(u"The filter cannot be used: "));
    doElsewhere({u"undo"_s});
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Céline"_s}));
}

TEST_F(RecordFinderTests, AFilterIsOfItsLibraryOnly)
{
    import(u"Others.csv"_s, Things);
    MainWindowController *const window = openThings();
    window->showLibrary(u"Things"_s);
    filter(window, u"visits > 5"_s);
    window->showLibrary(u"Others"_s);
    EXPECT_EQ(window->model()->rowCount(), 4);
    window->showLibrary(u"Things"_s);
    EXPECT_EQ(window->model()->rowCount(), 4);
    EXPECT_EQ(window->finder()->bar()->text(), QString());
}

// --- What is new --------------------------------------------------------------------------------

TEST_F(RecordFinderTests, AFilterThatHidesANewRecordGoes)
{
    MainWindowController *const window = openThings();
    RecordCommands commands(window);
    for (const QString &text : {u"visits > 5"_s, u"Name MATCHES \"C.*\""_s}) {
        window->finder()->setShowsFilter(true);
        filter(window, text);
        ASSERT_TRUE(wait(window));
        search(window, u"c"_s);
        ASSERT_TRUE(wait(window));
        const qsizetype before = window->library()->recordCount();
        commands.perform(EditCommand::NewRecord);
        turn();
        ASSERT_TRUE(wait(window));
        ASSERT_TRUE(wait(window));
        EXPECT_EQ(window->model()->rowCount(), before + 1) << text.toStdString();
        EXPECT_EQ(window->records()->selectionIndex(), before);
        EXPECT_FALSE(window->finder()->showsFilter());
        EXPECT_EQ(window->mainWindow()->search()->text(), QString());
    }
}

TEST_F(RecordFinderTests, AFilterThatHidesWhatComesBackGoes)
{
    MainWindowController *const window = openThings();
    filter(window, u"visits = 7"_s);
    window->records()->setSelectionIndex(0);
    window->deleteRecords();
    filter(window, u"visits < 0"_s);
    EXPECT_EQ(countIn(window), u"1 of 3 records"_s);
    window->undoChange();
    EXPECT_EQ(countIn(window), u"4 records"_s);
    EXPECT_EQ(window->records()->selectionIndex(), 0);
    // One that shows it stays.
    filter(window, u"visits = 7"_s);
    window->records()->setSelectionIndex(0);
    window->deleteRecords();
    window->undoChange();
    EXPECT_EQ(countIn(window), u"1 of 4 records"_s);
}
