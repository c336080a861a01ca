#include "NumberEngine_p.h"

#include "NumberQuickPaths_p.h"
#include "NumberText_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Values/DecimalArithmetic_p.h>

#include <unicode/dcfmtsym.h>
#include <unicode/numfmt.h>
#include <unicode/rbnf.h>
#include <unicode/ucurr.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using icu::DecimalFormat;
using icu::DecimalFormatSymbols;

namespace {
constexpr int PlainStyleIntegerDigits = 42;

/// ICU's kind of flag.
UBool flag(bool value)
{
    return value ? UBool(1) : UBool(0);
}

UNumberFormatStyle icuStyle(int style)
{
    switch (style) {
    case NSNumberFormatterCurrencyStyle:
        return UNUM_CURRENCY;
    case NSNumberFormatterPercentStyle:
        return UNUM_PERCENT;
    case NSNumberFormatterScientificStyle:
        return UNUM_SCIENTIFIC;
    case NSNumberFormatterCurrencyISOCodeStyle:
        return UNUM_CURRENCY_ISO;
    case NSNumberFormatterCurrencyPluralStyle:
        return UNUM_CURRENCY_PLURAL;
    case NSNumberFormatterCurrencyAccountingStyle:
        return UNUM_CURRENCY_ACCOUNTING;
    default:
        return UNUM_DECIMAL;
    }
}

std::unique_ptr<icu::NumberFormat> formatOf(const icu::Locale &locale, int style,
                                            UErrorCode &status)
{
    if (style == NSNumberFormatterSpellOutStyle)
        return std::make_unique<icu::RuleBasedNumberFormat>(icu::URBNF_SPELLOUT, locale, status);
    if (style == NSNumberFormatterOrdinalStyle)
        return std::make_unique<icu::RuleBasedNumberFormat>(icu::URBNF_ORDINAL, locale, status);
    return std::unique_ptr<icu::NumberFormat>(
        icu::NumberFormat::createInstance(locale, icuStyle(style), status));
}

size_t hashOfSettings(const NumberSettings &settings)
{
    return qHashMulti(0, settings.locale.localeIdentifier(), settings.style,
                      settings.negativePrefix, settings.currencyCode, settings.currencySymbol,
                      settings.usesGroupingSeparator.value_or(false),
                      settings.minimumFractionDigits.value_or(-1),
                      settings.maximumFractionDigits.value_or(-1));
}

/// A literal in a pattern: everything quoted but the currency's place.
QString quoted(const QString &affix)
{
    QString text;
    QString literal;
    const auto flush = [&] {
        if (!literal.isEmpty())
            text += u'\'' + literal + u'\'';
        literal.clear();
    };
    for (const QChar unit : affix) {
        if (unit == NumberSettings::CurrencySign) {
            flush();
            text += unit;
        } else {
            literal += unit == u'\'' ? u"''"_s : QString(unit);
        }
    }
    flush();
    return text;
}

/// A pattern cut into what stands before, in and behind the number.
struct PatternParts
{
    QString prefix;
    QString number;
    QString suffix;
};

PatternParts partsOf(QStringView pattern)
{
    const auto isNumber = [](QChar unit) { return QStringView(u"#0,.@").contains(unit); };
    qsizetype start = 0;
    bool isQuoted = false;
    for (; start < pattern.size() && (isQuoted || !isNumber(pattern[start])); ++start)
        isQuoted ^= pattern[start] == u'\'';
    qsizetype end = start;
    while (end < pattern.size() && isNumber(pattern[end]))
        ++end;
    return {pattern.left(start).toString(), pattern.mid(start, end - start).toString(),
            pattern.mid(end).toString()};
}

/// The positive and the negative half of a pattern; "-" and the positive one if it has only one.
std::pair<PatternParts, PatternParts> halvesOf(const QString &pattern)
{
    bool isQuoted = false;
    for (qsizetype index = 0; index < pattern.size(); ++index) {
        isQuoted ^= pattern[index] == u'\'';
        if (!isQuoted && pattern[index] == u';')
            return {partsOf(QStringView(pattern).left(index)),
                    partsOf(QStringView(pattern).mid(index + 1))};
    }
    const PatternParts positive = partsOf(pattern);
    return {positive, {u'-' + positive.prefix, positive.number, positive.suffix}};
}

QString affixOf(const DecimalFormat &format,
                icu::UnicodeString &(DecimalFormat::*get)(icu::UnicodeString &) const)
{
    icu::UnicodeString text;
    return ICU::stringOf((format.*get)(text));
}

void setSymbol(DecimalFormatSymbols &symbols, DecimalFormatSymbols::ENumberFormatSymbol symbol,
               const QString &text)
{
    if (!text.isNull())
        symbols.setSymbol(symbol, icu::UnicodeString(ICU::aliasOf(text)));
}

QByteArray decimalTextOf(icu::Formattable &number)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::StringPiece digits = number.getDecimalNumber(status);
    return U_SUCCESS(status) ? QByteArray(digits.data(), digits.length()) : QByteArray();
}
} // namespace

