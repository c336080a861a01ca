#include "Import/ColumnThreads.h"

#include "Import/SeparatedText.h"

#include "support/NoThreads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {
constexpr int RowCount = 60'000;
constexpr qsizetype ColumnCount = 20;

/// More than fits into one batch.
const SeparatedText &manyRows()
{
    static const SeparatedText rows = [] {
        QString text = QStringList(ColumnCount, u"c"_s).join(u',') + u'\n';
        for (int row = 1; row <= RowCount; ++row)
            text += QStringList(ColumnCount, QString::number(row)).join(u',') + u'\n';
        return *SeparatedText::read(text);
    }();
    return rows;
}

ColumnPart textsOf(const RowBatch &batch, qsizetype column)
{
    ColumnPart part;
    for (qsizetype row = 0; row < batch.rowCount(); ++row)
        part.values.push_back(batch.field(row, column));
    return part;
}

/// Rows that break off.
class BrokenRows : public RowSource
{
public:
    class Cursor : public RowCursor
    {
    public:
        Outcome<bool> next(RowBatch *batch) override
        {
            if (_isRead)
                return Failure{u"broken"_s};
            _isRead = true;
            *batch = RowBatch(QString(), 1);
            batch->addRow(QStringList(u"x"_s), 1);
            return true;
        }

    private:
        bool _isRead = false;
    };

    std::unique_ptr<RowCursor> cursor() const override { return std::make_unique<Cursor>(); }
    QChar separator() const override { return u','; }
};

const int Counts[] = {1, 2, 3, 8};
} // namespace

TEST(ColumnThreads, RowsComeInTheirOrderWithAllColumns)
{
    for (const int count : Counts) {
        qint64 next = 1;
        bool isRight = true;
        const Outcome<> outcome = ColumnThreads(count).run(
            manyRows(), ColumnCount, textsOf,
            [&](const RowBatch &batch, const std::vector<ColumnPart> &parts) {
                isRight = isRight && parts.size() == size_t(ColumnCount);
                for (qsizetype row = 0; row < batch.rowCount(); ++row, ++next) {
                    isRight = isRight && batch.number(row) == next;
                    for (const ColumnPart &part : parts)
                        isRight = isRight && part.values[size_t(row)].toLongLong() == next;
                }
                return true;
            });
        EXPECT_TRUE(outcome);
        EXPECT_TRUE(isRight) << count;
        EXPECT_EQ(next, RowCount + 1);
    }
}

TEST(ColumnThreads, AColumnIsWorkedOnByOneAtATimeAndInOrder)
{
    std::vector<qint64> last(size_t(ColumnCount), 0);
    std::vector<std::atomic<int>> inside(static_cast<size_t>(ColumnCount));
    std::atomic<bool> isRight = true;
    const auto look = [&](const RowBatch &batch, qsizetype column) {
        if (++inside[size_t(column)] != 1 || batch.number(0) <= last[size_t(column)])
            isRight = false;
        last[size_t(column)] = batch.number(batch.rowCount() - 1);
        --inside[size_t(column)];
        return ColumnPart();
    };
    EXPECT_TRUE(ColumnThreads(4).run(
        manyRows(), ColumnCount, look,
        [](const RowBatch &, const std::vector<ColumnPart> &) { return true; }));
    EXPECT_TRUE(isRight);
    for (const qint64 row : last)
        EXPECT_EQ(row, RowCount);
}

TEST(ColumnThreads, EndsWhenNoMoreIsWanted)
{
    for (const int count : Counts) {
        int batches = 0;
        EXPECT_TRUE(ColumnThreads(count).run(
            manyRows(), ColumnCount, textsOf,
            [&](const RowBatch &, const std::vector<ColumnPart> &) { return ++batches < 2; }));
        EXPECT_EQ(batches, 2);
    }
}

TEST(ColumnThreads, FailsWhereTheRowsDo)
{
    for (const int count : Counts)
        EXPECT_EQ(ColumnThreads(count)
                      .run(BrokenRows(), 1, textsOf,
                           [](const RowBatch &, const std::vector<ColumnPart> &) { return true; })
                      .reason(),
                  u"broken"_s);
}

TEST(ColumnThreads, WhatAThreadThrowsIsThrown)
{
    const auto fail = [](const RowBatch &, qsizetype) -> ColumnPart {
        throw std::runtime_error("thrown");
    };
    for (const int count : Counts)
        EXPECT_THROW((void)ColumnThreads(count).run(
                         manyRows(), ColumnCount, fail,
                         [](const RowBatch &, const std::vector<ColumnPart> &) { return true; }),
                     std::runtime_error);
}

TEST(ColumnThreads, NoRowsAreNoWork)
{
    const SeparatedText rows = *SeparatedText::read(u"a\n"_s);
    for (const int count : Counts)
        EXPECT_TRUE(ColumnThreads(count).run(
            rows, 1, textsOf,
            [](const RowBatch &, const std::vector<ColumnPart> &) { return false; }));
}

TEST(ColumnThreads, WorkAloneWhereNoThreadStarts)
{
    const testing_support::NoThreads none;
    const std::thread::id here = std::this_thread::get_id();
    bool isHere = true;
    qint64 last = 0;
    const auto look = [&](const RowBatch &batch, qsizetype column) {
        isHere = isHere && std::this_thread::get_id() == here;
        return textsOf(batch, column);
    };
    EXPECT_TRUE(ColumnThreads(4).run(manyRows(), ColumnCount, look,
                                     [&](const RowBatch &batch, const std::vector<ColumnPart> &) {
                                         last = batch.number(batch.rowCount() - 1);
                                         return true;
                                     }));
    EXPECT_TRUE(isHere);
    EXPECT_EQ(last, RowCount);
}
