#include "NSDecimalNumber.h"

#include "NSCharacterSet.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {
__extension__ using Coefficient = unsigned __int128;

constexpr int MaximumDigits = 38;
constexpr int MinimumExponent = -128;
constexpr int MaximumExponent = 127;

/// Reads the parts of a typed number from left to right.
class DecimalReader
{
public:
    explicit DecimalReader(QStringView text) : _text(text) {}

    bool read()
    {
        skipBlanks();
        isNegative = accept(u'-');
        if (!isNegative)
            accept(u'+');
        readDigits(false);
        if (accept(u'.'))
            readDigits(true);
        if (!_sawDigit)
            return false;
        readExponent();
        return true;
    }

    Coefficient coefficient = 0;
    qint64 exponent = 0;
    bool isNegative = false;

private:
    void skipBlanks()
    {
        const NSCharacterSet &blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
        while (_position < _text.size() && blanks.characterIsMember(_text[_position].unicode()))
            ++_position;
    }

    bool accept(char16_t unit)
    {
        if (_position >= _text.size() || _text[_position] != unit)
            return false;
        ++_position;
        return true;
    }

    std::optional<int> nextDigit()
    {
        if (_position >= _text.size())
            return std::nullopt;
        const int digit = _text[_position].unicode() - u'0';
        if (digit < 0 || digit > 9)
            return std::nullopt;
        ++_position;
        return digit;
    }

    void readDigits(bool isFraction)
    {
        while (const auto digit = nextDigit()) {
            _sawDigit = true;
            if (_significantDigits < MaximumDigits)
                addDigit(*digit, isFraction);
            else
                dropDigit(*digit, isFraction);
        }
    }

    void addDigit(int digit, bool isFraction)
    {
        coefficient = coefficient * 10 + unsigned(digit);
        _significantDigits += coefficient != 0;
        exponent -= isFraction;
    }

    /// The first digit that does not fit rounds the others, half away from zero.
    void dropDigit(int digit, bool isFraction)
    {
        if (!_rounded && digit >= 5)
            ++coefficient;
        _rounded = true;
        exponent += !isFraction;
    }

    void readExponent()
    {
        const qsizetype start = _position;
        if (!accept(u'e') && !accept(u'E'))
            return;
        const bool isMinus = accept(u'-');
        if (!isMinus)
            accept(u'+');
        std::optional<int> digit = nextDigit();
        if (!digit) {
            _position = start;
            return;
        }
        qint64 typed = 0;
        for (; digit; digit = nextDigit())
            typed = std::min<qint64>(typed * 10 + *digit, 1'000'000'000);
        exponent += isMinus ? -typed : typed;
    }

    QStringView _text;
    qsizetype _position = 0;
    int _significantDigits = 0;
    bool _sawDigit = false;
    bool _rounded = false;
};

Coefficient powerOfTen(int exponent)
{
    Coefficient power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

QString digitsOf(Coefficient coefficient)
{
    QString digits;
    do {
        digits.prepend(QChar(u'0' + char16_t(coefficient % 10)));
        coefficient /= 10;
    } while (coefficient != 0);
    return digits;
}

/// Drops trailing zeros while the exponent can take them.
void normalise(Coefficient &coefficient, qint64 &exponent)
{
    while (coefficient != 0 && coefficient % 10 == 0 && exponent < MaximumExponent) {
        coefficient /= 10;
        ++exponent;
    }
}

/// Moves an exponent above the range into the coefficient, as far as 38 digits allow.
void lowerExponent(Coefficient &coefficient, qint64 &exponent)
{
    while (exponent > MaximumExponent && coefficient < powerOfTen(MaximumDigits - 1)) {
        coefficient *= 10;
        --exponent;
    }
}

Coefficient joined(quint64 high, quint64 low)
{
    return (Coefficient(high) << 64) | low;
}
} // namespace

NSDecimalNumber::NSDecimalNumber(qint64 value) noexcept : _isNegative(value < 0)
{
    const quint64 magnitude = value < 0 ? 0 - quint64(value) : quint64(value);
    Coefficient coefficient = magnitude;
    qint64 exponent = 0;
    normalise(coefficient, exponent);
    _low = quint64(coefficient);
    _exponent = qint16(exponent);
}

NSDecimalNumber NSDecimalNumber::notANumber() noexcept
{
    NSDecimalNumber number;
    number._isNaN = true;
    return number;
}

NSDecimalNumber NSDecimalNumber::decimalNumberWithString(QStringView text)
{
    DecimalReader reader(text);
    if (!reader.read())
        return notANumber();
    normalise(reader.coefficient, reader.exponent);
    if (reader.coefficient != 0)
        lowerExponent(reader.coefficient, reader.exponent);
    if (reader.exponent < MinimumExponent || reader.exponent > MaximumExponent)
        return notANumber();
    NSDecimalNumber number;
    if (reader.coefficient == 0)
        return number;
    number._high = quint64(reader.coefficient >> 64);
    number._low = quint64(reader.coefficient);
    number._exponent = qint16(reader.exponent);
    number._isNegative = reader.isNegative;
    return number;
}

NSDecimalNumber NSDecimalNumber::decimalNumberWithMantissa(quint64 mantissa, int exponent,
                                                           bool isNegative)
{
    Coefficient coefficient = mantissa;
    qint64 power = exponent;
    normalise(coefficient, power);
    if (coefficient != 0)
        lowerExponent(coefficient, power);
    if (power < MinimumExponent || power > MaximumExponent)
        return notANumber();
    NSDecimalNumber number;
    if (coefficient == 0)
        return number;
    number._high = quint64(coefficient >> 64);
    number._low = quint64(coefficient);
    number._exponent = qint16(power);
    number._isNegative = isNegative;
    return number;
}

QString NSDecimalNumber::description() const
{
    if (_isNaN)
        return QStringLiteral("NaN");
    QString digits = digitsOf(joined(_high, _low));
    if (_exponent > 0)
        digits += QString(_exponent, u'0');
    if (_exponent < 0) {
        digits = digits.rightJustified(1 - _exponent, u'0');
        digits.insert(digits.size() + _exponent, u'.');
    }
    return _isNegative ? QString(u'-' + digits) : digits;
}

double NSDecimalNumber::doubleValue() const
{
    return _isNaN ? std::numeric_limits<double>::quiet_NaN() : description().toDouble();
}

qint64 NSDecimalNumber::integerValue() const
{
    const QString digits = description();
    return digits.left(digits.indexOf(u'.')).toLongLong();
}

std::strong_ordering operator<=>(const NSDecimalNumber &left, const NSDecimalNumber &right)
{
    if (left == right)
        return std::strong_ordering::equal;
    if (left._isNaN || right._isNaN)
        return left._isNaN <=> right._isNaN;
    if (left._isNegative != right._isNegative)
        return right._isNegative <=> left._isNegative;
    const QString a = digitsOf(joined(left._high, left._low));
    const QString b = digitsOf(joined(right._high, right._low));
    const bool isZeroA = a == u"0", isZeroB = b == u"0";
    // The place of the first digit decides, then the digits from there on.
    std::strong_ordering order = isZeroA || isZeroB
                                     ? isZeroB <=> isZeroA
                                     : a.size() + left._exponent <=> b.size() + right._exponent;
    if (order == 0) {
        const qsizetype length = std::max(a.size(), b.size());
        order = a.leftJustified(length, u'0').compare(b.leftJustified(length, u'0')) <=> 0;
    }
    return left._isNegative ? 0 <=> order : order;
}
