#pragma once

// Private to the library. For what gives files names that others may take at the same moment.

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>

namespace KTPrivate {
/// Renames a file or folder unless the new name is taken.
/// \return 0, or the error number: EEXIST if it is taken.
KTUTILITY_EXPORT int renameWithoutReplacing(const QByteArray &path, const QByteArray &toPath);

/// The same for file systems that cannot rename so: takes the new name with an empty file or folder
/// first, and replaces that.
KTUTILITY_EXPORT int renameOverPlaceholder(const QByteArray &path, const QByteArray &toPath);
} // namespace KTPrivate
