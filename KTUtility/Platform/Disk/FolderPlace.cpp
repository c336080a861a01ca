#include "FolderPlace_p.h"

#include "FileOperations_p.h"
#include "FolderStream_p.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
constexpr int AsFolder = O_RDONLY | O_DIRECTORY;

void closeIfOpen(int descriptor)
{
    if (descriptor >= 0)
        ::close(descriptor);
}

/// A stream of its own from the beginning, whose end leaves the descriptor open.
FolderStream streamOf(int descriptor)
{
    const int file = uninterrupted([&] { return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0); });
    FolderStream stream(file < 0 ? nullptr : ::fdopendir(file));
    if (stream)
        ::rewinddir(stream.get());
    else
        closeIfOpen(file);
    return stream;
}

/// The next entry; null at the end, where errno is 0, and after errors.
const dirent *nextEntry(DIR *folder)
{
    const dirent *entry = nullptr;
    do {
        errno = 0;
        entry = ::readdir(folder);
    } while (!entry && errno == EINTR);
    return entry;
}

/// Whether a folder may be searched, so that one can go up from it.
bool hasWayUp(int descriptor)
{
    struct stat status = {};
    return ::fstatat(descriptor, "..", &status, 0) == 0;
}
} // namespace

FolderPlace::FolderPlace(int descriptor) : _descriptor(descriptor) {}

FolderPlace::~FolderPlace()
{
    closeIfOpen(_descriptor);
    for (const Above &above : _above)
        closeIfOpen(above.kept);
}

std::optional<QList<QByteArray>> FolderPlace::names() const
{
    const FolderStream stream = streamOf(_descriptor);
    if (!stream)
        return std::nullopt;
    QList<QByteArray> names;
    while (const dirent *entry = nextEntry(stream.get())) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names += entry->d_name;
    }
    return errno == 0 ? std::optional(names) : std::nullopt;
}

std::optional<FolderPlace::Above> FolderPlace::identityOf(int descriptor)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    return Above{status.st_dev, status.st_ino, -1};
}

bool FolderPlace::enter(const QByteArray &name)
{
    std::optional<Above> above = identityOf(_descriptor);
    const int inner = above ? openFileAt(_descriptor, name, AsFolder | O_NOFOLLOW) : -1;
    if (inner < 0)
        return false;
    if (hasWayUp(inner))
        ::close(_descriptor);
    else
        above->kept = _descriptor;
    _above.push_back(*above);
    _descriptor = inner;
    return true;
}

/// The folder above; below 0 if it cannot be reached, or is another one.
int FolderPlace::openAbove() const
{
    const Above &expected = _above.back();
    if (expected.kept >= 0)
        return expected.kept;
    const int outer = openFileAt(_descriptor, "..", AsFolder);
    const std::optional<Above> found = identityOf(outer);
    if (found && found->device == expected.device && found->number == expected.number)
        return outer;
    closeIfOpen(outer);
    return -1;
}

bool FolderPlace::leave(const std::function<bool(int descriptor)> &finish)
{
    const int outer = openAbove();
    if (outer < 0)
        return false;
    const bool isFinished = !finish || finish(_descriptor);
    ::close(_descriptor);
    _descriptor = outer;
    _above.pop_back();
    return isFinished;
}
