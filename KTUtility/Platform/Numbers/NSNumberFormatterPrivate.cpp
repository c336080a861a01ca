#include "NSNumberFormatterPrivate_p.h"

#include "NumberPattern_p.h"
#include "NumberText_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using icu::DecimalFormatSymbols;

namespace {
constexpr int MaximumFillDigits = 999; // as in ICU

/// A number in decimal digits, for the value that the caller wants.
struct ReadNumber
{
    NSRange range;
    bool isNumber = false;
    bool hasPoint = false;
    NSDecimalNumber decimal;
};

NSDecimalNumber decimalOf(const NumberReader::Result &result)
{
    return NSDecimalNumber::decimalNumberWithMantissa(result.coefficient, -result.fractionDigits,
                                                      result.isNegative);
}

ReadNumber numberOf(const NumberReader::Result &result)
{
    ReadNumber number;
    number.range = {result.begin, result.end - result.begin};
    number.isNumber = result.outcome == NumberReader::Number;
    if (!number.isNumber)
        return number;
    number.decimal = decimalOf(result);
    number.hasPoint = result.hasPoint;
    return number;
}

ReadNumber numberOf(const NumberReading &reading, NSRange range)
{
    ReadNumber number;
    number.range = range;
    if (!reading.isNumber)
        return number;
    number.decimal = NSDecimalNumber::decimalNumberWithString(QString::fromLatin1(reading.digits));
    number.isNumber = !number.decimal.isNaN();
    return number;
}

bool fitsInteger(const NSDecimalNumber &decimal)
{
    return NSDecimalNumber(decimal.integerValue()) == decimal;
}

/// \param asInteger whether it matters if there is a point.
ReadNumber readWithICU(const NumberEngine &engine, QStringView text, bool asInteger)
{
    const NumberText squeezed(text);
    const NumberReading reading = engine.read(squeezed.squeezed());
    const qsizetype end = squeezed.endOf(reading.length);
    ReadNumber number = numberOf(reading, {squeezed.begin(), end - squeezed.begin()});
    const auto findPoint = [&](ReadNumber &read, QStringView used) {
        read.hasPoint =
            read.isNumber && asInteger && fitsInteger(read.decimal) && engine.hasPoint(used);
    };
    findPoint(number, squeezed.squeezed().left(reading.length));
    const bool isWhole = number.isNumber && reading.length == squeezed.squeezed().size();
    if (isWhole || !engine.hasSpaceInCurrencySign() || squeezed.isUnchanged(text))
        return number;
    // The first try has squeezed out the space of the sign, too ("$ US").
    const NumberReading exact = engine.read(text.mid(squeezed.begin()));
    if (!exact.isNumber || exact.length <= number.range.length)
        return number;
    number = numberOf(exact, {squeezed.begin(), exact.length});
    findPoint(number, text.mid(squeezed.begin(), exact.length));
    return number;
}

ReadNumber readNumber(const NumberEngine &engine, QStringView text, bool asInteger)
{
    if (engine.reader()) {
        const NumberReader::Result result = engine.reader()->read(text);
        if (result.outcome != NumberReader::Undecided)
            return numberOf(result);
    }
    return readWithICU(engine, text, asInteger);
}

/// The number of another type: an integer where the text was one, a decimal or a double.
QVariant valueOf(const ReadNumber &number, bool isWhole, bool asDecimal)
{
    if (asDecimal)
        return QVariant::fromValue(number.decimal);
    if (isWhole && !number.hasPoint && fitsInteger(number.decimal))
        return QVariant::fromValue(number.decimal.integerValue());
    return number.decimal.doubleValue();
}

bool isNaN(const QVariant &number)
{
    const int type = number.metaType().id();
    if (type == qMetaTypeId<NSDecimalNumber>())
        return number.value<NSDecimalNumber>().isNaN();
    return (type == QMetaType::Double || type == QMetaType::Float) && std::isnan(number.toDouble());
}

bool isInfinite(const QVariant &number)
{
    const int type = number.metaType().id();
    return (type == QMetaType::Double || type == QMetaType::Float) && std::isinf(number.toDouble());
}
} // namespace

