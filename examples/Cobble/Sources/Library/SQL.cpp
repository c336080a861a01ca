#include "SQL.h"

#include "DatabaseConnection.h"
#include "Text/Reasons.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

QString SQL::quoted(const QString &identifier)
{
    return u'"' + QString(identifier).replace(u'"', u"\"\""_s) + u'"';
}

QString SQL::columnIn(const QString &table, const QString &column)
{
    return quoted(table) + u'.' + quoted(column);
}

QString SQL::placesFor(qsizetype count)
{
    return QStringList(count, u"?"_s).join(u", "_s);
}

Outcome<> SQL::outcomeOf(const QSqlQuery &query, bool isDone)
{
    return isDone ? Outcome<>() : Failure{DatabaseConnection::reasonOf(query.lastError())};
}

Outcome<> SQL::outcomeOf(const QSqlQuery &query)
{
    return outcomeOf(query, !query.lastError().isValid());
}

Outcome<> SQL::execute(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        return outcomeOf(query, false);
    return executePrepared(query, values);
}

Outcome<> SQL::executePrepared(QSqlQuery &query, const QVariantList &values)
{
    for (qsizetype place = 0; place < values.size(); ++place)
        query.bindValue(int(place), values.at(place));
    return outcomeOf(query, query.exec());
}

Outcome<> SQL::run(const QSqlDatabase &database, const QString &statement,
                   const QVariantList &values)
{
    QSqlQuery query(database);
    return values.isEmpty() ? outcomeOf(query, query.exec(statement))
                            : execute(query, statement, values);
}

Outcome<> SQL::runOnRecord(const QSqlDatabase &database, const QString &statement,
                           const QVariantList &values)
{
    QSqlQuery query(database);
    const Outcome<> outcome = execute(query, statement, values);
    if (outcome && query.numRowsAffected() != 1)
        return Failure{Reasons::tr("the record is no longer there")};
    return outcome;
}

Outcome<qint64> SQL::number(const QSqlDatabase &database, const QString &statement,
                            const QVariantList &values)
{
    const auto numbers = rows(database, statement, values,
                              [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
    if (!numbers)
        return numbers.failure();
    return qint64(numbers->value(0));
}

Outcome<QStringList> SQL::texts(const QSqlDatabase &database, const QString &statement,
                                const QVariantList &values)
{
    return rows(database, statement, values,
                [](const QSqlQuery &row) { return row.value(0).toString(); });
}
