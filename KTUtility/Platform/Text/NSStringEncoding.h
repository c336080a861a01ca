#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

/// The encodings that this framework asks about, with the platform's numbers.
enum NSStringEncoding {
    NSASCIIStringEncoding = 1,       ///< 7 bits; no other character can be written
    NSUTF8StringEncoding = 4,        ///< Unicode
    NSISOLatin1StringEncoding = 5,   ///< ISO 8859-1: Western European, one byte each
    NSShiftJISStringEncoding = 8,    ///< Japanese
    NSMacOSRomanStringEncoding = 30, ///< Western European, as older systems had it
};

namespace NSString {
/// Whether all of \a text exists in \a encoding; false for the two that are only named here, Shift
/// JIS and Mac OS Roman, unless the text is ASCII. In ISO Latin 1 a base letter with a combining
/// mark counts if their composed form exists ("e" with U+0301 does); a mark alone does not.
KTUTILITY_EXPORT bool canBeConvertedToEncoding(const QString &text, NSStringEncoding encoding);

/// The text that \a data holds in UTF-8, taken strictly (RFC 3629); nil if it holds anything else.
KTUTILITY_EXPORT QString stringWithUTF8Data(const QByteArray &data);
} // namespace NSString
