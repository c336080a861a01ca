#include "Import/Table.h"

#include "support/TestSupport.h"

#include "Import/SeparatedText.h"
#include "Text/CSVText.h"

using namespace Qt::StringLiterals;

namespace {
CobbleTable tableOf(const QStringList &titles, const QList<QStringList> &rows)
{
    CobbleTable table;
    table.titles = titles;
    table.rows = rows;
    return table;
}

QList<QStringList> rowsOf(const RowSource &source)
{
    QList<QStringList> rows;
    (void)source.whileRows([&rows](qint64 row, const QStringList &fields) {
        rows += fields;
        EXPECT_EQ(row, rows.size());
        return true;
    });
    return rows;
}
} // namespace

TEST(Table, RunsItsExample)
{
    const auto rows = Table::of(tableOf({u"name"_s, u"note"_s}, {{u"Ann"_s, u"a, b"_s}}));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->rowCount(), 1);
    EXPECT_EQ(rows->raggedRowCount(), 0);
    EXPECT_EQ(rows->headers(), QStringList({u"name"_s, u"note"_s}));
    EXPECT_EQ(rowsOf(*rows), QList<QStringList>({{u"Ann"_s, u"a, b"_s}}));
    EXPECT_EQ(rows->separator(), u',');
    EXPECT_EQ(rows->unclosedQuoteLine(), 0);
}

TEST(Table, LongerRowsHaveColumnsWithoutHeaders)
{
    const auto rows =
        Table::of(tableOf({u"a"_s, u"b"_s}, {{u"1"_s}, {u"1"_s, u"2"_s, u"3"_s, u"4"_s}}));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->headers(), QStringList({u"a"_s, u"b"_s, u""_s, u""_s}));
    EXPECT_EQ(rows->raggedRowCount(), 2);
    EXPECT_EQ(rowsOf(*rows).first(), QStringList(u"1"_s));
}

TEST(Table, WhatIsLeftOutIsEmptyAndNotNil)
{
    const auto rows = Table::of(tableOf({}, {{}, {QString()}}));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->headers(), QStringList(u""_s));
    EXPECT_EQ(rows->raggedRowCount(), 0);
    for (const QStringList &row : rowsOf(*rows)) {
        ASSERT_EQ(row.size(), 1);
        EXPECT_TRUE(row.first().isEmpty() && !row.first().isNull());
    }
}

TEST(Table, ATitleIsNeverADirective)
{
    const auto rows = Table::of(tableOf({u"sep=;"_s}, {{u"1"_s}}));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->headers(), QStringList(u"sep=;"_s));
    EXPECT_EQ(rows->rowCount(), 1);
}

TEST(Table, GoesOnOnlyWhileItIsWanted)
{
    const auto rows = Table::of(tableOf({u"a"_s}, {{u"1"_s}, {u"2"_s}, {u"3"_s}}));
    ASSERT_TRUE(rows);
    qint64 last = 0;
    (void)rows->whileRows([&last](qint64 row, const QStringList &) {
        last = row;
        return row < 2;
    });
    EXPECT_EQ(last, 2);
}

TEST(Table, MoreColumnsThanALibraryCanHaveAreRejected)
{
    const QStringList widest(RowSource::ColumnLimit, u"x"_s);
    EXPECT_TRUE(Table::of(tableOf(widest, {widest})));
    const QStringList wider(RowSource::ColumnLimit + 1, u"x"_s);
    EXPECT_EQ(Table::of(tableOf(wider, {})).reason(),
              u"line 1 has 2000 columns, more than the 1999 that a library can have"_s);
    EXPECT_EQ(Table::of(tableOf({u"a"_s}, {{u"1"_s}, wider})).reason(),
              u"line 3 has 2000 columns, more than the 1999 that a library can have"_s);
}

/// A table is what the same rows are as separated values, which files of other kinds hold.
TEST(Table, IsWhatItsSeparatedValuesAre)
{
    CobbleTable table = tableOf({u"a"_s, u" b "_s, u"c\nd"_s}, {{}, {u""_s}, {u"  "_s}});
    for (const QString &text : testing_support::hostileTexts())
        table.rows += {text, u"\"" + text, text + u"\r\n,"};
    QString text = CSVText::row(table.titles);
    for (const QStringList &row : std::as_const(table.rows))
        text += CSVText::row(row);
    const auto rows = Table::of(table);
    const auto separated = SeparatedText::read(text, u',');
    ASSERT_TRUE(rows);
    ASSERT_TRUE(separated);
    EXPECT_EQ(rows->headers(), separated->headers());
    EXPECT_EQ(rows->rowCount(), separated->rowCount());
    EXPECT_EQ(rows->raggedRowCount(), separated->raggedRowCount());
    EXPECT_TRUE(rowsOf(*rows) == rowsOf(*separated));
}
