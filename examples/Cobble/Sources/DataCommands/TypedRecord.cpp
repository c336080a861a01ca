#include "TypedRecord.h"

#include "FieldNames.h"
#include "Fields/FieldReader.h"

using namespace Qt::StringLiterals;

namespace {
Outcome<QVariant> readValue(DataChange &change, const LibraryField &field, const QString &text)
{
    if (field.type == FieldType::Media && !text.isEmpty())
        return change.storedMedia(text);
    const Outcome<QVariant> value = field.reader()->readTyped(text);
    if (value)
        return value;
    return change.failure(ExitCode::Unread,
                          u"%1: '%2': %3"_s.arg(field.title(), text, value.reason()));
}
} // namespace

Outcome<FieldValues> TypedRecord::read(DataChange &change, const Library &library,
                                       const QStringList &texts)
{
    FieldValues values;
    for (const QString &text : texts) {
        const FieldNames::Assignment assignment = FieldNames::assignmentIn(library, text);
        const Outcome<qsizetype> field = assignment.field >= 0
                                             ? Outcome<qsizetype>(assignment.field)
                                             : change.fieldNamed(library, assignment.name);
        const Outcome<QVariant> value =
            field ? readValue(change, library.fields.at(*field), assignment.value)
                  : field.failure();
        if (!value)
            return value.failure();
        values.insert(*field, *value);
    }
    return values;
}

Outcome<> TypedRecord::check(const QStringList &texts)
{
    for (const QString &text : texts) {
        if (!text.contains(u'='))
            return Failure{u"'%1' is not FIELD=VALUE"_s.arg(text)};
    }
    return {};
}
