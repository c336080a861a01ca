#include "OpenLibrary.h"

#include "OpenBundle.h"
#include "Records/RecordScan.h"

#include <KTUtility/NSObject>

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// So many records stay in memory that nobody holds.
constexpr size_t RecentRecords = 1000;
/// Records that are read at once to be duplicated.
constexpr std::ptrdiff_t CopiedAtOnce = 500;
/// How long to leave somebody alone who writes, in milliseconds.
constexpr int Pause = 500;

/// Gives a record the values that the database has, where these are others.
void takeValues(StoredRecord &record, const QVariantMap &values)
{
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (!NSObject::isEqual(record.values().value(value.key()), value.value()))
            record.setSavedValue(value.value(), value.key());
    }
}
} // namespace

OpenLibrary::OpenLibrary(OpenBundle *bundle, const Library &library)
    : _bundle(bundle), _library(library), _readers(newReaders()), _records(RecentRecords)
{
    for (const LibraryField &field : library.fields)
        _fields.push_back(std::make_unique<FormField>(field));
    _pause.setSingleShot(true);
    _pause.setInterval(Pause);
    QObject::connect(&_pause, &QTimer::timeout, this, &OpenLibrary::readable);
}

FieldReaders OpenLibrary::newReaders() const
{
    FieldReaders readers;
    for (const LibraryField &field : _library.fields)
        readers.push_back(field.reader());
    return readers;
}

Outcome<std::shared_ptr<OpenLibrary>> OpenLibrary::load(OpenBundle *bundle, const Library &library)
{
    std::shared_ptr<OpenLibrary> opened(new OpenLibrary(bundle, library));
    const Outcome<> read = opened->readIds();
    if (!read)
        return read.failure();
    return opened;
}

QVariantMap OpenLibrary::valuesOf(const RecordCursor &cursor) const
{
    QVariantMap values;
    for (qsizetype field = 0; field < _library.fields.size(); ++field)
        values.insert(_library.fields.at(field).columnName, cursor.value(field));
    return values;
}

Outcome<> OpenLibrary::readIds()
{
    Outcome<RecordIds> ids = _bundle->store()->recordIds(_library);
    if (!ids)
        return ids.failure();
    _ids = std::make_shared<const RecordIds>(std::move(*ids));
    return {};
}

std::shared_ptr<StoredRecord> OpenLibrary::record(qint64 id)
{
    if (std::shared_ptr<StoredRecord> known = _records.find(id))
        return known;
    read({id});
    return _records.find(id);
}

void OpenLibrary::prepare(const RecordIds &ids)
{
    RecordIds missing;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(missing),
                 [this](qint64 id) { return !_records.find(id); });
    if (!missing.empty())
        read(missing);
}

/// Nothing while somebody writes.
void OpenLibrary::read(const RecordIds &ids)
{
    if (_pause.isActive())
        return;
    RecordPart part;
    part.ids = ids;
    _bundle->read([&](LibraryStore &store) {
        RecordCursor cursor = store.records(_library, part);
        while (cursor.next())
            take(cursor);
        if (!cursor.outcome())
            _pause.start();
    });
}

void OpenLibrary::take(const RecordCursor &cursor)
{
    _records.add(cursor.id(), std::make_shared<StoredRecord>(this, cursor.id(), valuesOf(cursor)));
}

QList<FormField *> OpenLibrary::fields() const
{
    QList<FormField *> fields;
    for (const auto &field : _fields)
        fields += field.get();
    return fields;
}

QVariant OpenLibrary::value(const FormRecord &record, qsizetype field) const
{
    return record.values().value(_library.fields.at(field).columnName);
}

QString OpenLibrary::text(const FormRecord &record, qsizetype field) const
{
    return RecordTexts::textOf(reader(field), value(record, field));
}

QString OpenLibrary::bundlePath() const
{
    return _bundle->bundle().bundlePath();
}

qsizetype OpenLibrary::fieldWithKey(const QString &key) const
{
    const auto field =
        std::find_if(_library.fields.begin(), _library.fields.end(),
                     [&key](const LibraryField &each) { return each.columnName == key; });
    return field - _library.fields.begin();
}

