#include "DecimalArithmetic_p.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

using namespace KTPrivate;

namespace {
constexpr quint64 TenToNineteen = 10'000'000'000'000'000'000ULL;
constexpr int ChunkDigits = 19;
constexpr int WideDigits = 76; ///< what certainly fits 256 bits

using Limbs = std::array<quint64, 4>; ///< the lowest first

Limbs limbsOf(const WideCoefficient &value)
{
    return {quint64(value.low), quint64(value.low >> 64), quint64(value.high),
            quint64(value.high >> 64)};
}

WideCoefficient wideOf(const Limbs &limbs)
{
    return {(Coefficient(limbs[3]) << 64) | limbs[2], (Coefficient(limbs[1]) << 64) | limbs[0]};
}

/// Divides a number of 128 bits in place;
/// \return the remainder.
quint64 divide(Coefficient &value, quint64 divisor)
{
    const auto high = quint64(value >> 64);
    if (high == 0) {
        const auto low = quint64(value);
        value = low / divisor;
        return low % divisor;
    }
    // The remainder of the higher half is below the divisor, which makes the second division quick.
    const Coefficient part = (Coefficient(high % divisor) << 64) | quint64(value);
    const auto quotient = quint64(part / divisor);
    value = (Coefficient(high / divisor) << 64) | quotient;
    return quint64(part) - quotient * divisor;
}

/// Divides in place;
/// \return the remainder.
quint64 divide(WideCoefficient &value, quint64 divisor)
{
    if (value.high == 0)
        return divide(value.low, divisor);
    Coefficient remainder = divide(value.high, divisor);
    Limbs limbs = limbsOf(value);
    for (size_t index = 2; index-- > 0;) {
        const Coefficient part = (remainder << 64) | limbs[index];
        limbs[index] = quint64(part / divisor);
        remainder = quint64(part) - limbs[index] * divisor;
    }
    value = wideOf(limbs);
    return quint64(remainder);
}

WideCoefficient multiply(Coefficient left, Coefficient right)
{
    const auto low = [](Coefficient value) { return Coefficient(quint64(value)); };
    const Coefficient lowLow = low(left) * low(right);
    const Coefficient lowHigh = low(left) * (right >> 64);
    const Coefficient highLow = (left >> 64) * low(right);
    const Coefficient middle = (lowLow >> 64) + low(lowHigh) + low(highLow);
    return {(left >> 64) * (right >> 64) + (lowHigh >> 64) + (highLow >> 64) + (middle >> 64),
            (middle << 64) | low(lowLow)};
}

/// Multiplies by a number of 64 bits; what goes beyond 256 bits is lost.
void multiply(WideCoefficient &value, quint64 factor)
{
    Limbs limbs = limbsOf(value);
    Coefficient carry = 0;
    for (quint64 &limb : limbs) {
        carry += Coefficient(limb) * factor;
        limb = quint64(carry);
        carry >>= 64;
    }
    value = wideOf(limbs);
}

void multiplyByPowerOfTen(WideCoefficient &value, int exponent)
{
    for (; exponent > 0; exponent -= ChunkDigits)
        multiply(value, quint64(DecimalArithmetic::powerOfTen(std::min(exponent, ChunkDigits))));
}

int digitCount(WideCoefficient value)
{
    if (value.high == 0)
        return DecimalArithmetic::digitCount(value.low);
    divide(value, TenToNineteen);
    divide(value, TenToNineteen);
    if (value.high != 0) { // 77 digits and more do not arise
        divide(value, TenToNineteen);
        return 3 * ChunkDigits + DecimalArithmetic::digitCount(value.low);
    }
    return 2 * ChunkDigits + DecimalArithmetic::digitCount(value.low);
}

int compare(const WideCoefficient &left, const WideCoefficient &right)
{
    if (left.high != right.high)
        return left.high < right.high ? -1 : 1;
    return left.low < right.low ? -1 : int(left.low > right.low);
}

WideCoefficient add(const WideCoefficient &left, const WideCoefficient &right)
{
    const Coefficient low = left.low + right.low;
    return {left.high + right.high + (low < left.low), low};
}

WideCoefficient subtract(const WideCoefficient &left, const WideCoefficient &right)
{
    return {left.high - right.high - (left.low < right.low), left.low - right.low};
}

/// One digit of a long division in base 2^64: the upper three limbs of \a value by a divisor of two
/// limbs whose highest bit is set (Knuth, algorithm D).
quint64 quotientLimb(std::array<quint64, 5> &value, size_t at, quint64 high, quint64 low)
{
    const Coefficient top = (Coefficient(value[at + 2]) << 64) | value[at + 1];
    Coefficient guess = value[at + 2] >= high ? ~quint64(0) : quint64(top / high);
    Coefficient rest = top - guess * high;
    while (rest >> 64 == 0 && guess * low > ((rest << 64) | value[at])) {
        --guess;
        rest += high;
    }
    Coefficient borrow = 0;
    const std::array<Coefficient, 2> products{guess * low, guess * high};
    const Coefficient lowest = Coefficient(quint64(products[0]));
    const Coefficient middle = (products[0] >> 64) + quint64(products[1]);
    const std::array<quint64, 3> parts{quint64(lowest), quint64(middle),
                                       quint64((products[1] >> 64) + (middle >> 64))};
    for (size_t index = 0; index < parts.size(); ++index) {
        const Coefficient taken = Coefficient(parts[index]) + borrow;
        borrow = value[at + index] < taken;
        value[at + index] -= quint64(taken);
    }
    return quint64(guess);
}

/// Divides in place;
/// \return whether there is a rest.
bool divide(WideCoefficient &value, Coefficient divisor)
{
    if (divisor >> 64 == 0)
        return divide(value, quint64(divisor)) != 0;
    const int shift = std::countl_zero(quint64(divisor >> 64));
    const Coefficient scaled = divisor << shift;
    const Limbs limbs = limbsOf(value);
    std::array<quint64, 5> shifted{};
    for (size_t index = 0; index < limbs.size(); ++index) {
        const Coefficient part = Coefficient(limbs[index]) << shift;
        shifted[index] |= quint64(part);
        shifted[index + 1] = quint64(part >> 64);
    }
    Limbs result{};
    for (size_t at = 3; at-- > 0;)
        result[at] = quotientLimb(shifted, at, quint64(scaled >> 64), quint64(scaled));
    value = wideOf(result);
    return shifted[0] != 0 || shifted[1] != 0;
}

/// Whether a magnitude is rounded away from zero when \a digit and a rest behind it are dropped.
bool roundsAway(const DecimalIntermediate &value, int digit, bool hasRest, NSRoundingMode mode)
{
    if (digit == 0 && !hasRest)
        return false;
    switch (mode) {
    case NSRoundDown: // floor
        return value.isNegative;
    case NSRoundUp: // ceiling
        return !value.isNegative;
    case NSRoundBankers:
        return digit > 5 || (digit == 5 && (hasRest || value.magnitude.low % 2 == 1));
    default:
        return digit >= 5;
    }
}

/// Cuts the lowest digits off.
/// \return the first of them; the rest says whether more follow.
int cutDigits(DecimalIntermediate &value, qint64 count)
{
    value.exponent += count;
    for (; count > ChunkDigits && !value.magnitude.isZero(); count -= ChunkDigits)
        value.hasRest |= divide(value.magnitude, TenToNineteen) != 0;
    if (value.magnitude.isZero())
        return 0;
    const auto place = quint64(DecimalArithmetic::powerOfTen(int(count) - 1));
    const quint64 digits = divide(value.magnitude, place * 10);
    value.hasRest |= digits % place != 0;
    return int(digits / place);
}

/// Drops the lowest digits, rounding.
/// \return whether anything was lost.
bool dropDigits(DecimalIntermediate &value, qint64 count, NSRoundingMode mode)
{
    const int digit = count > 0 ? cutDigits(value, count) : 0;
    const bool isLost = digit != 0 || value.hasRest;
    if (roundsAway(value, digit, value.hasRest, mode))
        value.magnitude = add(value.magnitude, {0, 1});
    value.hasRest = false;
    return isLost;
}

/// Lowers an exponent that is too large, as far as 38 digits allow.
void lowerExponent(DecimalIntermediate &value)
{
    while (value.exponent > DecimalParts::MaximumExponent &&
           value.magnitude.low < DecimalArithmetic::powerOfTen(37)) {
        value.magnitude.low *= 10;
        --value.exponent;
    }
}

void report(NSCalculationError *error, NSCalculationError what)
{
    if (error)
        *error = what;
}
} // namespace

