#include "FileCopy_p.h"

#include "FileOperations_p.h"
#include "FileRemoval_p.h"
#include "FolderStream_p.h"
#include "NSFileHandle.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
/// Bits of the mode that a copy takes over; a copy never runs with its owner's rights.
constexpr mode_t KeptMode = 0777;

bool copyKnownItem(const QByteArray &source, const QByteArray &target, const struct stat &status);

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

bool copyFile(const QByteArray &source, const QByteArray &target, const struct stat &status)
{
    // Without O_NONBLOCK a pipe that has taken the file's place would hold up the process.
    const NSFileHandle from(openFile(source, O_RDONLY | O_NONBLOCK));
    struct stat opened = {};
    if (::fstat(from.fileDescriptor(), &opened) != 0 || !S_ISREG(opened.st_mode))
        return false;
    NSFileHandle to(openFile(target, O_WRONLY | O_CREAT | O_EXCL, 0600));
    const bool isCopied = to.fileDescriptor() >= 0 && copyContents(from.fileDescriptor(), to) &&
                          ::fchmod(to.fileDescriptor(), status.st_mode & KeptMode) == 0;
    keepTimes(to.fileDescriptor(), status);
    if (!isCopied && to.fileDescriptor() >= 0)
        ::unlink(target.constData());
    return isCopied;
}

bool copyLink(const QByteArray &source, const QByteArray &target)
{
    std::array<char, PATH_MAX + 1> text{};
    return ::readlink(source.constData(), text.data(), PATH_MAX) > 0 &&
           ::symlink(text.data(), target.constData()) == 0;
}

bool copyEntry(const QByteArray &source, const QByteArray &target)
{
    struct stat status = {};
    if (::lstat(source.constData(), &status) != 0)
        return false;
    return S_ISLNK(status.st_mode) ? copyLink(source, target)
                                   : copyKnownItem(source, target, status);
}

bool copyEntries(DIR *folder, const QByteArray &source, const QByteArray &target)
{
    errno = 0;
    while (const dirent *entry = ::readdir(folder)) {
        const char *const name = entry->d_name;
        if (std::strcmp(name, ".") != 0 && std::strcmp(name, "..") != 0 &&
            !copyEntry(source + '/' + name, target + '/' + name))
            return false;
        errno = 0;
    }
    return errno == 0;
}

/// nil if it cannot be opened; signals do not keep it from that.
DIR *openFolder(const QByteArray &path)
{
    const int file = openFile(path, O_RDONLY | O_DIRECTORY);
    DIR *const folder = file < 0 ? nullptr : ::fdopendir(file);
    if (!folder && file >= 0)
        ::close(file);
    return folder;
}

bool copyFolder(const QByteArray &source, const QByteArray &target, const struct stat &status)
{
    const FolderStream folder(openFolder(source));
    if (!folder || ::mkdir(target.constData(), 0700) != 0)
        return false;
    const NSFileHandle made(openFile(target, O_RDONLY | O_DIRECTORY));
    const bool isCopied = copyEntries(folder.get(), source, target) &&
                          ::fchmod(made.fileDescriptor(), status.st_mode & KeptMode) == 0;
    keepTimes(made.fileDescriptor(), status);
    if (!isCopied)
        removeItem(target);
    return isCopied;
}

bool copyKnownItem(const QByteArray &source, const QByteArray &target, const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        return copyFolder(source, target, status);
    return S_ISREG(status.st_mode) && copyFile(source, target, status);
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
    return copyKnownItem(path, toPath, status);
}
