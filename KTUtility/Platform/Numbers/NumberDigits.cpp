#include "NumberDigits_p.h"

#include <KTUtility/Platform/Values/DecimalArithmetic_p.h>

#include <algorithm>
#include <charconv>
#include <cmath>

using namespace KTPrivate;

namespace {
using Digits = NumberDigits;

/// Drops zeros at both ends; zero has no digits.
void trim(Digits &number)
{
    while (number.count > 0 && number.digitAt(number.count - 1) == '0')
        --number.count;
    while (number.count > 0 && number.digitAt(0) == '0') {
        ++number.first;
        --number.count;
        --number.pointPosition;
    }
    if (number.count == 0)
        number.pointPosition = 0;
}

/// Digits before the point only, and zeros behind them.
void takeCoefficient(Digits &number, Coefficient coefficient, int exponent, bool isNegative)
{
    const std::string_view text = DecimalArithmetic::digits(coefficient, number.buffer);
    number.first = int(text.data() - number.buffer.data());
    number.count = int(text.size());
    number.pointPosition = number.count + exponent;
    number.isNegative = isNegative;
    trim(number);
}

void takeSigned(Digits &number, qint64 value)
{
    takeCoefficient(number, value < 0 ? 0 - quint64(value) : quint64(value), 0, value < 0);
}

/// Reads what std::to_chars writes in scientific form: d[.ddd]e±dd.
void takeDouble(Digits &number, double value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::scientific);
    number.first = number.count = 0;
    const char *at = text.data();
    for (; at < end.ptr && *at != 'e'; ++at) {
        if (*at != '.')
            number.digitAt(number.count++) = *at;
    }
    int exponent = 0;
    const bool isPlus = at + 1 < end.ptr && at[1] == '+';
    std::from_chars(at + 1 + isPlus, end.ptr, exponent);
    number.pointPosition = exponent + 1;
    number.isNegative = std::signbit(value);
    trim(number);
}

/// How the digits from \a kept on compare with half of the last kept place: -1, 0 or 1.
int compareWithHalf(const Digits &number, int kept)
{
    if (kept < 0)
        return -1;
    const char first = number.digitAt(kept);
    if (first != '5')
        return first < '5' ? -1 : 1;
    return number.count > kept + 1 ? 1 : 0;
}

bool isLastDigitOdd(const Digits &number, int kept)
{
    return kept > 0 && (number.digitAt(kept - 1) - '0') % 2 == 1;
}

/// Whether the magnitude grows when the digits from \a kept on are dropped; the modes in the order
/// of NSNumberFormatterRoundingMode.
bool roundsAway(const Digits &number, int kept, int mode)
{
    const int half = compareWithHalf(number, kept);
    switch (mode) {
    case 0: // ceiling
        return !number.isNegative;
    case 1: // floor
        return number.isNegative;
    case 2: // down, towards zero
        return false;
    case 3: // up, away from zero
        return true;
    case 4: // half even
        return half > 0 || (half == 0 && isLastDigitOdd(number, kept));
    case 5: // half down
        return half > 0;
    default: // half up
        return half >= 0;
    }
}

/// Adds one to the last of \a kept digits.
void increment(Digits &number, int kept)
{
    int at = kept - 1;
    while (at >= 0 && number.digitAt(at) == '9')
        --at;
    if (at < 0) { // all nines, or nothing kept
        number.digitAt(0) = '1';
        number.count = 1;
        ++number.pointPosition;
        return;
    }
    ++number.digitAt(at);
    number.count = at + 1;
}
} // namespace

bool NumberDigits::take(const QVariant &number, VariantKind kind)
{
    if (kind == VariantKind::Double) {
        const double value = number.toDouble();
        if (std::isfinite(value))
            takeDouble(*this, value);
        return std::isfinite(value);
    }
    if (kind == VariantKind::Decimal) {
        const auto &value = *static_cast<const NSDecimalNumber *>(number.constData());
        const DecimalParts parts = DecimalParts::of(value);
        if (!value.isNaN())
            takeCoefficient(*this, parts.coefficient, parts.exponent, parts.isNegative);
        return !value.isNaN();
    }
    if (kind == VariantKind::Unsigned)
        takeCoefficient(*this, number.toULongLong(), 0, false);
    else
        takeSigned(*this, number.toLongLong());
    return true;
}

void NumberDigits::round(int places, int mode)
{
    const int kept = pointPosition + places;
    if (kept >= count || count == 0)
        return;
    const bool isAway = roundsAway(*this, kept, mode);
    if (isAway && kept < 0) // one unit of the last place
        pointPosition -= kept;
    count = std::max(kept, 0);
    if (isAway)
        increment(*this, count);
    trim(*this);
}