// --- Settings

void NSNumberFormatter::Private::setLeast(DigitCount least, DigitCount greatest, int count)
{
    count = std::clamp(count, 0, MaximumFillDigits);
    settings.*least = count;
    if (settings.*greatest)
        settings.*greatest = std::max(*(settings.*greatest), count);
    changed();
}

void NSNumberFormatter::Private::setGreatest(DigitCount greatest, DigitCount least, int count)
{
    count = std::max(count, 0);
    settings.*greatest = count;
    if (settings.*least)
        settings.*least = std::min(*(settings.*least), count);
    changed();
}

QString NSNumberFormatter::Private::affix(GetAffix ofEngine) const
{
    icu::UnicodeString text;
    const icu::DecimalFormat *const format = engine().decimalFormat();
    return format ? ICU::stringOf((format->*ofEngine)(text)) : u""_s;
}

void NSNumberFormatter::Private::setAffix(QString NumberSettings::*affix, const QString &text,
                                          GetAffix ofEngine)
{
    settings.*affix = QString();
    variantChanged();
    if (text.isNull() || !settings.isForMoney()) {
        settings.*affix = text;
    } else if (this->affix(ofEngine) != text) {
        const QString symbol = engine().symbol(DecimalFormatSymbols::kCurrencySymbol);
        const QString placeholder = QString(QChar(NumberSettings::CurrencySign));
        settings.*affix = symbol.isEmpty() ? text : QString(text).replace(symbol, placeholder);
    }
    variantChanged();
}

QString NSNumberFormatter::Private::format(QString NumberSettings::*setting, bool isFirst) const
{
    const QString &given = settings.*setting;
    if (!given.isNull())
        return given;
    const QStringList parts = NumberPattern::partsOf(engine().pattern());
    return isFirst ? parts.first() : parts.last();
}

void NSNumberFormatter::Private::setFormat(QString NumberSettings::*setting, const QString &format)
{
    if (NumberPattern::isAcceptable(format))
        set(setting, format);
}

// --- Engines

const NumberEngine &NSNumberFormatter::Private::engineIn(Variants &variants,
                                                         bool withOwnSymbol) const
{
    for (const Variant &variant : variants) {
        if (isCurrent(variant))
            return *variant.engine;
    }
    constexpr size_t MaximumVariants = 16;
    if (variants.size() >= MaximumVariants)
        variants.clear();
    NumberSettings wanted = settings;
    if (withOwnSymbol)
        wanted.currencySymbol = QString();
    variants.push_back({settings.negativePrefix, settings.negativeSuffix,
                        settings.usesGroupingSeparator, NumberEngine::engineFor(wanted)});
    return *variants.back().engine;
}

/// Reads with \a attempt, a function of an engine that answers how much it read (-1: nothing)
/// and a result. Money is read with the sign that was set, as long as its currency is the same,
/// else with the currency's own.
template<typename Attempt>
auto NSNumberFormatter::Private::attempt(const Attempt &attempt) const
{
    if (settings.currencySymbol.isNull())
        return attempt(engine()).second;
    const NumberEngine &own = engineIn(_currencyVariants, true);
    const bool isStale = settings.currencyCode != codeOfSymbol;
    if (isStale ||
        own.symbol(icu::DecimalFormatSymbols::kCurrencySymbol) == settings.currencySymbol)
        return attempt(own).second;
    const auto withGivenSymbol = attempt(engine());
    const auto withOwnSymbol = attempt(own);
    return withOwnSymbol.first > withGivenSymbol.first ? withOwnSymbol.second
                                                       : withGivenSymbol.second;
}

// --- Formatters that share their settings

namespace {
bool areSame(const QString &left, const QString &right)
{
    return left == right && left.isNull() == right.isNull();
}
} // namespace

