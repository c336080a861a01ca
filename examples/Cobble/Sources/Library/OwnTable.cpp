#include "OwnTable.h"

#include "LibraryCatalogue.h"
#include "SQL.h"
#include "Text/Reasons.h"

#include <QScopeGuard>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// Views and indices hold nothing of their own.
QString statementThatRemoves(const QString &type, const QString &name, const QString &freeName)
{
    if (type == u"table")
        return u"ALTER TABLE %1 RENAME TO %2"_s.arg(SQL::quoted(name), SQL::quoted(freeName));
    return u"DROP %1 %2"_s.arg(type, SQL::quoted(name));
}

QString freeNameFor(const QString &name, const QStringList &names)
{
    QString free = name + u"_foreign";
    for (int number = 2; names.contains(free, Qt::CaseInsensitive); ++number)
        free = u"%1_foreign%2"_s.arg(name).arg(number);
    return free;
}
} // namespace

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
    const Outcome<State> state = stateIn(database);
    if (!state)
        return state.failure();
    return *state == State::Foreign
               ? putAside(database)
               : SQL::run(database, u"DROP TABLE IF EXISTS " + SQL::quoted(name));
}

Outcome<> OwnTable::putAside(const QSqlDatabase &database) const
{
    const auto others =
        SQL::rows(database, u"SELECT type, name FROM sqlite_master WHERE name = ? COLLATE NOCASE"_s,
                  {name}, [](const QSqlQuery &row) {
                      return std::pair(row.value(0).toString(), row.value(1).toString());
                  });
    const Outcome<QStringList> names = SQL::texts(database, u"SELECT name FROM sqlite_master"_s);
    if (!others || !names)
        return others ? names.failure() : others.failure();
    // Else a view of something that is gone would keep every table from being renamed.
    Outcome<> aside = checkNoLibrary(database).andThen(
        [&] { return SQL::run(database, u"PRAGMA legacy_alter_table = ON"_s); });
    const auto asBefore =
        qScopeGuard([&] { (void)SQL::run(database, u"PRAGMA legacy_alter_table = OFF"_s); });
    for (const auto &other : *others)
        aside = aside.andThen([&] {
            return SQL::run(database, statementThatRemoves(other.first, other.second,
                                                           freeNameFor(name, *names)));
        });
    return aside;
}

Outcome<> OwnTable::checkNoLibrary(const QSqlDatabase &database) const
{
    const Outcome<QList<Library>> libraries = LibraryCatalogue::libraries(database);
    if (!libraries)
        return libraries.failure();
    for (const Library &library : *libraries) {
        if (library.tableName.compare(name, Qt::CaseInsensitive) == 0)
            return Failure{.reason = Reasons::tr("the library “%1” has the table “%2”, which "
                                                 "Cobble needs for itself")
                                         .arg(library.name, name),
                           .isFinal = true};
    }
    return {};
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
