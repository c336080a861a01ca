#include "NSNumberFormatter.h"

#include "NSNumberFormatter_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/dcfmtsym.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

// The settings of the number formatter: what is not set is asked of the engine.

using icu::DecimalFormat;
using Symbols = icu::DecimalFormatSymbols;

namespace {
constexpr qsizetype MaximumPatternLength = 1024;
constexpr int MaximumFillDigits = 999; // as in ICU

QString affixOf(const NumberEngine &engine,
                icu::UnicodeString &(DecimalFormat::*get)(icu::UnicodeString &) const)
{
    icu::UnicodeString text;
    return engine.decimalFormat() ? ICU::stringOf((engine.decimalFormat()->*get)(text)) : u""_s;
}

/// A number of ICU's, 0 for numbers in words.
template<typename Result, typename Class>
Result numberOf(const NumberEngine &engine, Result (Class::*get)() const)
{
    return engine.decimalFormat() ? (engine.decimalFormat()->*get)() : Result();
}

/// At the ";" of a pattern.
QStringList partsOf(const QString &format)
{
    QStringList parts{QString()};
    bool isQuoted = false;
    for (const QChar unit : format) {
        isQuoted ^= unit == u'\'';
        if (unit == u';' && !isQuoted)
            parts.append(QString());
        else
            parts.last() += unit;
    }
    return parts;
}

QString nilIfEmpty(const QString &text)
{
    return text.isEmpty() ? QString() : text;
}
} // namespace

// --- Kind

int NSNumberFormatter::numberStyle() const
{
    return _private->settings.style;
}

void NSNumberFormatter::setNumberStyle(int style)
{
    _private->set(_private->settings.style, style);
}

const NSLocale &NSNumberFormatter::locale() const
{
    return _private->settings.locale;
}

void NSNumberFormatter::setLocale(const NSLocale &locale)
{
    _private->set(_private->settings.locale, locale);
}

bool NSNumberFormatter::isLenient() const
{
    return _private->settings.lenient;
}

void NSNumberFormatter::setLenient(bool lenient)
{
    _private->set(_private->settings.lenient, lenient);
}

// --- Digits

bool NSNumberFormatter::usesGroupingSeparator() const
{
    const std::optional<bool> &uses = _private->settings.usesGroupingSeparator;
    return uses ? *uses : numberOf(_private->engine(), &DecimalFormat::isGroupingUsed);
}

void NSNumberFormatter::setUsesGroupingSeparator(bool uses)
{
    _private->settings.usesGroupingSeparator = uses;
    _private->variantChanged();
}

int NSNumberFormatter::groupingSize() const
{
    const std::optional<int> &given = _private->settings.groupingSize;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::getGroupingSize);
}

void NSNumberFormatter::setGroupingSize(int size)
{
    _private->set(_private->settings.groupingSize, size);
}

int NSNumberFormatter::secondaryGroupingSize() const
{
    const std::optional<int> &given = _private->settings.secondaryGroupingSize;
    return given ? *given
                 : std::max(numberOf(_private->engine(), &DecimalFormat::getSecondaryGroupingSize),
                            0);
}

void NSNumberFormatter::setSecondaryGroupingSize(int size)
{
    _private->set(_private->settings.secondaryGroupingSize, size);
}

int NSNumberFormatter::minimumIntegerDigits() const
{
    const std::optional<int> &given = _private->settings.minimumIntegerDigits;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::getMinimumIntegerDigits);
}

void NSNumberFormatter::setMinimumIntegerDigits(int count)
{
    count = std::clamp(count, 0, MaximumFillDigits);
    _private->settings.minimumIntegerDigits = count;
    std::optional<int> &maximum = _private->settings.maximumIntegerDigits;
    if (maximum && *maximum < count)
        maximum = count;
    _private->changed();
}

int NSNumberFormatter::maximumIntegerDigits() const
{
    const std::optional<int> &given = _private->settings.maximumIntegerDigits;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::getMaximumIntegerDigits);
}

void NSNumberFormatter::setMaximumIntegerDigits(int count)
{
    count = std::max(count, 0);
    _private->settings.maximumIntegerDigits = count;
    std::optional<int> &minimum = _private->settings.minimumIntegerDigits;
    if (minimum && *minimum > count)
        minimum = count;
    _private->changed();
}

int NSNumberFormatter::minimumFractionDigits() const
{
    const std::optional<int> &given = _private->settings.minimumFractionDigits;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::getMinimumFractionDigits);
}

