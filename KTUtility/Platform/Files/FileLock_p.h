#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

namespace KTPrivate {
/// A file that stands beside another one while somebody changes that, so that others wait.
///
/// What counts is the system's lock of the file and not what the file holds: an empty or damaged
/// one keeps nobody out, nor does that of a process that has ended. What is no file at all (a link,
/// a pipe) is nobody's lock and is removed; a folder with something in it is moved aside.
///
/// \code
/// const FileLock lock(path + u".lock", 2000);
/// if (lock.isLocked())
///     change(path);
/// \endcode
class KTUTILITY_EXPORT FileLock
{
public:
    /// Takes the lock; if others have it, waits for them.
    /// \param patience for how long, in milliseconds.
    FileLock(const QString &path, int patience);
    /// Removes the file.
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// Whether it was taken.
    bool isLocked() const { return _file >= 0; }

private:
    QByteArray _path;
    int _file = -1;
};
} // namespace KTPrivate
