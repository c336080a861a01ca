#include "QueriedRecords.h"

#include "Records/ValueOrder.h"

#include <KTUtility/NSException>

#include <algorithm>

namespace {
QList<qsizetype> columnsOf(const RecordQuery &query, const Library &library)
{
    QList<qsizetype> columns = query.columns;
    for (qsizetype field = 0; query.columns.isEmpty() && field < library.fields.size(); ++field)
        columns += field;
    return columns;
}

/// SQLite stops by itself where it has nothing to leave out.
qint64 readLimit(const RecordQuery &query)
{
    return query.order.isEmpty() && query.filter.predicate().isNil() ? query.limit : -1;
}
} // namespace

QueriedRecords::QueriedRecords(LibraryStore &store, const Library &library,
                               const RecordQuery &query)
    : _query(query)
    , _shown(library)
    , _columns(columnsOf(query, library))
    , _cursor(store.records(library, readLimit(query)))
{
    _shown.fields.clear();
    for (const qsizetype column : _columns)
        _shown.fields += library.fields.at(column);
    const QStringList filtered = query.filter.columns();
    for (qsizetype field = 0; field < library.fields.size(); ++field) {
        if (filtered.contains(library.fields.at(field).columnName))
            _filtered += {library.fields.at(field).columnName, field};
    }
}

bool QueriedRecords::isAccepted() const
{
    const NSPredicate predicate = _query.filter.predicate();
    if (predicate.isNil())
        return true;
    QVariantMap values;
    for (const auto &[column, field] : _filtered)
        values.insert(column, _cursor.value(field));
    return predicate.evaluateWithObject(QVariant(values));
}

bool QueriedRecords::nextAccepted()
{
    try {
        while (_filtering && _cursor.next()) {
            if (isAccepted())
                return true;
        }
    } catch (const NSException &exception) {
        _filtering = Failure{exception.reason()};
    }
    return false;
}

QueriedRecords::Row QueriedRecords::row() const
{
    Row row;
    row.id = _cursor.id();
    for (const RecordOrder &order : _query.order)
        row.sortedBy += _cursor.value(order.field);
    for (const qsizetype column : _columns)
        row.values += _cursor.value(column);
    return row;
}

bool QueriedRecords::isBefore(const Row &left, const Row &right) const
{
    for (qsizetype place = 0; place < _query.order.size(); ++place) {
        const auto order = ValueOrder::compare(left.sortedBy.at(place), right.sortedBy.at(place));
        if (order != 0)
            return _query.order.at(place).isAscending ? order < 0 : order > 0;
    }
    return false;
}

void QueriedRecords::readSorted()
{
    while (nextAccepted())
        _rows.push_back(row());
    std::stable_sort(_rows.begin(), _rows.end(),
                     [this](const Row &left, const Row &right) { return isBefore(left, right); });
    _isSorted = true;
}

bool QueriedRecords::next()
{
    if (_query.limit >= 0 && _count >= _query.limit)
        return false;
    if (_query.order.isEmpty()) {
        const bool isThere = nextAccepted();
        _count += isThere;
        return isThere;
    }
    if (!_isSorted)
        readSorted();
    if (_rows.empty())
        return false;
    _current = std::move(_rows.front());
    _rows.pop_front();
    ++_count;
    return true;
}

QVariant QueriedRecords::value(qsizetype field) const
{
    return _current ? _current->values.at(field) : _cursor.value(_columns.at(field));
}
