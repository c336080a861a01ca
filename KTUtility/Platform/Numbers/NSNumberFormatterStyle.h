#pragma once

/// Kinds of number texts.
enum NSNumberFormatterStyle {
    NSNumberFormatterNoStyle = 0,                 ///< "1235"
    NSNumberFormatterDecimalStyle = 1,            ///< "1,234.568"
    NSNumberFormatterCurrencyStyle = 2,           ///< "$1,234.57"
    NSNumberFormatterPercentStyle = 3,            ///< "12%"
    NSNumberFormatterScientificStyle = 4,         ///< "1.234568E3"
    NSNumberFormatterSpellOutStyle = 5,           ///< "twelve"
    NSNumberFormatterOrdinalStyle = 6,            ///< "12th"
    NSNumberFormatterCurrencyISOCodeStyle = 8,    ///< "USD 1,234.57"
    NSNumberFormatterCurrencyPluralStyle = 9,     ///< "1,234.57 US dollars"
    NSNumberFormatterCurrencyAccountingStyle = 10 ///< "($1,234.57)" for what is below zero
};
