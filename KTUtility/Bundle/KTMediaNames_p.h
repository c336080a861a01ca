#pragma once

// What the bundle and the munger share: the names of stored media files.

#include <KTUtility/KTUtilityExport.h>

#include <QString>

namespace KTMediaNames {
/// Whether a text can be the name of a file in a folder: not empty, ".", or "..", and without "/"
/// and NUL.
KTUTILITY_EXPORT bool isFileName(const QString &name);

/// Whether the last component of a path is longer, in bytes, than names of files can be.
KTUTILITY_EXPORT bool isTooLong(const QString &path);

/// The path with \a comment as an extension before its own: "a/b.jpg" and "2" give "a/b.2.jpg".
KTUTILITY_EXPORT QString pathByAddingExtComment(const QString &path, const QString &comment);

/// The path without its last three extensions, but with its own again: "photo.3.jpg" and
/// "photo.3.orig.jpg" give "photo.jpg". Deliberate: a name with dots loses them, too.
KTUTILITY_EXPORT QString pathByRemovingExtComment(const QString &path);
} // namespace KTMediaNames
