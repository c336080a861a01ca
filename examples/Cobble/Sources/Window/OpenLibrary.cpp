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

std::shared_ptr<OpenLibrary> OpenLibrary::load(OpenBundle *bundle, const Library &library,
                                               QString *error)
{
    std::shared_ptr<OpenLibrary> opened(new OpenLibrary(bundle, library));
    *error = opened->readRecords();
    return error->isNull() ? opened : nullptr;
}

QVariantMap OpenLibrary::valuesOf(const RecordCursor &cursor) const
{
    QVariantMap values;
    for (qsizetype field = 0; field < _library.fields.size(); ++field)
        values.insert(_library.fields.at(field).columnName, cursor.value(field));
    return values;
}

/// \return why the records cannot be read; nil if they can be.
QString OpenLibrary::readRecords()
{
    RecordCursor cursor = _bundle->store()->records(_library);
    while (cursor.next())
        _records.push_back(std::make_unique<StoredRecord>(this, cursor.id(), valuesOf(cursor)));
    return cursor.errorText();
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

QString OpenLibrary::change(const std::function<void()> &changes)
{
    if (_isChanging) {
        changes();
        return {};
    }
    _replaced.clear();
    _isRefused = false;
    const QString reason = _bundle->change([&] {
        const QScopedValueRollback<bool> changing(_isChanging, true);
        changes();
        return !_isRefused;
    });
    if (!reason.isNull())
        takeBack();
    _replaced.clear();
    return reason;
}

/// Gives the records the values that the database still has.
void OpenLibrary::takeBack()
{
    const std::vector<Replaced> replaced = std::exchange(_replaced, {});
    for (auto each = replaced.rbegin(); each != replaced.rend(); ++each)
        each->record->setSavedValue(each->value, each->key);
}

bool OpenLibrary::save(StoredRecord &record, const QString &key, const QVariant &value)
{
    if (!_isChanging) {
        const QString reason = change([&] { save(record, key, value); });
        if (!reason.isNull())
            Q_EMIT refused(reason);
        return reason.isNull();
    }
    const bool isSaved =
        !_isRefused && _bundle->store()->update(_library, record.id(), fieldWithKey(key), value);
    _isRefused = !isSaved;
    if (isSaved)
        _replaced.push_back({&record, key, record.values().value(key)});
    return isSaved;
}

void OpenLibrary::addMediaOf(const FormRecord &record, QSet<QString> *media) const
{
    for (const LibraryField &field : _library.fields) {
        const QString value = record.values().value(field.columnName).toString();
        if (field.type == FieldType::Media && !value.isEmpty())
            media->insert(value);
    }
}

bool OpenLibrary::removeFromDatabase(const QList<StoredRecord *> &records)
{
    return std::all_of(records.begin(), records.end(), [this](const StoredRecord *record) {
        return _bundle->store()->removeRecord(_library, record->id());
    });
}

QString OpenLibrary::removeRecords(const QList<StoredRecord *> &records)
{
    const QString reason = _bundle->change([&] { return removeFromDatabase(records); });
    if (!reason.isNull())
        return reason;
    const QSet<StoredRecord *> gone(records.begin(), records.end());
    const auto firstGone =
        std::stable_partition(_records.begin(), _records.end(),
                              [&gone](const auto &record) { return !gone.contains(record.get()); });
    QSet<QString> media;
    std::for_each(firstGone, _records.end(),
                  [&](const auto &record) { addMediaOf(*record, &media); });
    const std::vector<std::unique_ptr<StoredRecord>> leaving(
        std::make_move_iterator(firstGone), std::make_move_iterator(_records.end()));
    _records.erase(firstGone, _records.end());
    Q_EMIT recordsWillGo();
    UnusedMedia::remove(_bundle->bundle(), *_bundle->store(), media);
    return {};
}