Outcome<> OpenLibrary::change(const std::function<void()> &changes, const QString &kind)
{
    if (_recorder) {
        changes();
        return {};
    }
    _replaced.clear();
    _saved = {};
    // Also if what changes throws.
    const auto takingBack = qScopeGuard([this] { takeBack(); });
    const Outcome<> changed = _bundle->change({kind, {}}, [&](StepRecorder &step) {
        const QScopedValueRollback<StepRecorder *> changing(_recorder, &step);
        changes();
        step.setTitle(titleOfChanges(kind));
        return _saved;
    });
    if (changed)
        _replaced.clear();
    return changed;
}

/// What the menu calls the changes: by their field, if they are all of one.
StepTitle OpenLibrary::titleOfChanges(const QString &kind) const
{
    QSet<QString> keys;
    QSet<const StoredRecord *> records;
    for (const Replaced &each : _replaced) {
        keys += each.key;
        records += each.record.get();
    }
    QVariantMap parameters = {{StepParameters::Library, _library.name},
                              {StepParameters::Count, records.size()}};
    if (keys.size() == 1)
        parameters.insert(StepParameters::Field,
                          _library.fields.at(fieldWithKey(*keys.begin())).title());
    return {kind, parameters};
}

/// Gives the records the values that the database still has.
void OpenLibrary::takeBack()
{
    const std::vector<Replaced> replaced = std::exchange(_replaced, {});
    for (auto each = replaced.rbegin(); each != replaced.rend(); ++each)
        each->record->setSavedValue(each->value, each->key);
}

Outcome<> OpenLibrary::save(StoredRecord &record, const QString &key, const QVariant &value)
{
    if (!_recorder) {
        const Outcome<> changed = change([&] { _saved = save(record, key, value); });
        if (!changed)
            Q_EMIT refused(changed.reason());
        return changed;
    }
    // After one that was rejected, nothing more is written.
    if (_saved)
        _saved = _recorder->update(_library, record.id(), fieldWithKey(key), value);
    if (_saved)
        _replaced.push_back({record.shared_from_this(), key, record.values().value(key)});
    return _saved;
}

// --- Many records -------------------------------------------------------------------------------

/// Of what is done to so many records.
StepTitle OpenLibrary::titleFor(const QString &kind, qsizetype count) const
{
    return {kind, {{StepParameters::Library, _library.name}, {StepParameters::Count, count}}};
}

/// Does the same to each of some records, as one step.
Outcome<> OpenLibrary::changeEach(const StepTitle &title, const RecordIds &ids,
                                  const std::function<Outcome<>(StepRecorder &, qint64)> &change)
{
    return _bundle->change(title, [&](StepRecorder &step) {
        Outcome<> changed;
        for (const qint64 id : ids)
            changed = changed.andThen([&] { return change(step, id); });
        return changed;
    });
}

Outcome<> OpenLibrary::insertRecords(const QString &kind, const QList<QVariantList> &values,
                                     RecordIds *ids)
{
    const StepTitle title = titleFor(kind, values.size());
    const Outcome<> inserted = _bundle->change(title, [&](StepRecorder &step) -> Outcome<> {
        for (const QVariantList &each : values) {
            const Outcome<qint64> id = step.insert(_library, each);
            if (!id)
                return id.failure();
            ids->push_back(*id);
        }
        return {};
    });
    return inserted.andThen([&] { return takeNew(*ids); });
}

Outcome<> OpenLibrary::duplicateRecords(const RecordIds &ids, RecordIds *copies)
{
    const StepTitle title = titleFor(StepKinds::Duplicate, qsizetype(ids.size()));
    const Outcome<> made = _bundle->change(title, [&](StepRecorder &step) {
        Outcome<> done;
        for (auto from = ids.begin(); from != ids.end() && done;) {
            const auto to = from + std::min(CopiedAtOnce, ids.end() - from);
            done = duplicateSome(step, RecordIds(from, to), copies);
            from = to;
        }
        return done;
    });
    return made.andThen([&] { return takeNew(*copies); });
}

/// What is known of the others still holds, so that they need not be read.
Outcome<> OpenLibrary::takeNew(const RecordIds &ids)
{
    RecordIds ascending = ids;
    std::sort(ascending.begin(), ascending.end());
    auto all = std::make_shared<RecordIds>();
    all->reserve(_ids->size() + ids.size());
    std::set_union(_ids->begin(), _ids->end(), ascending.begin(), ascending.end(),
                   std::back_inserter(*all));
    _ids = all;
    Q_EMIT manyChanged();
    Q_EMIT recordIdsChanged();
    return {};
}

