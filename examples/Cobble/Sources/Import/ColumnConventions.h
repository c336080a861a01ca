#pragma once

#include "Fields/FieldReader.h"

#include <QString>

/// What a user says of how a column is typed; nil for what its values are to decide.
struct ColumnConventions
{
    QString order; ///< of dates: "dmy", "mdy" or "ymd"
    QString point; ///< before fractions: "." or ","
    QString unit;  ///< a currency's code, or what clocks are: "h:m" or "m:s"

    /// Whether anything is said.
    bool isAny() const { return !order.isNull() || !point.isNull() || !unit.isNull(); }
    /// What has to be said of a column of a kind; nil for nothing.
    QString conventionOf(KTColumnReading::Kind kind) const;
    /// The currency's code; nil if none is said.
    QString currency() const;

    /// What is said and does not concern a type, "m:s" of dates.
    QStringList unusedBy(const FieldReader &reader) const;

    /// What the values that a reader gets say together, but for what is said here.
    std::optional<KTColumnReading> newColumnFor(const FieldReader &reader) const;
};
