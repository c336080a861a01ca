#include "NSNumberDigits_p.h"

#include "NSDecimalParts_p.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {
using Digits = NSNumberDigits;

/// Drops zeros at both ends; zero has no digits.
void trim(Digits &number)
{
    while (number.count > 0 && number.digits[size_t(number.count - 1)] == '0')
        --number.count;
    int leading = 0;
    while (leading < number.count && number.digits[size_t(leading)] == '0')
        ++leading;
    if (leading > 0) {
        std::memmove(number.digits.data(), number.digits.data() + leading,
                     size_t(number.count - leading));
        number.count -= leading;
        number.pointPosition -= leading;
    }
    if (number.count == 0)
        number.pointPosition = 0;
}

Digits digitsOfInteger(quint64 magnitude, bool isNegative)
{
    Digits number;
    const auto end =
        std::to_chars(number.digits.data(), number.digits.data() + Digits::Capacity, magnitude);
    number.count = number.pointPosition = int(end.ptr - number.digits.data());
    number.isNegative = isNegative;
    trim(number);
    return number;
}

Digits digitsOfSigned(qint64 value)
{
    return digitsOfInteger(value < 0 ? 0 - quint64(value) : quint64(value), value < 0);
}

/// Reads what std::to_chars writes in scientific form: d[.ddd]e±dd.
Digits digitsOfDouble(double value)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::scientific);
    Digits number;
    const char *at = text.data();
    for (; at < end.ptr && *at != 'e'; ++at) {
        if (*at != '.')
            number.digits[size_t(number.count++)] = *at;
    }
    int exponent = 0;
    const bool isPlus = at + 1 < end.ptr && at[1] == '+';
    std::from_chars(at + 1 + isPlus, end.ptr, exponent);
    number.pointPosition = exponent + 1;
    number.isNegative = std::signbit(value);
    trim(number);
    return number;
}

Digits digitsOfDecimal(const NSDecimalNumber &value)
{
    const NSDecimalParts parts = NSDecimalParts::of(value);
    std::array<char, 40> buffer;
    const std::string_view text = NSDecimalArithmetic::digits(parts.coefficient, buffer);
    Digits number;
    std::copy(text.begin(), text.end(), number.digits.begin());
    number.count = int(text.size());
    number.pointPosition = number.count + parts.exponent;
    number.isNegative = parts.isNegative;
    trim(number);
    return number;
}

/// How the digits from \a kept on compare with half of the last kept place: -1, 0 or 1.
int compareWithHalf(const Digits &number, int kept)
{
    if (kept < 0)
        return -1;
    const char first = number.digits[size_t(kept)];
    if (first != '5')
        return first < '5' ? -1 : 1;
    return number.count > kept + 1 ? 1 : 0;
}

bool isLastDigitOdd(const Digits &number, int kept)
{
    return kept > 0 && (number.digits[size_t(kept - 1)] - '0') % 2 == 1;
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
    while (at >= 0 && number.digits[size_t(at)] == '9')
        --at;
    if (at < 0) { // all nines, or nothing kept
        number.digits[0] = '1';
        number.count = 1;
        ++number.pointPosition;
        return;
    }
    ++number.digits[size_t(at)];
    number.count = at + 1;
}
} // namespace

std::optional<NSNumberDigits> NSNumberDigits::of(const QVariant &number)
{
    const int type = number.metaType().id();
    if (type == QMetaType::Double || type == QMetaType::Float) {
        const double value = number.toDouble();
        if (!std::isfinite(value))
            return std::nullopt;
        return digitsOfDouble(value);
    }
    if (type == qMetaTypeId<NSDecimalNumber>()) {
        const auto &value = *static_cast<const NSDecimalNumber *>(number.constData());
        return value.isNaN() ? std::nullopt : std::optional(digitsOfDecimal(value));
    }
    if (type == QMetaType::ULongLong || type == QMetaType::ULong)
        return digitsOfInteger(number.toULongLong(), false);
    return digitsOfSigned(number.toLongLong());
}

void NSNumberDigits::round(int places, int mode)
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
