#pragma once

#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

#include <memory>

// How KTNumberFormatter makes the formatters that it wraps.

namespace KTNumberFormatter_Private {
/// For display: decimal style with groups, lenient.
std::unique_ptr<NSNumberFormatter> createNumberFormatterWithLocale(const NSLocale &locale);
/// For typed texts: the same, making decimals with up to 111 places.
std::unique_ptr<NSNumberFormatter> createInputFormatterWithLocale(const NSLocale &locale);
} // namespace KTNumberFormatter_Private
