#pragma once

#include "RowSource.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

/// What became of the fields of a column in a batch of rows.
struct ColumnPart
{
    /// A field that could not be read.
    struct Unread
    {
        qsizetype row = 0; ///< in the batch
        QString reason;
    };

    std::vector<QVariant> values;
    std::vector<Unread> unread;
    qint64 readCount = 0;
    qint64 emptyCount = 0;
};

/// Goes through the rows of a file with several threads, each of which works on some of the columns.
///
/// A column is worked on by one thread at a time, and in the order of its rows, so that what comes
/// out does not depend on how many threads there are. Few batches are in memory at once.
///
/// \code
/// ColumnThreads().run(rows, 2,
///                     [](const RowBatch &batch, qsizetype column) { return read(batch, column); },
///                     [](const RowBatch &batch, std::vector<ColumnPart> &parts) {
///                         return store(parts);    // in this thread, in the order of the rows
///                     });
/// \endcode
class ColumnThreads
{
public:
    /// Is called in any thread.
    using OnColumn = std::function<ColumnPart(const RowBatch &batch, qsizetype column)>;
    /// Is called in the thread that waits, and says whether to go on.
    using OnBatch = std::function<bool(const RowBatch &batch, std::vector<ColumnPart> &parts)>;

    /// \param count how many threads; 0 for as many as there are processors.
    explicit ColumnThreads(int count = 0);

    /// Returns when all is done. It fails where the rows cannot be read.
    Outcome<> run(const RowSource &rows, qsizetype columnCount, const OnColumn &onColumn,
                  const OnBatch &onBatch) const;

private:
    int _count;
};
