#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

// Data as the text of a keyed archive and back, and digests.

namespace KTAdditions {
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

/// The 16 bytes of the MD5 digest (RFC 1321), by OpenSSL; nil if its provider rejects MD5. Good for
/// finding changes, not for security.
///
/// \code
/// KTAdditions::md5Digest(QByteArray()).toHex();    // "d41d8cd98f00b204e9800998ecf8427e"
/// \endcode
KTUTILITY_EXPORT QByteArray md5Digest(const QByteArray &data);
/// The 20 bytes of the SHA-1 digest (FIPS 180-4).
KTUTILITY_EXPORT QByteArray sha1Digest(const QByteArray &data);
} // namespace KTAdditions
