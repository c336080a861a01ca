#include "DecimalConversions_p.h"

#include "NSDecimalNumber.h"
#include "ValueConverter_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

using namespace KTPrivate;

namespace {
constexpr int NoScale = 0;

/// Half away from zero, as Qt rounds doubles.
const NSDecimalNumberHandler &wholeNumbers()
{
    static const NSDecimalNumberHandler handler(NSRoundPlain, NoScale, false, false, false, false);
    return handler;
}

template<typename Integer>
std::optional<Integer> integerOf(const NSDecimalNumber &number)
{
    using Limits = std::numeric_limits<Integer>;
    const NSDecimalNumber whole =
        number.decimalNumberByRoundingAccordingToBehavior(&wholeNumbers());
    if (whole.isNaN() || whole < NSDecimalNumber(Limits::min()) ||
        whole > NSDecimalNumber(Limits::max()))
        return std::nullopt;
    if (!whole.isNegative() && whole > NSDecimalNumber(std::numeric_limits<qint64>::max()))
        return Integer(whole.description().toULongLong());
    return Integer(whole.integerValue());
}

template<typename Floating>
std::optional<Floating> floatingOf(const NSDecimalNumber &number)
{
    if (number.isNaN())
        return std::nullopt;
    const auto floating = Floating(number.doubleValue());
    return std::isfinite(floating) ? std::optional(floating) : std::nullopt;
}

std::optional<bool> truthOf(const NSDecimalNumber &number)
{
    return number.isNaN() ? std::nullopt : std::optional(number != NSDecimalNumber());
}

std::optional<QString> textOf(const NSDecimalNumber &number)
{
    return number.description();
}

template<typename Number>
std::optional<NSDecimalNumber> decimalOf(const Number &number)
{
    const NSDecimalNumber decimal(number);
    return decimal.isNaN() ? std::nullopt : std::optional(decimal);
}

/// The whole text has to be a number, but for blanks around it.
std::optional<NSDecimalNumber> decimalOfText(const QString &text)
{
    const QString trimmed = text.trimmed();
    const auto isOfNumber = [](QChar unit) {
        return (unit >= u'0' && unit <= u'9') || QStringView(u"+-.eE").contains(unit);
    };
    if (!std::all_of(trimmed.begin(), trimmed.end(), isOfNumber))
        return std::nullopt;
    bool isNumber = false;
    trimmed.toDouble(&isNumber);
    const NSDecimalNumber decimal = NSDecimalNumber::decimalNumberWithString(trimmed);
    return isNumber && !decimal.isNaN() ? std::optional(decimal) : std::nullopt;
}

template<typename... Integers>
bool addIntegers()
{
    return ((addConverter<NSDecimalNumber, Integers>(integerOf<Integers>) &&
             addConverter<Integers, NSDecimalNumber>(decimalOf<Integers>)) &&
            ...);
}

template<typename... Floatings>
bool addFloatings()
{
    return ((addConverter<NSDecimalNumber, Floatings>(floatingOf<Floatings>) &&
             addConverter<Floatings, NSDecimalNumber>(decimalOf<Floatings>)) &&
            ...);
}

[[maybe_unused]] const bool DecimalsConvert = KTPrivate::addDecimalConversions();
} // namespace

bool KTPrivate::addDecimalConversions()
{
    return addIntegers<signed char, unsigned char, short, unsigned short, int, unsigned, long,
                       unsigned long, qlonglong, qulonglong>() &&
           addFloatings<float, double>() && addConverter<NSDecimalNumber, bool>(truthOf) &&
           addConverter<NSDecimalNumber, QString>(textOf) &&
           addConverter<QString, NSDecimalNumber>(decimalOfText);
}
