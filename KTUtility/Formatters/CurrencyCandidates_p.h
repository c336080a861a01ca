#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>
#include <QStringList>

/// Which currencies a typed text can mean.
namespace KTPrivate::CurrencyCandidates {
/// Whether a currency is one that is not offered, or no currency at all.
KTUTILITY_EXPORT bool isRejected(const QString &code);

/// Those of the common currencies, in their order and without the rejected ones, of which the
/// code, sign or name in this locale occurs in \a text. No other currency can read a text that
/// cannot be read as a plain number.
KTUTILITY_EXPORT QStringList of(const NSLocale &locale, const QString &text);
} // namespace KTPrivate::CurrencyCandidates
