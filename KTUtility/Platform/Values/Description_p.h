#pragma once

// Private to the library. For NSObject and formats.

#include <QString>
#include <QVariant>

namespace KTPrivate {
/// The text that `%@` prints for a value.
QString describe(const QVariant &value);

/// What a value's type writes to a QDebug; nil if it writes nothing.
QString textForProgrammers(const QVariant &value);
} // namespace KTPrivate
