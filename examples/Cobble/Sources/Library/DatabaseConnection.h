#pragma once

#include "Text/Outcome.h"

#include <QSqlDatabase>

class QSqlError;

/// A connection to an SQLite database, closed when it goes.
///
/// \code
/// DatabaseConnection connection(path, DatabaseConnection::Access::Read);
/// if (const Outcome<> opened = connection.open(); !opened)
///     return opened;
/// QSqlQuery query(connection.database());
/// \endcode
class DatabaseConnection
{
public:
    enum class Access {
        Read,  ///< changes nothing, not even to take an interrupted change back
        Write, ///< makes the file if there is none
    };

    DatabaseConnection(const QString &path, Access access);
    ~DatabaseConnection();
    DatabaseConnection(const DatabaseConnection &) = delete;
    DatabaseConnection &operator=(const DatabaseConnection &) = delete;

    Outcome<> open();
    QSqlDatabase database() const { return _database; }
    /// Whether a change was interrupted that has to be taken back before anything can be read, by
    /// somebody who may write.
    bool needsPlayback() const;

    /// How many connections the process has.
    static int count();
    /// What SQLite says, without what Qt adds to it.
    static QString reasonOf(const QSqlError &error);

private:
    QString _name;
    QSqlDatabase _database;
};
