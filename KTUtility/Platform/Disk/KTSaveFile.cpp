#include "KTSaveFile.h"

#include "FileOperations_p.h"
#include "FileRename_p.h"
#include "NSFileHandle.h"

#include <QFile>

#include <cerrno>
#include <optional>
#include <sys/stat.h>

using namespace KTPrivate;

namespace {
constexpr mode_t PermissionBits = 0777;

/// The permissions of the file that is to be replaced.
/// \return nothing if there is none; -1 if they cannot be found out.
std::optional<int> oldPermissions(const QString &path)
{
    struct stat status = {};
    const int answer =
        uninterrupted([&] { return ::stat(QFile::encodeName(path).constData(), &status); });
    if (answer == 0)
        return int(status.st_mode & PermissionBits);
    return errno == ENOENT ? std::nullopt : std::optional(-1);
}
} // namespace

KTSaveFile::KTSaveFile(const QString &path) : QSaveFile(path)
{
    setDirectWriteFallback(false);
}

/// Takes the new file away.
/// \return false.
bool KTSaveFile::fail(int error)
{
    if (isOpen()) {
        cancelWriting();
        QSaveFile::commit();
    }
    setErrorString(qt_error_string(error));
    return false;
}

bool KTSaveFile::open(OpenMode mode)
{
    const std::optional<int> permissions = oldPermissions(fileName());
    if (permissions == -1)
        return fail(errno);
    if (!QSaveFile::open(mode))
        return false;
    // A file without an old one has what the process gives to new files.
    const bool isKept = !permissions || ::fchmod(handle(), mode_t(*permissions)) == 0;
    return isKept || fail(errno);
}

bool KTSaveFile::commit()
{
    if (!flush())
        return false;
    if (!NSFileHandle(handle(), NSFileHandle::Ownership::Borrowed).synchronizeFile())
        return fail(errno);
    if (!QSaveFile::commit())
        return false;
    // The new file is there; a folder that cannot be flushed does not take it back.
    flushFolderOf(QFile::encodeName(fileName()));
    return true;
}
