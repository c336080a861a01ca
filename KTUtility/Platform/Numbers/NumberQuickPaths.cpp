#include "NumberQuickPaths_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/dcfmtsym.h>

#include <algorithm>
#include <array>

using namespace KTPrivate;

// How an engine's numbers are read and written without it: what the quick paths need is taken from
// ICU's own symbols and texts.

using icu::DecimalFormat;
using icu::DecimalFormatSymbols;

namespace {
bool isPlainStyle(int style)
{
    return style == NSNumberFormatterNoStyle || style == NSNumberFormatterDecimalStyle;
}

/// ICU's text of a number, cut at its digits.
struct Sample
{
    QString prefix;
    QString suffix;
    bool hasDigits = false;
};

/// Where the digits of a text begin, and where the last one ends.
struct DigitPlaces
{
    qsizetype begin;
    qsizetype end;
};

/// Nothing for a text without digits.
std::optional<DigitPlaces> digitPlacesIn(const QString &text, char16_t zeroDigit)
{
    const auto isDigit = [zeroDigit](QChar unit) {
        return unit.unicode() >= zeroDigit && unit.unicode() <= zeroDigit + 9;
    };
    const auto first = std::find_if(text.cbegin(), text.cend(), isDigit);
    const auto last = std::find_if(text.crbegin(), text.crend(), isDigit);
    if (first == text.cend())
        return std::nullopt;
    return DigitPlaces{first - text.cbegin(), last.base() - text.cbegin()};
}

Sample sampleOf(const DecimalFormat &format, int64_t number, char16_t zeroDigit)
{
    icu::UnicodeString text;
    const QString sample = ICU::stringOf(format.format(number, text));
    const std::optional<DigitPlaces> digits = digitPlacesIn(sample, zeroDigit);
    return digits ? Sample{sample.left(digits->begin), sample.mid(digits->end), true} : Sample();
}

/// The digit zero of a script whose ten digits stand in a row in the basic plane.
std::optional<char16_t> zeroDigitOf(const DecimalFormatSymbols &symbols)
{
    const icu::UnicodeString &zero = symbols.getConstSymbol(DecimalFormatSymbols::kZeroDigitSymbol);
    const icu::UnicodeString &nine = symbols.getConstSymbol(DecimalFormatSymbols::kNineDigitSymbol);
    if (zero.length() != 1 || nine.length() != 1 || nine[0] != zero[0] + 9)
        return std::nullopt;
    return zero[0];
}

/// Percents are numbers with their point two places further on.
constexpr int ShiftOfPercents = 2;
constexpr int MultiplierOfPercents = 100;

bool isPercent(const NumberSettings &settings, const DecimalFormat &format)
{
    return settings.style == NSNumberFormatterPercentStyle &&
           format.getMultiplier() == MultiplierOfPercents;
}

/// A currency's sign keeps a distance from digits only, so that money has to start with one.
bool hasQuickText(const NumberSettings &settings, const DecimalFormat &format)
{
    const bool isMoney =
        settings.style == NSNumberFormatterCurrencyStyle && format.getMinimumIntegerDigits() > 0;
    const bool isQuick = isPlainStyle(settings.style) || isMoney || isPercent(settings, format);
    return isQuick && settings.positiveFormat.isNull() && settings.negativeFormat.isNull() &&
           !settings.multiplier && !settings.formatWidth && !format.areSignificantDigitsUsed() &&
           !format.isDecimalSeparatorAlwaysShown();
}

/// Whether a text that was set stands beside the digits and has some itself, so that ICU's text cannot
/// be cut there.
bool hasDigitsBesideNumber(const NumberSettings &settings)
{
    const auto hasDigit = [](const QString &text) {
        return std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.isDigit(); });
    };
    return hasDigit(settings.positivePrefix) || hasDigit(settings.positiveSuffix) ||
           hasDigit(settings.negativePrefix) || hasDigit(settings.negativeSuffix) ||
           hasDigit(settings.currencySymbol) || hasDigit(settings.minusSign) ||
           hasDigit(settings.percentSymbol);
}

/// \return false if ICU's text has no digits of the writer's script.
bool takeAffixes(NumberWriter &writer, const DecimalFormat &format)
{
    const Sample positive = sampleOf(format, 1, writer.zeroDigit);
    const Sample negative = sampleOf(format, -1, writer.zeroDigit);
    writer.positivePrefix = positive.prefix;
    writer.positiveSuffix = positive.suffix;
    writer.negativePrefix = negative.prefix;
    writer.negativeSuffix = negative.suffix;
    return positive.hasDigits && negative.hasDigits;
}