void NSNumberFormatter::setMinimumFractionDigits(int count)
{
    count = std::clamp(count, 0, MaximumFillDigits);
    _private->settings.minimumFractionDigits = count;
    std::optional<int> &maximum = _private->settings.maximumFractionDigits;
    if (maximum && *maximum < count)
        maximum = count;
    _private->changed();
}

int NSNumberFormatter::maximumFractionDigits() const
{
    const std::optional<int> &given = _private->settings.maximumFractionDigits;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::getMaximumFractionDigits);
}

void NSNumberFormatter::setMaximumFractionDigits(int count)
{
    count = std::max(count, 0);
    _private->settings.maximumFractionDigits = count;
    std::optional<int> &minimum = _private->settings.minimumFractionDigits;
    if (minimum && *minimum > count)
        minimum = count;
    _private->changed();
}

bool NSNumberFormatter::usesSignificantDigits() const
{
    const std::optional<bool> &given = _private->settings.usesSignificantDigits;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::areSignificantDigitsUsed);
}

void NSNumberFormatter::setUsesSignificantDigits(bool uses)
{
    _private->set(_private->settings.usesSignificantDigits, uses);
}

int NSNumberFormatter::minimumSignificantDigits() const
{
    const int unset = _private->engine().decimalFormat() ? -1 : 0;
    return _private->settings.minimumSignificantDigits.value_or(unset);
}

void NSNumberFormatter::setMinimumSignificantDigits(int count)
{
    _private->set(_private->settings.minimumSignificantDigits, count);
}

int NSNumberFormatter::maximumSignificantDigits() const
{
    const int unset = _private->engine().decimalFormat() ? -1 : 0;
    return _private->settings.maximumSignificantDigits.value_or(unset);
}

void NSNumberFormatter::setMaximumSignificantDigits(int count)
{
    _private->set(_private->settings.maximumSignificantDigits, count);
}

int NSNumberFormatter::roundingMode() const
{
    const std::optional<int> &given = _private->settings.roundingMode;
    return given ? *given : int(numberOf(_private->engine(), &DecimalFormat::getRoundingMode));
}

void NSNumberFormatter::setRoundingMode(int mode)
{
    _private->set(_private->settings.roundingMode, mode);
}

double NSNumberFormatter::roundingIncrement() const
{
    const std::optional<double> &given = _private->settings.roundingIncrement;
    return given ? *given : numberOf(_private->engine(), &DecimalFormat::getRoundingIncrement);
}

void NSNumberFormatter::setRoundingIncrement(double increment)
{
    _private->set(_private->settings.roundingIncrement, increment);
}

std::optional<int> NSNumberFormatter::multiplier() const
{
    const bool isPercent = _private->settings.style == NSNumberFormatterPercentStyle;
    const std::optional<int> &given = _private->settings.multiplier;
    return given || !isPercent ? given : std::optional(100);
}

void NSNumberFormatter::setMultiplier(std::optional<int> multiplier)
{
    _private->set(_private->settings.multiplier, multiplier);
}

bool NSNumberFormatter::alwaysShowsDecimalSeparator() const
{
    const std::optional<bool> &given = _private->settings.alwaysShowsDecimalSeparator;
    return given ? *given
                 : numberOf(_private->engine(), &DecimalFormat::isDecimalSeparatorAlwaysShown);
}

void NSNumberFormatter::setAlwaysShowsDecimalSeparator(bool shows)
{
    _private->set(_private->settings.alwaysShowsDecimalSeparator, shows);
}

// --- Signs and separators

void NSNumberFormatter::Private::setAffix(
    QString NumberSettings::*affix, const QString &text,
    icu::UnicodeString &(DecimalFormat::*get)(icu::UnicodeString &) const)
{
    settings.*affix = QString();
    variantChanged();
    if (text.isNull() || !settings.isForMoney()) {
        settings.*affix = text;
    } else if (affixOf(engine(), get) != text) {
        const QString symbol = engine().symbol(Symbols::kCurrencySymbol);
        const QString placeholder = QString(QChar(NumberSettings::CurrencySign));
        settings.*affix = symbol.isEmpty() ? text : QString(text).replace(symbol, placeholder);
    }
    variantChanged();
}

QString NSNumberFormatter::positivePrefix() const
{
    return affixOf(_private->engine(), &DecimalFormat::getPositivePrefix);
}

void NSNumberFormatter::setPositivePrefix(const QString &prefix)
{
    _private->setAffix(&NumberSettings::positivePrefix, prefix, &DecimalFormat::getPositivePrefix);
    _private->changed();
}

