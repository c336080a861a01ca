#include "OpenLibrary.h"

#include "OpenBundle.h"

#include <KTUtility/NSObject>

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// What stands between the texts of two fields, so that nothing is found across them.
constexpr QChar Between(0x1f);
} // namespace

OpenLibrary::OpenLibrary(OpenBundle *bundle, const Library &library)
    : _bundle(bundle), _library(library)
{
    for (const LibraryField &field : library.fields) {
        _fields.push_back(std::make_unique<FormField>(field));
        _readers.push_back(field.reader());
    }
}

Outcome<std::shared_ptr<OpenLibrary>> OpenLibrary::load(OpenBundle *bundle, const Library &library)
{
    std::shared_ptr<OpenLibrary> opened(new OpenLibrary(bundle, library));
    const Outcome<> read = opened->readRecords();
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

Outcome<> OpenLibrary::readRecords()
{
    RecordCursor cursor = _bundle->store()->records(_library);
    while (cursor.next())
        _records.push_back(std::make_unique<StoredRecord>(this, cursor.id(), valuesOf(cursor)));
    return cursor.outcome();
}

QList<FormField *> OpenLibrary::fields() const
{
    QList<FormField *> fields;
    for (const auto &field : _fields)
        fields += field.get();
    return fields;
}

QVariantList OpenLibrary::records() const
{
    QVariantList records;
    records.reserve(recordCount());
    for (const auto &record : _records)
        records += QVariant::fromValue(record.get());
    return records;
}

QVariant OpenLibrary::value(const FormRecord &record, qsizetype field) const
{
    return record.values().value(_library.fields.at(field).columnName);
}

QString OpenLibrary::text(const FormRecord &record, qsizetype field) const
{
    return RecordTexts::textOf(reader(field), value(record, field));
}

QString OpenLibrary::folded(const QString &text)
{
    const QString parts = text.normalized(QString::NormalizationForm_KD);
    QString letters;
    letters.reserve(parts.size());
    for (const QChar unit : parts) {
        if (unit.category() != QChar::Mark_NonSpacing)
            letters += unit;
    }
    return letters.toCaseFolded();
}

const QString &OpenLibrary::searchText(const StoredRecord &record) const
{
    if (record.searchText().isNull()) {
        QString texts = u""_s;
        for (qsizetype field = 0; field < _library.fields.size(); ++field)
            texts += folded(text(record, field)) + Between;
        record.setSearchText(texts);
    }
    return record.searchText();
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
    const Outcome<> changed = _bundle->change({kind, {}}, [&](StepRecorder &step) {
        const QScopedValueRollback<StepRecorder *> changing(_recorder, &step);
        changes();
        step.setTitle(titleOfChanges(kind));
        return _saved;
    });
    if (!changed)
        takeBack();
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
        records += each.record;
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
        _replaced.push_back({&record, key, record.values().value(key)});
    return _saved;
}

Outcome<> OpenLibrary::insertRecords(const QString &kind, const QList<QVariantList> &values,
                                     std::vector<qint64> *ids)
{
    const StepTitle title = {
        kind, {{StepParameters::Library, _library.name}, {StepParameters::Count, values.size()}}};
    const Outcome<> inserted = _bundle->change(title, [&](StepRecorder &step) -> Outcome<> {
        for (const QVariantList &each : values) {
            const Outcome<qint64> id = step.insert(_library, each);
            if (!id)
                return id.failure();
            ids->push_back(*id);
        }
        return {};
    });
    return inserted.andThen([&] { return refresh(*ids); });
}

Outcome<> OpenLibrary::removeRecords(const QList<StoredRecord *> &records)
{
    const StepTitle title = {
        StepKinds::Delete,
        {{StepParameters::Library, _library.name}, {StepParameters::Count, records.size()}}};
    const Outcome<> removed = _bundle->change(title, [&](StepRecorder &step) {
        Outcome<> done;
        for (const StoredRecord *const record : records)
            done = done.andThen([&] { return step.remove(_library, record->id()); });
        return done;
    });
    if (removed)
        replaceRecords(QSet<StoredRecord *>(records.begin(), records.end()), {});
    return removed;
}

// --- Undo ---------------------------------------------------------------------------------------

/// Null if there is none.
StoredRecord *OpenLibrary::recordWithId(qint64 id) const
{
    const auto place =
        std::lower_bound(_records.begin(), _records.end(), id,
                         [](const auto &record, qint64 number) { return record->id() < number; });
    return place != _records.end() && (*place)->id() == id ? place->get() : nullptr;
}

Outcome<> OpenLibrary::refresh(const std::vector<qint64> &ids)
{
    QSet<StoredRecord *> gone;
    std::vector<std::unique_ptr<StoredRecord>> added;
    for (const qint64 id : QSet<qint64>(ids.begin(), ids.end())) {
        StoredRecord *const known = recordWithId(id);
        RecordCursor cursor = _bundle->store()->record(_library, id);
        const bool isThere = cursor.next();
        if (known && isThere)
            takeValues(known, valuesOf(cursor));
        else if (known)
            gone += known;
        else if (isThere)
            added.push_back(std::make_unique<StoredRecord>(this, id, valuesOf(cursor)));
        if (!cursor.outcome())
            return cursor.outcome();
    }
    if (!gone.isEmpty() || !added.empty())
        replaceRecords(gone, std::move(added));
    return {};
}

/// Gives a record the values that the database has.
void OpenLibrary::takeValues(StoredRecord *record, const QVariantMap &values)
{
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (!NSObject::isEqual(record->values().value(value.key()), value.value()))
            record->setSavedValue(value.value(), value.key());
    }
}

/// Releases records that the database no longer has, and adds those that it has.
void OpenLibrary::replaceRecords(const QSet<StoredRecord *> &gone,
                                 std::vector<std::unique_ptr<StoredRecord>> &&added)
{
    const auto firstGone =
        std::stable_partition(_records.begin(), _records.end(),
                              [&gone](const auto &record) { return !gone.contains(record.get()); });
    const std::vector<std::unique_ptr<StoredRecord>> leaving(
        std::make_move_iterator(firstGone), std::make_move_iterator(_records.end()));
    _records.erase(firstGone, _records.end());
    std::move(added.begin(), added.end(), std::back_inserter(_records));
    std::sort(_records.begin(), _records.end(),
              [](const auto &one, const auto &other) { return one->id() < other->id(); });
    Q_EMIT recordsWillGo();
}
