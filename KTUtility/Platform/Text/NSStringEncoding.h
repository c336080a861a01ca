#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

/// The encodings that this framework asks about, with the platform's numbers.
enum NSStringEncoding {
    NSASCIIStringEncoding = 1,
    NSUTF8StringEncoding = 4,
    NSISOLatin1StringEncoding = 5,
    NSShiftJISStringEncoding = 8,
    NSMacOSRomanStringEncoding = 30,
};

namespace NSString {
/// Whether all of \a text exists in \a encoding; false for the two that are only named here, Shift
/// JIS and Mac OS Roman, unless the text is ASCII. In ISO Latin 1 a base letter with a combining
/// mark counts if their composed form exists ("e" with U+0301 does); a mark alone does not.
KTUTILITY_EXPORT bool canBeConvertedToEncoding(const QString &text, NSStringEncoding encoding);

/// The text that \a data holds in UTF-8, taken strictly (RFC 3629); nil if it holds anything else.
KTUTILITY_EXPORT QString stringWithUTF8Data(const QByteArray &data);
} // namespace NSString
