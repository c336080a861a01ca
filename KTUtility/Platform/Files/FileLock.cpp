#include "FileLock_p.h"

#include "FileOperations_p.h"
#include "NSPathUtilities.h"
#include "PropertyListFile_p.h"

#include <QDeadlineTimer>
#include <QFile>

#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace KTPrivate;

namespace {
constexpr std::chrono::milliseconds TurnPause(5);

/// What stands at a path, links not followed; 0 if nothing does, or nobody can say.
mode_t fileTypeAt(const QByteArray &path)
{
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 ? status.st_mode & S_IFMT : 0;
}

/// Whether an open file is the one that is found at the path now. Who unlocks removes the file,
/// and who has waited for it then has a lock that nobody else will ever see.
bool isAt(int file, const QByteArray &path)
{
    struct stat opened = {};
    struct stat found = {};
    return ::fstat(file, &opened) == 0 && ::lstat(path.constData(), &found) == 0 &&
           S_ISREG(opened.st_mode) && opened.st_dev == found.st_dev &&
           opened.st_ino == found.st_ino;
}

bool lockNow(int file)
{
    return uninterrupted([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) == 0;
}

/// A folder that only one process clears at a time. Else the second one would remove what the first
/// one has put there since it looked.
class ClearedFolder
{
public:
    explicit ClearedFolder(const QByteArray &path)
        : _folder(openFile(path, O_RDONLY | O_DIRECTORY)), _isMine(_folder >= 0 && lockNow(_folder))
    {
    }
    ~ClearedFolder()
    {
        if (_folder >= 0)
            ::close(_folder);
    }
    ClearedFolder(const ClearedFolder &) = delete;
    ClearedFolder &operator=(const ClearedFolder &) = delete;

    bool isMine() const { return _isMine; }

private:
    int _folder;
    bool _isMine;
};

/// Removes what is no file from the place of one.
/// \return false if it stays there.
bool clearPlace(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const ClearedFolder folder(
        QFile::encodeName(NSString::stringByDeletingLastPathComponent(path)));
    if (!folder.isMine())
        return true; // somebody else does it
    const mode_t kind = fileTypeAt(name);
    if (kind == S_IFDIR)
        return ::rmdir(name.constData()) == 0 || moveDamagedFileAside(path);
    return kind == 0 || kind == S_IFREG || ::unlink(name.constData()) == 0;
}

/// Opens the file, made if there is none; below 0 if something else is there, or it cannot be.
int openLock(const QByteArray &path)
{
    // Without O_NONBLOCK, a pipe in its place would wait for a reader.
    const int file = openFile(path, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (file >= 0 && lockNow(file) && isAt(file, path))
        return file;
    if (file >= 0) {
        ::close(file);
        errno = EWOULDBLOCK;
    }
    return -1;
}

/// Whether there may be a lock later, after openLock() has given none.
bool isWorthWaiting(const QString &path, int error)
{
    const mode_t kind = fileTypeAt(QFile::encodeName(path));
    if (kind != 0 && kind != S_IFREG)
        return clearPlace(path);
    return error == EWOULDBLOCK;
}
} // namespace

FileLock::FileLock(const QString &path, int patience) : _path(QFile::encodeName(path))
{
    const QDeadlineTimer deadline(patience);
    while ((_file = openLock(_path)) < 0) {
        if (!isWorthWaiting(path, errno) || deadline.hasExpired())
            return;
        std::this_thread::sleep_for(TurnPause);
    }
}

FileLock::~FileLock()
{
    if (_file < 0)
        return;
    // Removed while it is still locked: afterwards it may be somebody else's.
    removeFile(_path.constData());
    ::close(_file);
}
