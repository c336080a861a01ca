#pragma once

#include "Text/Outcome.h"

#include <QHash>
#include <QSqlDatabase>

#include <optional>

/// The numbers that records have had. None is given twice while the journal may name it: else
/// undoing what was done to one record would change another one.
///
/// What goes is written down (see NumberTable), so that it is known to all that change the database.
/// Of a table whose records older versions have deleted, the journal tells the numbers.
///
/// \code
/// SpentNumbers numbers(database);
/// const auto number = numbers.next(u"kt_contacts"_s);    // 13, also if 12 was deleted
/// numbers.keep(u"kt_contacts"_s, 13);                    // before it is deleted
/// \endcode
class SpentNumbers
{
public:
    explicit SpentNumbers(const QSqlDatabase &database) : _database(database) {}

    /// The number for a new record, behind all that the table has and has had; nothing if the last
    /// one of all is spent, so that the database has to choose one.
    Outcome<std::optional<qint64>> next(const QString &table);
    /// Says that a new record has a number that was chosen otherwise.
    Outcome<> take(const QString &table, qint64 number);
    /// Writes down the number of a record that goes.
    Outcome<> keep(const QString &table, qint64 number);

private:
    struct Last
    {
        /// That any record has or has had.
        qint64 number = 0;
        /// What is written down.
        qint64 kept = 0;
    };

    Outcome<Last *> lastOf(const QString &table);
    Outcome<Last> readLast(const QString &table);
    Outcome<> write(const QString &table, Last *last);

    QSqlDatabase _database;
    QHash<QString, Last> _last;
};
