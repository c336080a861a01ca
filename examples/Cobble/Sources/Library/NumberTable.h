#pragma once

#include "Text/Outcome.h"

#include <QSqlDatabase>

#include <optional>

// The table that says up to which number the records of each library have had numbers. It is made
// when the first record is added or deleted.

namespace NumberTable {
/// The last number that is known of the records of a table; nothing if none was kept yet.
Outcome<std::optional<qint64>> lastOf(const QSqlDatabase &database, const QString &table);
Outcome<> keep(const QSqlDatabase &database, const QString &table, qint64 number);
/// For a table that goes.
Outcome<> forget(const QSqlDatabase &database, const QString &table);
} // namespace NumberTable
