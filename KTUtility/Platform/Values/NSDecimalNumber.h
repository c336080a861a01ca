#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <compare>
#include <concepts>
#include <functional>
#include <optional>

namespace KTPrivate {
struct DecimalParts;
}

class NSDecimalNumberBehaviors;
class NSLocale;
class QDataStream;
class QDebug;

/// Which of two neighbours a result that needs more digits becomes.
enum NSRoundingMode {
    NSRoundPlain = 0,  ///< the nearer; half-way the one farther from zero
    NSRoundDown = 1,   ///< the lower, towards negative infinity: -0.5 becomes -1
    NSRoundUp = 2,     ///< the higher, towards positive infinity
    NSRoundBankers = 3 ///< the nearer; half-way the one with an even digit
};

/// What an operation cannot do exactly.
enum NSCalculationError {
    NSCalculationNoError = 0,         ///< it is exact
    NSCalculationLossOfPrecision = 1, ///< the result needs more than 38 digits
    NSCalculationUnderflow = 2,       ///< it is nearer to zero than 10^-128
    NSCalculationOverflow = 3,        ///< it is larger than any decimal
    NSCalculationDivideByZero = 4     ///< the divisor is zero
};

/// The scale that leaves all digits.
inline constexpr short NSDecimalNoScale = 32767;

/// The names of the exceptions that NSDecimalNumberBehaviors raises, one for each kind of error.
KTUTILITY_EXPORT extern const QString NSDecimalNumberExactnessException;
KTUTILITY_EXPORT extern const QString NSDecimalNumberOverflowException;
KTUTILITY_EXPORT extern const QString NSDecimalNumberUnderflowException;
KTUTILITY_EXPORT extern const QString NSDecimalNumberDivideByZeroException;
namespace KTDetail {
/// Integers, and not truth values.
template<typename T>
concept Integral = std::integral<T> && !std::same_as<T, bool>;
} // namespace KTDetail

/// An exact decimal number: up to 38 significant digits and an exponent from -128 to 127.
///
/// Use it for money and for whatever a person typed with a decimal point: 0.1 is one tenth, and
/// 1.50 equals 1.5. It is a number to every function of this framework (NSObject::isNumber()).
///
/// \code
/// const auto price = NSDecimalNumber::decimalNumberWithString(u"12.50");
/// price.description();    // "12.5"
/// price == NSDecimalNumber::decimalNumberWithString(u"12.5");    // true
/// NSDecimalNumber::decimalNumberWithString(u"abc").isNaN();       // true
///
/// const NSDecimalNumberHandler cents(NSRoundBankers, 2, false, true, true, true);
/// price.decimalNumberByDividingBy(NSDecimalNumber(7), &cents);    // 1.79
/// \endcode
///
/// It is a value for Qt, too: variants convert it to and from texts ("12.5", in every locale) and all
/// arithmetic types, as they convert doubles (fractions are rounded on the way to integers; what
/// does not fit, or is not a number, fails); it can be hashed, streamed and printed with qDebug().
///
/// \code
/// using namespace KTLiterals;
/// const NSDecimalNumber total = 12.50_dec + 0.10_dec * NSDecimalNumber(3);    // 12.8, exactly
/// QVariant::fromValue(total).toDouble();                                      // 12.8
/// QVariant(u"7.25"_s).value<NSDecimalNumber>() == 7.25_dec;                    // true
/// \endcode
class KTUTILITY_EXPORT NSDecimalNumber
{
public:
    /// Zero.
    NSDecimalNumber() noexcept = default;
    /// An integer of any type, exactly.
    template<KTDetail::Integral Integer>
    explicit NSDecimalNumber(Integer value) noexcept
        : NSDecimalNumber(value < 0 ? 0 - quint64(value) : quint64(value), value < 0)
    {
    }
    /// As decimalNumberWithDouble(): 12.5 is 12.5, and 0.1 has some more than one tenth.
    template<std::floating_point Floating>
    explicit NSDecimalNumber(Floating value)
        : NSDecimalNumber(decimalNumberWithDouble(double(value)))
    {
    }

    /// 0.
    static NSDecimalNumber zero() noexcept { return {}; }
    /// 1.
    static NSDecimalNumber one() noexcept { return NSDecimalNumber(1); }
    /// Not a number: the value of text that is none.
    static NSDecimalNumber notANumber() noexcept;

