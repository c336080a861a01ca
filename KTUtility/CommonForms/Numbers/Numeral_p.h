#pragma once

// Private to the library. For what reads digits with their separators out of typed texts.

#include "NumberSigns_p.h"
#include "TypedDecimal_p.h"

#include <QStringView>
#include <QVarLengthArray>

namespace KTPrivate {
/// Digits with what separates them, read by the rules of docs/common-forms.md: a separator stands
/// where the locale has it, or where it can mean one thing only, or the numeral is uneven.
///
/// \code
/// const FoldedText text(u"1.234,50");
/// const Numeral numeral = Numeral::at(text.text(), 0, *NumberSigns::of(NSLocale(u"de_DE"_s)));
/// numeral.value();    // 1234.5
/// \endcode
struct KTUTILITY_EXPORT Numeral
{
    qsizetype begin = 0;
    qsizetype end = 0;      ///< the same as begin if there are no digits
    qsizetype pointAt = -1; ///< where the sign before the fraction stands, if there is one
    bool isUneven = false;  ///< whether separators stand where no grouping has them
    bool isOwn = true;      ///< whether all separators are the locale's, in their roles
    bool isPlain = true;    ///< whether there are no separators
    bool isTwofold = false; ///< whether the one separator may be meant in the other role as well
    bool hasGroups = false; ///< whether there are separators of groups
    QVarLengthArray<char16_t, 48> digits; ///< in ASCII, with "." before the fraction

    static Numeral at(QStringView folded, qsizetype position, const NumberSigns &signs);

    bool isThere() const { return end > begin; }
    bool isInteger() const { return pointAt < 0; }
    /// Not-a-number if it is out of range, or if it has more digits than decimals have.
    NSDecimalNumber value() const;
    /// What it means if its one separator is meant in the other role.
    NSDecimalNumber otherValue() const;
    /// The integer, the point and the fraction.
    void addParts(const FoldedText &text, QList<KTReadingPart> *parts) const;
};
} // namespace KTPrivate
