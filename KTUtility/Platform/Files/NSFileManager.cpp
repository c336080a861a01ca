#include "NSFileManager.h"

#include "NSPathUtilities.h"
#include <KTUtility/Platform/Disk/FileCopy_p.h>
#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Disk/FileRemoval_p.h>
#include <KTUtility/Platform/Disk/FileRename_p.h>

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

bool NSFileManager::fileExistsAtPath(const QString &path, bool *isDirectory)
{
    struct stat status = {};
    const bool exists =
        canBePath(path) && ::stat(QFile::encodeName(path).constData(), &status) == 0;
    if (isDirectory)
        *isDirectory = exists && S_ISDIR(status.st_mode);
    return exists;
}

bool NSFileManager::isReadableFileAtPath(const QString &path)
{
    if (!canBePath(path))
        return false;
    const QByteArray name = QFile::encodeName(path);
    const auto isGranted = [&name] { return ::access(name.constData(), R_OK) == 0; };
    // A question that fails once is no answer: whoever takes a readable file for an unreadable one
    // may take its permissions away.
    if (isGranted())
        return true;
    return isGranted();
}

bool NSFileManager::setPosixPermissions(const QString &path, unsigned permissions)
{
    return canBePath(path) && ::chmod(QFile::encodeName(path).constData(), permissions) == 0;
}

bool NSFileManager::createDirectoryAtPath(const QString &path, bool withIntermediateDirectories)
{
    if (!canBePath(path))
        return false;
    return withIntermediateDirectories ? QDir().mkpath(path) : QDir().mkdir(path);
}

bool NSFileManager::copyItemAtPath(const QString &path, const QString &toPath)
{
    return canBePath(path) && canBePath(toPath) &&
           copyItem(QFile::encodeName(path), QFile::encodeName(toPath));
}

bool NSFileManager::moveItemAtPath(const QString &path, const QString &toPath)
{
    return canBePath(path) && canBePath(toPath) &&
           renameWithoutReplacing(QFile::encodeName(path), QFile::encodeName(toPath)) == 0;
}

bool NSFileManager::removeItemAtPath(const QString &path)
{
    if (!canBePath(path))
        return false;
    // With a "/" at the end, a link would be the folder that it leads to.
    const QString entry = NSString::stringByAppendingPathComponent(path, QString());
    return removeItem(QFile::encodeName(entry));
}
