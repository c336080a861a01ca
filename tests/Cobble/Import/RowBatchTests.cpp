#include "Import/RowBatch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
/// The rows of a text that are scanned in it.
RowBatch batchOf(const QString &text)
{
    RowBatch batch(text, 5);
    CSVScanner scanner(text, u',', 10);
    while (scanner.next())
        batch.addRow(scanner.fields(), scanner.recordLine());
    return batch;
}
} // namespace

TEST(RowBatch, GivesFieldsByRowAndColumn)
{
    const RowBatch batch = batchOf(u"a,\"b\n\"\nc\n\nd,e,f\n"_s);
    ASSERT_EQ(batch.rowCount(), 3);
    EXPECT_EQ(batch.number(1), 6);
    EXPECT_EQ(batch.line(0), 10);
    EXPECT_EQ(batch.line(2), 14);
    EXPECT_EQ(batch.width(0), 2);
    EXPECT_EQ(batch.field(0, 1), u"b\n"_s);
    EXPECT_EQ(batch.field(2, 2), u"f"_s);
    EXPECT_TRUE(batch.field(1, 1).isNull());
    EXPECT_EQ(batch.fields(0), QStringList({u"a"_s, u"b\n"_s}));
    EXPECT_EQ(batch.fields(1), QStringList(u"c"_s));
}

TEST(RowBatch, ShowsSomeOfTheColumnsOnly)
{
    RowBatch batch = batchOf(u"a,b,c\nd,e\n"_s);
    batch.select({0, 2});
    EXPECT_EQ(batch.field(0, 1), u"c"_s);
    EXPECT_TRUE(batch.field(1, 1).isNull());
    EXPECT_EQ(batch.fields(0), QStringList({u"a"_s, u"c"_s}));
    EXPECT_EQ(batch.fields(1), QStringList(u"d"_s));
    EXPECT_EQ(batch.width(0), 3);
}

TEST(RowBatch, TakesMarksAwayFromWhatWasTyped)
{
    EXPECT_EQ(batchOf(u"'=1+1,'a"_s).fields(0), QStringList({u"=1+1"_s, u"'a"_s}));
    RowBatch table(QString(), 1);
    table.addRow(QStringList({u"'=1+1"_s, u""_s, u"x,\"y\""_s}), 2);
    EXPECT_EQ(table.fields(0), QStringList({u"'=1+1"_s, u""_s, u"x,\"y\""_s}));
}
