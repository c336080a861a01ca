#include "NSNumberFormatter.h"

#include "NSNumberFormatterPrivate_p.h"
#include "NumberPattern_p.h"
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using icu::DecimalFormat;
using Symbols = icu::DecimalFormatSymbols;

namespace {
constexpr int MaximumSignificantDigits = 999; // as in ICU

/// In the language of the program as it is now.
QString noNumberDescription()
{
    return NSBundle::mainBundle().localizedStringForKey(u"The text is not a number."_s);
}

bool fail(NSError *error)
{
    if (error)
        *error = NSError(NSCocoaErrorDomain, NSFormattingError, noNumberDescription());
    return false;
}

QString nilIfEmpty(const QString &text)
{
    return text.isEmpty() ? QString() : text;
}
} // namespace

NSNumberFormatter::NSNumberFormatter() : _private(std::make_unique<Private>())
{
    _private->settings.locale = NSLocale::currentLocale();
}

NSNumberFormatter::~NSNumberFormatter() = default;

// --- Numbers to texts

QString NSNumberFormatter::stringForObjectValue(const QVariant &value) const
{
    return _private->stringOf(value);
}

std::optional<NSAttributedString>
NSNumberFormatter::attributedStringForObjectValue(const QVariant &value,
                                                  const QTextCharFormat &attributes) const
{
    const bool hasText = NSObject::isNumber(value) || NSObject::isNil(value);
    const QString text = hasText ? stringForObjectValue(value) : notANumberSymbol();
    return _private->attributedStringOf(value, text, attributes);
}

// --- Texts to numbers

bool NSNumberFormatter::getObjectValue(QVariant *value, const QString &forString, NSRange *range,
                                       NSError *error) const
{
    return _private->read(value, forString, range) || fail(error);
}

bool NSNumberFormatter::getObjectValue(QVariant *value, const QString &forString,
                                       QString *errorDescription) const
{
    NSRange range{0, forString.size()};
    NSError error;
    QVariant result;
    if (!getObjectValue(&result, forString, &range, errorDescription ? &error : nullptr)) {
        if (errorDescription)
            *errorDescription = error.localizedDescription();
        return false;
    }
    const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    const QStringView rest = QStringView(forString).mid(range.end());
    const bool isWhole = std::all_of(rest.begin(), rest.end(), [&](QChar unit) {
        return whitespace.characterIsMember(unit.unicode());
    });
    if (isWhole && value)
        *value = result;
    return isWhole;
}

/// A text that begins with a number is none either.
QString NSNumberFormatter::reasonForRejecting(const QString &, const QString &) const
{
    return noNumberDescription();
}

QVariant NSNumberFormatter::numberFromString(const QString &string) const
{
    QVariant value;
    return getObjectValue(&value, string) ? value : QVariant();
}

// --- Kind

void NSNumberFormatter::setFormatterBehavior(int behavior)
{
    _private->behavior = behavior;
}

int NSNumberFormatter::numberStyle() const
{
    return _private->settings.style;
}

void NSNumberFormatter::setNumberStyle(int style)
{
    _private->set(&NumberSettings::style, style);
}

const NSLocale &NSNumberFormatter::locale() const
{
    return _private->settings.locale;
}

void NSNumberFormatter::setLocale(const NSLocale &locale)
{
    _private->set(&NumberSettings::locale, locale);
}

bool NSNumberFormatter::isLenient() const
{
    return _private->settings.lenient;
}

void NSNumberFormatter::setLenient(bool lenient)
{
    _private->set(&NumberSettings::lenient, lenient);
}

bool NSNumberFormatter::generatesDecimalNumbers() const
{
    return _private->generatesDecimalNumbers;
}

void NSNumberFormatter::setGeneratesDecimalNumbers(bool generates)
{
    _private->generatesDecimalNumbers = generates;
}

bool NSNumberFormatter::allowsFloats() const
{
    return _private->allowsFloats;
}

void NSNumberFormatter::setAllowsFloats(bool allows)
{
    _private->allowsFloats = allows;
}

// --- Digits

bool NSNumberFormatter::usesGroupingSeparator() const
{
    return _private->value(&NumberSettings::usesGroupingSeparator, &DecimalFormat::isGroupingUsed);
}

void NSNumberFormatter::setUsesGroupingSeparator(bool uses)
{
    _private->settings.usesGroupingSeparator = uses;
    _private->variantChanged();
}

int NSNumberFormatter::groupingSize() const
{
    return _private->value(&NumberSettings::groupingSize, &DecimalFormat::getGroupingSize);
}

