#include "FaultScenario.h"

#include "support/TestSupport.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

namespace {
/// What a table holds, row by row. The steps of a journal were all made at the same time.
QByteArray rowsOf(const QSqlDatabase &database, const QString &table)
{
    static const QRegularExpression time(uR"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z)"_s);
    QString rows;
    QSqlQuery query(database);
    query.exec(u"SELECT * FROM \"%1\""_s.arg(table));
    while (query.next()) {
        for (int column = 0; column < query.record().count(); ++column)
            rows += QString::fromLatin1(query.value(column).toByteArray().toHex() + ' ') +
                    QString(query.value(column).toString()).replace(time, u"{time}"_s) + u'|';
        rows += u'\n';
    }
    // The bytes of those times differ, too.
    rows.remove(QRegularExpression(u"[0-9a-f]{48} (?=\\{time)"_s));
    return query.lastError().isValid() ? QByteArray() : rows.toUtf8();
}

/// What a database holds; nothing if it cannot be read.
QByteArray tablesOf(const QSqlDatabase &database)
{
    QByteArray content;
    QSqlQuery tables(database);
    tables.exec(u"SELECT name, sql FROM sqlite_master WHERE type = 'table' ORDER BY name"_s);
    while (tables.next())
        content += tables.value(1).toString().toUtf8() + '\n' +
                   rowsOf(database, tables.value(0).toString());
    return content;
}

QByteArray databaseContent(const QString &path)
{
    const QString name = u"state"_s;
    QByteArray content;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        database.setDatabaseName(path);
        if (database.open())
            content = tablesOf(database);
    }
    QSqlDatabase::removeDatabase(name);
    return content;
}

QByteArray contentOf(const QString &path, const QString &folder)
{
    const QByteArray content = testing_support::contentsOf(path).replace(folder.toUtf8(), "{home}");
    if (!path.endsWith(u"/Database"))
        return content;
    const QByteArray tables = databaseContent(path);
    return tables.isEmpty() ? content : tables;
}
} // namespace

FileState stateOf(const QString &folder)
{
    FileState state;
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QString name = path.mid(folder.size() + 1);
        if (entries.fileInfo().isDir())
            state.insert(QString(name + u'/'), QByteArray());
        else
            state.insert(name, contentOf(path, folder));
    }
    return state;
}
