#pragma once

#include "FieldFormat.h"
#include "Text/Outcome.h"

#include <KTUtility/KTColumnReading>
#include <KTUtility/KTReading>

#include <QString>
#include <QVariant>

#include <optional>

/// Reads the typed values of a field through its formatter.
///
/// \code
/// FieldReader reader(FieldType::Number);
/// *reader.read(u"1,234"_s);             // 1234
/// reader.read(u"12abc"_s).reason();     // "The text is no number, or …"
/// \endcode
class FieldReader
{
public:
    /// \param locale that of who types; the user's if there is none.
    explicit FieldReader(FieldType type, const std::optional<NSLocale> &locale = std::nullopt);

    FieldType type() const { return _type; }
    /// Null for texts.
    NSFormatter *formatter() const { return _format.formatter.get(); }

    /// Whether what people commonly type is read, too; it is at first.
    void setReadsCommonForms(bool readsCommonForms) const;

    /// What can be found out of all values of a column of this type; nothing if each stands for
    /// itself.
    std::optional<KTColumnReading> newColumn() const;
    /// Imported values are read as their column says from now on.
    void setColumn(const KTColumnReading &column) { _column = column; }
    const std::optional<KTColumnReading> &column() const { return _column; }

    /// Reads one value; values of imported fields may be typed as other programs write them.
    Outcome<QVariant> read(const QString &text, bool isImported = false) const;
    /// Reads what a person types into a field: nothing is nil, and what is not read has a reason.
    Outcome<QVariant> readTyped(const QString &text) const;

    /// How the text that was just read was understood.
    KTReading reading() const;
    /// The date pattern that took all of the text that was just read; nil if there is none, as when it
    /// was read in another form.
    QString recentPattern() const;
    /// The code of the currency that amounts are read in; nil if these are no amounts.
    QString currencyType() const;

private:
    Outcome<QVariant> readOnce(const QString &text, bool isInColumn) const;
    Outcome<QVariant> readBare(const QString &text, bool isInColumn) const;

    FieldType _type;
    FieldFormat _format;
    std::optional<KTColumnReading> _column;
};