void NSNumberFormatter::setGroupingSize(int size)
{
    _private->set(&NumberSettings::groupingSize, size);
}

int NSNumberFormatter::secondaryGroupingSize() const
{
    const std::optional<int> &given = _private->settings.secondaryGroupingSize;
    // ICU has -1 for none.
    return given ? *given
                 : std::max(_private->value(&NumberSettings::secondaryGroupingSize,
                                            &DecimalFormat::getSecondaryGroupingSize),
                            0);
}

void NSNumberFormatter::setSecondaryGroupingSize(int size)
{
    _private->set(&NumberSettings::secondaryGroupingSize, size);
}

int NSNumberFormatter::minimumIntegerDigits() const
{
    return _private->value(&NumberSettings::minimumIntegerDigits,
                           &DecimalFormat::getMinimumIntegerDigits);
}

void NSNumberFormatter::setMinimumIntegerDigits(int count)
{
    _private->setLeast(&NumberSettings::minimumIntegerDigits, &NumberSettings::maximumIntegerDigits,
                       count);
}

int NSNumberFormatter::maximumIntegerDigits() const
{
    return _private->value(&NumberSettings::maximumIntegerDigits,
                           &DecimalFormat::getMaximumIntegerDigits);
}

void NSNumberFormatter::setMaximumIntegerDigits(int count)
{
    _private->setGreatest(&NumberSettings::maximumIntegerDigits,
                          &NumberSettings::minimumIntegerDigits, count);
}

int NSNumberFormatter::minimumFractionDigits() const
{
    return _private->value(&NumberSettings::minimumFractionDigits,
                           &DecimalFormat::getMinimumFractionDigits);
}

void NSNumberFormatter::setMinimumFractionDigits(int count)
{
    _private->setLeast(&NumberSettings::minimumFractionDigits,
                       &NumberSettings::maximumFractionDigits, count);
}

int NSNumberFormatter::maximumFractionDigits() const
{
    return _private->value(&NumberSettings::maximumFractionDigits,
                           &DecimalFormat::getMaximumFractionDigits);
}

void NSNumberFormatter::setMaximumFractionDigits(int count)
{
    _private->setGreatest(&NumberSettings::maximumFractionDigits,
                          &NumberSettings::minimumFractionDigits, count);
}

bool NSNumberFormatter::usesSignificantDigits() const
{
    return _private->value(&NumberSettings::usesSignificantDigits,
                           &DecimalFormat::areSignificantDigitsUsed);
}

void NSNumberFormatter::setUsesSignificantDigits(bool uses)
{
    _private->set(&NumberSettings::usesSignificantDigits, uses);
}

int NSNumberFormatter::minimumSignificantDigits() const
{
    return _private->valueOrUnset(&NumberSettings::minimumSignificantDigits);
}

void NSNumberFormatter::setMinimumSignificantDigits(int count)
{
    const int greatest =
        _private->settings.maximumSignificantDigits.value_or(MaximumSignificantDigits);
    _private->set(&NumberSettings::minimumSignificantDigits, count);
    _private->set(&NumberSettings::maximumSignificantDigits, std::max(greatest, count));
}

int NSNumberFormatter::maximumSignificantDigits() const
{
    return _private->valueOrUnset(&NumberSettings::maximumSignificantDigits);
}

void NSNumberFormatter::setMaximumSignificantDigits(int count)
{
    const std::optional<int> least = _private->settings.minimumSignificantDigits;
    _private->set(&NumberSettings::maximumSignificantDigits, count);
    if (least && *least > count)
        _private->set(&NumberSettings::minimumSignificantDigits, count);
}

int NSNumberFormatter::roundingMode() const
{
    return _private->value(&NumberSettings::roundingMode, &DecimalFormat::getRoundingMode);
}

void NSNumberFormatter::setRoundingMode(int mode)
{
    _private->set(&NumberSettings::roundingMode, mode);
}

std::optional<int> NSNumberFormatter::multiplier() const
{
    const bool isPercent = _private->settings.style == NSNumberFormatterPercentStyle;
    const std::optional<int> &given = _private->settings.multiplier;
    return given || !isPercent ? given : std::optional(100);
}

void NSNumberFormatter::setMultiplier(std::optional<int> multiplier)
{
    _private->set(&NumberSettings::multiplier, multiplier);
}

// --- Signs and separators

QString NSNumberFormatter::positivePrefix() const
{
    return _private->affix(&DecimalFormat::getPositivePrefix);
}

