#pragma once

#include "FilterFields.h"

#include <QDateTime>

#include <compare>

/// What a value of a filter stands for: a number or a text by itself, a date for its whole day, a
/// time for its whole minute unless seconds were typed.
///
/// \code
/// const Outcome<FilterSpan> day = FilterSpan::read(u"3/4/2008"_s, 2, fields);
/// day->compare(record.born) == 0;    // born on that day, at whatever time
/// \endcode
class FilterSpan
{
public:
    /// Reads a value of a field.
    /// \param notation how it is written.
    static Outcome<FilterSpan> read(const QString &text, qsizetype field,
                                    const FilterFields &fields,
                                    FilterNotation notation = FilterNotation::Typed);

    /// Texts are compared without regard to what is named here: "c", "d" or both.
    void setPassesOver(const QString &passesOver);

    /// Where a field's value lies: before the span, in it, or behind it. No value, and a text in a
    /// field of numbers or dates, lies nowhere; only a span of no value has no value in it.
    std::partial_ordering compare(const QVariant &value) const;

    /// Whether it is no value at all, which was typed as two quotes.
    bool isEmpty() const { return _kind == Kind::Empty; }
    /// The span as it is written, so that it can be read again; nil if it cannot be written in that
    /// notation.
    QString text(FilterNotation notation, qsizetype field, const FilterFields &fields) const;

private:
    enum class Kind { Empty, Number, Dates, Text };

    FilterSpan() = default;
    static FilterSpan ofDate(const QDateTime &date, bool isDay);
    static FilterSpan ofText(const QString &text);
    static FilterSpan ofValue(const QVariant &value, bool isDay);
    QString portableText(FieldType type) const;
    QString typedText(qsizetype field, const FilterFields &fields) const;
    std::partial_ordering compareDate(const QDateTime &date) const;
    std::partial_ordering compareText(const QString &text) const;

    Kind _kind = Kind::Empty;
    /// The number or the text, or the first instant.
    QVariant _value;
    /// The text as it is compared.
    QString _folded;
    QString _passesOver = QStringLiteral("cd");
    /// Dates are before it.
    QDateTime _until;
    bool _isDay = false;
};
