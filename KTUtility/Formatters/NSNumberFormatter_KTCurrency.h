#pragma once

#include <KTUtility/KTUtilityExport.h>

class NSNumberFormatter;

/// What KTCurrencyFormatter adds to the platform's number formatter.
///
/// \code
/// // formatter.negativePrefix() is "-$", formatter.negativeSuffix() is ""
/// KTCurrency::setFormatNegativeUsingParens(formatter, true);     // "($" and ")"
/// KTCurrency::setFormatNegativeUsingParens(formatter, false);    // "-$" and ""
/// \endcode
namespace KTCurrency {
/// Edits the formatter's own negative prefix and suffix: the first "-" of the prefix becomes "("
/// and a ")" is put before the suffix, or back. Does nothing if the sign to replace is not there.
/// A locale's minus sign U+2212 counts as "-".
KTUTILITY_EXPORT void setFormatNegativeUsingParens(NSNumberFormatter &formatter, bool flag);
} // namespace KTCurrency
