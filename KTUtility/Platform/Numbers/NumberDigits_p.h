#pragma once

#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/VariantKind_p.h>

#include <QVariant>

#include <array>

namespace KTPrivate {
/// A finite number as its decimal digits: 0.d1d2d3… × 10^pointPosition.
///
/// Integers and decimals are exact; a floating-point number has the shortest digits that read back
/// as it. Room for 38 digits, a double's 17 and one more that rounding may carry.
struct NumberDigits
{
    static constexpr int Capacity = 48;

    /// Takes the digits of a number variant. Filled in place, since copying bytes that were just
    /// written is slow.
    /// \return false for NaN, infinities and what is no number.
    bool take(const QVariant &number) { return take(number, kindOf(number)); }
    /// \param kind that of the number, for whoever knows it.
    bool take(const QVariant &number, VariantKind kind);

    /// Rounds to \a places digits after the point.
    /// \param mode a NSNumberFormatterRoundingMode.
    void round(int places, int mode);

    /// The digit at \a index, '0' … '9'; the first and the last are no zeros.
    char &digitAt(int index) { return buffer[size_t(first) + size_t(index)]; }
    char digitAt(int index) const { return buffer[size_t(first) + size_t(index)]; }

    std::array<char, Capacity> buffer;
    int first = 0; ///< where the digits begin in the buffer
    int count = 0;
    int pointPosition = 0; ///< how many digits stand before the point; may be negative
    bool isNegative = false;
};
} // namespace KTPrivate
