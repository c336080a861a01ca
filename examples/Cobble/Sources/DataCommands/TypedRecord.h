#pragma once

#include "DataChange.h"

#include <QMap>

/// Values of some fields of a record, by the places of the fields.
using FieldValues = QMap<qsizetype, QVariant>;

// Values as people type them on a command line.

namespace TypedRecord {
/// Reads texts of the form FIELD=VALUE, in the user's locale. What is left empty is nil. A value that
/// its field cannot read fails with ExitCode::Unread.
Outcome<FieldValues> read(DataChange &change, const Library &library, const QStringList &texts);
/// Fails for texts without "=".
Outcome<> check(const QStringList &texts);
} // namespace TypedRecord