namespace KTPrivate {
inline size_t qHash(const NumberSettings &settings, size_t seed)
{
    return hashOfSettings(settings) ^ seed;
}
} // namespace KTPrivate

std::shared_ptr<const NumberEngine> NumberEngine::engineFor(const NumberSettings &settings)
{
    constexpr int MaximumEngines = 512;
    static QMutex mutex;
    static QHash<NumberSettings, std::shared_ptr<const NumberEngine>> engines;
    const QMutexLocker lock(&mutex);
    if (const auto known = engines.constFind(settings); known != engines.constEnd())
        return *known;
    if (engines.size() >= MaximumEngines)
        engines.clear();
    return *engines.insert(settings, std::make_shared<const NumberEngine>(settings));
}

NumberEngine::NumberEngine(const NumberSettings &settings)
{
    create(settings);
    _format->setLenient(flag(settings.lenient));
    if (settings.usesGroupingSeparator)
        _format->setGroupingUsed(flag(*settings.usesGroupingSeparator));
    if (!_decimalFormat)
        return;
    applySymbols(settings);
    applyPatterns(settings);
    applyCurrency(settings);
    applyAffixes(settings);
    applyDigits(settings);
    applyWidth(settings);
    applyGrouping(settings);
    preparePaths(settings);
}

void NumberEngine::create(const NumberSettings &settings)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = ICU::localeOf(settings.locale);
    _format = formatOf(locale, settings.style, status);
    if (U_FAILURE(status) || !_format) {
        status = U_ZERO_ERROR;
        _format = formatOf(icu::Locale::getRoot(), NSNumberFormatterDecimalStyle, status);
    }
    _decimalFormat = dynamic_cast<DecimalFormat *>(_format.get());
    if (!_decimalFormat || settings.style != NSNumberFormatterNoStyle)
        return;
    _decimalFormat->applyPattern(icu::UnicodeString(u"#"), status);
    _decimalFormat->setMaximumIntegerDigits(PlainStyleIntegerDigits);
    _decimalFormat->setMaximumFractionDigits(0);
}

