#include "RecordSearch.h"

#include <KTUtility/NSObject>

namespace {
/// What the fields read of a text.
struct TypedValue
{
    qsizetype field;
    QVariant value;
};

QList<TypedValue> valuesOf(const OpenLibrary &library, const QString &typed)
{
    QList<TypedValue> values;
    for (qsizetype field = 0; field < library.definition().fields.size(); ++field) {
        const FieldReader &reader = library.reader(field);
        const QVariant value = reader.formatter() ? reader.read(typed).valueOr({}) : QVariant();
        if (!NSObject::isNil(value))
            values += {field, value};
    }
    return values;
}

bool holdsAll(const QString &text, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(),
                       [&text](const QString &word) { return text.contains(word); });
}
} // namespace

NSPredicate RecordSearch::predicateFor(const OpenLibrary &library, const QString &typed)
{
    const QStringList words =
        OpenLibrary::folded(typed.simplified()).split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    return NSPredicate::predicateWithBlock(
        [&library, words, values = valuesOf(library, typed.trimmed())](const QVariant &object) {
            const StoredRecord *const record = object.value<StoredRecord *>();
            return holdsAll(library.searchText(*record), words) ||
                   std::any_of(values.begin(), values.end(), [&](const TypedValue &typedValue) {
                       return NSObject::isEqual(library.value(*record, typedValue.field),
                                                typedValue.value);
                   });
        });
}
