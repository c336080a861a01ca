#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

// Forms of texts that look alike (Unicode Standard Annex #15). Linear in the length of the text.

namespace NSString {
/// Compatibility decomposition, NFKD: full-width digits, superscripts and ligatures become plain
/// characters, accents stand alone. A text that is in this form already is returned as it is.
///
/// \code
/// NSString::decomposedStringWithCompatibilityMapping(u"１²"_s);    // "12"
/// \endcode
KTUTILITY_EXPORT QString decomposedStringWithCompatibilityMapping(const QString &text);

/// Compatibility composition with cases folded, NFKC_Casefold: for comparing names that people
/// type.
///
/// \code
/// NSString::foldedStringWithCompatibilityMapping(u"ＵＳＤ"_s);    // "usd"
/// \endcode
KTUTILITY_EXPORT QString foldedStringWithCompatibilityMapping(const QString &text);
} // namespace NSString
