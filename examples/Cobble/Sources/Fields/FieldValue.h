#pragma once

#include "FieldType.h"

#include <QString>
#include <QVariant>

// Values as texts that are the same in every locale.

namespace FieldValue {
/// Plain digits, "2008-03-04 17:30:00 -0500" in the machine's zone, texts as they are; "(nil)".
QString textOf(const QVariant &value);

/// The value of a type in that form: a number with "." ("-1234.5"), seconds for durations, dates
/// and times of ISO 8601 ("2008-03-04", "2008-03-04T17:30", "17:30").
/// \return nil if the text is none.
QVariant valueOf(FieldType type, const QString &text);
} // namespace FieldValue