/// Copies come in the order of the numbers, whatever that is.
Outcome<> OpenLibrary::duplicateSome(StepRecorder &step, const RecordIds &ids, RecordIds *copies)
{
    const Outcome<QList<QVariantList>> records = valuesOf(ids);
    if (!records)
        return records.failure();
    for (const QVariantList &values : *records) {
        const Outcome<qint64> copy = step.insert(_library, values);
        if (!copy)
            return copy.failure();
        copies->push_back(*copy);
    }
    return {};
}

Outcome<QList<QVariantList>> OpenLibrary::valuesOf(const RecordIds &ids)
{
    QHash<qint64, QVariantList> values;
    const Outcome<> read = eachOf(ids, [&](const RecordCursor &record) {
        QVariantList &ofRecord = values[record.id()];
        for (qsizetype field = 0; field < _library.fields.size(); ++field)
            ofRecord += record.value(field);
    });
    if (!read)
        return read.failure();
    QList<QVariantList> inOrder;
    for (const qint64 id : ids) {
        if (values.contains(id))
            inOrder += values.value(id);
    }
    return inOrder;
}

/// Reads records in any order.
Outcome<> OpenLibrary::eachOf(RecordIds ids, const std::function<void(const RecordCursor &)> &visit)
{
    std::sort(ids.begin(), ids.end());
    return RecordScan(*_bundle->store(), _library).run(ids, visit);
}

Outcome<> OpenLibrary::changeAll(const RecordIds &ids, qsizetype field, const QVariant &value,
                                 const QString &kind)
{
    StepTitle title = titleFor(kind, qsizetype(ids.size()));
    title.parameters.insert(StepParameters::Field, _library.fields.at(field).title());
    const Outcome<> changed = changeEach(title, ids, [&](StepRecorder &step, qint64 id) {
        return step.update(_library, id, field, value);
    });
    if (!changed)
        return changed;
    takeAll(RecordIdSet(ids), _library.fields.at(field).columnName, value);
    Q_EMIT manyChanged();
    return {};
}

/// Gives those that are in memory a value that the database has.
void OpenLibrary::takeAll(const RecordIdSet &ids, const QString &key, const QVariant &value)
{
    std::vector<std::shared_ptr<StoredRecord>> known;
    _records.forEach([&](const auto &record) { known.push_back(record); });
    const QSignalBlocker blocker(this);
    for (const auto &record : known) {
        if (ids.contains(record->id()))
            record->setSavedValue(value, key);
    }
}

Outcome<> OpenLibrary::removeRecords(const RecordIds &ids)
{
    RecordIds ascending = ids;
    std::sort(ascending.begin(), ascending.end());
    const Outcome<> removed =
        changeEach(titleFor(StepKinds::Delete, qsizetype(ids.size())), ascending,
                   [&](StepRecorder &step, qint64 id) { return step.remove(_library, id); });
    if (removed)
        forget(ascending);
    return removed;
}

/// Releases records that the database no longer has.
void OpenLibrary::forget(const RecordIds &gone)
{
    std::vector<std::shared_ptr<StoredRecord>> leaving;
    for (const qint64 id : gone) {
        leaving.push_back(_records.find(id));
        _records.remove(id);
    }
    auto left = std::make_shared<RecordIds>();
    std::set_difference(_ids->begin(), _ids->end(), gone.begin(), gone.end(),
                        std::back_inserter(*left));
    _ids = left;
    Q_EMIT recordIdsChanged();
}

Outcome<> OpenLibrary::refresh(const RecordIds &ids)
{
    const SharedRecordIds before = _ids;
    const Outcome<> read = readIds();
    if (!read)
        return read;
    RecordIds gone;
    std::set_difference(before->begin(), before->end(), _ids->begin(), _ids->end(),
                        std::back_inserter(gone));
    for (const qint64 id : gone)
        _records.remove(id);
    const Outcome<> reread = rereadKnown(ids);
    Q_EMIT manyChanged();
    if (*before != *_ids)
        Q_EMIT recordIdsChanged();
    return reread;
}

/// Gives those that are in memory the values that the database has.
Outcome<> OpenLibrary::rereadKnown(const RecordIds &ids)
{
    RecordIds known;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(known),
                 [this](qint64 id) { return bool(_records.find(id)); });
    const QSignalBlocker blocker(this);
    return eachOf(known, [this](const RecordCursor &each) {
        // Who follows a value may read other records, for which this one has to go.
        if (const std::shared_ptr<StoredRecord> record = _records.find(each.id()))
            takeValues(*record, valuesOf(each));
    });
}