void takeSeparators(NumberWriter &writer, const DecimalFormatSymbols &symbols, bool isForMoney)
{
    writer.decimalSeparator = ICU::stringOf(
        symbols.getConstSymbol(isForMoney ? DecimalFormatSymbols::kMonetarySeparatorSymbol
                                          : DecimalFormatSymbols::kDecimalSeparatorSymbol));
    writer.groupingSeparator = ICU::stringOf(
        symbols.getConstSymbol(isForMoney ? DecimalFormatSymbols::kMonetaryGroupingSeparatorSymbol
                                          : DecimalFormatSymbols::kGroupingSeparatorSymbol));
}

void takeDigits(NumberWriter &writer, const DecimalFormat &format)
{
    writer.roundingMode = int(format.getRoundingMode());
    writer.minimumIntegerDigits = format.getMinimumIntegerDigits();
    writer.maximumIntegerDigits = format.getMaximumIntegerDigits();
    writer.minimumFractionDigits = format.getMinimumFractionDigits();
    writer.maximumFractionDigits = format.getMaximumFractionDigits();
}

/// Some locales do not group numbers of four digits; a sample shows it.
bool groupsLeastNumber(const NumberWriter &writer, const DecimalFormat &format)
{
    constexpr int MaximumPower = 15;
    int64_t leastGrouped = 1;
    for (int digit = 0; digit < std::min(writer.groupingSize, MaximumPower); ++digit)
        leastGrouped *= 10;
    icu::UnicodeString text;
    return ICU::stringOf(format.format(leastGrouped, text)).contains(writer.groupingSeparator);
}

void takeGroups(NumberWriter &writer, const DecimalFormat &format)
{
    if (format.isGroupingUsed())
        writer.groupingSize = std::max(format.getGroupingSize(), 0);
    const int secondary = format.getSecondaryGroupingSize();
    writer.secondaryGroupingSize = secondary > 0 ? secondary : writer.groupingSize;
    if (!groupsLeastNumber(writer, format))
        writer.minimumGroupingDigits = 2;
}
} // namespace

std::optional<NumberWriter> NumberQuickPaths::writerFor(const NumberSettings &settings,
                                                        const DecimalFormat &format)
{
    const DecimalFormatSymbols &symbols = *format.getDecimalFormatSymbols();
    const std::optional<char16_t> zeroDigit = zeroDigitOf(symbols);
    NumberWriter writer;
    writer.zeroDigit = zeroDigit.value_or(u'0');
    if (!zeroDigit || !hasQuickText(settings, format) || hasDigitsBesideNumber(settings) ||
        !takeAffixes(writer, format))
        return std::nullopt;
    takeSeparators(writer, symbols, settings.isForMoney());
    takeDigits(writer, format);
    writer.shift = isPercent(settings, format) ? ShiftOfPercents : 0;
    takeGroups(writer, format);
    return writer;
}

namespace {
/// Whether numbers are powers of ten with all digits that they have.
bool hasAllDigits(const NumberSettings &settings)
{
    return settings.style == NSNumberFormatterScientificStyle && settings.positiveFormat.isNull() &&
           settings.negativeFormat.isNull() && !settings.multiplier && !settings.formatWidth &&
           !settings.minimumIntegerDigits && !settings.maximumIntegerDigits &&
           !settings.minimumFractionDigits && !settings.maximumFractionDigits &&
           !settings.usesSignificantDigits && !settings.minimumSignificantDigits &&
           !settings.maximumSignificantDigits;
}

/// ICU's text of a power of ten with a digit on either side of the mark, cut there.
struct ScientificSample
{
    QString prefix;
    QString mark;
    QString suffix;
};

std::optional<ScientificSample> scientificSampleOf(const DecimalFormat &format, double number,
                                                   char16_t zeroDigit)
{
    icu::UnicodeString text;
    const QString sample = ICU::stringOf(format.format(number, text));
    const std::optional<DigitPlaces> digits = digitPlacesIn(sample, zeroDigit);
    if (!digits || digits->begin + 1 == digits->end)
        return std::nullopt;
    return ScientificSample{sample.left(digits->begin),
                            sample.mid(digits->begin + 1, digits->end - digits->begin - 2),
                            sample.mid(digits->end)};
}

/// Whether a writer and ICU agree about numbers that have all that a text may have.
bool writesAsICU(const ScientificWriter &writer, const DecimalFormat &format)
{
    constexpr std::array Numbers{0.0, -1.0, 10.0, 0.1, -0.25, 123456.75, 1.7976931348623157e308};
    return std::all_of(Numbers.begin(), Numbers.end(), [&](double number) {
        icu::UnicodeString text;
        NumberDigits digits;
        return digits.take(number) &&
               writer.write(digits) == ICU::stringOf(format.format(number, text));
    });
}
} // namespace

