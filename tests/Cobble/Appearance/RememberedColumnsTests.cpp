#include "Appearance/RememberedColumns.h"

#include "support/TestSupport.h"

#include <KTUtility/NSUserDefaults>

#include <QHeaderView>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {
const QStringList Keys{u"name"_s, u"phone"_s, u"notes"_s};
const QString DefaultsKey = u"columns things"_s;

/// A table whose columns are as wide as their texts, as far as the user has changed nothing.
struct Table
{
    explicit Table(int count = 3) : view(2, count), columns(view.horizontalHeader())
    {
        for (int column = 0; column < count; ++column)
            header()->resizeSection(column, 100);
        header()->setSortIndicator(-1, Qt::AscendingOrder);
        view.setSortingEnabled(true);
    }
    QHeaderView *header() { return view.horizontalHeader(); }
    QList<int> widths()
    {
        QList<int> widths;
        for (int column = 0; column < header()->count(); ++column)
            widths += header()->sectionSize(column);
        return widths;
    }
    QTableWidget view;
    RememberedColumns columns;
};
} // namespace

class RememberedColumnsTests : public testing_support::WindowedTest
{
protected:
    RememberedColumnsTests() { forget(); }
    ~RememberedColumnsTests() override { forget(); }

    static void forget()
    {
        NSUserDefaults::standardUserDefaults()->removeObjectForKey(DefaultsKey);
    }
    static bool isRemembered()
    {
        return !NSUserDefaults::standardUserDefaults()->dictionaryForKey(DefaultsKey).isEmpty();
    }
    /// Leaves a table with other columns than it had.
    static void leaveChanged()
    {
        Table table;
        table.columns.open(u"things"_s, Keys);
        table.header()->resizeSection(1, 222);
        table.header()->setSortIndicator(1, Qt::DescendingOrder);
        table.columns.save();
    }
};

TEST_F(RememberedColumnsTests, AreAsTheyWereLeft)
{
    leaveChanged();
    Table table;
    table.columns.open(u"things"_s, Keys);
    EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
    EXPECT_EQ(table.header()->sortIndicatorSection(), 1);
    EXPECT_EQ(table.header()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(RememberedColumnsTests, OfOtherTablesAreTheirOwn)
{
    leaveChanged();
    Table table;
    table.columns.open(u"others"_s, Keys);
    EXPECT_EQ(table.widths(), QList<int>({100, 100, 100}));
    EXPECT_EQ(table.header()->sortIndicatorSection(), -1);
}

TEST_F(RememberedColumnsTests, WhatNobodyHasChangedIsNotRemembered)
{
    Table table;
    table.columns.open(u"things"_s, Keys);
    table.columns.save();
    EXPECT_FALSE(isRemembered());
    // Nothing is open any more.
    table.header()->resizeSection(1, 222);
    table.columns.save();
    EXPECT_FALSE(isRemembered());
}

TEST_F(RememberedColumnsTests, BelongToFieldsAndNotToPlaces)
{
    leaveChanged();
    Table table;
    table.columns.open(u"things"_s, {u"new"_s, u"phone"_s, u"name"_s});
    EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
    EXPECT_EQ(table.header()->sortIndicatorSection(), 1);
    Table fewer(1);
    fewer.columns.open(u"things"_s, {u"other"_s});
    EXPECT_EQ(fewer.widths(), QList<int>({100}));
}

TEST_F(RememberedColumnsTests, DamagedSettingsDoNoHarm)
{
    NSUserDefaults::standardUserDefaults()->setObject(
        QVariantMap{{u"order"_s, QVariantList{u"none"_s, 5, QVariantMap()}},
                    {u"widths"_s, QVariantMap{{u"name"_s, -5}, {u"phone"_s, 1000000}}},
                    {u"sort"_s, 3}},
        DefaultsKey);
    Table table;
    table.columns.open(u"things"_s, Keys);
    EXPECT_EQ(table.widths(), QList<int>({100, 100, 100}));
    EXPECT_EQ(table.header()->sortIndicatorSection(), -1);
}

TEST_F(RememberedColumnsTests, NeedNotBeSorted)
{
    {
        Table table;
        table.columns.open(u"things"_s, Keys);
        table.header()->resizeSection(1, 222);
        table.columns.save();
    }
    Table table;
    table.columns.open(u"things"_s, Keys);
    EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
    EXPECT_EQ(table.header()->sortIndicatorSection(), -1);
}

TEST_F(RememberedColumnsTests, AnOrderThatWasTakenAwayStaysAway)
{
    leaveChanged();
    {
        Table table;
        table.columns.open(u"things"_s, Keys);
        table.header()->setSortIndicator(-1, Qt::AscendingOrder);
        table.columns.save();
    }
    Table table;
    table.columns.open(u"things"_s, Keys);
    EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
    EXPECT_EQ(table.header()->sortIndicatorSection(), -1);
}

TEST_F(RememberedColumnsTests, WhatIsDoneWhileTheyAreLeftIsNotRemembered)
{
    for (const bool comesBack : {true, false}) {
        forget();
        {
            Table table;
            table.columns.open(u"things"_s, Keys);
            table.header()->resizeSection(1, 222);
            table.columns.leave();
            table.header()->resizeSection(1, 55);
            table.header()->setSortIndicator(0, Qt::DescendingOrder);
            table.columns.leave();
            table.header()->hideSection(2);
            if (comesBack) {
                table.header()->showSection(2);
                table.columns.comeBack();
                EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
                EXPECT_EQ(table.header()->sortIndicatorSection(), -1);
            }
            table.columns.save();
        }
        Table table;
        table.columns.open(u"things"_s, Keys);
        EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
        EXPECT_EQ(table.header()->sortIndicatorSection(), -1);
        table.columns.comeBack();
        EXPECT_EQ(table.widths(), QList<int>({100, 222, 100}));
    }
}
