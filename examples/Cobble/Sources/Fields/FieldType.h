#pragma once

#include <QStringList>

#include <optional>

/// The types of fields that a library can have.
enum class FieldType { Number, Currency, Duration, Time, Date, DateTime, Phone, Media, Text };

namespace FieldTypes {
/// What people call a type: "number", "date+time".
QString nameOf(FieldType type);
/// The type with a formatter that has a name; "datetime" is one of "date+time".
std::optional<FieldType> typeNamed(const QString &name);
/// The type with the name that nameOf() gives; text if there is none.
FieldType storedTypeNamed(const QString &name);
/// The names of the types that have a formatter.
QStringList names();
} // namespace FieldTypes