int DecimalArithmetic::digitCount(Coefficient value)
{
    const auto high = quint64(value >> 64);
    const int bits = high ? 128 - std::countl_zero(high) : 64 - std::countl_zero(quint64(value));
    const int guess = bits * 1233 >> 12; // log10(2)
    return guess + (guess < 39 ? value >= powerOfTen(guess) : 0);
}

/// Whether nothing has to be rounded.
bool DecimalIntermediate::fits(qint64 lowestExponent) const
{
    if (hasRest || magnitude.high != 0)
        return false;
    const bool isInRange = exponent >= lowestExponent && exponent <= DecimalParts::MaximumExponent;
    return magnitude.low == 0 || (isInRange && magnitude.low < DecimalArithmetic::powerOfTen(
                                                                   DecimalParts::MaximumDigits));
}

NSDecimalNumber DecimalIntermediate::rounded(NSRoundingMode mode, NSCalculationError *error) const
{
    return roundedAt(DecimalParts::MinimumExponent, mode, error);
}

NSDecimalNumber DecimalIntermediate::roundedAt(qint64 lowestExponent, NSRoundingMode mode,
                                               NSCalculationError *error) const
{
    report(error, NSCalculationNoError);
    if (fits(lowestExponent))
        return DecimalParts{magnitude.low, int(exponent), isNegative}.number();
    DecimalIntermediate value = *this;
    const qint64 surplus = digitCount(value.magnitude) - DecimalParts::MaximumDigits;
    bool isLost =
        dropDigits(value, std::max({surplus, lowestExponent - exponent, qint64(0)}), mode);
    if (value.magnitude.low == DecimalArithmetic::powerOfTen(38))
        dropDigits(value, 1, mode); // all nines went up
    lowerExponent(value);
    if (value.magnitude.isZero() && lowestExponent == DecimalParts::MinimumExponent) {
        report(error, NSCalculationUnderflow);
        return NSDecimalNumber::notANumber();
    }
    if (value.exponent > DecimalParts::MaximumExponent && !value.magnitude.isZero()) {
        report(error, NSCalculationOverflow);
        return NSDecimalNumber::notANumber();
    }
    if (isLost)
        report(error, NSCalculationLossOfPrecision);
    return DecimalParts{value.magnitude.low, int(value.exponent), value.isNegative}.number();
}

