#pragma once

// Private to the library. For what leaves the process as bytes: lines of logs and of the console.

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QStringView>

namespace KTPrivate {
/// Writes a text as UTF-8, in which a lone surrogate is U+FFFD, wherever it stands.
/// \param to room for three bytes a unit.
/// \return the end of what was written.
KTUTILITY_EXPORT char *writeUTF8(char *to, QStringView text);

/// The same as bytes of their own.
KTUTILITY_EXPORT QByteArray utf8Of(QStringView text);
} // namespace KTPrivate
