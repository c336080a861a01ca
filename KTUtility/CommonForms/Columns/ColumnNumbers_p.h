#pragma once

// Private to the library. For finding out which sign stands before the fractions of a column.

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>

/// The signs in a number that stands alone in a text, also with words or a currency around it:
/// "1.234,50", "1 234.5 kg". Texts whose number has neither "." nor "," are possible with no sign,
/// and so are those whose digits are grouped as in no number.
namespace KTPrivate::ColumnNumbers {
/// Of the conventions of KTColumnReading: what stands before the fraction.
enum Point { FullStop, Comma };

/// A bit for each sign that may stand before the fraction of a text's number.
KTUTILITY_EXPORT unsigned possiblePoints(QStringView text);
/// The sign in a locale, for money if it has one of its own for it.
KTUTILITY_EXPORT QString signOf(const NSLocale &locale, bool isMoney);
/// Which of the two a sign is; a full stop for all others.
KTUTILITY_EXPORT size_t pointOf(const QString &sign);
/// A text whose number has one of the two, with another sign and without groups.
KTUTILITY_EXPORT QString withSign(const QString &text, size_t point, const QString &sign);
} // namespace KTPrivate::ColumnNumbers
