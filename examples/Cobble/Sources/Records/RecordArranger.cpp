#include "RecordArranger.h"

#include "OrderKeys.h"
#include "RecordScan.h"
#include "ScannedRecord.h"

#include <KTUtility/NSException>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
/// How long to gather the first records before telling of them, in milliseconds. Each time takes
/// twice as long, since a view has the more to do.
constexpr qint64 TimeBetweenTold = 100;
/// After so many comparisons it asks whether to go on.
constexpr quint32 ComparisonsAtOnce = 1 << 16;

const Failure Interrupted{u"interrupted"_s, true};

/// What ends a sort.
struct NotWantedAnyMore
{
};

/// The values by which records are sorted, and the order that they tell.
class SortLevels
{
public:
    SortLevels(const QList<RecordSort> &sorts, const QString &locale) : _sorts(sorts)
    {
        for (qsizetype level = 0; level < sorts.size(); ++level)
            _keys.emplace_back(locale);
    }
    void append(const RecordCursor &record)
    {
        for (size_t level = 0; level < _keys.size(); ++level)
            _keys[level].append(record.value(_sorts.at(qsizetype(level)).field));
    }
    bool isBefore(quint32 left, quint32 right) const
    {
        for (size_t level = 0; level < _keys.size(); ++level) {
            const std::weak_ordering order = _keys[level].compare(left, right);
            if (order != 0)
                return (order < 0) == (_sorts.at(qsizetype(level)).order == Qt::AscendingOrder);
        }
        return false;
    }
    QList<qsizetype> fields() const
    {
        QList<qsizetype> fields;
        for (const RecordSort &sort : _sorts)
            fields += sort.field;
        return fields;
    }

private:
    const QList<RecordSort> &_sorts;
    std::vector<OrderKeys> _keys;
};

RecordIds inEither(const RecordIds &left, const RecordIds &right)
{
    RecordIds either;
    std::set_union(left.begin(), left.end(), right.begin(), right.end(),
                   std::back_inserter(either));
    return either;
}
} // namespace

RecordArranger::RecordArranger(LibraryStore &store, const ArrangementRequest &request)
    : _store(store), _request(request), _search(request.readers, request.wish.search)
{
}

bool RecordArranger::isFiltering() const
{
    return !_search.isBlank() || !_request.wish.filter.isNil();
}

Outcome<ArrangementResult> RecordArranger::arrange()
{
    Outcome<RecordIds> ids = isFiltering() ? found() : *_request.all;
    if (!ids)
        return ids.failure();
    const auto found = std::make_shared<const RecordIds>(std::move(*ids));
    if (_request.wish.sorts.isEmpty())
        return ArrangementResult{found, found};
    Outcome<RecordIds> ordered = _request.known ? inKnownOrder(*found) : sorted(*found);
    if (!ordered)
        return ordered.failure();
    return ArrangementResult{std::make_shared<const RecordIds>(std::move(*ordered)), found};
}

// --- Finding ------------------------------------------------------------------------------------

/// Values that were read of a longer text need not be among what a shorter one has found.
Outcome<RecordIds> RecordArranger::found()
{
    _timeToTell = TimeBetweenTold;
    _untilTold.setRemainingTime(_timeToTell);
    Outcome<RecordIds> ids = foundBy(
        _request.among ? *_request.among : *_request.all, std::nullopt,
        [this](const RecordCursor &record) { return _search.isBlank() || _search.finds(record); });
    const QList<qsizetype> fields = _search.valueFields();
    if (!ids || !_request.among || fields.isEmpty())
        return ids;
    // These stand between the others.
    _told = nullptr;
    // A filter may ask for any field.
    const auto needed = _request.wish.filter.isNil() ? std::optional(fields) : std::nullopt;
    const Outcome<RecordIds> others =
        foundBy(*_request.all, needed,
                [this](const RecordCursor &record) { return _search.findsValue(record); });
    return others ? Outcome<RecordIds>(inEither(*ids, *others)) : others;
}

Outcome<RecordIds> RecordArranger::foundBy(const RecordIds &among,
                                           const std::optional<QList<qsizetype>> &fields,
                                           const std::function<bool(const RecordCursor &)> &matches)
{
    RecordIds ids;
    ScannedRecord scanned(_request.library);
    const QVariant object = QVariant::fromValue<QObject *>(&scanned);
    const NSPredicate &filter = _request.wish.filter;
    RecordScan scan(_store, _request.library, fields);
    const Outcome<> done = run(&scan, among, [&](const RecordCursor &record) {
        scanned.setCursor(&record);
        if ((filter.isNil() || filter.evaluateWithObject(object)) && matches(record))
            ids.push_back(record.id());
        tellSometimes(ids);
    });
    return done ? Outcome<RecordIds>(std::move(ids)) : done.failure();
}

void RecordArranger::tellSometimes(const RecordIds &ids)
{
    if (!_told || !_request.wish.sorts.isEmpty() || !_untilTold.hasExpired())
        return;
    _timeToTell *= 2;
    _untilTold.setRemainingTime(_timeToTell);
    if (qsizetype(ids.size()) > _toldCount)
        _told(RecordIds(ids.begin() + _toldCount, ids.end()));
    _toldCount = qsizetype(ids.size());
}

Outcome<> RecordArranger::run(RecordScan *scan, const RecordIds &ids,
                              const std::function<void(const RecordCursor &)> &visit)
{
    scan->setGoesOn(_goesOn);
    try {
        const Outcome<> done = scan->run(ids, visit);
        return done && !_goesOn() ? Interrupted : done;
    } catch (const NSException &exception) {
        return Failure{exception.reason()};
    }
}

// --- Sorting ------------------------------------------------------------------------------------

RecordIds RecordArranger::inKnownOrder(const RecordIds &ids) const
{
    if (ids.size() == _request.known->size())
        return *_request.known;
    const RecordIdSet wanted(ids);
    RecordIds ordered;
    ordered.reserve(ids.size());
    std::copy_if(_request.known->begin(), _request.known->end(), std::back_inserter(ordered),
                 [&wanted](qint64 id) { return wanted.contains(id); });
    return ordered;
}

Outcome<RecordIds> RecordArranger::sorted(const RecordIds &ids)
{
    SortLevels levels(_request.wish.sorts, _request.wish.locale);
    RecordIds read;
    read.reserve(ids.size());
    RecordScan scan(_store, _request.library, levels.fields());
    const Outcome<> done = run(&scan, ids, [&](const RecordCursor &record) {
        read.push_back(record.id());
        levels.append(record);
    });
    if (!done)
        return done.failure();
    std::vector<quint32> order(read.size());
    std::iota(order.begin(), order.end(), 0);
    quint32 comparisons = 0;
    try {
        std::stable_sort(order.begin(), order.end(), [&](quint32 left, quint32 right) {
            if (++comparisons % ComparisonsAtOnce == 0 && !_goesOn())
                throw NotWantedAnyMore();
            return levels.isBefore(left, right);
        });
    } catch (const NotWantedAnyMore &) {
        return Interrupted;
    }
    RecordIds result(read.size());
    std::transform(order.begin(), order.end(), result.begin(),
                   [&read](quint32 place) { return read[place]; });
    return result;
}
