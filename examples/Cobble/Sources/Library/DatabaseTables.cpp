#include "DatabaseTables.h"

#include "SQL.h"
#include "Text/Reasons.h"

using namespace Qt::StringLiterals;

namespace {
/// Fails for columns that the database makes by itself, of whatever size.
Outcome<> checkColumns(const QSqlDatabase &database, const QString &table)
{
    const auto areStored =
        SQL::rows(database, u"PRAGMA table_xinfo(" + SQL::quoted(table) + u')', {},
                  [](const QSqlQuery &row) { return row.value(u"hidden"_s).toInt() == 0; });
    if (!areStored)
        return areStored.failure();
    return areStored->contains(false)
               ? Failure{.reason = Reasons::tr("'%1' has a computed column").arg(table),
                         .isFinal = true}
               : Outcome<>();
}
} // namespace

Outcome<bool> DatabaseTables::has(const QSqlDatabase &database, const QString &name)
{
    // Tables have pages of their own; views and what is computed by a module have none.
    const auto areTables =
        SQL::rows(database,
                  u"SELECT type = 'table' AND rootpage > 0 FROM sqlite_master WHERE type IN "
                  "('table', 'view') AND name = ? COLLATE NOCASE"_s,
                  {name}, [](const QSqlQuery &row) { return row.value(0).toBool(); });
    if (!areTables)
        return areTables.failure();
    if (areTables->contains(false))
        return Failure{.reason = Reasons::tr("'%1' is no table").arg(name), .isFinal = true};
    return checkColumns(database, name).andThen([&] {
        return Outcome<bool>(!areTables->isEmpty());
    });
}

Outcome<> DatabaseTables::need(const QSqlDatabase &database, const QString &name)
{
    const Outcome<bool> isThere = has(database, name);
    if (!isThere)
        return isThere.failure();
    if (*isThere)
        return {};
    return Failure{.reason = Reasons::tr("no such table: %1").arg(name), .isFinal = true};
}

Outcome<QStringList> DatabaseTables::columnsOf(const QSqlDatabase &database, const QString &table)
{
    return SQL::rows(database, u"PRAGMA table_xinfo(" + SQL::quoted(table) + u')', {},
                     [](const QSqlQuery &row) { return row.value(u"name"_s).toString(); });
}

Outcome<QStringList> DatabaseTables::names(const QSqlDatabase &database)
{
    return SQL::texts(database,
                      u"SELECT name FROM sqlite_master WHERE type IN ('table', 'view')"_s);
}

Outcome<> DatabaseTables::checkNoTriggers(const QSqlDatabase &database)
{
    // Everything else counts as one: SQLite takes a trigger however its entry is spelt.
    const Outcome<qint64> count = SQL::number(
        database,
        u"SELECT count(*) FROM sqlite_master WHERE NOT (sql LIKE "
        "'CREATE TABLE %' OR sql LIKE 'CREATE VIRTUAL TABLE %' OR sql LIKE 'CREATE VIEW %' OR "
        "sql LIKE 'CREATE INDEX %' OR sql LIKE 'CREATE UNIQUE INDEX %')"_s);
    if (!count)
        return count.failure();
    return *count == 0
               ? Outcome<>()
               : Failure{Reasons::tr("the database has a trigger, which Cobble does not use")};
}
