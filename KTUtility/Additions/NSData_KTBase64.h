#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

// Data as base64 text and back.

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
} // namespace KTAdditions
