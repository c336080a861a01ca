#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

/// What counts in a phone number and in a pattern for phone numbers.
namespace KTPrivate::PhoneDigits {
/// Stands for a digit in a pattern.
constexpr QChar Placeholder = u'#';

/// A number or a pattern without spaces, punctuation and brackets.
KTUTILITY_EXPORT QString withoutSeparators(const QString &text);

/// What of a pattern has to stand at the start of a number.
KTUTILITY_EXPORT QString literalsOf(const QString &pattern);

/// The values of the digits of a text, of any script; nothing if it has anything else.
KTUTILITY_EXPORT std::optional<QList<int>> valuesOf(QStringView text);

/// Whether a number without separators is one with its country code, as ITU-T E.164 has it: "+" and 7
/// to 15 digits, the first of them no zero.
KTUTILITY_EXPORT bool isInternational(QStringView number);
} // namespace KTPrivate::PhoneDigits