void NSNumberFormatter::setPositivePrefix(const QString &prefix)
{
    _private->setAffix(&NumberSettings::positivePrefix, prefix, &DecimalFormat::getPositivePrefix);
    _private->changed();
}

QString NSNumberFormatter::positiveSuffix() const
{
    return _private->affix(&DecimalFormat::getPositiveSuffix);
}

void NSNumberFormatter::setPositiveSuffix(const QString &suffix)
{
    _private->setAffix(&NumberSettings::positiveSuffix, suffix, &DecimalFormat::getPositiveSuffix);
    _private->changed();
}

QString NSNumberFormatter::negativePrefix() const
{
    return _private->affix(&DecimalFormat::getNegativePrefix);
}

void NSNumberFormatter::setNegativePrefix(const QString &prefix)
{
    _private->setAffix(&NumberSettings::negativePrefix, prefix, &DecimalFormat::getNegativePrefix);
}

QString NSNumberFormatter::negativeSuffix() const
{
    return _private->affix(&DecimalFormat::getNegativeSuffix);
}

void NSNumberFormatter::setNegativeSuffix(const QString &suffix)
{
    _private->setAffix(&NumberSettings::negativeSuffix, suffix, &DecimalFormat::getNegativeSuffix);
}

QString NSNumberFormatter::decimalSeparator() const
{
    return _private->text(&NumberSettings::decimalSeparator, Symbols::kDecimalSeparatorSymbol);
}

void NSNumberFormatter::setDecimalSeparator(const QString &separator)
{
    _private->set(&NumberSettings::decimalSeparator, separator);
}

QString NSNumberFormatter::groupingSeparator() const
{
    return _private->text(&NumberSettings::groupingSeparator, Symbols::kGroupingSeparatorSymbol);
}

void NSNumberFormatter::setGroupingSeparator(const QString &separator)
{
    _private->set(&NumberSettings::groupingSeparator, separator);
}

QString NSNumberFormatter::minusSign() const
{
    return _private->text(&NumberSettings::minusSign, Symbols::kMinusSignSymbol);
}

void NSNumberFormatter::setMinusSign(const QString &sign)
{
    _private->set(&NumberSettings::minusSign, sign);
}

QString NSNumberFormatter::plusSign() const
{
    return _private->text(&NumberSettings::plusSign, Symbols::kPlusSignSymbol);
}

void NSNumberFormatter::setPlusSign(const QString &sign)
{
    _private->set(&NumberSettings::plusSign, sign);
}

QString NSNumberFormatter::percentSymbol() const
{
    return _private->text(&NumberSettings::percentSymbol, Symbols::kPercentSymbol);
}

void NSNumberFormatter::setPercentSymbol(const QString &symbol)
{
    _private->set(&NumberSettings::percentSymbol, symbol);
}

QString NSNumberFormatter::perMillSymbol() const
{
    return _private->engine().symbol(Symbols::kPerMillSymbol);
}

QString NSNumberFormatter::exponentSymbol() const
{
    return _private->text(&NumberSettings::exponentSymbol, Symbols::kExponentialSymbol);
}

void NSNumberFormatter::setExponentSymbol(const QString &symbol)
{
    _private->set(&NumberSettings::exponentSymbol, symbol);
}

// --- Money

QString NSNumberFormatter::currencyCode() const
{
    const QString &given = _private->settings.currencyCode;
    return given.isNull() ? _private->settings.locale.currencyCode() : given;
}

void NSNumberFormatter::setCurrencyCode(const QString &code)
{
    _private->set(&NumberSettings::currencyCode, code);
}

QString NSNumberFormatter::currencySymbol() const
{
    return _private->text(&NumberSettings::currencySymbol, Symbols::kCurrencySymbol);
}

void NSNumberFormatter::setCurrencySymbol(const QString &symbol)
{
    _private->settings.currencySymbol = symbol;
    _private->codeOfSymbol = _private->settings.currencyCode;
    _private->changed();
}

QString NSNumberFormatter::internationalCurrencySymbol() const
{
    return _private->engine().symbol(Symbols::kIntlCurrencySymbol);
}

QString NSNumberFormatter::currencyDecimalSeparator() const
{
    return _private->text(&NumberSettings::currencyDecimalSeparator,
                          Symbols::kMonetarySeparatorSymbol);
}

void NSNumberFormatter::setCurrencyDecimalSeparator(const QString &separator)
{
    _private->set(&NumberSettings::currencyDecimalSeparator, separator);
}

QString NSNumberFormatter::currencyGroupingSeparator() const
{
    return _private->text(&NumberSettings::currencyGroupingSeparator,
                          Symbols::kMonetaryGroupingSeparatorSymbol);
}

