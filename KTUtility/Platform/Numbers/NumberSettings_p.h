#pragma once

#include "NSNumberFormatterStyle.h"
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>

#include <optional>

namespace KTPrivate {
/// What was set in a number formatter, each thing set or not set (no value, nil). Setters write
/// here and nothing else; what is not set comes from the locale's data when it is asked for.
struct NumberSettings
{
    /// Stands for the currency's sign in affixes and patterns.
    static constexpr char16_t CurrencySign = u'\u00A4';

    /// Whether the style is one of the currency styles.
    bool isForMoney() const
    {
        return style == NSNumberFormatterCurrencyStyle ||
               style >= NSNumberFormatterCurrencyISOCodeStyle;
    }

    NSLocale locale;
    int style = 0;
    bool lenient = false;

    std::optional<bool> usesGroupingSeparator;
    std::optional<int> groupingSize;
    std::optional<int> secondaryGroupingSize;
    std::optional<int> minimumIntegerDigits;
    std::optional<int> maximumIntegerDigits;
    std::optional<int> minimumFractionDigits;
    std::optional<int> maximumFractionDigits;
    std::optional<bool> usesSignificantDigits;
    std::optional<int> minimumSignificantDigits;
    std::optional<int> maximumSignificantDigits;
    std::optional<int> roundingMode;
    std::optional<int> formatWidth;
    std::optional<int> paddingPosition;
    std::optional<int> multiplier;

    // Affixes hold U+00A4 where the currency's sign stands, so that they follow it.
    QString positivePrefix;
    QString positiveSuffix;
    QString negativePrefix;
    QString negativeSuffix;

    QString currencyCode;
    QString currencySymbol;
    QString decimalSeparator;
    QString groupingSeparator;
    QString currencyDecimalSeparator;
    QString currencyGroupingSeparator;
    QString percentSymbol;
    QString minusSign;
    QString plusSign;
    QString exponentSymbol;
    QString notANumberSymbol;
    QString paddingCharacter;
    QString positiveFormat;
    QString negativeFormat;

    friend bool operator==(const NumberSettings &, const NumberSettings &) = default;

    /// Whether the same texts are nil in other settings.
    bool hasSameNils(const NumberSettings &other) const
    {
        const auto nils = [](const NumberSettings &settings) {
            uint bits = 0;
            for (const auto text :
                 {&NumberSettings::positivePrefix, &NumberSettings::positiveSuffix,
                  &NumberSettings::negativePrefix, &NumberSettings::negativeSuffix,
                  &NumberSettings::currencyCode, &NumberSettings::currencySymbol,
                  &NumberSettings::decimalSeparator, &NumberSettings::groupingSeparator,
                  &NumberSettings::currencyDecimalSeparator,
                  &NumberSettings::currencyGroupingSeparator, &NumberSettings::percentSymbol,
                  &NumberSettings::minusSign, &NumberSettings::plusSign,
                  &NumberSettings::exponentSymbol, &NumberSettings::notANumberSymbol,
                  &NumberSettings::paddingCharacter, &NumberSettings::positiveFormat,
                  &NumberSettings::negativeFormat})
                bits = 2 * bits + uint((settings.*text).isNull());
            return bits;
        };
        return nils(*this) == nils(other);
    }
};
} // namespace KTPrivate
