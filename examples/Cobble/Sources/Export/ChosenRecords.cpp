#include "ChosenRecords.h"

#include "Library/LibraryStore.h"

#include <algorithm>

namespace {
/// A statement takes some hundreds of numbers.
constexpr size_t RecordsOfPiece = 256;

QVariantList valuesOf(const RecordCursor &record, qsizetype count)
{
    QVariantList values;
    values.reserve(count);
    for (qsizetype field = 0; field < count; ++field)
        values += record.value(field);
    return values;
}
} // namespace

ChosenRecords::ChosenRecords(LibraryStore &store, const Library &library, SharedRecordIds ids)
    : _store(store), _library(library), _ids(std::move(ids))
{
}

bool ChosenRecords::next()
{
    ++_position;
    bool isRead = bool(_outcome);
    while (isRead && _position >= _piece.size())
        isRead = readPiece();
    return isRead;
}

QVariant ChosenRecords::value(qsizetype field) const
{
    return _position < _piece.size() ? _piece[_position].value(field) : QVariant();
}

RecordIds ChosenRecords::nextIds()
{
    const auto first = _ids->begin() + std::ptrdiff_t(_readCount);
    const size_t count = std::min(RecordsOfPiece, _ids->size() - _readCount);
    _readCount += count;
    return {first, first + std::ptrdiff_t(count)};
}

/// The database gives them in the order of their numbers.
bool ChosenRecords::readPiece()
{
    _position = 0;
    _piece.clear();
    RecordPart part;
    part.ids = nextIds();
    QHash<qint64, QVariantList> found;
    RecordCursor cursor = _store.records(_library, part);
    while (!part.ids->empty() && cursor.next())
        found.insert(cursor.id(), valuesOf(cursor, _library.fields.size()));
    for (const qint64 id : *part.ids) {
        if (found.contains(id))
            _piece.push_back(found.value(id));
    }
    _outcome = cursor.outcome();
    return _outcome && !part.ids->empty();
}
