#pragma once

#include "Fields/FieldType.h"

#include <QVariant>

// Values as the database keeps them: whole numbers and numbers of up to 15 digits as SQLite's own,
// longer ones as their digits, dates in ISO 8601 with the distance to UTC, everything else as text.
// A text that its field's type could not read is kept as it was typed.

namespace StoredValue {
/// The value to write; nil for nil.
QVariant forDatabase(const QVariant &value);
/// The value of a field of this type; a text where it is no value of the type, nil for nil.
QVariant fromDatabase(FieldType type, const QVariant &stored);
} // namespace StoredValue
