// Finding and ordering records in the host's main window.

#include "../Window/WindowSupport.h"

#include "Records/FoldedText.h"

#include <QHeaderView>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class RecordSearchTests : public HostWindowTest
{
};

TEST_F(RecordSearchTests, SearchingFindsWordsWhateverTheirCaseAndAccents)
{
    MainWindowController *const window = openThings();
    search(window, u"CELINE"_s);
    EXPECT_EQ(column(window, 0), QStringList(u"Céline"_s));
    EXPECT_EQ(countIn(window), u"1 of 4 records"_s);
    EXPECT_EQ(editor(window, 0)->text(), u"Céline"_s);
    search(window, u"ann 2008"_s);
    EXPECT_EQ(column(window, 1), QStringList({u"7"_s, u"3"_s}));
    search(window, u"ann tall"_s);
    EXPECT_EQ(window->model()->rowCount(), 0);
    search(window, u"   "_s);
    EXPECT_EQ(window->model()->rowCount(), 4);
}

TEST_F(RecordSearchTests, SearchingFindsTypedValues)
{
    MainWindowController *const window = openThings();
    search(window, u"April 5, 2008"_s);
    EXPECT_EQ(column(window, 0), QStringList(u"Bjørn"_s));
    search(window, u"1000"_s);
    EXPECT_EQ(column(window, 0), QStringList(u"Céline"_s));
}

TEST_F(RecordSearchTests, SearchingWaitsForMoreLetters)
{
    MainWindowController *const window = openThings();
    QSignalSpy arranged(window->records(), &RecordList::arrangedObjectsChanged);
    type(window->mainWindow()->search(), u"ann"_s);
    EXPECT_EQ(window->model()->rowCount(), 4);
    ASSERT_TRUE(arranged.count() > 0 || arranged.wait());
    EXPECT_EQ(window->model()->rowCount(), 2);
}

TEST_F(RecordSearchTests, SearchingFindsChangedTexts)
{
    MainWindowController *const window = openThings();
    search(window, u"ann"_s);
    window->model()->setData(window->model()->index(0, 4), u"purple"_s, Qt::EditRole);
    search(window, u"purple"_s);
    EXPECT_EQ(window->model()->rowCount(), 1);
}

TEST_F(RecordSearchTests, HostileSearchesFindWhatHoldsTheirWords)
{
    MainWindowController *const window = openThings();
    QStringList rows;
    for (int row = 0; row < 4; ++row) {
        rows += QString();
        for (int column = 0; column < 5; ++column)
            rows.last() += foldedText(
                window->model()->index(row, column).data(Qt::EditRole).toString() + u'|');
    }
    for (const QString &text : testing_support::hostileTexts()) {
        window->mainWindow()->search()->setText(text);
        window->search();
        const QStringList words =
            foldedText(window->mainWindow()->search()->text()).simplified().split(u' ');
        const auto holdsAll = [&words](const QString &row) {
            return std::all_of(words.begin(), words.end(),
                               [&row](const QString &word) { return row.contains(word); });
        };
        EXPECT_EQ(window->model()->rowCount(), std::count_if(rows.begin(), rows.end(), holdsAll))
            << text.left(20).toStdString();
    }
}

TEST_F(RecordSearchTests, HeadersSort)
{
    MainWindowController *const window = openThings();
    QHeaderView *const header = window->mainWindow()->table()->horizontalHeader();
    const auto click = [header](int column) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 10, 5));
    };
    click(1);
    EXPECT_EQ(column(window, 1), QStringList({u"-12"_s, u"3"_s, u"7"_s, u"1,000"_s}));
    // What is selected stays so.
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({2}));
    click(1);
    EXPECT_EQ(cell(window, 0, 1), u"1,000"_s);
    // As the language orders names, not as their codes do.
    window->model()->setData(window->model()->index(0, 0), u"éva"_s, Qt::EditRole);
    window->model()->setData(window->model()->index(1, 0), u"Zoe"_s, Qt::EditRole);
    window->model()->sort(0, Qt::AscendingOrder);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"éva"_s, u"Zoe"_s}));
}

TEST_F(RecordSearchTests, TheOrderGoesWithItsLibrary)
{
    import(u"Animals.csv"_s, "Kind,Legs\nCat,4\nAnt,6\n");
    MainWindowController *const window = openThings();
    window->showLibrary(u"Things"_s);
    window->mainWindow()->table()->sortByColumn(4, Qt::DescendingOrder);
    EXPECT_EQ(cell(window, 0, 4), u"tall"_s);
    window->showLibrary(u"Animals"_s);
    EXPECT_EQ(column(window, 0), QStringList({u"Cat"_s, u"Ant"_s}));
    EXPECT_EQ(window->mainWindow()->table()->horizontalHeader()->sortIndicatorSection(), -1);
}

TEST_F(RecordSearchTests, ALibraryIsOneWhateverItsCase)
{
    MainWindowController *const first = openThings();
    EXPECT_TRUE(first->openLibrary(u"THINGS"_s));
    MainWindowController *const second = open();
    second->showLibrary(u"things"_s);
    EXPECT_EQ(first->library(), second->library());
}
