#include "NSDecimalNumber.h"

#include "DecimalArithmetic_p.h"
#include "NSObject.h"
#include "VariantKind_p.h"
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QDataStream>
#include <QDebug>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Coefficient = Coefficient;

using DecimalArithmetic::powerOfTen;

constexpr int MaximumDigits = DecimalParts::MaximumDigits;
constexpr int MinimumExponent = -128;
constexpr int MaximumExponent = 127;

/// Reads the parts of a typed number from left to right.
class DecimalReader
{
public:
    explicit DecimalReader(QStringView text) : _text(text) {}

    bool read()
    {
        skipWhitespace();
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
    void skipWhitespace()
    {
        const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
        while (_position < _text.size() && whitespace.characterIsMember(_text[_position].unicode()))
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
        exponent += !isFraction;
        if (_rounded)
            return;
        _rounded = true;
        coefficient += digit >= 5;
        if (coefficient == powerOfTen(MaximumDigits)) { // all nines went up
            coefficient /= 10;
            ++exponent;
        }
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

bool endsInZero(quint64 value)
{
    return value % 2 == 0 && value % 5 == 0;
}

/// Without a division of 128 bits: 2^64 is one more than a multiple of 5.
bool endsInZero(Coefficient value)
{
    const auto low = quint64(value);
    return low % 2 == 0 && (low % 5 + quint64(value >> 64) % 5) % 5 == 0;
}

template<typename Unsigned>
void dropZeros(Unsigned &coefficient, qint64 &exponent)
{
    while (exponent < MaximumExponent && endsInZero(coefficient)) {
        coefficient /= 10;
        ++exponent;
    }
}

/// Drops trailing zeros while the exponent can take them.
void normalise(Coefficient &coefficient, qint64 &exponent)
{
    if (coefficient >> 64 != 0)
        return dropZeros(coefficient, exponent);
    auto low = quint64(coefficient);
    if (low != 0)
        dropZeros(low, exponent);
    coefficient = low;
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

/// Not-a-number if the exponent is out of range, even for zero.
NSDecimalNumber checked(Coefficient coefficient, qint64 exponent, bool isNegative)
{
    normalise(coefficient, exponent);
    if (coefficient != 0)
        lowerExponent(coefficient, exponent);
    if (exponent < MinimumExponent || exponent > MaximumExponent)
        return NSDecimalNumber::notANumber();
    return DecimalParts{coefficient, int(exponent), isNegative}.number();
}
} // namespace

NSDecimalNumber::NSDecimalNumber(quint64 magnitude, bool isNegative) noexcept
    : _isNegative(isNegative)
{
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
    return checked(reader.coefficient, reader.exponent, reader.isNegative);
}

NSDecimalNumber NSDecimalNumber::decimalNumberWithMantissa(quint64 mantissa, int exponent,
                                                           bool isNegative)
{
    return checked(mantissa, exponent, isNegative);
}

DecimalParts DecimalParts::of(const NSDecimalNumber &number)
{
    return {joined(number._high, number._low), number._exponent, number._isNegative};
}

NSDecimalNumber DecimalParts::number() const
{
    Coefficient digits = coefficient;
    qint64 power = exponent;
    normalise(digits, power);
    NSDecimalNumber number;
    if (digits == 0)
        return number;
    number._high = quint64(digits >> 64);
    number._low = quint64(digits);
    number._exponent = qint16(power);
    number._isNegative = isNegative;
    return number;
}

NSDecimalNumber NSDecimalNumber::decimalNumberWithDouble(double value)
{
    if (!std::isfinite(value))
        return notANumber();
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::scientific, MaximumDigits - 1);
    return decimalNumberWithString(QString::fromLatin1(text.data(), end.ptr - text.data()));
}

NSDecimalNumber NSDecimalNumber::decimalNumberWithNumber(const QVariant &number)
{
    switch (kindOf(number)) {
    case VariantKind::Decimal:
        return number.value<NSDecimalNumber>();
    case VariantKind::Double:
        return decimalNumberWithDouble(number.toDouble());
    case VariantKind::Unsigned:
        return decimalNumberWithMantissa(number.toULongLong(), 0, false);
    case VariantKind::Bool:
    case VariantKind::Signed:
        return NSDecimalNumber(number.toLongLong());
    default:
        return notANumber();
    }
}

NSDecimalNumber NSDecimalNumber::maximumDecimalNumber()
{
    return DecimalParts{powerOfTen(MaximumDigits) - 1, MaximumExponent, false}.number();
}

NSDecimalNumber NSDecimalNumber::minimumDecimalNumber()
{
    return maximumDecimalNumber().decimalNumberByNegating();
}

QString NSDecimalNumber::description() const
{
    if (_isNaN)
        return u"NaN"_s;
    std::array<char, 40> buffer;
    const std::string_view digits = DecimalArithmetic::digits(joined(_high, _low), buffer);
    const int count = int(digits.size());
    const int zeros = std::max<int>(_exponent, 0);
    const int places = std::max<int>(-_exponent, 0);
    const int leading = std::max(places + 1 - count, 0);
    const int point = places > 0 ? leading + count - places : -1;
    QString text(int(_isNegative) + leading + count + zeros + int(places > 0), Qt::Uninitialized);
    QChar *at = text.data();
    if (_isNegative)
        *at++ = u'-';
    for (int place = 0; place < leading + count + zeros; ++place) {
        if (place == point)
            *at++ = u'.';
        const bool isDigit = place >= leading && place < leading + count;
        *at++ = QLatin1Char(isDigit ? digits[size_t(place - leading)] : '0');
    }
    return text;
}

QString NSDecimalNumber::descriptionWithLocale(const NSLocale &locale) const
{
    return description().replace(u'.', locale.decimalSeparator());
}

double NSDecimalNumber::doubleValue() const
{
    if (_isNaN)
        return std::numeric_limits<double>::quiet_NaN();
    std::array<char, 40> buffer;
    const std::string_view digits = DecimalArithmetic::digits(joined(_high, _low), buffer);
    std::array<char, 64> text{};
    char *end = std::copy(digits.begin(), digits.end(), text.data());
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), _exponent).ptr;
    double value = 0;
    std::from_chars(text.data(), end, value);
    return _isNegative ? -value : value;
}

