#pragma once

#include "Library/RecordTexts.h"

#include <KTUtility/NSDecimalNumber>

#include <QCoreApplication>
#include <QDateTime>

/// What the values of a field of some records come to: numbers exactly, as decimals, and the first
/// and the last of dates.
///
/// \code
/// FieldSummary summary;
/// for (const QVariant &value : values)
///     summary.add(value);
/// summary.text(reader);    // "Sum $12.50 · Average $6.25 · Least $5.00 · Most $7.50"
/// \endcode
class FieldSummary
{
    Q_DECLARE_TR_FUNCTIONS(FieldSummary)

public:
    /// Counts a value in; nil, and what the field could not read, does not count.
    void add(const QVariant &value);

    qint64 numberCount() const { return _numbers; }
    const NSDecimalNumber &sum() const { return _sum; }
    NSDecimalNumber average() const;

    /// As the field shows it; nil for fields of texts, and if nothing counted.
    QString text(const FieldReader &reader) const;

private:
    static QString numberText(const NSDecimalNumber &number, const FieldReader &reader);
    void addNumber(const NSDecimalNumber &number);
    void addDate(const QDateTime &date);

    qint64 _numbers = 0;
    NSDecimalNumber _sum;
    NSDecimalNumber _least;
    NSDecimalNumber _most;
    QDateTime _first;
    QDateTime _last;
};