void NumberEngine::applySymbols(const NumberSettings &settings)
{
    DecimalFormatSymbols symbols(*_decimalFormat->getDecimalFormatSymbols());
    const bool isCurrency = settings.isForMoney();
    setSymbol(symbols, DecimalFormatSymbols::kDecimalSeparatorSymbol, settings.decimalSeparator);
    setSymbol(symbols, DecimalFormatSymbols::kGroupingSeparatorSymbol, settings.groupingSeparator);
    if (isCurrency) {
        setSymbol(symbols, DecimalFormatSymbols::kMonetarySeparatorSymbol,
                  settings.currencyDecimalSeparator);
        setSymbol(symbols, DecimalFormatSymbols::kMonetaryGroupingSeparatorSymbol,
                  settings.currencyGroupingSeparator);
    }
    setSymbol(symbols, DecimalFormatSymbols::kMinusSignSymbol, settings.minusSign);
    setSymbol(symbols, DecimalFormatSymbols::kPlusSignSymbol, settings.plusSign);
    setSymbol(symbols, DecimalFormatSymbols::kPercentSymbol, settings.percentSymbol);
    setSymbol(symbols, DecimalFormatSymbols::kExponentialSymbol, settings.exponentSymbol);
    setSymbol(symbols, DecimalFormatSymbols::kNaNSymbol, settings.notANumberSymbol);
    _decimalFormat->setDecimalFormatSymbols(symbols);
}

void NumberEngine::applyPatterns(const NumberSettings &settings)
{
    if (settings.positiveFormat.isNull() && settings.negativeFormat.isNull())
        return;
    QString pattern = settings.positiveFormat.isNull() ? this->pattern() : settings.positiveFormat;
    if (!settings.negativeFormat.isNull())
        pattern += u';' + settings.negativeFormat;
    UErrorCode status = U_ZERO_ERROR;
    _decimalFormat->applyPattern(ICU::aliasOf(pattern), status);
}

void NumberEngine::applyCurrency(const NumberSettings &settings)
{
    if (!settings.isForMoney())
        return;
    UErrorCode status = U_ZERO_ERROR;
    if (settings.currencyCode.size() == 3) {
        const auto *const code =
            reinterpret_cast<const UChar *>(QStringView(settings.currencyCode).utf16());
        _decimalFormat->setCurrency(code, status);
    }
    DecimalFormatSymbols symbols(*_decimalFormat->getDecimalFormatSymbols());
    setSymbol(symbols, DecimalFormatSymbols::kCurrencySymbol, settings.currencySymbol);
    _decimalFormat->setDecimalFormatSymbols(symbols);
}

void NumberEngine::applyAffixes(const NumberSettings &settings)
{
    if (settings.isForMoney()) {
        applyCurrencyAffixes(settings);
    } else {
        if (!settings.positivePrefix.isNull())
            _decimalFormat->setPositivePrefix(ICU::aliasOf(settings.positivePrefix));
        if (!settings.positiveSuffix.isNull())
            _decimalFormat->setPositiveSuffix(ICU::aliasOf(settings.positiveSuffix));
        if (!settings.negativePrefix.isNull())
            _decimalFormat->setNegativePrefix(ICU::aliasOf(settings.negativePrefix));
        if (!settings.negativeSuffix.isNull())
            _decimalFormat->setNegativeSuffix(ICU::aliasOf(settings.negativeSuffix));
    }
    _needsPairedParentheses =
        affixOf(*_decimalFormat, &DecimalFormat::getNegativePrefix).contains(u'(') &&
        affixOf(*_decimalFormat, &DecimalFormat::getNegativeSuffix).contains(u')');
}

/// Affixes as a pattern, so that ICU puts the currency's sign into them. What equals the pattern's
/// own affix must not be given again: ICU would then read "12,50 €" as negative.
void NumberEngine::applyCurrencyAffixes(const NumberSettings &settings)
{
    if (settings.positivePrefix.isNull() && settings.positiveSuffix.isNull() &&
        settings.negativePrefix.isNull() && settings.negativeSuffix.isNull())
        return;
    auto [positive, negative] = halvesOf(pattern());
    const auto replace = [](QString &own, const QString &given) {
        if (!given.isNull())
            own = quoted(given);
    };
    replace(positive.prefix, settings.positivePrefix);
    replace(positive.suffix, settings.positiveSuffix);
    replace(negative.prefix, settings.negativePrefix);
    replace(negative.suffix, settings.negativeSuffix);
    const QString pattern = positive.prefix + positive.number + positive.suffix + u';' +
                            negative.prefix + positive.number + negative.suffix;
    UErrorCode status = U_ZERO_ERROR;
    const int minimum = _decimalFormat->getMinimumFractionDigits();
    const int maximum = _decimalFormat->getMaximumFractionDigits();
    _decimalFormat->applyPattern(ICU::aliasOf(pattern), status);
    _decimalFormat->setMaximumFractionDigits(maximum);
    _decimalFormat->setMinimumFractionDigits(minimum);
}

