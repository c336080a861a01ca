#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>
#include <QStringList>

/// What people in a locale write for a currency.
namespace KTPrivate::CurrencyNames {
/// No more of a text is read as an amount.
inline constexpr qsizetype MaximumLength = 1024;

/// One form for what means the same: case, compatibility characters ("￥" and "¥"), marks that
/// nobody sees, and look-alikes of signs (CLDR's lenient sets for currencies).
KTUTILITY_EXPORT QString folded(const QString &text);

/// The currency's code, its signs, and its names in singular and plural, folded, the longest first.
/// Signs that end in a full stop stand there without it, too ("kr." and "kr"), and names of the
/// locale's own currency without its country ("US dollars" and "dollars").
KTUTILITY_EXPORT QStringList of(const NSLocale &locale, const QString &code);

/// A text with the currency's name in it replaced by its code, which every reader understands:
/// "5 kr" is "5 DKK" then, "(￥500)" "(JPY500)". Only the beginning of a text is looked at.
/// \return nil if no name of the currency is in the text.
KTUTILITY_EXPORT QString replacedByCode(const QString &text, const NSLocale &locale,
                                        const QString &code);
} // namespace KTPrivate::CurrencyNames
