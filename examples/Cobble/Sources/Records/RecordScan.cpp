#include "RecordScan.h"

#include <algorithm>
#include <limits>

namespace {
/// The records that are read at once.
constexpr qint64 AtOnce = 1000;
constexpr std::ptrdiff_t IdsAtOnce = 500;
/// With fewer records among so many numbers, each one is sought.
constexpr quint64 Sparse = 20;
} // namespace

RecordScan::RecordScan(LibraryStore &store, const Library &library,
                       const std::optional<QList<qsizetype>> &fields)
    : _store(store), _library(library)
{
    _part.fields = fields;
}

Outcome<> RecordScan::run(const RecordIds &ids, const Visit &visit)
{
    if (ids.empty())
        return {};
    const quint64 distance = quint64(ids.back()) - quint64(ids.front());
    return distance / Sparse > ids.size() ? runEach(ids, visit) : runThrough(ids, visit);
}

/// Reads all between the first and the last one.
Outcome<> RecordScan::runThrough(const RecordIds &ids, const Visit &visit)
{
    _part.limit = AtOnce;
    if (ids.front() != std::numeric_limits<qint64>::min())
        _part.after = ids.front() - 1;
    auto wanted = ids.begin();
    bool isMore = true;
    while (isMore && wanted != ids.end() && _goesOn()) {
        const std::optional<qint64> before = _part.after;
        RecordCursor cursor = _store.records(_library, _part);
        qint64 count = 0;
        for (; cursor.next(); ++count)
            _part.after = visitIfWanted(cursor, ids, &wanted, visit);
        if (const Outcome<> read = cursor.outcome(); !read)
            return read;
        // In a damaged table they need not ascend.
        isMore = count == AtOnce && (!before || *_part.after > *before);
    }
    return {};
}

qint64 RecordScan::visitIfWanted(const RecordCursor &record, const RecordIds &ids,
                                 RecordIds::const_iterator *wanted, const Visit &visit)
{
    const qint64 id = record.id();
    while (*wanted != ids.end() && **wanted < id)
        ++*wanted;
    if (*wanted != ids.end() && **wanted == id) {
        visit(record);
        ++*wanted;
    }
    return id;
}

/// Reads some after the other.
Outcome<> RecordScan::runEach(const RecordIds &ids, const Visit &visit)
{
    for (auto from = ids.begin(); from != ids.end() && _goesOn();) {
        const auto to = from + std::min(IdsAtOnce, ids.end() - from);
        _part.ids = RecordIds(from, to);
        from = to;
        RecordCursor cursor = _store.records(_library, _part);
        while (cursor.next())
            visit(cursor);
        if (const Outcome<> read = cursor.outcome(); !read)
            return read;
    }
    return {};
}