void NumberEngine::applyDigits(const NumberSettings &settings)
{
    if (settings.minimumIntegerDigits)
        _decimalFormat->setMinimumIntegerDigits(*settings.minimumIntegerDigits);
    if (settings.maximumIntegerDigits)
        _decimalFormat->setMaximumIntegerDigits(*settings.maximumIntegerDigits);
    if (settings.minimumFractionDigits)
        _decimalFormat->setMinimumFractionDigits(*settings.minimumFractionDigits);
    if (settings.maximumFractionDigits)
        _decimalFormat->setMaximumFractionDigits(*settings.maximumFractionDigits);
    if (settings.roundingMode)
        _decimalFormat->setRoundingMode(DecimalFormat::ERoundingMode(*settings.roundingMode));
    if (settings.multiplier)
        _decimalFormat->setMultiplier(*settings.multiplier);
    if (settings.minimumSignificantDigits)
        _decimalFormat->setMinimumSignificantDigits(*settings.minimumSignificantDigits);
    if (settings.maximumSignificantDigits)
        _decimalFormat->setMaximumSignificantDigits(*settings.maximumSignificantDigits);
    if (settings.usesSignificantDigits)
        _decimalFormat->setSignificantDigitsUsed(flag(*settings.usesSignificantDigits));
}

void NumberEngine::applyWidth(const NumberSettings &settings)
{
    if (settings.formatWidth)
        _decimalFormat->setFormatWidth(*settings.formatWidth);
    if (!settings.paddingCharacter.isNull())
        _decimalFormat->setPadCharacter(ICU::aliasOf(settings.paddingCharacter));
    if (settings.paddingPosition)
        _decimalFormat->setPadPosition(DecimalFormat::EPadPosition(*settings.paddingPosition));
}

void NumberEngine::applyGrouping(const NumberSettings &settings)
{
    if (settings.groupingSize)
        _decimalFormat->setGroupingSize(*settings.groupingSize);
    if (settings.secondaryGroupingSize)
        _decimalFormat->setSecondaryGroupingSize(*settings.secondaryGroupingSize);
    if (settings.usesGroupingSeparator)
        _decimalFormat->setGroupingUsed(flag(*settings.usesGroupingSeparator));
}

const DecimalFormatSymbols *NumberEngine::symbols() const
{
    return _decimalFormat ? _decimalFormat->getDecimalFormatSymbols() : nullptr;
}

QString NumberEngine::symbol(DecimalFormatSymbols::ENumberFormatSymbol symbol) const
{
    const DecimalFormatSymbols *const all = symbols();
    return all ? ICU::stringOf(all->getConstSymbol(symbol)) : u""_s;
}

QString NumberEngine::pattern() const
{
    icu::UnicodeString pattern;
    return _decimalFormat ? ICU::stringOf(_decimalFormat->toPattern(pattern)) : u""_s;
}

QString NumberEngine::stringFromNumber(const QVariant &number) const
{
    const int type = number.metaType().id();
    const bool isDecimal = type == qMetaTypeId<NSDecimalNumber>();
    const bool isUnsigned = type == QMetaType::ULongLong || type == QMetaType::ULong;
    if (_decimalFormat && (isDecimal || isUnsigned))
        return stringFromDecimal(NSDecimalNumber::decimalNumberWithNumber(number));
    return ICU::stringWrittenBy([&](icu::UnicodeString &text) {
        if (isDecimal)
            _format->format(number.value<NSDecimalNumber>().doubleValue(), text);
        else if (isUnsigned || type == QMetaType::Double || type == QMetaType::Float)
            _format->format(number.toDouble(), text);
        else
            _format->format(int64_t(number.toLongLong()), text);
    });
}

