#pragma once

#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

#include <memory>

// How KTCurrencyFormatter makes the formatters that it wraps.

namespace KTCurrencyFormatter_Private {
/// Currency style with groups, lenient, making decimals; rounding and digits are the platform's.
std::unique_ptr<NSNumberFormatter> createCurrencyFormatterWithLocale(const NSLocale &locale);
} // namespace KTCurrencyFormatter_Private
