#include "JournalRepair.h"

#include "CatalogueChange.h"
#include "JournalKinds.h"
#include "Library/DatabaseTables.h"
#include "Library/JournalTables.h"
#include "Library/LibraryCatalogue.h"
#include "Library/LibraryNames.h"
#include "Library/SQL.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// Whether a table can be read that may be anybody's.
Outcome<bool> isReadableTable(const QSqlDatabase &database, const QString &table,
                              const QStringList &columns)
{
    const Outcome<bool> isThere = DatabaseTables::has(database, table);
    if (!isThere && isThere.failure().isFinal)
        return false;
    const Outcome<QStringList> present = DatabaseTables::columnsOf(database, table);
    if (!isThere || !present)
        return isThere ? present.failure() : isThere.failure();
    return *isThere && std::all_of(columns.begin(), columns.end(), [&](const QString &column) {
        return present->contains(column);
    });
}

std::optional<Library> libraryRemovedBy(const QByteArray &content)
{
    const Outcome<CatalogueChange> change = CatalogueChange::read(content);
    return change && !change->after ? change->before : std::nullopt;
}

/// The libraries that steps have removed, the last one first.
Outcome<QList<std::optional<Library>>> removedLibraries(const QSqlDatabase &database)
{
    const Outcome<bool> canRead = isReadableTable(database, u"cobble_step_change"_s,
                                                  {u"step"_s, u"place"_s, u"kind"_s, u"content"_s});
    if (!canRead)
        return canRead.failure();
    if (!*canRead)
        return QList<std::optional<Library>>();
    return SQL::rows(
        database,
        u"SELECT content FROM cobble_step_change WHERE kind = ? ORDER BY step DESC, place DESC"_s,
        {JournalKinds::Catalogue},
        [](const QSqlQuery &row) { return libraryRemovedBy(row.value(0).toByteArray()); });
}

/// Whether no step can have removed a library with that table: it is one of Cobble's own, or another
/// library has it.
bool isTableTaken(const QString &table, const QList<Library> &libraries)
{
    return table.startsWith(u"cobble_", Qt::CaseInsensitive) ||
           table.startsWith(u"sqlite_", Qt::CaseInsensitive) ||
           std::any_of(libraries.begin(), libraries.end(), [&](const Library &each) {
               return each.tableName.compare(table, Qt::CaseInsensitive) == 0;
           });
}

/// Whether there is a table of which no library knows, with what the fields need.
Outcome<bool> canComeBack(const QSqlDatabase &database, const Library &library,
                          const QList<Library> &libraries)
{
    if (library.fields.isEmpty() || isTableTaken(library.tableName, libraries))
        return false;
    const Outcome<bool> isThere = isReadableTable(database, library.tableName, {u"id"_s});
    if (!isThere || !*isThere)
        return isThere;
    const Outcome<> checked = LibraryCatalogue::checkColumns(database, library);
    return checked || checked.failure().isFinal ? Outcome<bool>(bool(checked)) : checked.failure();
}

Outcome<> putBack(const QSqlDatabase &database, Library library)
{
    const Outcome<QList<Library>> libraries = LibraryCatalogue::libraries(database);
    if (!libraries)
        return libraries.failure();
    const Outcome<bool> canBe = canComeBack(database, library, *libraries);
    if (!canBe || !*canBe)
        return canBe ? Outcome<>() : canBe.failure();
    QStringList names;
    for (const Library &each : *libraries)
        names += each.name;
    library.name = LibraryNames::unique(library.name, names);
    return LibraryCatalogue::add(database, library);
}

Outcome<> putBackLibraries(const QSqlDatabase &database)
{
    const auto removed = removedLibraries(database);
    if (!removed)
        return removed.failure();
    Outcome<> done = LibraryCatalogue::need(database);
    for (const std::optional<Library> &library : *removed)
        done = done.andThen([&] { return library ? putBack(database, *library) : Outcome<>(); });
    return done;
}
} // namespace

Outcome<> JournalRepair::need(const QSqlDatabase &database)
{
    const Outcome<OwnTable::State> state = JournalTables::stateIn(database);
    if (!state)
        return state.failure();
    switch (*state) {
    case OwnTable::State::Missing:
        return JournalTables::make(database);
    case OwnTable::State::Ours:
        return JournalTables::dropIndices(database);
    case OwnTable::State::Foreign:
        break;
    }
    return putBackLibraries(database).andThen([&] { return JournalTables::makeAnew(database); });
}
