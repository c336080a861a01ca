// Finding and ordering records in the host's main window.

#include "WindowSupport.h"

#include <QHeaderView>
#include <QSignalSpy>

class SearchTest : public HostWindowTest
{
};

TEST_F(SearchTest, SearchingFindsWordsWhateverTheirCaseAndAccents)
{
    MainWindowController *const window = openThings();
    search(window, QStringLiteral("CELINE"));
    EXPECT_EQ(column(window, 0), QStringList(QStringLiteral("Céline")));
    EXPECT_EQ(countIn(window), QStringLiteral("1 of 4 records"));
    EXPECT_EQ(editor(window, 0)->text(), QStringLiteral("Céline"));
    search(window, QStringLiteral("ann 2008"));
    EXPECT_EQ(column(window, 1), QStringList({QStringLiteral("7"), QStringLiteral("3")}));
    search(window, QStringLiteral("ann tall"));
    EXPECT_EQ(window->model()->rowCount(), 0);
    search(window, QStringLiteral("   "));
    EXPECT_EQ(window->model()->rowCount(), 4);
}

TEST_F(SearchTest, SearchingFindsTypedValues)
{
    MainWindowController *const window = openThings();
    search(window, QStringLiteral("April 5, 2008"));
    EXPECT_EQ(column(window, 0), QStringList(QStringLiteral("Bjørn")));
    search(window, QStringLiteral("1000"));
    EXPECT_EQ(column(window, 0), QStringList(QStringLiteral("Céline")));
}

TEST_F(SearchTest, SearchingWaitsForMoreLetters)
{
    MainWindowController *const window = openThings();
    QSignalSpy arranged(window->records(), &NSArrayController::arrangedObjectsChanged);
    type(window->mainWindow()->search(), QStringLiteral("ann"));
    EXPECT_EQ(window->model()->rowCount(), 4);
    ASSERT_TRUE(arranged.count() > 0 || arranged.wait());
    EXPECT_EQ(window->model()->rowCount(), 2);
}

TEST_F(SearchTest, SearchingFindsChangedTexts)
{
    MainWindowController *const window = openThings();
    search(window, QStringLiteral("ann"));
    window->model()->setData(window->model()->index(0, 4), QStringLiteral("purple"), Qt::EditRole);
    search(window, QStringLiteral("purple"));
    EXPECT_EQ(window->model()->rowCount(), 1);
}

TEST_F(SearchTest, HostileSearchesFindWhatHoldsTheirWords)
{
    MainWindowController *const window = openThings();
    QStringList rows;
    for (int row = 0; row < 4; ++row) {
        rows += QString();
        for (int column = 0; column < 5; ++column)
            rows.last() += OpenLibrary::folded(
                window->model()->index(row, column).data(Qt::EditRole).toString() + u'|');
    }
    for (const QString &text : testing_support::hostileTexts()) {
        window->mainWindow()->search()->setText(text);
        window->search();
        const QStringList words =
            OpenLibrary::folded(window->mainWindow()->search()->text()).simplified().split(u' ');
        const auto holdsAll = [&words](const QString &row) {
            return std::all_of(words.begin(), words.end(),
                               [&row](const QString &word) { return row.contains(word); });
        };
        EXPECT_EQ(window->model()->rowCount(), std::count_if(rows.begin(), rows.end(), holdsAll))
            << text.left(20).toStdString();
    }
}

TEST_F(SearchTest, HeadersSort)
{
    MainWindowController *const window = openThings();
    QHeaderView *const header = window->mainWindow()->table()->horizontalHeader();
    const auto click = [header](int column) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(column) + 10, 5));
    };
    click(1);
    EXPECT_EQ(column(window, 1), QStringList({QStringLiteral("-12"), QStringLiteral("3"),
                                              QStringLiteral("7"), QStringLiteral("1,000")}));
    // What is selected stays so.
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({2}));
    click(1);
    EXPECT_EQ(cell(window, 0, 1), QStringLiteral("1,000"));
    // As the language orders names, not as their codes do.
    window->model()->setData(window->model()->index(0, 0), QStringLiteral("éva"), Qt::EditRole);
    window->model()->setData(window->model()->index(1, 0), QStringLiteral("Zoe"), Qt::EditRole);
    window->model()->sort(0, Qt::AscendingOrder);
    EXPECT_EQ(column(window, 0), QStringList({QStringLiteral("Ann"), QStringLiteral("Bjørn"),
                                              QStringLiteral("éva"), QStringLiteral("Zoe")}));
}

TEST_F(SearchTest, TheOrderGoesWithItsLibrary)
{
    import(QStringLiteral("Animals.csv"), "Kind,Legs\nCat,4\nAnt,6\n");
    MainWindowController *const window = openThings();
    window->showLibrary(QStringLiteral("Things"));
    window->mainWindow()->table()->sortByColumn(4, Qt::DescendingOrder);
    EXPECT_EQ(cell(window, 0, 4), QStringLiteral("tall"));
    window->showLibrary(QStringLiteral("Animals"));
    EXPECT_EQ(column(window, 0), QStringList({QStringLiteral("Cat"), QStringLiteral("Ant")}));
    EXPECT_EQ(window->mainWindow()->table()->horizontalHeader()->sortIndicatorSection(), -1);
}

TEST_F(SearchTest, ALibraryIsOneWhateverItsCase)
{
    MainWindowController *const first = openThings();
    EXPECT_EQ(first->showLibrary(QStringLiteral("THINGS")), QString());
    MainWindowController *const second = open();
    second->showLibrary(QStringLiteral("things"));
    EXPECT_EQ(first->library(), second->library());
}
