#include "OpenLibrary.h"

#include "Import/UnusedMedia.h"
#include "OpenBundle.h"

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

qsizetype OpenLibrary::fieldWithKey(const QString &key) const
{
    const auto field =
        std::find_if(_library.fields.begin(), _library.fields.end(),
                     [&key](const LibraryField &each) { return each.columnName == key; });
    return field - _library.fields.begin();
}

Outcome<> OpenLibrary::change(const std::function<void()> &changes)
{
    if (_isChanging) {
        changes();
        return {};
    }
    _replaced.clear();
    _saved = {};
    const Outcome<> changed = _bundle->change([&] {
        const QScopedValueRollback<bool> changing(_isChanging, true);
        changes();
        return _saved;
    });
    if (!changed)
        takeBack();
    _replaced.clear();
    return changed;
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
    if (!_isChanging) {
        const Outcome<> changed = change([&] { _saved = save(record, key, value); });
        if (!changed)
            Q_EMIT refused(changed.reason());
        return changed;
    }
    // After one that was rejected, nothing more is written.
    if (_saved)
        _saved = _bundle->store()->update(_library, record.id(), fieldWithKey(key), value);
    if (_saved)
        _replaced.push_back({&record, key, record.values().value(key)});
    return _saved;
}

void OpenLibrary::addMediaOf(const FormRecord &record, QSet<QString> *media) const
{
    for (const LibraryField &field : _library.fields) {
        const QString value = record.values().value(field.columnName).toString();
        if (field.type == FieldType::Media && !value.isEmpty())
            media->insert(value);
    }
}

Outcome<> OpenLibrary::removeFromDatabase(const QList<StoredRecord *> &records)
{
    Outcome<> removed;
    for (const StoredRecord *const record : records)
        removed =
            removed.andThen([&] { return _bundle->store()->removeRecord(_library, record->id()); });
    return removed;
}

Outcome<> OpenLibrary::removeRecords(const QList<StoredRecord *> &records)
{
    const Outcome<> removed = _bundle->change([&] { return removeFromDatabase(records); });
    if (removed)
        forget(QSet<StoredRecord *>(records.begin(), records.end()));
    return removed;
}

/// Releases records that the database no longer has.
void OpenLibrary::forget(const QSet<StoredRecord *> &gone)
{
    const auto firstGone =
        std::stable_partition(_records.begin(), _records.end(),
                              [&gone](const auto &record) { return !gone.contains(record.get()); });
    const std::vector<std::unique_ptr<StoredRecord>> leaving(
        std::make_move_iterator(firstGone), std::make_move_iterator(_records.end()));
    _records.erase(firstGone, _records.end());
    QSet<QString> media;
    for (const auto &record : leaving)
        addMediaOf(*record, &media);
    Q_EMIT recordsWillGo();
    UnusedMedia::remove(_bundle->bundle(), *_bundle->store(), media);
}