QString NSNumberFormatter::positiveSuffix() const
{
    return affixOf(_private->engine(), &DecimalFormat::getPositiveSuffix);
}

void NSNumberFormatter::setPositiveSuffix(const QString &suffix)
{
    _private->setAffix(&NumberSettings::positiveSuffix, suffix, &DecimalFormat::getPositiveSuffix);
    _private->changed();
}

QString NSNumberFormatter::negativePrefix() const
{
    return affixOf(_private->engine(), &DecimalFormat::getNegativePrefix);
}

void NSNumberFormatter::setNegativePrefix(const QString &prefix)
{
    _private->setAffix(&NumberSettings::negativePrefix, prefix, &DecimalFormat::getNegativePrefix);
}

QString NSNumberFormatter::negativeSuffix() const
{
    return affixOf(_private->engine(), &DecimalFormat::getNegativeSuffix);
}

void NSNumberFormatter::setNegativeSuffix(const QString &suffix)
{
    _private->setAffix(&NumberSettings::negativeSuffix, suffix, &DecimalFormat::getNegativeSuffix);
}

QString NSNumberFormatter::decimalSeparator() const
{
    const QString &given = _private->settings.decimalSeparator;
    return given.isNull() ? _private->engine().symbol(Symbols::kDecimalSeparatorSymbol) : given;
}

void NSNumberFormatter::setDecimalSeparator(const QString &separator)
{
    _private->set(_private->settings.decimalSeparator, separator);
}

QString NSNumberFormatter::groupingSeparator() const
{
    const QString &given = _private->settings.groupingSeparator;
    return given.isNull() ? _private->engine().symbol(Symbols::kGroupingSeparatorSymbol) : given;
}

void NSNumberFormatter::setGroupingSeparator(const QString &separator)
{
    _private->set(_private->settings.groupingSeparator, separator);
}

QString NSNumberFormatter::minusSign() const
{
    const QString &given = _private->settings.minusSign;
    return given.isNull() ? _private->engine().symbol(Symbols::kMinusSignSymbol) : given;
}

void NSNumberFormatter::setMinusSign(const QString &sign)
{
    _private->set(_private->settings.minusSign, sign);
}

QString NSNumberFormatter::plusSign() const
{
    const QString &given = _private->settings.plusSign;
    return given.isNull() ? _private->engine().symbol(Symbols::kPlusSignSymbol) : given;
}

void NSNumberFormatter::setPlusSign(const QString &sign)
{
    _private->set(_private->settings.plusSign, sign);
}

QString NSNumberFormatter::percentSymbol() const
{
    const QString &given = _private->settings.percentSymbol;
    return given.isNull() ? _private->engine().symbol(Symbols::kPercentSymbol) : given;
}

void NSNumberFormatter::setPercentSymbol(const QString &symbol)
{
    _private->set(_private->settings.percentSymbol, symbol);
}

QString NSNumberFormatter::perMillSymbol() const
{
    const QString &given = _private->settings.perMillSymbol;
    return given.isNull() ? _private->engine().symbol(Symbols::kPerMillSymbol) : given;
}

void NSNumberFormatter::setPerMillSymbol(const QString &symbol)
{
    _private->set(_private->settings.perMillSymbol, symbol);
}

QString NSNumberFormatter::exponentSymbol() const
{
    const QString &given = _private->settings.exponentSymbol;
    return given.isNull() ? _private->engine().symbol(Symbols::kExponentialSymbol) : given;
}

void NSNumberFormatter::setExponentSymbol(const QString &symbol)
{
    _private->set(_private->settings.exponentSymbol, symbol);
}

// --- Money

QString NSNumberFormatter::currencyCode() const
{
    const QString &given = _private->settings.currencyCode;
    return given.isNull() ? _private->settings.locale.currencyCode() : given;
}

void NSNumberFormatter::setCurrencyCode(const QString &code)
{
    _private->set(_private->settings.currencyCode, code);
}

QString NSNumberFormatter::currencySymbol() const
{
    const QString &given = _private->settings.currencySymbol;
    return given.isNull() ? _private->engine().symbol(Symbols::kCurrencySymbol) : given;
}

void NSNumberFormatter::setCurrencySymbol(const QString &symbol)
{
    _private->settings.currencySymbol = symbol;
    _private->codeOfSymbol = _private->settings.currencyCode;
    _private->changed();
}

