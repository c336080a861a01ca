#include "Import/RowSource.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
/// Rows as a reader meets them.
class Rows : public RowSource
{
public:
    Outcome<> add(const QStringList &headers, const QList<QStringList> &rows)
    {
        qint64 line = 1;
        Outcome<> added = addHeaders(headers, line);
        for (const QStringList &row : rows) {
            if (added)
                added = addRow(row.size(), ++line);
        }
        endRows();
        return added;
    }

    std::unique_ptr<RowCursor> cursor() const override { return nullptr; }
    QChar separator() const override { return u','; }
};

QStringList fields(qsizetype count)
{
    return QStringList(count, u"x"_s);
}
} // namespace

TEST(RowSource, CountsRowsAndThoseThatDifferInWidth)
{
    struct Row
    {
        QList<qsizetype> widths; ///< the headers' first
        qint64 raggedRows;
        qsizetype columns;
    };
    const Row rows[] = {
        {{2}, 0, 2},       {{2, 2, 2}, 0, 2}, {{2, 1, 3}, 2, 3}, {{3, 0, 3}, 1, 3},
        {{0, 1, 0}, 1, 1}, {{0}, 0, 0},       {{1, 5, 2}, 2, 5},
    };
    for (const Row &row : rows) {
        QList<QStringList> values;
        for (const qsizetype width : row.widths.mid(1))
            values += fields(width);
        Rows source;
        ASSERT_TRUE(source.add(fields(row.widths.first()), values));
        EXPECT_EQ(source.rowCount(), values.size());
        EXPECT_EQ(source.raggedRowCount(), row.raggedRows);
        EXPECT_EQ(source.headers().size(), row.columns);
    }
}

TEST(RowSource, ColumnsWithoutHeadersGetEmptyOnes)
{
    Rows source;
    ASSERT_TRUE(source.add({u" Name "_s, u""_s}, {fields(4)}));
    EXPECT_EQ(source.headers(), QStringList({u" Name "_s, u""_s, u""_s, u""_s}));
    EXPECT_FALSE(source.headers().last().isNull());
}

TEST(RowSource, NoQuoteIsOpenUnlessAReaderSaysSo)
{
    EXPECT_EQ(Rows().unclosedQuoteLine(), 0);
    EXPECT_EQ(Rows().rowCount(), 0);
    EXPECT_TRUE(Rows().headers().isEmpty());
}

TEST(RowSource, ALibraryHoldsSoManyColumnsAndNoMore)
{
    const QStringList widest = fields(RowSource::ColumnLimit);
    const QStringList wider = fields(RowSource::ColumnLimit + 1);
    EXPECT_TRUE(Rows().add(widest, {widest}));
    EXPECT_EQ(Rows().add(wider, {}).reason(),
              u"line 1 has 2000 columns, more than the 1999 that a library can have");
    EXPECT_EQ(Rows().add({u"a"_s}, {fields(1), wider}).reason(),
              u"line 3 has 2000 columns, more than the 1999 that a library can have");
    EXPECT_EQ(Rows().add(fields(1'000'000), {}).reason(),
              u"line 1 has 1000000 columns, more than the 1999 that a library can have");
}

TEST(RowSource, ManyRowsAreCounted)
{
    constexpr qsizetype Count = 100'000;
    Rows source;
    ASSERT_TRUE(source.add(fields(2), QList<QStringList>(Count, fields(1))));
    EXPECT_EQ(source.rowCount(), Count);
    EXPECT_EQ(source.raggedRowCount(), Count);
}
