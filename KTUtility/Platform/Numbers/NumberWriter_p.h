#pragma once

#include "NumberDigits_p.h"

#include <QString>

namespace KTPrivate {
/// Writes numbers without ICU: affixes, groups, a point and digits of one script.
///
/// Its parts are taken from texts that ICU made, so that it writes what ICU writes (tests compare
/// them).
class NumberWriter
{
public:
    /// Moves the point of a number to where it is shown.
    /// \return whether this class writes it.
    bool prepare(NumberDigits *number) const
    {
        number->pointPosition += number->count > 0 ? shift : 0;
        return number->pointPosition <= maximumIntegerDigits;
    }
    /// The text of a prepared \a number, which is rounded first.
    QString write(NumberDigits &number) const;

    QString positivePrefix;
    QString positiveSuffix;
    QString negativePrefix;
    QString negativeSuffix;
    QString decimalSeparator;
    QString groupingSeparator;
    char16_t zeroDigit = u'0';
    int roundingMode = 4;
    int minimumIntegerDigits = 1;
    int maximumIntegerDigits = 0; ///< numbers with more are not written by this class
    int minimumFractionDigits = 0;
    int maximumFractionDigits = 0;
    int shift = 0;        ///< how many places the point is shown further on
    int groupingSize = 0; ///< 0: no groups
    int secondaryGroupingSize = 0;
    int minimumGroupingDigits = 1;

private:
    class Writing;
};
} // namespace KTPrivate