QString NSNumberFormatter::internationalCurrencySymbol() const
{
    const QString &given = _private->settings.internationalCurrencySymbol;
    return given.isNull() ? _private->engine().symbol(Symbols::kIntlCurrencySymbol) : given;
}

void NSNumberFormatter::setInternationalCurrencySymbol(const QString &symbol)
{
    _private->set(_private->settings.internationalCurrencySymbol, symbol);
}

QString NSNumberFormatter::currencyDecimalSeparator() const
{
    const QString &given = _private->settings.currencyDecimalSeparator;
    return given.isNull() ? _private->engine().symbol(Symbols::kMonetarySeparatorSymbol) : given;
}

void NSNumberFormatter::setCurrencyDecimalSeparator(const QString &separator)
{
    _private->set(_private->settings.currencyDecimalSeparator, separator);
}

QString NSNumberFormatter::currencyGroupingSeparator() const
{
    const QString &given = _private->settings.currencyGroupingSeparator;
    return given.isNull() ? _private->engine().symbol(Symbols::kMonetaryGroupingSeparatorSymbol)
                          : given;
}

void NSNumberFormatter::setCurrencyGroupingSeparator(const QString &separator)
{
    _private->set(_private->settings.currencyGroupingSeparator, separator);
}

// --- Texts of their own

QString NSNumberFormatter::zeroSymbol() const
{
    return _zeroSymbol;
}

QString NSNumberFormatter::notANumberSymbol() const
{
    const QString &given = _private->settings.notANumberSymbol;
    return given.isNull() ? _private->engine().symbol(Symbols::kNaNSymbol) : given;
}

void NSNumberFormatter::setNotANumberSymbol(const QString &symbol)
{
    _private->set(_private->settings.notANumberSymbol, symbol);
}

QString NSNumberFormatter::positiveInfinitySymbol() const
{
    return _positiveInfinitySymbol.isNull() ? u"+∞"_s : _positiveInfinitySymbol;
}

QString NSNumberFormatter::negativeInfinitySymbol() const
{
    return _negativeInfinitySymbol.isNull() ? u"-∞"_s : _negativeInfinitySymbol;
}

// --- Width

int NSNumberFormatter::formatWidth() const
{
    const int unset = _private->engine().decimalFormat() ? -1 : 0;
    return _private->settings.formatWidth.value_or(unset);
}

void NSNumberFormatter::setFormatWidth(int width)
{
    _private->set(_private->settings.formatWidth, width);
}

QString NSNumberFormatter::paddingCharacter() const
{
    const QString &given = _private->settings.paddingCharacter;
    return given.isNull() ? u" "_s : given;
}

void NSNumberFormatter::setPaddingCharacter(const QString &character)
{
    _private->set(_private->settings.paddingCharacter, character);
}

int NSNumberFormatter::paddingPosition() const
{
    return _private->settings.paddingPosition.value_or(NSNumberFormatterPadBeforePrefix);
}

void NSNumberFormatter::setPaddingPosition(int position)
{
    _private->set(_private->settings.paddingPosition, position);
}

// --- Patterns

QString NSNumberFormatter::format() const
{
    const QString zero = _zeroSymbol.isNull() ? stringForObjectValue(0) : _zeroSymbol;
    return positiveFormat() + u';' + zero + u';' + negativeFormat();
}

void NSNumberFormatter::setFormat(const QString &format)
{
    if (format.size() > MaximumPatternLength)
        return;
    const QStringList parts = partsOf(format);
    setPositiveFormat(nilIfEmpty(parts.first()));
    setNegativeFormat(parts.size() > 1 ? nilIfEmpty(parts.last()) : QString());
    if (parts.size() > 2)
        _zeroSymbol = parts[1];
}

QString NSNumberFormatter::positiveFormat() const
{
    const QString &given = _private->settings.positiveFormat;
    return given.isNull() ? partsOf(_private->engine().pattern()).first() : given;
}

void NSNumberFormatter::setPositiveFormat(const QString &format)
{
    if (format.size() > MaximumPatternLength)
        return;
    _private->set(_private->settings.positiveFormat, format);
}

QString NSNumberFormatter::negativeFormat() const
{
    const QString &given = _private->settings.negativeFormat;
    return given.isNull() ? partsOf(_private->engine().pattern()).last() : given;
}

void NSNumberFormatter::setNegativeFormat(const QString &format)
{
    if (format.size() > MaximumPatternLength)
        return;
    _private->set(_private->settings.negativeFormat, format);
}