qint64 NSDecimalNumber::integerValue() const
{
    if (_isNaN)
        return 0;
    Coefficient magnitude = joined(_high, _low);
    if (_exponent < 0)
        magnitude = _exponent < -MaximumDigits ? 0 : magnitude / powerOfTen(-_exponent);
    const Coefficient limit = quint64(std::numeric_limits<qint64>::max()) + quint64(_isNegative);
    for (int power = _exponent; power > 0 && magnitude != 0 && magnitude <= limit; --power)
        magnitude *= 10;
    if (magnitude > limit)
        return 0;
    return qint64(_isNegative ? 0 - quint64(magnitude) : quint64(magnitude));
}

namespace {
/// Orders magnitudes: the place of the first digit decides, then the digits from there on.
std::strong_ordering compareMagnitudes(const DecimalParts &left, const DecimalParts &right)
{
    if (left.coefficient == 0 || right.coefficient == 0)
        return left.coefficient <=> right.coefficient;
    const int leftPlace = DecimalArithmetic::digitCount(left.coefficient) + left.exponent;
    const int rightPlace = DecimalArithmetic::digitCount(right.coefficient) + right.exponent;
    if (leftPlace != rightPlace)
        return leftPlace <=> rightPlace;
    const int distance = left.exponent - right.exponent;
    const Coefficient leftDigits = left.coefficient * powerOfTen(std::max(distance, 0));
    const Coefficient rightDigits = right.coefficient * powerOfTen(std::max(-distance, 0));
    return leftDigits <=> rightDigits;
}
} // namespace

std::strong_ordering operator<=>(const NSDecimalNumber &left, const NSDecimalNumber &right)
{
    if (left == right)
        return std::strong_ordering::equal;
    if (left._isNaN || right._isNaN)
        return left._isNaN <=> right._isNaN;
    if (left._isNegative != right._isNegative)
        return right._isNegative <=> left._isNegative;
    const std::strong_ordering order =
        compareMagnitudes(DecimalParts::of(left), DecimalParts::of(right));
    return left._isNegative ? 0 <=> order : order;
}

size_t qHash(const NSDecimalNumber &number, size_t seed) noexcept
{
    return qHashMulti(seed, number._high, number._low, number._exponent, number._isNegative,
                      number._isNaN);
}

QDebug operator<<(QDebug debug, const NSDecimalNumber &number)
{
    const QDebugStateSaver saver(debug);
    debug.noquote().nospace() << number.description();
    return debug;
}

QDataStream &operator<<(QDataStream &stream, const NSDecimalNumber &number)
{
    return stream << number.description();
}

QDataStream &operator>>(QDataStream &stream, NSDecimalNumber &number)
{
    QString text;
    stream >> text;
    number = NSDecimalNumber::decimalNumberWithString(text);
    if (number.isNaN() && text != number.description())
        stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
}
