#include "FileCopy_p.h"

#include "FileOperations_p.h"
#include "FileRemoval_p.h"
#include "FolderPlace_p.h"
#include "NSFileHandle.h"

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
/// Bits of the mode that a copy takes over; a copy never runs with its owner's rights.
constexpr mode_t KeptMode = 0777;

bool copyThroughBuffer(int from, NSFileHandle &to)
{
    std::array<char, 1 << 16> buffer;
    for (;;) {
        const ssize_t size =
            uninterrupted([&] { return ::read(from, buffer.data(), buffer.size()); });
        if (size <= 0)
            return size == 0;
        if (!to.writeData(QByteArrayView(buffer.data(), size)))
            return false;
    }
}

bool copyContents(int from, NSFileHandle &to)
{
    constexpr size_t Step = size_t(1) << 30;
    ssize_t size = 0;
    do {
        size = uninterrupted([&] {
            return ::copy_file_range(from, nullptr, to.fileDescriptor(), nullptr, Step, 0);
        });
    } while (size > 0);
    // What the kernel cannot copy by itself is copied from where it stopped; at the end of the file
    // that is nothing.
    const bool isFull = size < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG);
    return !isFull && copyThroughBuffer(from, to);
}

void keepTimes(int file, const struct stat &status)
{
    const struct timespec times[] = {status.st_atim, status.st_mtim};
    ::futimens(file, times);
}

/// A name in a folder that is open, or a path with AT_FDCWD.
struct Place
{
    int folder;
    QByteArray name;

    int open(int flags, mode_t mode = 0) const { return openFileAt(folder, name, flags, mode); }
};

/// \param flags O_NOFOLLOW where a link must not lead to another file.
bool copyFile(const Place &source, const Place &target, int flags = 0)
{
    // Without O_NONBLOCK a pipe that has taken the file's place would hold up the process.
    const NSFileHandle from(source.open(O_RDONLY | O_NONBLOCK | flags));
    struct stat status = {};
    if (::fstat(from.fileDescriptor(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    NSFileHandle to(target.open(O_WRONLY | O_CREAT | O_EXCL, 0600));
    const bool isCopied = to.fileDescriptor() >= 0 && copyContents(from.fileDescriptor(), to) &&
                          ::fchmod(to.fileDescriptor(), status.st_mode & KeptMode) == 0;
    keepTimes(to.fileDescriptor(), status);
    if (!isCopied && to.fileDescriptor() >= 0)
        ::unlinkat(target.folder, target.name.constData(), 0);
    return isCopied;
}

bool copyLink(const Place &source, const Place &target)
{
    std::array<char, PATH_MAX + 1> text{};
    return ::readlinkat(source.folder, source.name.constData(), text.data(), PATH_MAX) > 0 &&
           ::symlinkat(text.data(), target.folder, target.name.constData()) == 0;
}

/// The copy of all that is in a folder, with few descriptors however deep it is. What is exchanged
/// for a link meanwhile is not followed.
class FolderCopy
{
public:
    FolderCopy(int source, int target) : _source(source), _target(target) {}

    bool run();

private:
    struct Level
    {
        QList<QByteArray> names;
        struct stat status;
    };
    bool begin();
    bool end();
    bool copy(const QByteArray &name);
    bool copyInnerFolder(const QByteArray &name);

    FolderPlace _source;
    FolderPlace _target;
    std::vector<Level> _levels;
};

bool FolderCopy::run()
{
    bool isDone = begin();
    while (isDone && !_levels.empty())
        isDone = _levels.back().names.isEmpty() ? end() : copy(_levels.back().names.takeLast());
    return isDone;
}

/// Begins with the folders that the places are at.
bool FolderCopy::begin()
{
    struct stat status = {};
    const std::optional<QList<QByteArray>> names = _source.names();
    if (!names || _target.descriptor() < 0 || ::fstat(_source.descriptor(), &status) != 0)
        return false;
    _levels.push_back({*names, status});
    return true;
}

bool FolderCopy::end()
{
    const struct stat status = _levels.back().status;
    _levels.pop_back();
    const auto finish = [&status](int folder) {
        const bool isKept = ::fchmod(folder, status.st_mode & KeptMode) == 0;
        keepTimes(folder, status);
        return isKept;
    };
    if (_source.isRoot())
        return finish(_target.descriptor());
    return _source.leave() && _target.leave(finish);
}

bool FolderCopy::copy(const QByteArray &name)
{
    const Place source{_source.descriptor(), name};
    const Place target{_target.descriptor(), name};
    struct stat status = {};
    if (::fstatat(source.folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    if (S_ISDIR(status.st_mode))
        return copyInnerFolder(name);
    if (S_ISLNK(status.st_mode))
        return copyLink(source, target);
    return S_ISREG(status.st_mode) && copyFile(source, target, O_NOFOLLOW);
}

bool FolderCopy::copyInnerFolder(const QByteArray &name)
{
    return ::mkdirat(_target.descriptor(), name.constData(), 0700) == 0 && _source.enter(name) &&
           _target.enter(name) && begin();
}

bool copyFolder(const QByteArray &source, const QByteArray &target)
{
    const int from = openFile(source, O_RDONLY | O_DIRECTORY);
    if (from < 0 || ::mkdir(target.constData(), 0700) != 0) {
        const NSFileHandle closing(from);
        return false;
    }
    const int to = openFile(target, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    const bool isCopied = FolderCopy(from, to).run();
    if (!isCopied)
        removeItem(target);
    return isCopied;
}

/// Whether \a target lies in the folder \a source, whose copy would never end.
bool liesInside(const QByteArray &target, const QByteArray &source)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path outer = fs::canonical(source.toStdString(), error);
    const fs::path inner = fs::weakly_canonical(fs::absolute(target.toStdString(), error), error);
    return error || std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first ==
                        outer.end();
}
} // namespace

bool KTPrivate::copyItem(const QByteArray &path, const QByteArray &toPath)
{
    struct stat status = {};
    struct stat existing = {};
    if (::stat(path.constData(), &status) != 0 || ::lstat(toPath.constData(), &existing) == 0 ||
        (S_ISDIR(status.st_mode) && liesInside(toPath, path)))
        return false;
    return S_ISDIR(status.st_mode)
               ? copyFolder(path, toPath)
               : S_ISREG(status.st_mode) && copyFile({AT_FDCWD, path}, {AT_FDCWD, toPath});
}
