#include "Window/ShownRecords.h"

#include "SheetSupport.h"

#include "Finding/FilterBar.h"
#include "Window/RecordFinder.h"
#include "Window/SmartLibraryList.h"

#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {
class ShownRecordsTests : public HostSheetTest
{
protected:
    void openMany()
    {
        QByteArray rows = "Name,Size\n";
        for (int number = 0; number < 300; ++number)
            rows += "N" + QByteArray::number(number) + ',' + QByteArray::number(number) + '\n';
        import(u"Things.csv"_s, rows);
        window = open();
        table = window->mainWindow()->table();
    }
    void moveFirstField()
    {
        table->horizontalHeader()->moveSection(0, 1);
        turn();
        ASSERT_EQ(window->library()->definition().fields.first().title(), u"Size"_s);
    }

    MainWindowController *window = nullptr;
    RecordTableView *table = nullptr;
};
} // namespace

TEST_F(ShownRecordsTests, WhatWasSelectedAndSeenIsAgain)
{
    openMany();
    window->records()->setSelectionIndexes({250, 251, 260});
    table->selectionModel()->setCurrentIndex(window->model()->index(251, 0),
                                             QItemSelectionModel::NoUpdate);
    table->reveal(255);
    turn();
    const int scrolled = table->verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    moveFirstField();
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({250, 251, 260}));
    EXPECT_EQ(table->currentIndex(), window->model()->index(251, 1));
    EXPECT_EQ(table->verticalScrollBar()->value(), scrolled);
}

TEST_F(ShownRecordsTests, TheFilterFollowsItsField)
{
    openMany();
    window->filterRecords();
    window->finder()->bar()->setText(u"Size < 5"_s);
    window->search();
    EXPECT_EQ(countIn(window), u"5 of 300 records"_s);
    moveFirstField();
    EXPECT_EQ(countIn(window), u"5 of 300 records"_s);
    EXPECT_EQ(window->finder()->bar()->problem(), QString());
}

TEST_F(ShownRecordsTests, ASmartLibraryStays)
{
    openMany();
    RecordQuery query;
    const Library &things = window->library()->definition();
    const auto fields = std::make_shared<FilterFields>(things);
    query.filter = RecordFilter::read(u"Size < 5"_s, fields);
    query.columns = {0};
    const SmartLibrary few = SmartLibraries::make(u"Few"_s, things, query, *fields);
    ASSERT_TRUE(window->smartLibraries()->save(few));
    window->showSmartLibrary(few);
    EXPECT_EQ(countIn(window), u"5 of 300 records"_s);
    moveFirstField();
    EXPECT_TRUE(window->finder()->isSmart());
    EXPECT_EQ(countIn(window), u"5 of 300 records"_s);
    EXPECT_TRUE(table->isColumnHidden(0));
    EXPECT_FALSE(table->isColumnHidden(1));
}

TEST_F(ShownRecordsTests, AnotherLibraryIsShownFromItsBeginning)
{
    import(u"Others.csv"_s, "Name\nOtto\nAnn\n");
    openMany();
    window->showLibrary(u"Things"_s);
    window->records()->setSelectionIndexes({1});
    const ShownRecords before(window);
    window->showLibrary(u"Others"_s);
    before.restore();
    EXPECT_EQ(window->records()->selectionIndexes(), QList<qsizetype>({0}));
}
