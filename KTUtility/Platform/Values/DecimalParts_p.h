#pragma once

// Private to the library. For what reads and writes decimals digit by digit.

#include "NSDecimalNumber.h"

namespace KTPrivate {
/// The digits of a decimal as one number.
__extension__ using Coefficient = unsigned __int128;

/// A decimal taken apart: coefficient × 10^exponent.
struct DecimalParts
{
    static constexpr int MaximumDigits = 38;
    static constexpr int MinimumExponent = -128;
    static constexpr int MaximumExponent = 127;

    static DecimalParts of(const NSDecimalNumber &number);
    /// The decimal in its normal form; the parts have to fit.
    NSDecimalNumber number() const;

    Coefficient coefficient = 0;
    int exponent = 0;
    bool isNegative = false;
};
} // namespace KTPrivate
