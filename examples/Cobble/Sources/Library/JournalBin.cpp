#include "JournalBin.h"

#include "DatabaseTables.h"
#include "LibraryCatalogue.h"
#include "MediaInTables.h"
#include "NumberTable.h"
#include "SQL.h"
#include "Text/Reasons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
struct BinEntry
{
    QString table;
    /// Empty for the whole table.
    QString column;
};

BinEntry entryIn(const QSqlQuery &row)
{
    return {row.value(0).toString(), row.value(1).toString()};
}

/// Columns that are added up at once; SQLite does not take expressions of any depth.
constexpr qsizetype BinnedColumnsAtOnce = 100;

QString lengthsOf(const QString &table, const QStringList &columns)
{
    QStringList lengths;
    for (const QString &column : columns)
        lengths += u"ifnull(length(" + SQL::columnIn(table, column) + u"), 0)";
    return lengths.join(u" + "_s);
}

bool isOurs(const QString &table)
{
    return table.startsWith(u"cobble_", Qt::CaseInsensitive) ||
           table.startsWith(u"sqlite_", Qt::CaseInsensitive);
}

bool isSame(const QString &one, const QString &other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

/// Whether an entry is about what a library has, which only somebody else would have put there.
bool isInUse(const BinEntry &entry, const QList<Library> &libraries)
{
    return std::any_of(libraries.begin(), libraries.end(), [&](const Library &library) {
        if (!isSame(library.tableName, entry.table))
            return false;
        return entry.column.isEmpty() ||
               std::any_of(library.fields.begin(), library.fields.end(),
                           [&](const LibraryField &field) {
                               return isSame(field.columnName, entry.column);
                           });
    });
}

/// Whether there is something to drop; what an entry of somebody else names is left alone.
Outcome<bool> canDrop(const QSqlDatabase &database, const BinEntry &entry)
{
    const Outcome<QList<Library>> libraries = LibraryCatalogue::libraries(database);
    const Outcome<QStringList> columns = DatabaseTables::columnsOf(database, entry.table);
    if (!libraries || !columns)
        return libraries ? columns.failure() : libraries.failure();
    if (isOurs(entry.table) || isInUse(entry, *libraries) ||
        !DatabaseTables::has(database, entry.table).valueOr(false))
        return false;
    return entry.column.isEmpty() || (columns->contains(entry.column) && entry.column != u"id");
}

/// What SQLite does not drop, since indices or views of somebody else need it, stays. Only what ends
/// the whole change is an error.
Outcome<> tryTo(const QSqlDatabase &database, const QString &statement)
{
    const Outcome<> begun = SQL::run(database, u"SAVEPOINT cobble_drop"_s);
    if (!begun)
        return begun;
    const Outcome<> done = SQL::run(database, statement);
    const Outcome<> ended = done ? Outcome<>() : SQL::run(database, u"ROLLBACK TO cobble_drop"_s);
    return ended.andThen([&] { return SQL::run(database, u"RELEASE cobble_drop"_s); });
}

Outcome<> dropTable(const QSqlDatabase &database, const QString &table)
{
    return tryTo(database, u"DROP TABLE " + SQL::quoted(table)).andThen([&] {
        return NumberTable::forget(database, table);
    });
}

Outcome<> dropColumn(const QSqlDatabase &database, const BinEntry &entry)
{
    return tryTo(database, u"ALTER TABLE " + SQL::quoted(entry.table) + u" DROP COLUMN " +
                               SQL::quoted(entry.column));
}

Outcome<QSet<QString>> dropEntry(const QSqlDatabase &database, const BinEntry &entry)
{
    const Outcome<bool> isThere = canDrop(database, entry);
    if (!isThere)
        return isThere.failure();
    if (!*isThere)
        return QSet<QString>();
    const bool isTable = entry.column.isEmpty();
    const auto media = isTable ? MediaInTables::urlsIn(database, entry.table)
                               : MediaInTables::urlsIn(database, entry.table, {entry.column});
    if (!media)
        return media;
    const Outcome<> dropped =
        isTable ? dropTable(database, entry.table) : dropColumn(database, entry);
    return dropped ? media : dropped.failure();
}
} // namespace

Outcome<> JournalBin::put(const QSqlDatabase &database, qint64 step, const QString &table,
                          const QString &column)
{
    return SQL::run(database, u"INSERT OR REPLACE INTO cobble_bin VALUES (?, ?, ?)"_s,
                    {step, table, column.isNull() ? u""_s : column});
}

Outcome<> JournalBin::take(const QSqlDatabase &database, qint64 step, const QString &table,
                           const QString &column)
{
    QSqlQuery query(database);
    const Outcome<> done = SQL::execute(
        query, u"DELETE FROM cobble_bin WHERE step = ? AND table_name = ? AND column_name = ?"_s,
        {step, table, column.isNull() ? u""_s : column});
    if (!done || query.numRowsAffected() == 1)
        return done;
    return Failure{.reason = Reasons::tr("what the step has removed is no longer there"),
                   .isFinal = true};
}

Outcome<QSet<QString>> JournalBin::drop(const QSqlDatabase &database, qint64 step)
{
    const auto entries =
        SQL::rows(database, u"SELECT table_name, column_name FROM cobble_bin WHERE step = ?"_s,
                  {step}, entryIn);
    if (!entries)
        return entries.failure();
    QSet<QString> media;
    for (const BinEntry &entry : *entries) {
        const Outcome<QSet<QString>> dropped = dropEntry(database, entry);
        if (!dropped)
            return dropped;
        media += *dropped;
    }
    const Outcome<> removed =
        SQL::run(database, u"DELETE FROM cobble_bin WHERE step = ?"_s, {step});
    return removed ? Outcome<QSet<QString>>(media) : removed.failure();
}

Outcome<QSet<QString>> JournalBin::media(const QSqlDatabase &database)
{
    const Outcome<QStringList> tables =
        SQL::texts(database, u"SELECT table_name FROM cobble_bin WHERE column_name = ''"_s);
    if (!tables)
        return tables.failure();
    QSet<QString> media;
    for (const QString &table : *tables) {
        const Outcome<bool> isThere = DatabaseTables::has(database, table);
        if (!isThere)
            return isThere.failure();
        const auto inTable = *isThere ? MediaInTables::urlsIn(database, table) : QSet<QString>();
        if (!inTable)
            return inTable;
        media += *inTable;
    }
    return media;
}

Outcome<qint64> JournalBin::sizeOf(const QSqlDatabase &database, const QString &table,
                                   const QStringList &columns)
{
    qint64 size = 0;
    for (qsizetype first = 0; first < columns.size(); first += BinnedColumnsAtOnce) {
        const Outcome<qint64> some =
            SQL::number(database, u"SELECT sum(%1) FROM %2"_s.arg(
                                      lengthsOf(table, columns.mid(first, BinnedColumnsAtOnce)),
                                      SQL::quoted(table)));
        if (!some)
            return some;
        size += *some;
    }
    return size;
}
