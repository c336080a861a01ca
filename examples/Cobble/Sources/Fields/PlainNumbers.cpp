#include "PlainNumbers.h"

#include <algorithm>
#include <array>

namespace {
/// The letters of a currency: "EUR", "kr". Longer words may have a plural.
constexpr qsizetype MostCurrencyLetters = 3;

/// What separates groups of digits, or the fraction. "/" and "e" make other numbers of the digits.
bool isSeparator(QStringView sign)
{
    return sign.size() == 1 && QStringView(u".,' \u00A0\u202F\u2019").contains(sign.front());
}

constexpr auto powersOfTen()
{
    std::array<qint64, PlainText::MostDigits + 1> powers{1};
    for (size_t index = 1; index < powers.size(); ++index)
        powers[index] = powers[index - 1] * 10;
    return powers;
}
constexpr auto PowersOfTen = powersOfTen();

/// All digits as one number.
qint64 digitsOf(const PlainText &text)
{
    qint64 digits = 0;
    for (qsizetype index = 0; index < text.runCount(); ++index)
        digits = digits * PowersOfTen[size_t(text.run(index).length)] + text.run(index).value;
    return digits;
}

/// How many digits stand behind so many runs.
qsizetype digitsBehind(const PlainText &text, qsizetype runs)
{
    qsizetype count = 0;
    for (qsizetype index = runs; index < text.runCount(); ++index)
        count += text.run(index).length;
    return count;
}
} // namespace

bool PlainNumbers::isBeside(QStringView signs) const
{
    const auto isLetter = [](QChar unit) { return unit.isLetter() || unit.isMark(); };
    const auto isOther = [](QChar unit) { return unit.isNumber() || unit.isSurrogate(); };
    const auto letters = std::count_if(signs.begin(), signs.end(), isLetter);
    return letters <= (_isMoney ? MostCurrencyLetters : 0) &&
           std::none_of(signs.begin(), signs.end(), isOther);
}

int PlainNumbers::countFor(const PlainText &text) const
{
    bool isNumber = isBeside(text.before()) && isBeside(text.behind());
    for (qsizetype index = 0; isNumber && index + 1 < text.runCount(); ++index)
        isNumber = isSeparator(text.between(index));
    return isNumber ? int(2 * text.runCount()) : 0;
}

/// The fraction of a whole number of tenths and so on is the nearest double: both are exact.
QVariant PlainNumbers::valueOf(const PlainText &text, int way)
{
    const qint64 digits = way % 2 == 0 ? digitsOf(text) : -digitsOf(text);
    const qint64 parts = PowersOfTen[size_t(digitsBehind(text, way / 2 + 1))];
    if (digits % parts == 0)
        return digits / parts;
    return double(digits) / double(parts);
}
