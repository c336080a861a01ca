#pragma once

#include "Library.h"
#include "RecordIds.h"

/// Which of a library's records are read, and which of their values: all that is not set.
///
/// \code
/// RecordPart part;
/// part.ids = RecordIds{3, 7};
/// RecordCursor records = store->records(library, part);
/// \endcode
struct RecordPart
{
    /// Only these records, at most some hundreds.
    std::optional<RecordIds> ids;
    /// Only those whose numbers are greater.
    std::optional<qint64> after;
    /// The most records that are wanted; all if negative.
    qint64 limit = -1;
    /// Only the values of these fields; those of others are nil.
    std::optional<QList<qsizetype>> fields;

    /// The statement that gives the numbers and the values, ordered by the numbers.
    QString statementFor(const Library &library) const;
};
