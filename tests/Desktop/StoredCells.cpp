#include "StoredCells.h"

#include <KTUtility/KTDatabaseBundle>

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QString textOf(const QVariant &value)
{
    return value.isNull() ? u"NULL"_s : value.toString();
}

/// The rows of a query, with "|" between their values.
QStringList rowsOf(const QSqlDatabase &database, const QString &statement)
{
    QStringList rows;
    QSqlQuery query(database);
    EXPECT_TRUE(query.exec(statement)) << statement.toStdString();
    while (query.next()) {
        QStringList values;
        for (int column = 0; column < query.record().count(); ++column)
            values += textOf(query.value(column));
        rows += values.join(u'|');
    }
    return rows;
}

QStringList recordsOf(const QSqlDatabase &database, const QString &table)
{
    QString columns = u"id"_s;
    const QString fields =
        u"SELECT column_name FROM cobble_field WHERE table_name = '%1' ORDER BY position"_s;
    for (const QString &column : rowsOf(database, fields.arg(table)))
        columns += u", \"%1\""_s.arg(column);
    return rowsOf(database, u"SELECT %1 FROM \"%2\" ORDER BY id"_s.arg(columns, table));
}

StoredCells cellsIn(const QSqlDatabase &database)
{
    StoredCells cells;
    for (const QString &row : rowsOf(database, u"SELECT table_name, name FROM cobble_library"_s))
        cells.insert(row.section(u'|', 1), recordsOf(database, row.section(u'|', 0, 0)));
    return cells;
}
} // namespace

StoredCells storedCells(const KTDatabaseBundle &bundle)
{
    StoredCells cells;
    if (!QFile::exists(bundle.databaseFilePath()))
        return cells;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"StoredCells"_s);
        database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        database.setDatabaseName(bundle.databaseFilePath());
        EXPECT_TRUE(database.open());
        cells = cellsIn(database);
    }
    QSqlDatabase::removeDatabase(u"StoredCells"_s);
    return cells;
}
