#include "NSFileManager.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {
/// Lone surrogates have no bytes, and would become the name of another file.
bool canBePath(const QString &path)
{
    return !path.isEmpty() && path.isValidUtf16() && !path.contains(QChar(u'\0'));
}
} // namespace

bool NSFileManager::fileExistsAtPath(const QString &path, bool *isDirectory)
{
    struct stat status = {};
    const bool exists =
        canBePath(path) && ::stat(QFile::encodeName(path).constData(), &status) == 0;
    if (isDirectory)
        *isDirectory = exists && S_ISDIR(status.st_mode);
    return exists;
}

bool NSFileManager::createDirectoryAtPath(const QString &path, bool withIntermediateDirectories)
{
    if (!canBePath(path))
        return false;
    return withIntermediateDirectories ? QDir().mkpath(path) : QDir().mkdir(path);
}
