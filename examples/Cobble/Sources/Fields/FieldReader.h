#pragma once

#include "FieldFormat.h"
#include "Text/Outcome.h"

#include <QString>
#include <QVariant>

/// Reads the typed values of a field through its formatter.
///
/// \code
/// FieldReader reader(FieldType::Number);
/// *reader.read(u"1,234"_s);             // 1234
/// reader.read(u"12abc"_s).reason();     // "there is more than a number"
/// \endcode
class FieldReader
{
public:
    explicit FieldReader(FieldType type);

    FieldType type() const { return _type; }
    /// Null for texts.
    NSFormatter *formatter() const { return _format.formatter.get(); }

    /// Reads one value; values of imported fields may be typed as other programs write them.
    Outcome<QVariant> read(const QString &text, bool isImported = false) const;
    /// Reads what a person types into a field: nothing is nil, and what is not read has a reason.
    Outcome<QVariant> readTyped(const QString &text) const;

    /// The date pattern that took all of the text that was just read; nil if there is none.
    QString recentPattern() const;
    /// The code of the currency that amounts are read in; nil if these are no amounts.
    QString currencyType() const;

private:
    FieldType _type;
    FieldFormat _format;
};
