#include "RecordCursor.h"

#include "SQL.h"
#include "StoredValue.h"

RecordCursor::RecordCursor(QSqlQuery &&query, const Library &library) : _query(std::move(query))
{
    for (const LibraryField &field : library.fields)
        _types += field.type;
}

RecordCursor::RecordCursor(const Failure &failure) : _failure(failure) {}

bool RecordCursor::next()
{
    return _query.next();
}

qint64 RecordCursor::id() const
{
    return _query.value(0).toLongLong();
}

QVariant RecordCursor::value(qsizetype field) const
{
    return StoredValue::fromDatabase(_types.at(field), _query.value(int(field) + 1));
}

Outcome<> RecordCursor::outcome() const
{
    return _failure ? *_failure : SQL::outcomeOf(_query);
}