    /// The number at the start of \a text: whitespace, a sign, digits, ".", digits, an exponent;
    /// what follows is ignored ("4a2" is 4). "." is the decimal point in every locale.
    /// \return not-a-number if nothing can be read or the exponent is out of range, even for zero
    /// ("0e200"). Digits after the 38th are rounded, half away from zero.
    static NSDecimalNumber decimalNumberWithString(QStringView text);

    /// \a mantissa × 10^\a exponent, negated if \a isNegative; the exponent as for reading.
    static NSDecimalNumber decimalNumberWithMantissa(quint64 mantissa, int exponent,
                                                     bool isNegative);

    /// A double to 38 digits, exactly up to there (0.1 has some more than one); not-a-number for
    /// NaN, infinities and what is out of range.
    static NSDecimalNumber decimalNumberWithDouble(double value);
    /// Any number variant; not-a-number for what is none.
    static NSDecimalNumber decimalNumberWithNumber(const QVariant &number);
    /// 99…9 (38 digits) × 10^127.
    static NSDecimalNumber maximumDecimalNumber();
    /// Its negative.
    static NSDecimalNumber minimumDecimalNumber();

    // --- Arithmetic. A result is rounded to 38 digits and then to the behaviour's scale, in its
    // mode; what cannot be done is put to it. Digits that only the scale drops are no error.
    // Without a behaviour, defaultBehavior() decides. What has to do with not-a-number is
    // not-a-number.

    /// The sum.
    NSDecimalNumber
    decimalNumberByAdding(const NSDecimalNumber &other,
                          const NSDecimalNumberBehaviors *withBehavior = nullptr) const;
    /// The difference.
    NSDecimalNumber
    decimalNumberBySubtracting(const NSDecimalNumber &other,
                               const NSDecimalNumberBehaviors *withBehavior = nullptr) const;
    /// The product.
    NSDecimalNumber
    decimalNumberByMultiplyingBy(const NSDecimalNumber &other,
                                 const NSDecimalNumberBehaviors *withBehavior = nullptr) const;
    /// The quotient. Dividing by zero is an error, which the behaviour decides about.
    NSDecimalNumber
    decimalNumberByDividingBy(const NSDecimalNumber &other,
                              const NSDecimalNumberBehaviors *withBehavior = nullptr) const;
    /// Anything to the power 0 is 1.
    NSDecimalNumber
    decimalNumberByRaisingToPower(unsigned power,
                                  const NSDecimalNumberBehaviors *withBehavior = nullptr) const;
    /// The number with its decimal point moved by \a power places.
    NSDecimalNumber decimalNumberByMultiplyingByPowerOf10(
        short power, const NSDecimalNumberBehaviors *withBehavior = nullptr) const;
    /// Rounded as the behaviour says, nothing else.
    NSDecimalNumber
    decimalNumberByRoundingAccordingToBehavior(const NSDecimalNumberBehaviors *behavior) const;
    /// The number with the other sign; zero stays.
    NSDecimalNumber decimalNumberByNegating() const;

    // --- The same as operators, with defaultBehavior(): dividing by zero raises unless that
    // decides otherwise.

