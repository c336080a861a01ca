#include "DatabaseConnection.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {
/// SQLITE_READONLY: what reading needs a change for. The code may say more in its upper bits.
constexpr int ReadOnly = 8;
constexpr int CodeMask = 0xff;

std::atomic<int> connectionCount = 0;
} // namespace

DatabaseConnection::DatabaseConnection(const QString &path, Access access)
    : _name(QUuid::createUuid().toString())
    , _database(QSqlDatabase::addDatabase(u"QSQLITE"_s, _name))
{
    connectionCount += 1;
    _database.setDatabaseName(path);
    if (access == Access::Read)
        _database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
}

DatabaseConnection::~DatabaseConnection()
{
    _database.close();
    _database = QSqlDatabase();
    QSqlDatabase::removeDatabase(_name);
    connectionCount -= 1;
}

Outcome<> DatabaseConnection::open()
{
    if (!_database.open())
        return Failure{reasonOf(_database.lastError())};
    // What a database from elsewhere defines may call no function with effects outside of it.
    QSqlQuery(_database).exec(u"PRAGMA trusted_schema = OFF"_s);
    return {};
}

bool DatabaseConnection::needsPlayback() const
{
    QSqlQuery query(_database);
    query.exec(u"PRAGMA user_version"_s);
    return (query.lastError().nativeErrorCode().toInt() & CodeMask) == ReadOnly;
}

int DatabaseConnection::count()
{
    return connectionCount;
}

QString DatabaseConnection::reasonOf(const QSqlError &error)
{
    return error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
}
