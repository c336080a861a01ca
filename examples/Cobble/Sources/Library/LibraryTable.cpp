#include "LibraryTable.h"

#include "DatabaseTables.h"
#include "LibraryCatalogue.h"
#include "SQL.h"
#include "Text/Reasons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
QString listOf(const QStringList &columns, const QString &suffix = {})
{
    QStringList names;
    for (const QString &column : columns)
        names += SQL::quoted(column) + suffix;
    return names.join(u", "_s);
}

/// Tells empty texts and blobs from nil ones, which would be written as nil.
QVariant exact(const QVariant &value)
{
    if (value.isNull())
        return {};
    if (value.typeId() == QMetaType::QByteArray && value.toByteArray().isNull())
        return QByteArray("");
    if (value.typeId() == QMetaType::QString && value.toString().isNull())
        return u""_s;
    return value;
}

QVariantList exactValues(const QVariantList &values)
{
    QVariantList results;
    results.reserve(values.size());
    for (const QVariant &value : values)
        results += exact(value);
    return results;
}

QVariantList valuesIn(const QSqlQuery &row, qsizetype count)
{
    QVariantList values;
    values.reserve(count);
    for (qsizetype column = 0; column < count; ++column)
        values += exact(row.value(int(column)));
    return values;
}
} // namespace

Outcome<LibraryTable> LibraryTable::open(const QSqlDatabase &database, const QString &name)
{
    const Outcome<> checked = DatabaseTables::need(database, name);
    if (!checked)
        return checked.failure();
    Outcome<QStringList> columns = DatabaseTables::columnsOf(database, name);
    if (!columns)
        return columns.failure();
    if (columns->removeAll(u"id"_s) != 1)
        return Failure{.reason = Reasons::tr("the records of '%1' have no number").arg(name),
                       .isFinal = true};
    return LibraryTable(database, name, *columns);
}

LibraryTable::LibraryTable(const QSqlDatabase &database, const QString &name,
                           const QStringList &columns)
    : _database(database), _name(name), _columns(columns)
{
}

Outcome<QSqlQuery *> LibraryTable::prepared(const QString &statement)
{
    std::shared_ptr<QSqlQuery> &query = _prepared[statement];
    if (query)
        return query.get();
    query = std::make_shared<QSqlQuery>(_database);
    query->setForwardOnly(true);
    if (query->prepare(statement))
        return query.get();
    const Failure failure = SQL::outcomeOf(*query, false).failure();
    query.reset();
    return failure;
}

Outcome<std::optional<QVariantList>> LibraryTable::valuesOf(qint64 id, const QStringList &columns)
{
    QStringList names;
    for (const QString &column : columns)
        names += SQL::columnIn(_name, column);
    const Outcome<QSqlQuery *> query = prepared(u"SELECT " + names.join(u", "_s) + u" FROM " +
                                                SQL::quoted(_name) + u" WHERE id = ?");
    if (!query)
        return query.failure();
    std::optional<QVariantList> values;
    const Outcome<> read = SQL::executePrepared(**query, {id}).andThen([&] {
        if ((*query)->next())
            values = valuesIn(**query, columns.size());
        return SQL::outcomeOf(**query);
    });
    (*query)->finish();
    if (!read)
        return read.failure();
    return values;
}

Outcome<qint64> LibraryTable::insert(const std::optional<qint64> &id, const QStringList &columns,
                                     const QVariantList &values)
{
    const QStringList names = QStringList(u"id"_s) + columns;
    const Outcome<QSqlQuery *> query =
        prepared(u"INSERT INTO " + SQL::quoted(_name) + u" (" + listOf(names) + u") VALUES (" +
                 SQL::placesFor(names.size()) + u')');
    if (!query)
        return query.failure();
    const QVariantList number = {id ? QVariant(*id) : QVariant()};
    const Outcome<> inserted = SQL::executePrepared(**query, number + exactValues(values));
    if (!inserted)
        return inserted.failure();
    return id.value_or((*query)->lastInsertId().toLongLong());
}

Outcome<> LibraryTable::update(qint64 id, const QStringList &columns, const QVariantList &values)
{
    return runOnRecord(u"UPDATE " + SQL::quoted(_name) + u" SET " + listOf(columns, u" = ?"_s) +
                           u" WHERE id = ?",
                       exactValues(values) + QVariantList{id});
}

Outcome<> LibraryTable::remove(qint64 id)
{
    return runOnRecord(u"DELETE FROM " + SQL::quoted(_name) + u" WHERE id = ?", {id});
}

Outcome<> LibraryTable::runOnRecord(const QString &statement, const QVariantList &values)
{
    const Outcome<QSqlQuery *> query = prepared(statement);
    if (!query)
        return query.failure();
    const Outcome<> done = SQL::executePrepared(**query, values);
    if (done && (*query)->numRowsAffected() != 1)
        return Failure{Reasons::tr("the record is no longer there")};
    return done;
}

bool LibraryTable::areEqual(const QVariantList &some, const QVariantList &others)
{
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                      [](const QVariant &one, const QVariant &other) {
                          return one.metaType() == other.metaType() && one == other;
                      });
}

Outcome<> LibraryTable::make(const QSqlDatabase &database, const Library &library)
{
    QStringList columns = {u"id INTEGER PRIMARY KEY"_s};
    for (const LibraryField &field : library.fields)
        columns += LibraryCatalogue::declarationOf(field);
    return SQL::run(database, u"CREATE TABLE " + SQL::quoted(library.tableName) + u" (" +
                                  columns.join(u", "_s) + u')');
}