/// Through the decimal's digits, "-1234567891E-3".
QString NumberEngine::stringFromDecimal(const NSDecimalNumber &number) const
{
    UErrorCode status = U_ZERO_ERROR;
    const DecimalParts parts = DecimalParts::of(number);
    // The exponent behind the place of the digits, which grow towards the start.
    constexpr size_t DigitsEnd = 48;
    std::array<char, 64> buffer;
    const std::string_view digits =
        DecimalArithmetic::digits(parts.coefficient, std::span(buffer).first(DigitsEnd));
    buffer[DigitsEnd] = 'E';
    const char *const end =
        std::to_chars(buffer.data() + DigitsEnd + 1, buffer.data() + buffer.size(), parts.exponent)
            .ptr;
    const char *start = digits.data();
    if (parts.isNegative)
        buffer[size_t(--start - buffer.data())] = '-';
    const icu::StringPiece piece =
        number.isNaN() ? icu::StringPiece("NaN") : icu::StringPiece(start, int32_t(end - start));
    const QString text = ICU::stringWrittenBy([&](icu::UnicodeString &written) {
        _decimalFormat->format(piece, written, nullptr, status);
    });
    return U_SUCCESS(status) ? text : QString();
}

/// ICU makes its lenient comparison of words when it first comes to one, and threads share it then.
/// It goes through all words for a text that is none of them.
void NumberEngine::prepareWords() const
{
    std::call_once(_areWordsPrepared, [this] {
        icu::Formattable number;
        icu::ParsePosition position(0);
        _format->parse(icu::UnicodeString(u'x'), number, position);
    });
}

NumberReading NumberEngine::read(QStringView text) const
{
    if (!_decimalFormat)
        prepareWords();
    icu::Formattable number;
    icu::ParsePosition position(0);
    _format->parse(ICU::aliasOf(text), number, position);
    NumberReading reading;
    if (position.getErrorIndex() >= 0 || position.getIndex() == 0) {
        reading.length = std::max(position.getErrorIndex(), 0);
        return reading;
    }
    reading.length = position.getIndex();
    const QStringView read = text.left(reading.length);
    reading.digits = decimalTextOf(number);
    const char last = reading.digits.isEmpty() ? 'y' : reading.digits.back(); // "Infinity"
    const bool isFinite = last >= '0' && last <= '9';
    reading.isNumber = isFinite && !(_needsPairedParentheses && hasUnpairedParenthesis(read));
    return reading;
}

/// Only ICU knows what it takes for a point ("," where "٫" is the locale's own): a format that
/// reads integers stops there.
bool NumberEngine::hasPoint(QStringView text) const
{
    if (!_decimalFormat)
        return false;
    std::call_once(_areIntegersPrepared, [this] {
        _integers.reset(_decimalFormat->clone());
        _integers->setParseIntegerOnly(flag(true));
    });
    icu::Formattable number;
    icu::ParsePosition position(0);
    _integers->parse(ICU::aliasOf(text), number, position);
    return position.getIndex() != int32_t(text.size());
}

bool NumberEngine::hasUnpairedParenthesis(QStringView read) const
{
    return read.contains(u'(') != read.contains(u')');
}

void NumberEngine::preparePaths(const NumberSettings &settings)
{
    const QString sign = symbol(DecimalFormatSymbols::kCurrencySymbol);
    _hasSpaceInCurrencySign =
        settings.isForMoney() && std::any_of(sign.begin(), sign.end(), NumberText::isWhitespace);
    _writer = NumberQuickPaths::writerFor(settings, *_decimalFormat);
    _scientificWriter = NumberQuickPaths::scientificWriterFor(settings, *_decimalFormat);
    _reader = NumberQuickPaths::readerFor(settings, *_decimalFormat);
}
