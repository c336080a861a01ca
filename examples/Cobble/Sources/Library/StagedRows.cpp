#include "StagedRows.h"

#include "SQL.h"
#include "Text/Reasons.h"

using namespace Qt::StringLiterals;

namespace {
const QString Staged = u"temp.cobble_staged_rows"_s;

/// Pages of a change that may be in memory before they go to the disk: SQLite's own number.
constexpr int PagesInMemory = 2000;
} // namespace

StagedRows::StagedRows(const QSqlDatabase &database, const QString &table)
    : _database(database), _table(table)
{
}

Outcome<std::unique_ptr<StagedRows>> StagedRows::begin(const QSqlDatabase &database,
                                                       const QString &table)
{
    std::unique_ptr<StagedRows> rows(new StagedRows(database, table));
    const Outcome<> made = rows->makeTable();
    if (!made)
        return made.failure();
    return rows;
}

/// Declared as the other one is, so that rows can be copied as they are.
Outcome<> StagedRows::makeTable()
{
    QSqlQuery query(_database);
    query.prepare(u"SELECT sql FROM main.sqlite_master WHERE type = 'table' AND name = ?"_s);
    query.addBindValue(_table);
    const bool isThere = query.exec() && query.next();
    if (!isThere)
        return Failure{Reasons::tr("no such table: %1").arg(_table)};
    const QString declaration = query.value(0).toString();
    query.finish();
    // Fewer and larger pieces to write and to read; without it, the rows only take longer.
    (void)SQL::run(_database, u"PRAGMA temp.page_size = 16384"_s);
    const QString columns =
        declaration.sliced(declaration.indexOf(SQL::quoted(_table)) + SQL::quoted(_table).size());
    return SQL::run(_database, u"CREATE TABLE "_s + Staged + columns);
}

Outcome<> StagedRows::prepare(qsizetype columnCount)
{
    // Qt finds a place by its name several times as fast as by its number.
    _places.clear();
    for (qsizetype column = 0; column < columnCount; ++column)
        _places += u":v%1"_s.arg(column);
    _insertion.emplace(_database);
    const QStringList places = QStringList(u"NULL"_s) + _places;
    const bool isPrepared =
        _insertion->prepare(u"INSERT INTO "_s + Staged + u" VALUES (" + places.join(u',') + u')');
    return SQL::outcomeOf(*_insertion, isPrepared);
}

Outcome<> StagedRows::add(const QVariantList &values)
{
    const Outcome<> prepared = _insertion ? Outcome<>() : prepare(values.size());
    if (!prepared)
        return prepared;
    for (qsizetype column = 0; column < values.size(); ++column)
        _insertion->bindValue(_places.at(column), values.at(column));
    return SQL::outcomeOf(*_insertion, _insertion->exec());
}

Outcome<> StagedRows::finish()
{
    _insertion.reset();
    return SQL::run(_database, u"PRAGMA main.cache_spill = %1"_s.arg(PagesInMemory))
        .andThen([this] {
            return SQL::run(_database, u"INSERT INTO main."_s + SQL::quoted(_table) +
                                           u" SELECT * FROM " + Staged);
        })
        .andThen([this] { return SQL::run(_database, u"DROP TABLE "_s + Staged); });
}
