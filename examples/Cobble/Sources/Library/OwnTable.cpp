#include "OwnTable.h"

#include "SQL.h"

using namespace Qt::StringLiterals;

Outcome<OwnTable::State> OwnTable::stateIn(const QSqlDatabase &database) const
{
    const Outcome<QStringList> definitions = SQL::texts(
        database, u"SELECT sql FROM sqlite_master WHERE name = ? COLLATE NOCASE"_s, {name});
    if (!definitions)
        return definitions.failure();
    if (definitions->isEmpty())
        return State::Missing;
    return *definitions == QStringList(definition) ? State::Ours : State::Foreign;
}

Outcome<> OwnTable::make(const QSqlDatabase &database) const
{
    return SQL::run(database, definition);
}

Outcome<> OwnTable::drop(const QSqlDatabase &database) const
{
    return SQL::run(database, u"DROP TABLE IF EXISTS " + SQL::quoted(name));
}

Outcome<> OwnTable::dropIndices(const QSqlDatabase &database) const
{
    // Those that SQLite makes for the table itself have no statement.
    const Outcome<QStringList> indices =
        SQL::texts(database,
                   u"SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL AND "
                   "tbl_name = ? COLLATE NOCASE"_s,
                   {name});
    Outcome<> dropped = indices ? Outcome<>() : indices.failure();
    for (const QString &index : indices.valueOr({}))
        dropped = dropped.andThen(
            [&] { return SQL::run(database, u"DROP INDEX " + SQL::quoted(index)); });
    return dropped;
}

Outcome<> OwnTable::need(const QSqlDatabase &database) const
{
    const Outcome<State> state = stateIn(database);
    if (!state)
        return state.failure();
    if (*state == State::Ours)
        return dropIndices(database);
    return drop(database).andThen([&] { return make(database); });
}