std::optional<ScientificWriter>
NumberQuickPaths::scientificWriterFor(const NumberSettings &settings, const DecimalFormat &format)
{
    const DecimalFormatSymbols &symbols = *format.getDecimalFormatSymbols();
    const std::optional<char16_t> zeroDigit = zeroDigitOf(symbols);
    if (!zeroDigit || !hasAllDigits(settings))
        return std::nullopt;
    const auto positive = scientificSampleOf(format, 1, *zeroDigit);
    const auto negative = scientificSampleOf(format, -1, *zeroDigit);
    const auto fraction = scientificSampleOf(format, 0.1, *zeroDigit);
    if (!positive || !negative || !fraction)
        return std::nullopt;
    const ScientificWriter writer{
        positive->prefix,
        negative->prefix,
        positive->suffix,
        ICU::stringOf(symbols.getConstSymbol(DecimalFormatSymbols::kDecimalSeparatorSymbol)),
        positive->mark,
        fraction->mark,
        *zeroDigit};
    return writesAsICU(writer, format) ? std::optional(writer) : std::nullopt;
}

namespace {
bool hasQuickReading(const NumberSettings &settings)
{
    const bool isMinus = settings.negativePrefix.isNull() || settings.negativePrefix == u"-";
    const bool isPlainSuffix = settings.negativeSuffix.isEmpty();
    const bool isParentheses = settings.negativePrefix == u"(" && settings.negativeSuffix == u")";
    const bool hasOwnSymbols =
        !settings.decimalSeparator.isNull() || !settings.groupingSeparator.isNull() ||
        !settings.minusSign.isNull() || !settings.plusSign.isNull() ||
        !settings.exponentSymbol.isNull() || !settings.notANumberSymbol.isNull() ||
        !settings.positivePrefix.isNull() || !settings.positiveSuffix.isNull() ||
        !settings.positiveFormat.isNull() || !settings.negativeFormat.isNull();
    return settings.lenient && isPlainStyle(settings.style) && !hasOwnSymbols &&
           !settings.multiplier && ((isMinus && isPlainSuffix) || isParentheses);
}

char16_t asciiSeparator(const icu::UnicodeString &symbol)
{
    const bool isKnown = symbol.length() == 1 && (symbol[0] == u'.' || symbol[0] == u',');
    return isKnown ? symbol[0] : u'\0';
}
} // namespace

std::optional<NumberReader> NumberQuickPaths::readerFor(const NumberSettings &settings,
                                                        const DecimalFormat &format)
{
    const DecimalFormatSymbols &symbols = *format.getDecimalFormatSymbols();
    NumberReader reader;
    reader.decimalSeparator =
        asciiSeparator(symbols.getConstSymbol(DecimalFormatSymbols::kDecimalSeparatorSymbol));
    if (!hasQuickReading(settings) || reader.decimalSeparator == 0)
        return std::nullopt;
    reader.usesGrouping = format.isGroupingUsed();
    const bool isRegular =
        format.getGroupingSize() == 3 &&
        (format.getSecondaryGroupingSize() == 3 || format.getSecondaryGroupingSize() <= 0);
    reader.hasRegularGroups = reader.usesGrouping && isRegular;
    if (reader.hasRegularGroups)
        reader.groupingSeparator =
            asciiSeparator(symbols.getConstSymbol(DecimalFormatSymbols::kGroupingSeparatorSymbol));
    reader.usesParentheses = settings.negativePrefix == u"(";
    const icu::UnicodeString &notANumber = symbols.getConstSymbol(DecimalFormatSymbols::kNaNSymbol);
    if (!notANumber.isEmpty())
        reader.notANumberStart = QChar(notANumber[0]).toUpper().unicode();
    return reader;
}
