#pragma once

#include <KTUtility/KTColumnReading>

#include <QString>

/// What an import has found out about how a column is typed, for people.
///
/// \code
/// const ColumnDecision decision = ColumnDecision::of(column);
/// decision.readAs;           // "day, month, year"
/// decision.since;            // "12 of 40 values decide"
/// decision.contradicting;    // "row 7"
/// \endcode
struct ColumnDecision
{
    /// Nothing if no value of the column leaves anything to decide.
    static ColumnDecision of(const KTColumnReading &column);
    /// What was found out about the currency of a column.
    static ColumnDecision ofCurrency(const QString &code, const QString &since);
    /// What is told in vain of a column with a type; nothing if there is none.
    static ColumnDecision ofUnused(const QStringList &told, const QString &typeName);

    QString readAs; ///< nil if there was nothing to decide
    QString since;
    QString contradicting; ///< the rows, from 1; nil if there are none

    bool isNeeded() const { return !readAs.isNull(); }
};
