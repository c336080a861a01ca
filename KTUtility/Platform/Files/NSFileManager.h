#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// What is on the disk.
///
/// \code
/// NSFileManager::createDirectoryAtPath(folder, false);
/// NSFileManager::copyItemAtPath(u"/tmp/photo.jpg"_s, folder + u"/photo.jpg");
/// NSFileManager::removeItemAtPath(folder);    // with all that it holds
/// \endcode
namespace NSFileManager {
/// Whether anything is at \a path; links are followed, so that a link to nothing is nothing.
/// \param isDirectory receives whether it is a folder; may be null.
/// \return false also for nil, the empty path, and paths that hold NUL or lone surrogates.
KTUTILITY_EXPORT bool fileExistsAtPath(const QString &path, bool *isDirectory = nullptr);

/// Whether this process's user may read what is at \a path; false if there is nothing.
KTUTILITY_EXPORT bool isReadableFileAtPath(const QString &path);

/// Sets the permission bits (POSIX, 07777 at most) of a file or folder.
/// \return false if there is nothing, or it belongs to someone else.
KTUTILITY_EXPORT bool setPosixPermissions(const QString &path, unsigned permissions);

/// Makes a folder.
/// \param withIntermediateDirectories whether folders on the way are made, too; then a folder that
/// exists already is a success.
/// \return false if it cannot be made.
KTUTILITY_EXPORT bool createDirectoryAtPath(const QString &path, bool withIntermediateDirectories);

/// Copies a file, or a folder with all that it holds, through the kernel's own copy where the file
/// system has one (large files then take no time). Permissions and times of modification stay. A
/// link at \a path itself is followed; links inside of a folder are copied as links.
/// \return false if there is something at \a toPath already, if anything cannot be read or written
/// (nothing is left at \a toPath then), for pipes and devices, and for a folder into itself.
KTUTILITY_EXPORT bool copyItemAtPath(const QString &path, const QString &toPath);

/// Gives a file or folder another path on the same file system. Nothing is ever replaced, even if
/// another process makes something at \a toPath at the same moment.
KTUTILITY_EXPORT bool moveItemAtPath(const QString &path, const QString &toPath);

/// Removes a file, a link (not what it leads to, also if "/" follows its name), or a folder with
/// all that it holds.
/// \return false if there is nothing, or if something could not be removed.
KTUTILITY_EXPORT bool removeItemAtPath(const QString &path);
} // namespace NSFileManager
