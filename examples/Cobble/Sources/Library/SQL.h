#pragma once

#include "Text/Outcome.h"

#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariantList>

// Statements for SQLite, and what became of them.

namespace SQL {
/// An identifier as a statement has it.
QString quoted(const QString &identifier);
/// A column of a table. Without the table's name, one that is missing would be its own name as text.
QString columnIn(const QString &table, const QString &column);
/// "?, ?, ?" for so many values.
QString placesFor(qsizetype count);

Outcome<> outcomeOf(const QSqlQuery &query, bool isDone);
/// Of a query whose rows were read.
Outcome<> outcomeOf(const QSqlQuery &query);

/// Prepares a statement, and executes it with values.
Outcome<> execute(QSqlQuery &query, const QString &statement, const QVariantList &values = {});
/// Executes a query that was prepared.
Outcome<> executePrepared(QSqlQuery &query, const QVariantList &values);
/// Runs a statement that gives nothing that is wanted.
Outcome<> run(const QSqlDatabase &database, const QString &statement,
              const QVariantList &values = {});
/// The same; fails unless it has changed one row.
Outcome<> runOnRecord(const QSqlDatabase &database, const QString &statement,
                      const QVariantList &values);
/// The number that a statement gives; 0 if it gives none.
Outcome<qint64> number(const QSqlDatabase &database, const QString &statement,
                       const QVariantList &values = {});

/// What \a read makes of each row that a statement gives.
template<typename Read>
auto rows(const QSqlDatabase &database, const QString &statement, const QVariantList &values,
          const Read &read) -> Outcome<QList<decltype(read(QSqlQuery()))>>
{
    QList<decltype(read(QSqlQuery()))> results;
    QSqlQuery query(database);
    const Outcome<> outcome = execute(query, statement, values).andThen([&] {
        while (query.next())
            results += read(query);
        return outcomeOf(query);
    });
    if (!outcome)
        return outcome.failure();
    return results;
}

/// The texts in the first column of all rows.
Outcome<QStringList> texts(const QSqlDatabase &database, const QString &statement,
                           const QVariantList &values = {});
} // namespace SQL
