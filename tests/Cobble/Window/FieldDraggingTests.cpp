#include "Window/FieldDragging.h"

#include "SheetSupport.h"

#include <QHeaderView>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {
class FieldDraggingTests : public HostSheetTest
{
protected:
    static QHeaderView *header(MainWindowController *window)
    {
        return window->mainWindow()->table()->horizontalHeader();
    }
    /// What the table shows, as its columns stand.
    static QStringList titles(MainWindowController *window)
    {
        QStringList titles;
        for (int place = 0; place < header(window)->count(); ++place)
            titles += window->model()
                          ->headerData(header(window)->logicalIndex(place), Qt::Horizontal)
                          .toString();
        return titles;
    }
    static QStringList fields(MainWindowController *window)
    {
        QStringList titles;
        for (const LibraryField &each : window->library()->definition().fields)
            titles += each.title();
        return titles;
    }
    const QStringList all{u"Name"_s, u"Visits"_s, u"Paid"_s, u"Since"_s, u"Notes"_s};
    const QStringList moved{u"Paid"_s, u"Name"_s, u"Visits"_s, u"Since"_s, u"Notes"_s};
};
} // namespace

TEST_F(FieldDraggingTests, ADraggedColumnMovesItsField)
{
    MainWindowController *const window = openThings();
    MainWindowController *const other = open();
    header(window)->moveSection(2, 0);
    turn();
    for (MainWindowController *const each : {window, other}) {
        EXPECT_EQ(fields(each), moved);
        EXPECT_EQ(titles(each), moved);
    }
    EXPECT_EQ(cell(window, 0, 0), u"$5.50"_s);
    window->validateMenuItem(menuItem(window, "undoChange:"));
    EXPECT_EQ(menuItem(window, "undoChange:")->text(), u"&Undo Move Field “Paid”"_s);
    window->undoChange();
    turn();
    EXPECT_EQ(fields(window), all);
    EXPECT_EQ(titles(window), all);
    window->redoChange();
    turn();
    EXPECT_EQ(titles(window), moved);
}

TEST_F(FieldDraggingTests, AColumnThatIsPutBackMovesNothing)
{
    MainWindowController *const window = openThings();
    header(window)->moveSection(2, 0);
    header(window)->moveSection(0, 2);
    turn();
    EXPECT_EQ(titles(window), all);
    EXPECT_FALSE(window->validateMenuItem(menuItem(window, "undoChange:")));
}

TEST_F(FieldDraggingTests, GoesBackIfTheFieldCannotMove)
{
    MainWindowController *const window = openThings();
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(store->update(*store->libraryNamed(u"Things"_s), 1, 0, u"Anna"_s));
    header(window)->moveSection(2, 0);
    turn();
    EXPECT_EQ(titles(window), all);
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().startsWith(
        u"Another program has changed the database"_s));
    EXPECT_EQ(fields(window), all);
}

TEST_F(FieldDraggingTests, CopiesAndFilesHaveTheOrderThatIsSeen)
{
    MainWindowController *const window = openThings();
    header(window)->moveSection(2, 0);
    turn();
    const Outcome<CopiedRecords> copied = window->model()->copied(RowRuns::of({0}));
    ASSERT_TRUE(copied);
    EXPECT_EQ(copied->fields.first().title, u"Paid"_s);
    const CommandResult exported =
        runInProcess({u"show"_s, u"Things"_s, u"--bundle"_s, bundle.bundlePath()});
    EXPECT_TRUE(exported.output.indexOf(u"Paid"_s) < exported.output.indexOf(u"Name"_s));
}
