#pragma once

#include <KTUtility/KTReading>

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

// What people type, from tests/data/typed, and what the framework's formatters make of it.

/// One text with its meaning.
struct TypedRow
{
    QString type;
    QString locale;
    QString text;
    QString value;
    QStringList shown;   ///< of phone numbers
    QDateTime reference; ///< when it is typed
};

/// How a formatter took a text.
struct TypedResult
{
    enum Outcome { Read, Wrong, Rejected };

    Outcome outcome = Rejected;
    QString value;  ///< as rows have it; nil if the text was rejected
    QString shown;  ///< of a phone number
    QString reason; ///< why it was rejected
    KTReading reading;
};

namespace TypedRows {
/// "date" to "phone".
const QStringList &types();
/// All rows of a type.
QList<TypedRow> ofType(const QString &type);
/// What a new formatter makes of a text at its time, in the locale of the row and the machine's zone,
/// which is to be UTC; see testing_support::InZone.
TypedResult resultOf(const TypedRow &row, bool readsCommonForms);
/// A row with what was made of it, as a line of plain.jsonl.
QString written(const TypedRow &row, const TypedResult &result);
} // namespace TypedRows
