#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <QString>

// The names of the formatters' settings: keys of the dictionaries that NSFormatter::options() and
// setOptions() exchange, and at the same time names of the properties. Not every formatter lists
// every setting; see optionsKeys() of its class. The value is what follows the last underscore.
//
// \code
// KTNumberFormatter formatter;
// formatter.setOptions({{kKTFieldOption_decimalPlaces, 2}});
// formatter.options().value(kKTFieldOption_decimalPlaces);    // 2
// \endcode

/// ISO 4217 code; currency.
KTUTILITY_EXPORT extern const QString kKTFieldOption_currencyType;
/// A NSDateFormatterStyle; dates and times.
KTUTILITY_EXPORT extern const QString kKTFieldOption_dateStyle;
/// A count; numbers.
KTUTILITY_EXPORT extern const QString kKTFieldOption_decimalPlaces;
/// A flag; a property of the date formatter that is not among its options.
KTUTILITY_EXPORT extern const QString kKTFieldOption_displayDate;
/// A flag; numbers and currency.
KTUTILITY_EXPORT extern const QString kKTFieldOption_displayThousandsSeparator;
/// A flag; a property of the date formatter that is not among its options.
KTUTILITY_EXPORT extern const QString kKTFieldOption_displayTime;
/// A flag; dates and times.
KTUTILITY_EXPORT extern const QString kKTFieldOption_displayYear;
/// A flag; numbers and currency.
KTUTILITY_EXPORT extern const QString kKTFieldOption_formatNegativeUsingParens;
/// A flag; numbers and currency.
KTUTILITY_EXPORT extern const QString kKTFieldOption_highlightNegative;
/// 0 to 3; a property of the date formatter that is not among its options.
KTUTILITY_EXPORT extern const QString kKTFieldOption_inputOrder;
/// A NSDateFormatterStyle; dates and times.
KTUTILITY_EXPORT extern const QString kKTFieldOption_timeStyle;
/// A flag; durations.
KTUTILITY_EXPORT extern const QString kKTFieldOption_useAbbreviations;
