#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QStringView>

/// Numbers at the start of a text, read the platform's way: never an error, never the locale.
namespace NSString {
/// The integer at the start of \a text: whitespace and newlines, one sign, ASCII digits; what
/// follows is ignored.
/// \return 0 if there is none ("++1" is 0); the nearest 64-bit value if it is too large.
KTUTILITY_EXPORT qint64 integerValue(QStringView text);

/// The floating point number at the start of \a text: as integerValue(), with a fraction after
/// "." and an exponent that counts only if digits follow it.
KTUTILITY_EXPORT double doubleValue(QStringView text);

/// The platform's boolean of a text: after whitespace, "Y", "y", "T" or "t" means true; otherwise
/// an optional sign, zeros, and a digit from 1 to 9. "0.5", "on" and "-y" are false.
KTUTILITY_EXPORT bool boolValue(QStringView text);
} // namespace NSString
