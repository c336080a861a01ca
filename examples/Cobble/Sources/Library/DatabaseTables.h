#pragma once

#include "Text/Outcome.h"

#include <QSqlDatabase>
#include <QStringList>

// What a database consists of, which somebody else may have made: views in the place of tables,
// computed columns and triggers may have no end.

namespace DatabaseTables {
/// Whether there is a table. A view of that name is an error, and so is a table that computes
/// columns.
Outcome<bool> has(const QSqlDatabase &database, const QString &name);
/// Fails if there is no table.
Outcome<> need(const QSqlDatabase &database, const QString &name);
/// The names of the columns of a table; none if there is no table.
Outcome<QStringList> columnsOf(const QSqlDatabase &database, const QString &table);
/// The names of all tables and views, which new ones cannot have.
Outcome<QStringList> names(const QSqlDatabase &database);
/// Fails for a database with triggers, which do with each change what somebody else has written.
Outcome<> checkNoTriggers(const QSqlDatabase &database);
} // namespace DatabaseTables
