#pragma once

#include "Text/Outcome.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariantList>

#include <memory>
#include <optional>

/// Rows for a table, which wait in a temporary file until all are there.
///
/// While they are added, nothing of the database is locked that others read, and the rows are not
/// in memory, however many there are. They go into the table at once in the end.
///
/// \code
/// const auto rows = *StagedRows::begin(database, u"kt_people"_s);
/// rows->add({u"Ann"_s, 7});
/// rows->finish();
/// \endcode
class StagedRows
{
public:
    /// \param table was made in the transaction that goes on; its first column is the record's number.
    static Outcome<std::unique_ptr<StagedRows>> begin(const QSqlDatabase &database,
                                                      const QString &table);

    /// \param values those of all other columns, as the database keeps them.
    Outcome<> add(const QVariantList &values);
    /// Puts the rows into the table. This may lock the database even for those who read.
    Outcome<> finish();

private:
    StagedRows(const QSqlDatabase &database, const QString &table);
    Outcome<> makeTable();
    Outcome<> prepare(qsizetype columnCount);

    QSqlDatabase _database;
    QString _table;
    std::optional<QSqlQuery> _insertion;
    /// The names of the values in it.
    QStringList _places;
};
