#pragma once

// Private to the library. For what calls the system about files: paths it takes, calls that signals
// interrupt.

#include <QByteArray>
#include <QString>

#include <cerrno>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace KTPrivate {
/// Whether a text can be the path of a file. Lone surrogates have no bytes, and would become the
/// name of another file.
inline bool canBePath(const QString &path)
{
    return !path.isEmpty() && path.isValidUtf16() && !path.contains(QChar(u'\0'));
}

/// What a call of the system gives, made again for as long as signals interrupt it.
template<typename Call>
auto uninterrupted(const Call &call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Opens a file, again for as long as signals interrupt it.
/// \return its descriptor; below 0 if it cannot be opened.
inline int openFile(const QByteArray &path, int flags, mode_t mode = 0)
{
    return uninterrupted([&] { return ::open(path.constData(), flags | O_CLOEXEC, mode); });
}

/// The same for a name in a folder that is open.
inline int openFileAt(int folder, const QByteArray &name, int flags, mode_t mode = 0)
{
    return uninterrupted(
        [&] { return ::openat(folder, name.constData(), flags | O_CLOEXEC, mode); });
}

/// Removes a file that nobody should find any more; after a fault, once more.
inline bool removeFile(const char *path)
{
    if (::unlink(path) == 0)
        return true;
    return ::unlink(path) == 0;
}
} // namespace KTPrivate
