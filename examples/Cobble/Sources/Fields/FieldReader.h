#pragma once

#include "FieldType.h"

#include <QString>
#include <QVariant>

/// What reading a typed value gave.
struct FieldReading
{
    bool isRead = false;
    QVariant value;
    /// Why it was not read.
    QString reason;
    /// The date pattern that took all of the text; nil if there is none.
    QString pattern;
};

/// Reads the typed values of a field through its formatter.
///
/// \code
/// FieldReader reader(FieldType::Number);
/// reader.read(u"1,234"_s).value;        // 1234
/// reader.read(u"12abc"_s).reason;       // "there is more than a number"
/// \endcode
class FieldReader
{
public:
    explicit FieldReader(FieldType type);

    FieldType type() const { return _type; }
    /// Null for texts.
    NSFormatter *formatter() const { return _formatter.get(); }

    /// Reads one value; values of imported fields may be typed as other programs write them.
    FieldReading read(const QString &text, bool isImported = false) const;
    /// Reads what a person types into a field: nothing is nil, and what is not read has a reason.
    FieldReading readTyped(const QString &text) const;

private:
    FieldType _type;
    std::unique_ptr<NSFormatter> _formatter;
};
