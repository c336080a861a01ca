#pragma once

#include "Library/LibraryStore.h"
#include "Library/RecordRows.h"
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
class QueriedRecords : public RecordRows
{
public:
    QueriedRecords(LibraryStore &store, const Library &library, const RecordQuery &query);

    const Library &library() const override { return _shown; }
    bool next() override;
    QVariant value(qsizetype field) const override;
    /// The number by which the database knows the record.
    qint64 id() const { return _current ? _current->id : _cursor.id(); }
    Outcome<> outcome() const override
    {
        return _cursor.outcome().andThen([this] { return _filtering; });
    }

private:
    struct Row
    {
        qint64 id = 0;
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
    /// Whether the filter could say of each record if it accepts it.
    Outcome<> _filtering;
    std::deque<Row> _rows;
    std::optional<Row> _current;
    bool _isSorted = false;
    qint64 _count = 0;
};
