// The functions of the C library that touch files, before the system's own. Some libraries call
// them by their names for large files, which are the same functions here.

#include "FaultInjector.h"

#include <cerrno>
#include <cstdarg>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>

using Answer = FaultInjector::Answer;
using Place = FaultInjector::Place;

namespace {
template<typename Function>
Function *systemsOwn(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

bool fails(FileCall call, const Place &place)
{
    return FaultInjector::answerTo(call, place) == Answer::Fail;
}

/// What a function returns that fails.
template<typename Result>
Result failure()
{
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return Result(-1);
}

/// Whether a file is made, perhaps one without a name yet.
bool makesFile(int flags)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

FileCall openingWith(int flags)
{
    return makesFile(flags) ? FileCall::Create : FileCall::Open;
}

/// How much of what is to be read or written is.
size_t sizeToDo(Answer answer, size_t size)
{
    return answer == Answer::DoHalf && size > 1 ? size / 2 : size;
}
} // namespace

#define BEFORE_SYSTEM extern "C" __attribute__((visibility("default")))

/// Defines a function of the C library: fails if it is asked to, else lets the system do it.
#define MAY_FAIL(Result, name, parameters, arguments, call, ...)                                   \
    BEFORE_SYSTEM Result before_##name parameters __asm__(#name);                                  \
    Result before_##name parameters                                                                \
    {                                                                                              \
        static const auto next = systemsOwn<Result parameters>(#name);                             \
        return fails(call, Place(__VA_ARGS__)) ? failure<Result>() : next arguments;               \
    }

/// The same for what reads or writes \a size bytes.
#define MAY_TRANSFER(name, parameters, arguments, call, file)                                      \
    BEFORE_SYSTEM ssize_t before_##name parameters __asm__(#name);                                 \
    ssize_t before_##name parameters                                                               \
    {                                                                                              \
        static const auto next = systemsOwn<ssize_t parameters>(#name);                            \
        const Answer answer = FaultInjector::answerTo(call, Place(file));                          \
        if (answer == Answer::Fail)                                                                \
            return -1;                                                                             \
        size = sizeToDo(answer, size);                                                             \
        return next arguments;                                                                     \
    }

/// The same for what opens files: the mode is there if one is made.
#define MAY_OPEN(name, parameters, arguments, ...)                                                 \
    BEFORE_SYSTEM int before_##name parameters __asm__(#name);                                     \
    int before_##name parameters                                                                   \
    {                                                                                              \
        static const auto next = systemsOwn<int parameters>(#name);                                \
        std::va_list rest;                                                                         \
        va_start(rest, flags);                                                                     \
        const mode_t mode = makesFile(flags) ? va_arg(rest, mode_t) : 0;                           \
        va_end(rest);                                                                              \
        return fails(openingWith(flags), Place(__VA_ARGS__)) ? -1 : next arguments;                \
    }

/// The same for what waits for the disk, which would take the tests most of their time. Nothing
/// here is read after a crash of the system.
#define MAY_FLUSH(name)                                                                            \
    BEFORE_SYSTEM int before_##name(int file) __asm__(#name);                                      \
    int before_##name(int file)                                                                    \
    {                                                                                              \
        return fails(FileCall::Flush, Place(file)) ? -1 : 0;                                       \
    }

MAY_OPEN(open, (const char *path, int flags, ...), (path, flags, mode), path)
MAY_OPEN(open64, (const char *path, int flags, ...), (path, flags, mode), path)
MAY_OPEN(openat, (int folder, const char *path, int flags, ...), (folder, path, flags, mode),
         folder, path)
MAY_OPEN(openat64, (int folder, const char *path, int flags, ...), (folder, path, flags, mode),
         folder, path)
MAY_FAIL(int, creat, (const char *path, mode_t mode), (path, mode), FileCall::Create, path)
MAY_FAIL(int, creat64, (const char *path, mode_t mode), (path, mode), FileCall::Create, path)

MAY_TRANSFER(read, (int file, void *to, size_t size), (file, to, size), FileCall::Read, file)
MAY_TRANSFER(pread, (int file, void *to, size_t size, off_t at), (file, to, size, at),
             FileCall::Read, file)
MAY_TRANSFER(pread64, (int file, void *to, size_t size, off_t at), (file, to, size, at),
             FileCall::Read, file)
MAY_FAIL(ssize_t, readv, (int file, const iovec *to, int count), (file, to, count), FileCall::Read,
         file)

MAY_TRANSFER(write, (int file, const void *from, size_t size), (file, from, size), FileCall::Write,
             file)
MAY_TRANSFER(pwrite, (int file, const void *from, size_t size, off_t at), (file, from, size, at),
             FileCall::Write, file)
MAY_TRANSFER(pwrite64, (int file, const void *from, size_t size, off_t at), (file, from, size, at),
             FileCall::Write, file)
MAY_TRANSFER(copy_file_range,
             (int from, off_t *fromAt, int to, off_t *toAt, size_t size, unsigned flags),
             (from, fromAt, to, toAt, size, flags), FileCall::Write, to)
MAY_TRANSFER(sendfile, (int to, int from, off_t *at, size_t size), (to, from, at, size),
             FileCall::Write, to)
MAY_TRANSFER(sendfile64, (int to, int from, off_t *at, size_t size), (to, from, at, size),
             FileCall::Write, to)
MAY_FAIL(ssize_t, writev, (int file, const iovec *from, int count), (file, from, count),
         FileCall::Write, file)

MAY_FLUSH(fsync)
MAY_FLUSH(fdatasync)
MAY_FLUSH(syncfs)

MAY_FAIL(int, rename, (const char *path, const char *to), (path, to), FileCall::Rename, path)
MAY_FAIL(int, renameat, (int folder, const char *path, int toFolder, const char *to),
         (folder, path, toFolder, to), FileCall::Rename, folder, path)
MAY_FAIL(int, renameat2, (int folder, const char *path, int toFolder, const char *to, unsigned how),
         (folder, path, toFolder, to, how), FileCall::Rename, folder, path)
MAY_FAIL(int, link, (const char *path, const char *to), (path, to), FileCall::Rename, to)
MAY_FAIL(int, linkat, (int folder, const char *path, int toFolder, const char *to, int flags),
         (folder, path, toFolder, to, flags), FileCall::Rename, toFolder, to)
MAY_FAIL(int, symlink, (const char *text, const char *path), (text, path), FileCall::Create, path)

MAY_FAIL(int, symlinkat, (const char *text, int folder, const char *path), (text, folder, path),
         FileCall::Create, folder, path)
MAY_FAIL(int, unlink, (const char *path), (path), FileCall::Remove, path)
MAY_FAIL(int, unlinkat, (int folder, const char *path, int flags), (folder, path, flags),
         FileCall::Remove, folder, path)
MAY_FAIL(int, rmdir, (const char *path), (path), FileCall::Remove, path)
MAY_FAIL(int, remove, (const char *path), (path), FileCall::Remove, path)

MAY_FAIL(int, mkdir, (const char *path, mode_t mode), (path, mode), FileCall::MakeFolder, path)
MAY_FAIL(int, mkdirat, (int folder, const char *path, mode_t mode), (folder, path, mode),
         FileCall::MakeFolder, folder, path)

MAY_FAIL(int, ftruncate, (int file, off_t size), (file, size), FileCall::Resize, file)
MAY_FAIL(int, ftruncate64, (int file, off_t size), (file, size), FileCall::Resize, file)
MAY_FAIL(int, truncate, (const char *path, off_t size), (path, size), FileCall::Resize, path)
MAY_FAIL(int, truncate64, (const char *path, off_t size), (path, size), FileCall::Resize, path)

MAY_FAIL(int, chmod, (const char *path, mode_t mode), (path, mode), FileCall::Permissions, path)
MAY_FAIL(int, fchmod, (int file, mode_t mode), (file, mode), FileCall::Permissions, file)

MAY_FAIL(int, stat, (const char *path, struct stat *to), (path, to), FileCall::Status, path)
MAY_FAIL(int, stat64, (const char *path, struct stat *to), (path, to), FileCall::Status, path)
MAY_FAIL(int, lstat, (const char *path, struct stat *to), (path, to), FileCall::Status, path)
MAY_FAIL(int, lstat64, (const char *path, struct stat *to), (path, to), FileCall::Status, path)
MAY_FAIL(int, fstat, (int file, struct stat *to), (file, to), FileCall::Status, file)
MAY_FAIL(int, fstat64, (int file, struct stat *to), (file, to), FileCall::Status, file)
MAY_FAIL(int, fstatat, (int folder, const char *path, struct stat *to, int flags),
         (folder, path, to, flags), FileCall::Status, folder, path)
MAY_FAIL(int, fstatat64, (int folder, const char *path, struct stat *to, int flags),
         (folder, path, to, flags), FileCall::Status, folder, path)
MAY_FAIL(int, statx, (int folder, const char *path, int flags, unsigned wanted, struct statx *to),
         (folder, path, flags, wanted, to), FileCall::Status, folder, path)
MAY_FAIL(int, access, (const char *path, int mode), (path, mode), FileCall::Status, path)
MAY_FAIL(int, faccessat, (int folder, const char *path, int mode, int flags),
         (folder, path, mode, flags), FileCall::Status, folder, path)
MAY_FAIL(ssize_t, readlink, (const char *path, char *to, size_t size), (path, to, size),
         FileCall::Status, path)

MAY_FAIL(ssize_t, readlinkat, (int folder, const char *path, char *to, size_t size),
         (folder, path, to, size), FileCall::Status, folder, path)

MAY_FAIL(DIR *, opendir, (const char *path), (path), FileCall::List, path)
MAY_FAIL(DIR *, fdopendir, (int file), (file), FileCall::List, file)
MAY_FAIL(dirent *, readdir, (DIR * folder), (folder), FileCall::List, ::dirfd(folder))
MAY_FAIL(dirent *, readdir64, (DIR * folder), (folder), FileCall::List, ::dirfd(folder))

MAY_FAIL(int, flock, (int file, int how), (file, how), FileCall::Lock, file)

/// A descriptor is released even if closing it fails.
BEFORE_SYSTEM int before_close(int file) __asm__("close");
int before_close(int file)
{
    static const auto next = systemsOwn<int(int)>("close");
    const bool isFailing = fails(FileCall::Close, Place(file));
    const int error = errno;
    const int result = next(file);
    if (!isFailing)
        return result;
    errno = error;
    return -1;
}
