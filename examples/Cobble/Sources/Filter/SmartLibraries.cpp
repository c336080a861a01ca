#include "SmartLibraries.h"

#include "FilterTexts.h"
#include "Library/DatabaseTables.h"

#include <QSqlError>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// A list of more was not made by people.
constexpr int MostSmartLibraries = 1000;

Outcome<> executed(QSqlQuery &query, const QString &statement, const QStringList &values)
{
    bool isDone = query.prepare(statement);
    for (const QString &value : values)
        query.addBindValue(value.isNull() ? u""_s : value);
    isDone = isDone && query.exec();
    return isDone ? Outcome<>() : Failure{DatabaseConnection::reasonOf(query.lastError())};
}

Outcome<> run(LibraryStore &store, const QString &statement, const QStringList &values = {})
{
    QSqlQuery query(store.database());
    return executed(query, statement, values);
}

Outcome<> makeTable(LibraryStore &store)
{
    return run(store, u"CREATE TABLE IF NOT EXISTS cobble_smart_library (name TEXT PRIMARY KEY, "
                      "table_name TEXT, library TEXT, filter TEXT, sort TEXT, columns TEXT)"_s);
}

SmartLibrary smartLibraryIn(const QSqlQuery &row)
{
    return {row.value(0).toString(), row.value(1).toString(), row.value(2).toString(),
            row.value(3).toString(), row.value(4).toString(), row.value(5).toString()};
}

/// Whether what is kept of it is what it was made of.
Outcome<> checkReading(LibraryStore &store, const SmartLibrary &smart)
{
    const Outcome<QList<Library>> libraries = store.libraries();
    if (!libraries)
        return libraries.failure();
    const auto library = SmartLibraries::libraryOf(smart, *libraries);
    if (!library)
        return Failure{FilterTexts::tr("there is no library “%1”").arg(smart.libraryName)};
    const auto query = SmartLibraries::queryOf(smart, std::make_shared<FilterFields>(*library));
    return query ? Outcome<>()
                 : Failure{FilterTexts::tr("the filter cannot be kept: %1").arg(query.reason())};
}

template<typename Find>
auto findIn(const QList<Library> &libraries, const Find &find) -> std::optional<Library>
{
    const auto found = std::find_if(libraries.begin(), libraries.end(), find);
    return found == libraries.end() ? std::nullopt : std::optional(*found);
}
} // namespace

SmartLibrary SmartLibraries::make(const QString &name, const Library &library,
                                  const RecordQuery &query, const FilterFields &fields)
{
    constexpr FilterNotation notation = FilterNotation::Portable;
    return {name,
            library.tableName,
            library.name,
            query.filter.text(notation),
            RecordQuery::textOf(query.order, fields, notation),
            RecordQuery::textOf(query.columns, fields, notation)};
}

Outcome<RecordQuery> SmartLibraries::queryOf(const SmartLibrary &smart,
                                             const RecordFilter::Fields &fields)
{
    constexpr FilterNotation notation = FilterNotation::Portable;
    RecordQuery query;
    query.filter = RecordFilter::read(smart.filter, fields, notation);
    if (const Outcome<> read = query.filter.outcome(); !read)
        return read.failure();
    if (!smart.order.isEmpty()) {
        const auto order = RecordQuery::orderIn(smart.order, *fields, notation);
        if (!order)
            return order.failure();
        query.order = *order;
    }
    if (smart.columns.isEmpty())
        return query;
    const auto columns = RecordQuery::columnsIn(smart.columns, *fields, notation);
    query.columns = columns.valueOr({});
    return columns ? Outcome<RecordQuery>(query) : columns.failure();
}

std::optional<Library> SmartLibraries::libraryOf(const SmartLibrary &smart,
                                                 const QList<Library> &libraries)
{
    const auto byTable =
        findIn(libraries, [&](const Library &each) { return each.tableName == smart.tableName; });
    return byTable ? byTable : Libraries::named(smart.libraryName, libraries);
}

Outcome<QList<SmartLibrary>> SmartLibraries::all(LibraryStore &store)
{
    QList<SmartLibrary> found;
    const Outcome<bool> isThere = DatabaseTables::has(store.database(), u"cobble_smart_library"_s);
    if (!isThere)
        return isThere.failure();
    if (!*isThere)
        return found;
    QSqlQuery query(store.database());
    query.setForwardOnly(true);
    const QString table = u"cobble_smart_library"_s;
    const Outcome<> read = executed(
        query,
        u"SELECT %1.name, %1.table_name, %1.library, %1.filter, %1.sort, %1.columns FROM %1 "
        "ORDER BY %1.name COLLATE NOCASE LIMIT %2"_s.arg(table)
            .arg(MostSmartLibraries),
        {});
    if (!read)
        return read.failure();
    while (query.next())
        found += smartLibraryIn(query);
    if (query.lastError().isValid())
        return Failure{DatabaseConnection::reasonOf(query.lastError())};
    return found;
}

std::optional<SmartLibrary> SmartLibraries::named(const QString &name,
                                                  const QList<SmartLibrary> &all)
{
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        const auto found = std::find_if(all.begin(), all.end(), [&](const SmartLibrary &each) {
            return each.name.compare(name, sensitivity) == 0;
        });
        if (found != all.end())
            return *found;
    }
    return std::nullopt;
}

Outcome<> SmartLibraries::checkName(LibraryStore &store, const QString &name,
                                    const QString &formerName)
{
    if (name.trimmed().isEmpty())
        return Failure{FilterTexts::tr("a name is missing")};
    const Outcome<QList<Library>> libraries = store.libraries();
    const Outcome<QList<SmartLibrary>> smart = all(store);
    if (!libraries || !smart)
        return libraries ? smart.failure() : libraries.failure();
    const std::optional<SmartLibrary> same = named(name, *smart);
    const bool isTaken = Libraries::named(name, *libraries) || (same && same->name != formerName);
    return isTaken ? Failure{FilterTexts::tr("there is a library “%1” already").arg(name)}
                   : Outcome<>();
}

Outcome<> SmartLibraries::save(LibraryStore &store, const SmartLibrary &smart)
{
    return checkName(store, smart.name)
        .andThen([&] { return checkReading(store, smart); })
        .andThen([&] { return makeTable(store); })
        .andThen([&] {
            return run(store, u"INSERT INTO cobble_smart_library VALUES (?, ?, ?, ?, ?, ?)"_s,
                       {smart.name, smart.tableName, smart.libraryName, smart.filter, smart.order,
                        smart.columns});
        });
}

Outcome<> SmartLibraries::rename(LibraryStore &store, const QString &name, const QString &newName)
{
    return checkName(store, newName, name).andThen([&] {
        return run(store, u"UPDATE cobble_smart_library SET name = ? WHERE name = ?"_s,
                   {newName, name});
    });
}

Outcome<> SmartLibraries::remove(LibraryStore &store, const QString &name)
{
    return run(store, u"DELETE FROM cobble_smart_library WHERE name = ?"_s, {name});
}