    /// The sum.
    friend NSDecimalNumber operator+(const NSDecimalNumber &left, const NSDecimalNumber &right)
    {
        return left.decimalNumberByAdding(right);
    }
    /// The difference.
    friend NSDecimalNumber operator-(const NSDecimalNumber &left, const NSDecimalNumber &right)
    {
        return left.decimalNumberBySubtracting(right);
    }
    /// The product.
    friend NSDecimalNumber operator*(const NSDecimalNumber &left, const NSDecimalNumber &right)
    {
        return left.decimalNumberByMultiplyingBy(right);
    }
    /// The quotient.
    friend NSDecimalNumber operator/(const NSDecimalNumber &left, const NSDecimalNumber &right)
    {
        return left.decimalNumberByDividingBy(right);
    }
    /// The sum of a number and an integer.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator+(const NSDecimalNumber &left, Integer right)
    {
        return left + NSDecimalNumber(right);
    }
    /// The sum of an integer and a number.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator+(Integer left, const NSDecimalNumber &right)
    {
        return NSDecimalNumber(left) + right;
    }
    /// The difference of a number and an integer.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator-(const NSDecimalNumber &left, Integer right)
    {
        return left - NSDecimalNumber(right);
    }
    /// The difference of an integer and a number.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator-(Integer left, const NSDecimalNumber &right)
    {
        return NSDecimalNumber(left) - right;
    }
    /// The product of a number and an integer.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator*(const NSDecimalNumber &left, Integer right)
    {
        return left * NSDecimalNumber(right);
    }
    /// The product of an integer and a number.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator*(Integer left, const NSDecimalNumber &right)
    {
        return NSDecimalNumber(left) * right;
    }
    /// The quotient of a number and an integer.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator/(const NSDecimalNumber &left, Integer right)
    {
        return left / NSDecimalNumber(right);
    }
    /// The quotient of an integer and a number.
    template<KTDetail::Integral Integer>
    friend NSDecimalNumber operator/(Integer left, const NSDecimalNumber &right)
    {
        return NSDecimalNumber(left) / right;
    }
    /// The number itself.
    NSDecimalNumber operator+() const { return *this; }
    /// The number with the other sign.
    NSDecimalNumber operator-() const { return decimalNumberByNegating(); }
    /// Adds.
    NSDecimalNumber &operator+=(const NSDecimalNumber &other) { return *this = *this + other; }
    /// Subtracts.
    NSDecimalNumber &operator-=(const NSDecimalNumber &other) { return *this = *this - other; }
    /// Multiplies.
    NSDecimalNumber &operator*=(const NSDecimalNumber &other) { return *this = *this * other; }
    /// Divides.
    NSDecimalNumber &operator/=(const NSDecimalNumber &other) { return *this = *this / other; }

    /// Plain rounding without scale, raising for everything but lost digits. One for each thread.
    static const NSDecimalNumberBehaviors *defaultBehavior();
    /// Another one for the calling thread, which has to outlive its use; null is the first again.
    static void setDefaultBehavior(const NSDecimalNumberBehaviors *behavior);

    /// Whether there is nothing behind the point; not-a-number is no integer.
    bool isInteger() const noexcept { return !_isNaN && _exponent >= 0; }
    /// Whether it is no number.
    bool isNaN() const noexcept { return _isNaN; }
    /// Whether it is below zero.
    bool isNegative() const noexcept { return _isNegative; }

    /// Plain digits with "." and without an exponent: "-0.001", "12500", "0"; "NaN".
    QString description() const;
    /// The same with the decimal separator of a locale; no groups.
    QString descriptionWithLocale(const NSLocale &locale) const;
    /// The nearest double; NaN for not-a-number.
    double doubleValue() const;
    /// The integer part; 0 if it does not fit 64 bits and for not-a-number.
    qint64 integerValue() const;

    /// By value. Not-a-number equals itself and is above every number.
    friend KTUTILITY_EXPORT std::strong_ordering operator<=>(const NSDecimalNumber &left,
                                                             const NSDecimalNumber &right);
    /// Whether both have the same value; not-a-number equals itself.
    friend bool operator==(const NSDecimalNumber &left, const NSDecimalNumber &right) noexcept
    {
        return left._high == right._high && left._low == right._low &&
               left._exponent == right._exponent && left._isNegative == right._isNegative &&
               left._isNaN == right._isNaN;
    }

    /// Equal numbers have equal hashes, however they were typed.
    friend KTUTILITY_EXPORT size_t qHash(const NSDecimalNumber &number, size_t seed) noexcept;

private:
    friend struct KTPrivate::DecimalParts;

    NSDecimalNumber(quint64 magnitude, bool isNegative) noexcept;

    // Normal form: no trailing zero in the coefficient unless the exponent cannot grow; zero has
    // exponent 0 and no sign. Equal values are therefore equal member by member.
    quint64 _high = 0;
    quint64 _low = 0;
    qint16 _exponent = 0;
    bool _isNegative = false;
    bool _isNaN = false;
};

Q_DECLARE_METATYPE(NSDecimalNumber)

/// The hash of a number, for QHash and QSet.
KTUTILITY_EXPORT size_t qHash(const NSDecimalNumber &number, size_t seed = 0) noexcept;

/// The same for the containers of the standard library.
template<>
struct std::hash<NSDecimalNumber>
{
    /// As qHash().
    size_t operator()(const NSDecimalNumber &number) const noexcept { return qHash(number); }
};

/// Prints the number as description() has it.
KTUTILITY_EXPORT QDebug operator<<(QDebug debug, const NSDecimalNumber &number);
/// Writes the number as a text, which every version of the framework reads.
KTUTILITY_EXPORT QDataStream &operator<<(QDataStream &stream, const NSDecimalNumber &number);
/// Reads what was written; a text that is no number is not-a-number, and sets the stream's status.
KTUTILITY_EXPORT QDataStream &operator>>(QDataStream &stream, NSDecimalNumber &number);

