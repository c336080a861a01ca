#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// What is on the disk.
namespace NSFileManager {
/// Whether anything is at \a path; links are followed, so that a link to nothing is nothing.
/// \param isDirectory receives whether it is a folder; may be null.
/// \return false also for nil, the empty path, and paths that hold NUL or lone surrogates.
KTUTILITY_EXPORT bool fileExistsAtPath(const QString &path, bool *isDirectory = nullptr);

/// Makes a folder.
/// \param withIntermediateDirectories whether folders on the way are made, too; then a folder that
/// exists already is a success.
/// \return false if it cannot be made.
KTUTILITY_EXPORT bool createDirectoryAtPath(const QString &path, bool withIntermediateDirectories);
} // namespace NSFileManager