namespace {
/// Adds two aligned magnitudes, the second one of the sign \a isNegative.
void addAligned(DecimalIntermediate &value, Coefficient other, bool isNegative)
{
    const WideCoefficient magnitude{0, other};
    if (value.isNegative == isNegative) {
        value.magnitude = add(value.magnitude, magnitude);
    } else if (compare(value.magnitude, magnitude) >= 0) {
        value.magnitude = subtract(value.magnitude, magnitude);
    } else {
        value.magnitude = subtract(magnitude, value.magnitude);
        value.isNegative = isNegative;
    }
}

/// Adds what reaches below the lowest digit of a much larger number: its upper digits, then the
/// others as a rest.
void addBelow(DecimalIntermediate &value, const DecimalParts &small, int digitsBelow)
{
    const bool hasUpper = digitsBelow <= DecimalParts::MaximumDigits;
    const Coefficient power = DecimalArithmetic::powerOfTen(hasUpper ? digitsBelow : 0);
    const Coefficient upper = hasUpper ? small.coefficient / power : 0;
    addAligned(value, upper, small.isNegative);
    value.hasRest = !hasUpper || upper * power != small.coefficient;
    if (value.hasRest && value.isNegative != small.isNegative)
        value.magnitude = subtract(value.magnitude, {0, 1});
}
} // namespace