namespace KTDetail {
/// How a literal is written: its digits and its point, without separators between digits.
template<char... Characters>
struct DecimalLiteral
{
    /// The characters that count.
    static constexpr char16_t Text[] = {char16_t(Characters)..., u'\0'};

    /// Whether it is a decimal, and no hexadecimal, binary or octal number.
    static constexpr bool isDecimal()
    {
        constexpr auto isOfDecimal = [](char c) {
            return (c >= '0' && c <= '9') || c == '.' || c == 'e' || c == 'E' || c == '+' ||
                   c == '-' || c == '\'';
        };
        constexpr bool isOctal =
            sizeof...(Characters) > 1 && Text[0] == u'0' && Text[1] >= u'0' && Text[1] <= u'9';
        return (isOfDecimal(Characters) && ...) && !isOctal;
    }

    /// How many digits it has.
    static constexpr int digits() { return ((Characters >= '0' && Characters <= '9') + ...); }
};
} // namespace KTDetail

/// Decimals in programs: `using namespace KTLiterals;` and `12.50_dec`.
namespace KTLiterals {
/// The number as it is written, exactly; one with more than 38 digits does not compile.
template<char... Characters>
[[nodiscard]] NSDecimalNumber operator""_dec()
{
    using Literal = KTDetail::DecimalLiteral<Characters...>;
    static_assert(Literal::isDecimal(), "Only decimal digits, a point and an exponent.");
    static_assert(Literal::digits() <= 38, "A decimal has at most 38 digits.");
    QString text = QString::fromUtf16(Literal::Text);
    return NSDecimalNumber::decimalNumberWithString(text.remove(u'\''));
}
} // namespace KTLiterals

/// How decimals are rounded and what happens when that is not enough.
class KTUTILITY_EXPORT NSDecimalNumberBehaviors
{
public:
    virtual ~NSDecimalNumberBehaviors();

    /// How digits beyond the scale are rounded.
    virtual NSRoundingMode roundingMode() const = 0;
    /// How many digits stay behind the point; negative ones round before it.
    virtual short scale() const = 0;
    /// \a operation ("decimalNumberByAdding:") ran into \a error.
    /// \param rightOperand nil for operations with one decimal.
    /// \return what to use instead of the result; nothing to use the result, which is
    /// not-a-number unless only digits were lost. May throw.
    virtual std::optional<NSDecimalNumber>
    exceptionDuringOperation(const QString &operation, NSCalculationError error,
                             const NSDecimalNumber &leftOperand,
                             const std::optional<NSDecimalNumber> &rightOperand) const = 0;

protected:
    NSDecimalNumberBehaviors() = default;
    /// For subclasses, which are values.
    NSDecimalNumberBehaviors(const NSDecimalNumberBehaviors &) = default;
    /// For subclasses, which are values.
    NSDecimalNumberBehaviors &operator=(const NSDecimalNumberBehaviors &) = default;
};

/// A behaviour of fixed settings, raising NSException for the errors that it is set to raise for.
class KTUTILITY_EXPORT NSDecimalNumberHandler : public NSDecimalNumberBehaviors
{
public:
    /// A behaviour that rounds to \a scale digits behind the point in that mode, and raises for the
    /// kinds of errors that are true.
    NSDecimalNumberHandler(NSRoundingMode roundingMode, short scale, bool raiseOnExactness,
                           bool raiseOnOverflow, bool raiseOnUnderflow, bool raiseOnDivideByZero);

    /// The mode that it was made with.
    NSRoundingMode roundingMode() const override { return _roundingMode; }
    short scale() const override { return _scale; }
    /// \throws NSException NSDecimalNumberExactnessException and so on.
    std::optional<NSDecimalNumber>
    exceptionDuringOperation(const QString &operation, NSCalculationError error,
                             const NSDecimalNumber &leftOperand,
                             const std::optional<NSDecimalNumber> &rightOperand) const override;

private:
    bool raises(NSCalculationError error) const;

    NSRoundingMode _roundingMode;
    short _scale;
    bool _raiseOnExactness;
    bool _raiseOnOverflow;
    bool _raiseOnUnderflow;
    bool _raiseOnDivideByZero;
};
