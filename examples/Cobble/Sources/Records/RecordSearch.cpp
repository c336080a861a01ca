#include "RecordSearch.h"

#include "FoldedText.h"
#include "Library/RecordTexts.h"

#include <KTUtility/NSObject>

#include <algorithm>

namespace {
/// So many texts of a field are remembered.
constexpr qsizetype MostKnown = 20000;
} // namespace

RecordSearch::RecordSearch(const FieldReaders &readers, const QString &typed)
    : _readers(readers)
    , _words(foldedText(typed.simplified()).split(u' ', Qt::SkipEmptyParts))
    , _known(readers.size())
{
    for (size_t field = 0; field < readers.size() && !_words.isEmpty(); ++field) {
        const FieldReader &reader = *readers[field];
        const QVariant value =
            reader.formatter() ? reader.read(typed.trimmed()).valueOr({}) : QVariant();
        if (!NSObject::isNil(value))
            _values += {qsizetype(field), value};
    }
}

/// Shown and folded.
QString RecordSearch::textOf(const RecordCursor &record, qsizetype field)
{
    const FieldReader &reader = *_readers[size_t(field)];
    if (!reader.formatter())
        return foldedText(record.value(field).toString());
    const QString stored = record.stored(field).toString();
    QHash<QString, QString> &known = _known[size_t(field)];
    const auto found = known.constFind(stored);
    if (found != known.constEnd())
        return *found;
    if (known.size() >= MostKnown)
        known.clear();
    return *known.insert(stored, foldedText(RecordTexts::textOf(reader, record.value(field))));
}

bool RecordSearch::finds(const RecordCursor &record)
{
    QStringList missing = _words;
    for (qsizetype field = 0; field < qsizetype(_readers.size()) && !missing.isEmpty(); ++field) {
        const QString text = textOf(record, field);
        missing.removeIf([&text](const QString &word) { return text.contains(word); });
    }
    return missing.isEmpty() || findsValue(record);
}

QList<qsizetype> RecordSearch::valueFields() const
{
    QList<qsizetype> fields;
    for (const TypedValue &typed : _values)
        fields += typed.field;
    return fields;
}

bool RecordSearch::findsValue(const RecordCursor &record) const
{
    return std::any_of(_values.begin(), _values.end(), [&record](const TypedValue &typed) {
        return NSObject::isEqual(record.value(typed.field), typed.value);
    });
}

bool RecordSearch::have(const QStringList &words, const QStringList &others)
{
    return std::all_of(others.begin(), others.end(), [&words](const QString &other) {
        return std::any_of(words.begin(), words.end(),
                           [&other](const QString &word) { return word.contains(other); });
    });
}