DecimalIntermediate DecimalArithmetic::sum(const DecimalParts &left, const DecimalParts &right)
{
    if (left.coefficient == 0 || right.coefficient == 0) {
        const DecimalParts &other = left.coefficient == 0 ? right : left;
        return {{0, other.coefficient}, other.exponent, other.isNegative, false};
    }
    const DecimalParts &large = left.exponent >= right.exponent ? left : right;
    const DecimalParts &small = left.exponent >= right.exponent ? right : left;
    const int distance = large.exponent - small.exponent;
    const int digits = digitCount(large.coefficient);
    const int shift = std::min(distance, WideDigits - digits);
    DecimalIntermediate result{
        {0, large.coefficient}, large.exponent - shift, large.isNegative, false};
    if (digits + shift <= DecimalParts::MaximumDigits)
        result.magnitude.low *= powerOfTen(shift);
    else
        multiplyByPowerOfTen(result.magnitude, shift);
    if (distance > shift)
        addBelow(result, small, distance - shift);
    else
        addAligned(result, small.coefficient, small.isNegative);
    return result;
}

DecimalIntermediate DecimalArithmetic::product(const DecimalParts &left, const DecimalParts &right)
{
    return {multiply(left.coefficient, right.coefficient), left.exponent + right.exponent,
            left.isNegative != right.isNegative, false};
}

DecimalIntermediate DecimalArithmetic::quotient(const DecimalParts &left, const DecimalParts &right)
{
    // Enough digits that the quotient has one more than is kept, to round by.
    const int shift = DecimalParts::MaximumDigits + 1 + digitCount(right.coefficient) -
                      digitCount(left.coefficient);
    DecimalIntermediate result{{0, left.coefficient},
                               qint64(left.exponent) - right.exponent,
                               left.isNegative != right.isNegative,
                               false};
    if (left.coefficient == 0)
        return result;
    multiplyByPowerOfTen(result.magnitude, shift);
    result.exponent -= shift;
    result.hasRest = divide(result.magnitude, right.coefficient);
    return result;
}

namespace {
/// "00", "01" … "99" in a row.
constexpr std::array<char, 200> DigitPairs = [] {
    std::array<char, 200> pairs{};
    for (size_t number = 0; number < 100; ++number) {
        pairs[2 * number] = char('0' + number / 10);
        pairs[2 * number + 1] = char('0' + number % 10);
    }
    return pairs;
}();

/// Writes the last two digits of a number before \a at.
char *writePair(char *at, quint64 number)
{
    std::memcpy(at - 2, &DigitPairs[2 * (number % 100)], 2);
    return at - 2;
}
} // namespace

std::string_view DecimalArithmetic::digits(Coefficient value, std::span<char> buffer)
{
    char *const end = buffer.data() + buffer.size();
    char *at = end;
    while (value >> 64 != 0) { // nineteen digits at a time, since small divisions are fast ones
        quint64 chunk = divide(value, TenToNineteen);
        for (int digit = 0; digit < ChunkDigits - 1; digit += 2, chunk /= 100)
            at = writePair(at, chunk);
        *--at = char('0' + chunk);
    }
    auto rest = quint64(value);
    for (; rest >= 10; rest /= 100)
        at = writePair(at, rest);
    if (rest > 0 || at == end)
        *--at = char('0' + rest);
    return {at, size_t(end - at)};
}
