#pragma once

// Private to the library. For what gives files names: such as others may take at the same moment, and
// such as are to survive a power failure.

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>

namespace KTPrivate {
/// Renames a file or folder unless the new name is taken.
/// \return 0, or the error number: EEXIST if it is taken.
KTUTILITY_EXPORT int renameWithoutReplacing(const QByteArray &path, const QByteArray &toPath);

/// The same for file systems that cannot rename so: takes the new name with an empty file or folder
/// first, and replaces that.
KTUTILITY_EXPORT int renameOverPlaceholder(const QByteArray &path, const QByteArray &toPath);

/// Brings the names in the folder of a file to the disk, after the file was made or renamed there.
///
/// Without it, a file whose bytes are on the disk may have no name after a power failure. The file
/// is there for all others, so that a failure changes nothing.
KTUTILITY_EXPORT void flushFolderOf(const QByteArray &path);
} // namespace KTPrivate
