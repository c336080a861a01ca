#include "RecordList.h"

#include "OpenBundle.h"

#include <algorithm>
#include <utility>

namespace {
/// Records that are read at once around one that is shown.
constexpr std::ptrdiff_t Block = 64;
} // namespace

RecordList::RecordList()
{
    QObject::connect(&_arrangement, &RecordArrangement::changed, this,
                     &RecordList::followArrangement);
    QObject::connect(&_arrangement, &RecordArrangement::slowChanged, this,
                     &RecordList::slowChanged);
    QObject::connect(&_arrangement, &RecordArrangement::failed, this, &RecordList::failed);
}

RecordList::~RecordList()
{
    // Before the records are destroyed that it shows.
    _detail.setContent({});
}

void RecordList::setLibrary(const std::shared_ptr<OpenLibrary> &library)
{
    if (_library)
        QObject::disconnect(_library.get(), nullptr, this, nullptr);
    setSelection({});
    _toSelect.reset();
    _fallback = -1;
    _library = library;
    if (!library) {
        _arrangement.setSource(std::nullopt);
        return;
    }
    connectLibrary();
    OpenBundle *const bundle = library->bundle();
    _arrangement.setSource(ArrangementSource{bundle->bundle(), library->definition(),
                                             library->newReaders(), library->recordIds(),
                                             [bundle] { return bundle->store(); }});
}

void RecordList::connectLibrary()
{
    OpenLibrary *const library = _library.get();
    QObject::connect(library, &OpenLibrary::recordChanged, this, &RecordList::recordChanged);
    QObject::connect(library, &OpenLibrary::recordIdsChanged, this, [this] {
        // Where the selected ones are, if they are gone.
        _fallback = selectionIndex();
        _arrangement.setRecords(_library->recordIds());
    });
    QObject::connect(library, &OpenLibrary::manyChanged, this, [this] {
        _arrangement.forgetValues();
        Q_EMIT valuesChanged();
    });
    QObject::connect(library, &OpenLibrary::readable, this, [this] {
        fillDetail();
        Q_EMIT valuesChanged();
    });
}

void RecordList::recordChanged(const StoredRecord *record, const QString &key)
{
    _arrangement.forgetValues();
    const qsizetype row = rowOf(record->id());
    if (row >= 0)
        Q_EMIT valueChanged(row, _library->fieldWithKey(key));
}

void RecordList::setSearch(const QString &typed)
{
    _fallback = 0;
    _arrangement.setSearch(typed);
}

void RecordList::setFilter(const NSPredicate &filter, bool isSlow)
{
    _fallback = 0;
    _arrangement.setFilter(filter, isSlow);
}

// --- The rows -----------------------------------------------------------------------------------

/// In the order in which they were stored, it is found at once.
qsizetype RecordList::rowOf(qint64 id) const
{
    const RecordIds &shown = *ids();
    const auto found = _arrangement.isAscending() ? std::lower_bound(shown.begin(), shown.end(), id)
                                                  : std::find(shown.begin(), shown.end(), id);
    return found == shown.end() || *found != id ? -1 : qsizetype(found - shown.begin());
}

StoredRecord *RecordList::recordAt(qsizetype row) const
{
    if (!_library || row < 0 || row >= count())
        return nullptr;
    const qint64 id = (*ids())[size_t(row)];
    if (!_library->isInMemory(id))
        prepareAround(row);
    return _library->record(id).get();
}

void RecordList::prepareAround(qsizetype row) const
{
    const auto first = ids()->begin() + row / Block * Block;
    _library->prepare(RecordIds(first, first + std::min(Block, ids()->end() - first)));
}

// --- What is selected ---------------------------------------------------------------------------

RecordIds RecordList::selectedIds() const
{
    RecordIds selected;
    for (const RowRun &run : _selection.runs())
        selected.insert(selected.end(), _selectedAmong->begin() + run.first,
                        _selectedAmong->begin() + run.last + 1);
    return selected;
}

void RecordList::setSelectionIndexes(const QList<qsizetype> &rows)
{
    QList<qsizetype> present = rows;
    present.removeIf([](qsizetype row) { return row < 0; });
    setSelection(RowRuns::of(present));
}

void RecordList::setSelection(const RowRuns &rows)
{
    _toSelect.reset();
    select(rows.below(count()));
}

bool RecordList::selectIds(const RecordIds &ids)
{
    const RecordIdSet wanted(ids);
    const RowRuns rows = rowsOf(wanted);
    if (!rows.isEmpty())
        setSelection(rows);
    if (isArranging())
        _toSelect.emplace(wanted);
    return !rows.isEmpty() || isArranging();
}

void RecordList::select(const RowRuns &rows)
{
    const bool areSame = rows == _selection && _selectedAmong == ids();
    _selection = rows;
    _selectedAmong = ids();
    if (areSame)
        return;
    // While more come, a form keeps what it shows.
    if (!_toSelect || !rows.isEmpty() || !isArranging())
        fillDetail();
    Q_EMIT selectionChanged();
}

/// The rows of some records.
RowRuns RecordList::rowsOf(const RecordIdSet &selected) const
{
    RowRuns rows;
    const RecordIds &shown = *ids();
    for (size_t row = 0; row < shown.size(); ++row) {
        if (selected.contains(shown[row]))
            rows.append({qsizetype(row), qsizetype(row)});
    }
    return rows;
}

void RecordList::followArrangement()
{
    if (!_toSelect)
        _toSelect.emplace(selectedIds());
    Q_EMIT arrangedObjectsChanged();
    // Whoever is told may have selected something.
    if (_toSelect)
        select(selectionNow());
    if (isArranging())
        return;
    _toSelect.reset();
    _fallback = -1;
}

/// The rows of what was selected before; if they are gone, another one that was wished for.
RowRuns RecordList::selectionNow() const
{
    const RowRuns rows = rowsOf(*_toSelect);
    if (rows.runs().size() > MostRuns)
        return RowRuns::of({rows.first()});
    const bool areGone = rows.isEmpty() && !isArranging() && _fallback >= 0 && count() > 0;
    return areGone ? RowRuns::of({std::min(_fallback, count() - 1)}) : rows;
}

void RecordList::fillDetail()
{
    std::vector<std::shared_ptr<StoredRecord>> records;
    const RecordIds selected = isSelectionInDetail() ? selectedIds() : RecordIds();
    if (_library)
        _library->prepare(selected);
    for (const qint64 id : selected) {
        records.push_back(_library->record(id));
    }
    // Who does not see all of them shall not change some of them.
    if (std::find(records.begin(), records.end(), nullptr) != records.end())
        records.clear();
    if (records == _held)
        return;
    QVariantList content;
    QList<qsizetype> places;
    for (const auto &record : records) {
        places += content.size();
        content += QVariant::fromValue(record.get());
    }
    _detail.setContent(content);
    _detail.setSelectionIndexes(places);
    _held = std::move(records);
}
