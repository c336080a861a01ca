#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <compare>

/// Comparing and searching texts the platform's way.
namespace NSString {
/// The order in which a person expects names: the collation of the current locale (QLocale()),
/// by letters first, then accents, then case with small letters first. Punctuation counts and
/// digits are compared one by one ("item 10" before "item 2"). Unicode Technical Standard #10.
KTUTILITY_EXPORT std::weak_ordering localizedCompare(const QString &left, const QString &right);

/// What stands for a text in that order: bytes of which the lesser comes first. To be made once per
/// text where many are compared; only good as long as the locale stays.
KTUTILITY_EXPORT QByteArray localizedSortKey(const QString &text);

/// The number of units at the start of \a text that are canonically equivalent to \a prefix ("é"
/// and "e" with U+0301 are); 0 if the text does not start so.
KTUTILITY_EXPORT qsizetype lengthOfCanonicalPrefix(QStringView text, QStringView prefix,
                                                   Qt::CaseSensitivity sensitivity);

/// The first index at or after \a from where \a text holds \a string or a canonically equivalent
/// form of it; -1 if there is none or \a string is empty.
KTUTILITY_EXPORT qsizetype indexOfCanonical(const QString &text, QStringView string, qsizetype from,
                                            Qt::CaseSensitivity sensitivity);
} // namespace NSString
