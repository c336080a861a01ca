#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>

#include <compare>

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
/// \endcode
class KTUTILITY_EXPORT NSDecimalNumber
{
public:
    /// Zero.
    NSDecimalNumber() noexcept = default;
    /// An integer, exactly.
    explicit NSDecimalNumber(qint64 value) noexcept;

    /// Not a number: the value of text that is none.
    static NSDecimalNumber notANumber() noexcept;

    /// The number at the start of \a text: blanks, a sign, digits, ".", digits, an exponent; what
    /// follows is ignored ("4a2" is 4). "." is the decimal point in every locale.
    /// \return not-a-number if nothing can be read or the exponent is out of range, even for zero
    /// ("0e200"). Digits after the 38th are rounded, half away from zero.
    static NSDecimalNumber decimalNumberWithString(QStringView text);

    /// \a mantissa × 10^\a exponent, negated if \a isNegative; the exponent as for reading.
    static NSDecimalNumber decimalNumberWithMantissa(quint64 mantissa, int exponent,
                                                     bool isNegative);

    /// Whether there is nothing behind the point; not-a-number is no integer.
    bool isInteger() const noexcept { return !_isNaN && _exponent >= 0; }
    bool isNaN() const noexcept { return _isNaN; }
    bool isNegative() const noexcept { return _isNegative; }

    /// Plain digits with "." and without an exponent: "-0.001", "12500", "0"; "NaN".
    QString description() const;
    /// The nearest double; NaN for not-a-number.
    double doubleValue() const;
    /// The integer part; 0 if it does not fit 64 bits and for not-a-number.
    qint64 integerValue() const;

    /// By value. Not-a-number equals itself and is above every number.
    friend KTUTILITY_EXPORT std::strong_ordering operator<=>(const NSDecimalNumber &left,
                                                             const NSDecimalNumber &right);
    friend bool operator==(const NSDecimalNumber &left, const NSDecimalNumber &right) noexcept
    {
        return left._high == right._high && left._low == right._low &&
               left._exponent == right._exponent && left._isNegative == right._isNegative &&
               left._isNaN == right._isNaN;
    }

private:
    // Normal form: no trailing zero in the coefficient unless the exponent cannot grow; zero has
    // exponent 0 and no sign. Equal values are therefore equal member by member.
    quint64 _high = 0;
    quint64 _low = 0;
    qint16 _exponent = 0;
    bool _isNegative = false;
    bool _isNaN = false;
};

Q_DECLARE_METATYPE(NSDecimalNumber)
