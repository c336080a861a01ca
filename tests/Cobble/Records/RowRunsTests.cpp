#include "Records/RowRuns.h"

#include <gtest/gtest.h>

TEST(RowRuns, RowsInAnyOrderBecomeRuns)
{
    const RowRuns rows = RowRuns::of({7, 1, 2, 9, 3, 2});
    EXPECT_EQ(rows.runs(), QList<RowRun>({{1, 3}, {7, 7}, {9, 9}}));
    EXPECT_EQ(rows.rows(), QList<qsizetype>({1, 2, 3, 7, 9}));
    EXPECT_EQ(rows.count(), 5);
    EXPECT_EQ(rows.first(), 1);
}

TEST(RowRuns, OverlappingRunsBecomeOne)
{
    EXPECT_EQ(RowRuns({{4, 9}, {0, 2}, {3, 3}, {5, 6}}).runs(), QList<RowRun>({{0, 9}}));
}

TEST(RowRuns, AMillionRowsAreOneRun)
{
    const RowRuns rows = RowRuns::upTo(1000000);
    EXPECT_EQ(rows.runs().size(), 1);
    EXPECT_EQ(rows.count(), 1000000);
    EXPECT_EQ(rows.below(10), RowRuns::upTo(10));
}

TEST(RowRuns, NoRowsAreEmpty)
{
    for (const RowRuns &rows : {RowRuns(), RowRuns::of({}), RowRuns::upTo(0)}) {
        EXPECT_TRUE(rows.isEmpty());
        EXPECT_EQ(rows.first(), -1);
        EXPECT_EQ(rows.count(), 0);
        EXPECT_FALSE(rows.contains(0));
    }
}

TEST(RowRuns, KnowWhichRowsTheyHold)
{
    const RowRuns rows = RowRuns::of({1, 2, 5});
    for (int row = -1; row < 8; ++row)
        EXPECT_EQ(rows.contains(row), row == 1 || row == 2 || row == 5) << row;
}

TEST(RowRuns, AreCutWhereTheRowsEnd)
{
    const RowRuns rows({{0, 3}, {6, 9}, {12, 12}});
    EXPECT_EQ(rows.below(8).runs(), QList<RowRun>({{0, 3}, {6, 7}}));
    EXPECT_EQ(rows.below(0), RowRuns());
    EXPECT_EQ(rows.below(100), rows);
}
