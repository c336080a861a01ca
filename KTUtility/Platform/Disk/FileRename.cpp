#include "FileRename_p.h"

#include "FileOperations_p.h"
#include "NSFileHandle.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
/// The folder of a path, as openFile() takes it.
QByteArray folderOf(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    const qsizetype name = path.lastIndexOf('/') + 1;
    return name == 0 ? QByteArray(".") : path.first(name);
}
} // namespace

int KTPrivate::renameWithoutReplacing(const QByteArray &path, const QByteArray &toPath)
{
    if (::renameat2(AT_FDCWD, path.constData(), AT_FDCWD, toPath.constData(), RENAME_NOREPLACE) ==
        0)
        return 0;
    const bool isUnknown = errno == EINVAL || errno == ENOSYS;
    return isUnknown ? renameOverPlaceholder(path, toPath) : errno;
}

int KTPrivate::renameOverPlaceholder(const QByteArray &path, const QByteArray &toPath)
{
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0)
        return errno;
    const bool isFolder = S_ISDIR(status.st_mode);
    const int made = isFolder ? ::mkdir(toPath.constData(), 0700)
                              : openFile(toPath, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (made < 0)
        return errno;
    if (!isFolder)
        ::close(made);
    if (::rename(path.constData(), toPath.constData()) == 0)
        return 0;
    const int error = errno;
    if (isFolder)
        ::rmdir(toPath.constData());
    else
        ::unlink(toPath.constData());
    return error;
}

void KTPrivate::flushFolderOf(const QByteArray &path)
{
    NSFileHandle(openFile(folderOf(path), O_RDONLY | O_DIRECTORY)).synchronizeFile();
}