void NSNumberFormatter::setCurrencyGroupingSeparator(const QString &separator)
{
    _private->set(&NumberSettings::currencyGroupingSeparator, separator);
}

// --- Texts of their own

QString NSNumberFormatter::zeroSymbol() const
{
    return _private->isZeroShownByFormat ? _private->textOfZero() : _private->zeroSymbol;
}

void NSNumberFormatter::setZeroSymbol(const QString &symbol)
{
    _private->zeroSymbol = symbol;
    _private->isZeroShownByFormat = false;
}

QString NSNumberFormatter::nilSymbol() const
{
    return _private->nilSymbol;
}

void NSNumberFormatter::setNilSymbol(const QString &symbol)
{
    _private->nilSymbol = symbol;
}

QString NSNumberFormatter::notANumberSymbol() const
{
    return _private->text(&NumberSettings::notANumberSymbol, Symbols::kNaNSymbol);
}

void NSNumberFormatter::setNotANumberSymbol(const QString &symbol)
{
    _private->set(&NumberSettings::notANumberSymbol, symbol);
}

QString NSNumberFormatter::positiveInfinitySymbol() const
{
    return _private->positiveInfinitySymbol.isNull() ? u"+∞"_s : _private->positiveInfinitySymbol;
}

void NSNumberFormatter::setPositiveInfinitySymbol(const QString &symbol)
{
    _private->positiveInfinitySymbol = symbol;
}

QString NSNumberFormatter::negativeInfinitySymbol() const
{
    return _private->negativeInfinitySymbol.isNull() ? u"-∞"_s : _private->negativeInfinitySymbol;
}

void NSNumberFormatter::setNegativeInfinitySymbol(const QString &symbol)
{
    _private->negativeInfinitySymbol = symbol;
}

// --- Width

int NSNumberFormatter::formatWidth() const
{
    return _private->valueOrUnset(&NumberSettings::formatWidth);
}

void NSNumberFormatter::setFormatWidth(int width)
{
    _private->set(&NumberSettings::formatWidth, width);
}

QString NSNumberFormatter::paddingCharacter() const
{
    const QString &given = _private->settings.paddingCharacter;
    return given.isNull() ? u" "_s : given;
}

void NSNumberFormatter::setPaddingCharacter(const QString &character)
{
    _private->set(&NumberSettings::paddingCharacter, character);
}

int NSNumberFormatter::paddingPosition() const
{
    return _private->settings.paddingPosition.value_or(NSNumberFormatterPadBeforePrefix);
}

void NSNumberFormatter::setPaddingPosition(int position)
{
    _private->set(&NumberSettings::paddingPosition, position);
}

// --- Patterns

QString NSNumberFormatter::format() const
{
    const QString zero = zeroSymbol().isNull() ? stringForObjectValue(0) : zeroSymbol();
    return positiveFormat() + u';' + zero + u';' + negativeFormat();
}

void NSNumberFormatter::setFormat(const QString &format)
{
    if (!NumberPattern::isAcceptable(format))
        return;
    const QStringList parts = NumberPattern::partsOf(format);
    _private->isZeroShownByFormat = parts.size() == 1 && !format.isNull();
    if (_private->isZeroShownByFormat) {
        setPositiveFormat(format);
        setNegativeFormat(u'-' + format);
        _private->zeroSymbol.clear();
        return;
    }
    setPositiveFormat(nilIfEmpty(parts.first()));
    setNegativeFormat(parts.size() > 1 ? nilIfEmpty(parts.last()) : QString());
    if (parts.size() > 2)
        setZeroSymbol(parts[1]);
}

QString NSNumberFormatter::positiveFormat() const
{
    return _private->format(&NumberSettings::positiveFormat, true);
}

void NSNumberFormatter::setPositiveFormat(const QString &format)
{
    _private->setFormat(&NumberSettings::positiveFormat, format);
}

QString NSNumberFormatter::negativeFormat() const
{
    return _private->format(&NumberSettings::negativeFormat, false);
}

void NSNumberFormatter::setNegativeFormat(const QString &format)
{
    _private->setFormat(&NumberSettings::negativeFormat, format);
}

// --- Attributes

const std::optional<QTextCharFormat> &NSNumberFormatter::textAttributesForNegativeValues() const
{
    return _private->attributesForNegativeValues;
}

void NSNumberFormatter::setTextAttributesForNegativeValues(
    const std::optional<QTextCharFormat> &attributes)
{
    _private->attributesForNegativeValues = attributes;
}
