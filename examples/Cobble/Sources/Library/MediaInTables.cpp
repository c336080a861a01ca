#include "MediaInTables.h"

#include "DatabaseTables.h"
#include "SQL.h"

using namespace Qt::StringLiterals;

namespace {
/// Columns that are looked through at once; SQLite does not take any number of conditions.
constexpr qsizetype ColumnsAtOnce = 100;

/// The rows in which some of the columns hold what may be a media URL.
QString rowsWithMedia(const QString &table, const QStringList &names)
{
    QStringList columns;
    QStringList conditions;
    for (const QString &name : names) {
        columns += SQL::columnIn(table, name);
        conditions += columns.last() + u" LIKE '%cobblemedia:%'"_s;
    }
    return u"SELECT " + columns.join(u", "_s) + u" FROM " + SQL::quoted(table) + u" WHERE " +
           conditions.join(u" OR "_s);
}

bool addMediaIn(const QSqlQuery &row, qsizetype columnCount, QSet<QString> *media)
{
    for (qsizetype column = 0; column < columnCount; ++column) {
        const QVariant value = row.value(int(column));
        if (MediaInTables::isURL(value))
            media->insert(value.toString().trimmed());
    }
    return true;
}
} // namespace

bool MediaInTables::isURL(const QVariant &value)
{
    return value.toString().trimmed().startsWith(u"cobblemedia:", Qt::CaseInsensitive);
}

Outcome<QSet<QString>> MediaInTables::urlsIn(const QSqlDatabase &database, const QString &table,
                                             const QStringList &columns)
{
    QSet<QString> media;
    for (qsizetype first = 0; first < columns.size(); first += ColumnsAtOnce) {
        const QStringList some = columns.mid(first, ColumnsAtOnce);
        const auto rows =
            SQL::rows(database, rowsWithMedia(table, some), {},
                      [&](const QSqlQuery &row) { return addMediaIn(row, some.size(), &media); });
        if (!rows)
            return rows.failure();
    }
    return media;
}

Outcome<QSet<QString>> MediaInTables::urlsIn(const QSqlDatabase &database, const QString &table)
{
    const Outcome<> checked = DatabaseTables::need(database, table);
    if (!checked)
        return checked.failure();
    const Outcome<QStringList> columns = DatabaseTables::columnsOf(database, table);
    return columns ? urlsIn(database, table, *columns) : columns.failure();
}
