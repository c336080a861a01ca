#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>
#include <QStringView>

/// Which letters a number or an amount can have, so that texts that are none need not be parsed. Only
/// those in ASCII are looked at.
namespace KTPrivate::NumberLetters {
/// Whether a number may be written with the letters of a text. If not, no formatter of numbers in
/// this locale reads all of the text.
KTUTILITY_EXPORT bool mayBeNumber(QStringView text, const NSLocale &locale);

/// Whether an amount of a currency may be written with the letters of a text. If not, no formatter
/// of money in this locale reads all of the text.
/// \param symbol the sign that the formatter shows for the currency.
KTUTILITY_EXPORT bool mayBeAmount(QStringView text, const NSLocale &locale, const QString &code,
                                  const QString &symbol);
} // namespace KTPrivate::NumberLetters
