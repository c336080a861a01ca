#pragma once

#include "NSDecimalNumber.h"

#include <QVariant>

#include <array>
#include <optional>

/// A finite number as its decimal digits: 0.d1d2d3… × 10^pointPosition.
///
/// Integers and decimals are exact; a floating-point number has the shortest digits that read back
/// as it. Room for 38 digits, a double's 17 and one more that rounding may carry.
struct NSNumberDigits
{
    static constexpr int Capacity = 48;

    /// The digits of a number variant; none for NaN, infinities and what is no number.
    static std::optional<NSNumberDigits> of(const QVariant &number);

    /// Rounds to \a places digits after the point.
    /// \param mode a NSNumberFormatterRoundingMode.
    void round(int places, int mode);

    bool isZero() const { return count == 0; }

    std::array<char, Capacity> digits; ///< '0' … '9', no zero at either end
    int count = 0;
    int pointPosition = 0; ///< how many digits stand before the point; may be negative
    bool isNegative = false;
};
