#pragma once

// Private to the library. For what reads "3/4", "1 ½" and other counts that are more than digits.

#include "Numeral_p.h"

#include <QStringView>

namespace KTPrivate {
/// A number as people write counts: a numeral, a fraction ("3/4", "¾"), or both ("1 3/4", "1½").
struct KTUTILITY_EXPORT Count
{
    enum class Kind {
        None,     ///< there is no number
        Numeral,  ///< digits with separators
        Fraction, ///< with a fraction in it
        Refused,  ///< a rule forbids it, see reason
    };

    Kind kind = Kind::None;
    Numeral numeral; ///< of Kind::Numeral, and the whole part of a fraction
    qsizetype end = 0;
    NSDecimalNumber value;         ///< rounded to 38 digits if the fraction has no end
    qsizetype fractionAt = -1;     ///< of Kind::Fraction, where it begins
    NSDecimalNumber fraction;      ///< without the whole part
    NSDecimalNumber divisor{1};    ///< of the fraction
    NSDecimalNumber exactDividend; ///< of Kind::Fraction, see dividend()
    QString reason;

    /// What divided by the divisor is the value, without its rounding.
    const NSDecimalNumber &dividend() const
    {
        return kind == Kind::Fraction ? exactDividend : value;
    }

    static Count at(QStringView folded, qsizetype position, const NumberSigns &signs);

    /// The parts that decided.
    void addParts(const FoldedText &text, QList<KTReadingPart> *parts) const;
};

/// Why a numeral is refused whose separators stand where no grouping has them.
KTUTILITY_EXPORT const QString &unevenSeparatorsReason();
} // namespace KTPrivate
