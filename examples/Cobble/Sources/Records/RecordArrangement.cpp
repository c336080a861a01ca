#include "RecordArrangement.h"

#include <KTUtility/NSLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// From then on people should know what they wait for, in milliseconds.
constexpr int TimeToTell = 200;

/// Those that are still there; null for null.
SharedRecordIds without(const SharedRecordIds &ids, const RecordIdSet &present)
{
    if (!ids)
        return nullptr;
    auto left = std::make_shared<RecordIds>();
    std::copy_if(ids->begin(), ids->end(), std::back_inserter(*left),
                 [&present](qint64 id) { return present.contains(id); });
    return left;
}
} // namespace

RecordArrangement::RecordArrangement()
{
    _slowTimer.setSingleShot(true);
    _slowTimer.setInterval(TimeToTell);
    QObject::connect(&_slowTimer, &QTimer::timeout, this, [this] { setSlow(true); });
    QObject::connect(&_worker, &ArrangementWorker::told, this, &RecordArrangement::showMore);
    QObject::connect(&_worker, &ArrangementWorker::done, this, &RecordArrangement::finish);
}

void RecordArrangement::setSource(const std::optional<ArrangementSource> &source)
{
    _source = source;
    _wish = {};
    _isFilterSlow = false;
    forgetValues();
    arrange();
}

void RecordArrangement::setRecords(const SharedRecordIds &all)
{
    if (!_source)
        return;
    const SharedRecordIds before = std::exchange(_source->all, all);
    const bool haveSomeCome =
        !std::includes(before->begin(), before->end(), all->begin(), all->end());
    if (haveSomeCome || isWorking() || !isArranging()) {
        forgetValues();
        arrange();
        return;
    }
    const RecordIdSet present(*all);
    for (SharedRecordIds *const ids : {&_ids, &_found.ids, &_known})
        *ids = without(*ids, present);
    Q_EMIT changed();
}

void RecordArrangement::forgetValues()
{
    _isOutdated = true;
    _found = {};
    _known.reset();
}

void RecordArrangement::setSearch(const QString &typed)
{
    const QString search = typed.trimmed();
    if (search == _wish.search && !_isOutdated)
        return;
    _wish.search = search;
    arrange();
}

void RecordArrangement::setFilter(const NSPredicate &filter, bool isSlow)
{
    if (filter.isNil() && _wish.filter.isNil())
        return;
    _wish.filter = filter;
    _isFilterSlow = isSlow;
    _found = {};
    arrange();
}

void RecordArrangement::setSorts(const QList<RecordSort> &sorts)
{
    if (sorts == _wish.sorts && !_hasFailed)
        return;
    _wish.sorts = sorts;
    arrange();
}

bool RecordArrangement::isFiltering() const
{
    return !_wish.search.isEmpty() || !_wish.filter.isNil();
}

/// Whether not simply all records are shown.
bool RecordArrangement::isArranging() const
{
    return isFiltering() || !_wish.sorts.isEmpty();
}

// --- Arranging ----------------------------------------------------------------------------------

bool RecordArrangement::isAtOnce(const ArrangementRequest &request) const
{
    const bool isKnown = request.known && !isFiltering();
    return isKnown || (qsizetype(request.all->size()) <= MostAtOnce && !_isFilterSlow);
}

void RecordArrangement::arrange()
{
    _worker.cancel();
    _hasTold = false;
    _isOutdated = false;
    _hasFailed = false;
    if (!_source || !isArranging()) {
        finish(ArrangementResult{_source ? _source->all : std::make_shared<RecordIds>(), nullptr});
        return;
    }
    _wish.locale = NSLocale::currentLocale().localeIdentifier();
    const ArrangementRequest wanted = request();
    LibraryStore *const store = _source->store();
    if (store && isAtOnce(wanted))
        arrangeAtOnce(*store, wanted);
    else
        arrangeInThread(wanted);
}

ArrangementRequest RecordArrangement::request() const
{
    return {_source->library, _source->readers, _wish,
            _source->all,     narrowed(),       _knownSorts == _wish.sorts ? _known : nullptr};
}

/// What was found by some of the letters that are looked for now; null if there is no such thing.
SharedRecordIds RecordArrangement::narrowed() const
{
    const QStringList words = RecordSearch({}, _wish.search).words();
    return _found.ids && RecordSearch::have(words, _found.words) ? _found.ids : nullptr;
}

void RecordArrangement::arrangeAtOnce(LibraryStore &store, const ArrangementRequest &request)
{
    // The filter and the readers are for one thread at a time.
    _worker.stop();
    finish(RecordArranger(store, request).arrange());
}

void RecordArrangement::arrangeInThread(const ArrangementRequest &request)
{
    _slowTimer.start();
    _worker.start(_source->bundle, request);
}

/// The first ones that are found take the place of what was shown before.
void RecordArrangement::showMore(const RecordIds &ids)
{
    auto shown = std::make_shared<RecordIds>();
    if (_hasTold)
        *shown = *_ids;
    if (!_before) {
        _before = _ids;
        _wasAscending = _isAscending;
    }
    _isAscending = _wish.sorts.isEmpty();
    shown->insert(shown->end(), ids.begin(), ids.end());
    _hasTold = true;
    _ids = shown;
    Q_EMIT changed();
}

void RecordArrangement::finish(const Outcome<ArrangementResult> &arranged)
{
    _slowTimer.stop();
    if (arranged) {
        remember(*arranged);
        _isAscending = _wish.sorts.isEmpty();
        show(arranged->ids);
    }
    setSlow(false);
    if (arranged || arranged.isCancelled())
        return;
    // The same wish is tried again when it is made again.
    _isOutdated = true;
    _hasFailed = true;
    if (_before) {
        _isAscending = _wasAscending;
        show(_before);
    }
    Q_EMIT failed(arranged.reason());
}

void RecordArrangement::show(const SharedRecordIds &ids)
{
    _before.reset();
    _ids = ids;
    Q_EMIT changed();
}

/// What was found in values that have changed meanwhile is of no use for the next one.
void RecordArrangement::remember(const ArrangementResult &result)
{
    if (_isOutdated)
        return;
    if (result.found && isFiltering())
        _found = {RecordSearch({}, _wish.search).words(), result.found};
    if (result.found && !isFiltering() && !_wish.sorts.isEmpty()) {
        _knownSorts = _wish.sorts;
        _known = result.ids;
    }
}

void RecordArrangement::setSlow(bool isSlow)
{
    if (_isSlow == isSlow)
        return;
    _isSlow = isSlow;
    Q_EMIT slowChanged();
}
