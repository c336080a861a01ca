#pragma once

#include "Library.h"
#include "Text/Outcome.h"

#include <QSqlQuery>

#include <optional>

/// The records of a library, one after the other.
///
/// \code
/// RecordCursor records = store->records(library);
/// while (records.next())
///     use(records.value(0));
/// \endcode
class RecordCursor
{
public:
    RecordCursor(QSqlQuery &&query, const Library &library);
    /// No records, for a reason.
    RecordCursor(const Failure &failure);

    /// Goes to the next record, at first to the first one.
    /// \return false if there is none.
    bool next();
    /// The number by which the database knows the record.
    qint64 id() const;
    /// The value of a field, as StoredValue::fromDatabase() has it.
    QVariant value(qsizetype field) const;
    /// The same as it is stored.
    QVariant stored(qsizetype field) const { return _query.value(int(field) + 1); }
    /// Whether there is nothing wrong with the records so far; when they end, whether these were all.
    Outcome<> outcome() const;

private:
    QSqlQuery _query;
    QList<FieldType> _types;
    std::optional<Failure> _failure;
};
