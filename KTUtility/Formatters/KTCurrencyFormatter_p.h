#pragma once

#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

#include <QStringList>

#include <memory>

// The parts of KTCurrencyFormatter that are not its own business alone.

namespace KTCurrencyFormatter_Private {
/// Currency style with groups, lenient, making decimals; rounding and digits are the platform's.
std::unique_ptr<NSNumberFormatter> createCurrencyFormatterWithLocale(const NSLocale &locale);

/// Whether a currency is one that is not offered, or no currency at all.
bool isRefused(const QString &code);

/// Those of the common currencies, in their order and without the refused ones, of which the
/// code, sign or name in this locale occurs in \a text. No other currency can read a text that
/// cannot be read as a plain number.
QStringList candidates(const NSLocale &locale, const QString &text);
} // namespace KTCurrencyFormatter_Private
