#pragma once

/// Kinds of number texts.
enum NSNumberFormatterStyle {
    NSNumberFormatterNoStyle = 0,         ///< "1235"
    NSNumberFormatterDecimalStyle = 1,    ///< "1,234.568"
    NSNumberFormatterCurrencyStyle = 2,   ///< "$1,234.57"
    NSNumberFormatterPercentStyle = 3,    ///< "12%"
    NSNumberFormatterScientificStyle = 4, ///< "1.234568E3"
    NSNumberFormatterSpellOutStyle = 5,   ///< "twelve"
    NSNumberFormatterOrdinalStyle = 6,    ///< "12th"
    NSNumberFormatterCurrencyISOCodeStyle = 8,
    NSNumberFormatterCurrencyPluralStyle = 9,
    NSNumberFormatterCurrencyAccountingStyle = 10
};
