#pragma once

#include "Library/LibraryStore.h"
#include "RecordQuery.h"

#include <deque>

/// The records of a library that a query asks for, one after the other.
///
/// Without an order they are read as they are asked for; with one, what is shown of them and what
/// they are sorted by is in memory.
///
/// \code
/// QueriedRecords records(*store, library, query);
/// while (records.next())
///     use(records.value(0));      // of the first field of records.library()
/// \endcode
class QueriedRecords
{
public:
    QueriedRecords(LibraryStore &store, const Library &library, const RecordQuery &query);

    /// The library with the fields that are asked for.
    const Library &library() const { return _shown; }
    /// Goes to the next record, at first to the first one.
    /// \return false if there is none.
    bool next();
    /// The value of a field of library().
    QVariant value(qsizetype field) const;
    /// Whether there is nothing wrong with the records so far.
    Outcome<> outcome() const { return _cursor.outcome(); }

private:
    struct Row
    {
        QVariantList sortedBy;
        QVariantList values;
    };

    bool nextAccepted();
    bool isAccepted() const;
    void readSorted();
    Row row() const;
    bool isBefore(const Row &left, const Row &right) const;

    RecordQuery _query;
    Library _shown;
    QList<qsizetype> _columns;
    /// The columns that the filter asks for, with their names.
    QList<std::pair<QString, qsizetype>> _filtered;
    RecordCursor _cursor;
    std::deque<Row> _rows;
    std::optional<Row> _current;
    bool _isSorted = false;
    qint64 _count = 0;
};
