#include "FieldExample.h"

#include "Fields/FieldReader.h"

#include <QDateTime>
#include <QHash>

namespace {
/// A value that shows what settings of the type do; nil for types without any.
QVariant exampleValue(FieldType type)
{
    static const QDateTime time(QDate(2008, 3, 4), QTime(17, 30));
    static const QHash<FieldType, QVariant> values = {
        {FieldType::Number, -1234.5}, {FieldType::Currency, -1234.5}, {FieldType::Duration, 5400},
        {FieldType::Date, time},      {FieldType::Time, time},        {FieldType::DateTime, time}};
    return values.value(type);
}
} // namespace

QString FieldExample::of(const LibraryField &field)
{
    const QVariant value = exampleValue(field.type);
    const std::unique_ptr<FieldReader> reader = field.reader();
    if (!reader->formatter() || !value.isValid())
        return {};
    return reader->formatter()->stringForObjectValue(value);
}
