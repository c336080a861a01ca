#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

// Data as text and back, and digests.

namespace KTAdditions {
/// Base64 (RFC 4648) without line breaks, for data that never holds the byte 0xFF.
///
/// 0xFF is an end mark here, as in the streams that this code comes from: at the start of a group
/// of three bytes it ends the text; as second or third byte it ends the group, which is written as
/// a shorter one, and the next group follows. Such data does not survive a round trip; use
/// archiveToString() or QByteArray::toBase64() for it.
///
/// \code
/// KTAdditions::base64String("ABC");         // "QUJD"
/// KTAdditions::base64String("A\xFF" "B");   // "QQ==Qg=="
/// KTAdditions::initWithBase64String(u"QUJD"_s);    // "ABC"
/// \endcode
KTUTILITY_EXPORT QString base64String(const QByteArray &data);

/// The bytes of a base64 text. Whatever is not of the alphabet is passed over, and everything
/// behind the first padded group. An incomplete group at the end is logged (kLog_invalid, level 4)
/// and decoded as far as it goes.
/// \return empty data if \a string is not ASCII.
KTUTILITY_EXPORT QByteArray initWithBase64String(const QString &string);

/// The data as the text of a keyed archive: a property list in XML with the data under the key
/// "__xml__archive__". Every byte survives.
///
/// \code
/// const QString text = KTAdditions::archiveToString(picture);
/// KTAdditions::initWithStringArchive(text) == picture;    // true
/// \endcode
KTUTILITY_EXPORT QString archiveToString(const QByteArray &data);

/// The data of such a text, also in the forms in which other programs archive data (NS.data,
/// NS.bytes).
/// \return nil if \a string is not ASCII, no keyed archive, or one of something else.
KTUTILITY_EXPORT QByteArray initWithStringArchive(const QString &string);

/// The 16 bytes of the MD5 digest (RFC 1321), by OpenSSL; nil if its provider refuses MD5. Good for
/// finding changes, not for security.
///
/// \code
/// KTAdditions::md5Digest(QByteArray()).toHex();    // "d41d8cd98f00b204e9800998ecf8427e"
/// \endcode
KTUTILITY_EXPORT QByteArray md5Digest(const QByteArray &data);
/// The 20 bytes of the SHA-1 digest (FIPS 180-4).
KTUTILITY_EXPORT QByteArray sha1Digest(const QByteArray &data);
} // namespace KTAdditions
