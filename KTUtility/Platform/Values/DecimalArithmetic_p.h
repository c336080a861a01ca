#pragma once

// Private to the library. For what computes with decimals, and for what needs their digits.

#include "DecimalParts_p.h"

#include <array>
#include <span>
#include <string_view>

// Coefficients have 128 bits, intermediate results 256.

namespace KTPrivate {
/// A whole number of 256 bits.
struct WideCoefficient
{
    Coefficient high = 0;
    Coefficient low = 0;

    bool isZero() const { return high == 0 && low == 0; }
};

/// What an operation gives before it is a decimal: any magnitude, with something smaller than one
/// unit of it left over or not.
struct DecimalIntermediate
{
    WideCoefficient magnitude;
    qint64 exponent = 0;
    bool isNegative = false;
    bool hasRest = false;

    /// The nearest decimal in the direction of \a mode.
    NSDecimalNumber rounded(NSRoundingMode mode, NSCalculationError *error) const;
    /// The same with no digits below 10^\a lowestExponent.
    NSDecimalNumber roundedAt(qint64 lowestExponent, NSRoundingMode mode,
                              NSCalculationError *error) const;

private:
    bool fits(qint64 lowestExponent) const;
};

namespace DecimalArithmetic {
inline constexpr std::array<Coefficient, 39> PowersOfTen = [] {
    std::array<Coefficient, 39> powers{1};
    for (size_t index = 1; index < powers.size(); ++index)
        powers[index] = powers[index - 1] * 10;
    return powers;
}();

/// 10^\a exponent, up to 38.
constexpr Coefficient powerOfTen(int exponent)
{
    return PowersOfTen[size_t(exponent)];
}

/// How many decimal digits; 0 for zero.
int digitCount(Coefficient value);

DecimalIntermediate sum(const DecimalParts &left, const DecimalParts &right);
DecimalIntermediate product(const DecimalParts &left, const DecimalParts &right);
/// \a right is not zero.
DecimalIntermediate quotient(const DecimalParts &left, const DecimalParts &right);

/// The digits of a coefficient, at the end of \a buffer, which has room for 40.
std::string_view digits(Coefficient value, std::span<char> buffer);
} // namespace DecimalArithmetic
} // namespace KTPrivate
