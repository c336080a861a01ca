#include "KTLockFile.h"

#include "FileOperations_p.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
/// Between two looks at a lock that is taken, in milliseconds.
constexpr int LockPause = 20;
/// How often the file may be exchanged under our hands in one look.
constexpr int MostExchanges = 10;

bool isSameFile(const struct stat &one, const struct stat &other)
{
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Whether the file that is open is the one that others find at the path.
bool isAtPath(int descriptor, const QByteArray &path)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.constData(), &named) == 0 &&
           isSameFile(opened, named);
}

bool lockNow(int descriptor)
{
    return uninterrupted([descriptor] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) == 0;
}

/// A folder that only one process clears at a time. Else the second one would remove what the first
/// one has put there since it looked.
class ClearedFolder
{
public:
    explicit ClearedFolder(const QString &path)
        : _descriptor(openFile(QFile::encodeName(path), O_RDONLY | O_DIRECTORY))
        , _isMine(_descriptor >= 0 && lockNow(_descriptor))
    {
    }
    ~ClearedFolder()
    {
        if (_descriptor >= 0)
            ::close(_descriptor);
    }
    ClearedFolder(const ClearedFolder &) = delete;
    ClearedFolder &operator=(const ClearedFolder &) = delete;

    bool isMine() const { return _isMine; }

private:
    int _descriptor;
    bool _isMine;
};

bool isFileOrNothing(const QByteArray &path)
{
    struct stat status = {};
    return ::lstat(path.constData(), &status) != 0 || S_ISREG(status.st_mode);
}

/// Removes what is no file and so can be nobody's lock.
/// \return false if it stays.
bool clearPlace(const QString &place)
{
    const QByteArray path = QFile::encodeName(place);
    if (isFileOrNothing(path))
        return true;
    const ClearedFolder folder(QFileInfo(place).path());
    if (!folder.isMine())
        return true; // somebody else does it
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0 || S_ISREG(status.st_mode))
        return true;
    const int result =
        S_ISDIR(status.st_mode) ? ::rmdir(path.constData()) : ::unlink(path.constData());
    return result == 0 || errno == ENOENT;
}

int openExisting(const QByteArray &path)
{
    constexpr int Flags = O_NOFOLLOW | O_NONBLOCK;
    const int file = openFile(path, O_RDWR | Flags);
    // Another user's file can be locked, too.
    return file < 0 && errno == EACCES ? openFile(path, O_RDONLY | Flags) : file;
}

/// Of a file that cannot be locked.
void removeIfEmpty(int descriptor, const QByteArray &path)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && status.st_size == 0 && isAtPath(descriptor, path))
        removeFile(path.constData());
}
} // namespace

KTLockFile::KTLockFile(const QString &path) : _path(path) {}

KTLockFile::~KTLockFile()
{
    unlock();
}

KTLockFile::Result KTLockFile::lock(int patience)
{
    if (isLocked())
        return Result::Locked;
    const QDeadlineTimer deadline(patience);
    Result result = tryLock();
    while (result == Result::Taken && !deadline.hasExpired()) {
        QThread::msleep(LockPause);
        result = tryLock();
    }
    return result;
}

KTLockFile::Result KTLockFile::tryLock()
{
    if (!canBePath(_path))
        return Result::Failed;
    for (int attempt = 0; attempt < MostExchanges; ++attempt) {
        if (const std::optional<Result> result = tryOnce(QFile::encodeName(_path)))
            return *result;
    }
    return Result::Taken;
}

/// \return nothing if the file was exchanged meanwhile.
std::optional<KTLockFile::Result> KTLockFile::tryOnce(const QByteArray &path)
{
    if (!clearPlace(_path))
        return Result::Blocked;
    const int made = openFile(path, O_RDWR | O_CREAT | O_EXCL, 0666);
    if (made >= 0)
        return lockOpened(made, path);
    if (errno != EEXIST)
        return Result::Failed;
    const int there = openExisting(path);
    if (there >= 0)
        return lockOpened(there, path);
    return errno == ENOENT || errno == ELOOP ? std::nullopt : std::optional(Result::Failed);
}

/// Locks a file that is open now.
std::optional<KTLockFile::Result> KTLockFile::lockOpened(int descriptor, const QByteArray &path)
{
    const bool isHeld = lockNow(descriptor);
    const bool isTaken = !isHeld && errno == EWOULDBLOCK;
    // A lock on a file that was removed meanwhile keeps nobody out.
    if (isHeld && isAtPath(descriptor, path)) {
        _descriptor = descriptor;
        return Result::Locked;
    }
    if (!isHeld && !isTaken)
        removeIfEmpty(descriptor, path);
    ::close(descriptor);
    if (isHeld)
        return std::nullopt;
    return isTaken ? Result::Taken : Result::Failed;
}

void KTLockFile::unlock()
{
    if (!isLocked())
        return;
    const QByteArray path = QFile::encodeName(_path);
    // Before others can have it: afterwards it may be theirs. The second look is for a fault that
    // passes.
    if (isAtPath(_descriptor, path) || isAtPath(_descriptor, path))
        removeFile(path.constData());
    ::close(_descriptor);
    _descriptor = -1;
}