bool NSNumberFormatter::Private::isSameAs(const Private &other) const
{
    return settings == other.settings && settings.hasSameNils(other.settings) &&
           areSame(codeOfSymbol, other.codeOfSymbol) && behavior == other.behavior &&
           generatesDecimalNumbers == other.generatesDecimalNumbers &&
           allowsFloats == other.allowsFloats && areSame(zeroSymbol, other.zeroSymbol) &&
           isZeroShownByFormat == other.isZeroShownByFormat &&
           areSame(nilSymbol, other.nilSymbol) &&
           areSame(positiveInfinitySymbol, other.positiveInfinitySymbol) &&
           areSame(negativeInfinitySymbol, other.negativeInfinitySymbol) &&
           attributesForNegativeValues == other.attributesForNegativeValues;
}

size_t NSNumberFormatter::Private::hash() const
{
    return qHashMulti(0, settings.locale.localeIdentifier(), settings.style,
                      settings.negativePrefix, settings.currencyCode,
                      settings.usesGroupingSeparator.value_or(false),
                      settings.maximumFractionDigits.value_or(-1));
}

void NSNumberFormatter::Private::prepare() const
{
    engine();
    if (!settings.currencySymbol.isNull())
        engineIn(_currencyVariants, true);
}

// --- Numbers to texts

QString NSNumberFormatter::Private::specialString(const QVariant &value) const
{
    if (isNaN(value))
        return settings.notANumberSymbol;
    if (isInfinite(value))
        return value.toDouble() > 0 ? positiveInfinitySymbol : negativeInfinitySymbol;
    const bool isZero = !zeroSymbol.isNull() && NSObject::isEqual(value, 0);
    return isZero ? zeroSymbol : QString();
}

QString NSNumberFormatter::Private::stringOf(const QVariant &value) const
{
    const VariantKind kind = kindOf(value);
    if (!isNumeric(kind))
        return NSObject::isNil(value) ? nilSymbol : QString();
    const NumberEngine &used = engine();
    NumberDigits digits;
    if (zeroSymbol.isNull() && used.writer() && digits.take(value, kind) &&
        used.writer()->prepare(&digits))
        return used.writer()->write(digits);
    if (zeroSymbol.isNull() && used.scientificWriter() && digits.take(value, kind))
        return used.scientificWriter()->write(digits);
    if (const QString special = specialString(value); !special.isNull())
        return special;
    return used.stringFromNumber(value);
}

NSAttributedString
NSNumberFormatter::Private::attributedStringOf(const QVariant &value, const QString &text,
                                               const QTextCharFormat &attributes) const
{
    QTextCharFormat merged = attributes;
    const bool isComparable = NSObject::isNumber(value) && !isNaN(value);
    if (attributesForNegativeValues && isComparable && NSObject::compare(value, 0) < 0)
        merged.merge(*attributesForNegativeValues);
    return NSAttributedString(text, merged);
}

// --- Texts to numbers

bool NSNumberFormatter::Private::read(QVariant *value, QStringView string, NSRange *range) const
{
    const qsizetype start = range ? std::clamp<qsizetype>(range->location, 0, string.size()) : 0;
    const qsizetype length =
        range ? std::clamp<qsizetype>(range->length, 0, string.size() - start) : string.size();
    const QStringView text = string.mid(start, std::min(length, NumberText::MaximumLength));
    ReadNumber number;
    if (!zeroSymbol.isNull() && text == zeroSymbol)
        number = {{0, text.size()}, true, false, {}};
    else
        number = attempt([this, text](const NumberEngine &used) {
            const ReadNumber read = readNumber(used, text, !generatesDecimalNumbers);
            return std::pair(read.isNumber ? read.range.end() : -1, read);
        });
    if (range)
        *range = {start + number.range.location, number.range.length};
    if (!number.isNumber || !(allowsFloats || number.decimal.isInteger()))
        return false;
    const bool isWhole = number.range.end() == text.size();
    QVariant result = valueOf(number, isWhole, generatesDecimalNumbers);
    if (isInfinite(result))
        return false;
    if (value)
        *value = std::move(result);
    return true;
}
