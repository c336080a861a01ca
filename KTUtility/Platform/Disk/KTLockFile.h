#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <optional>

/// A lock that one owner has at a time, of all processes of one computer and all parts of each: a
/// lock of the system's on an empty file beside what it guards.
///
/// The system releases it when its process ends, however that ends, so that no lock is left behind
/// and none has to be taken for stale. Only the lock counts, not the file: one that is there already
/// may be empty, or hold anything, and is never written to. What is there in the file's place and
/// can be nobody's lock (a link, a pipe, a device, an empty folder) is removed and neither followed
/// nor waited for.
///
/// \code
/// KTLockFile lock(path + u".lock");
/// if (lock.lock(5000) == KTLockFile::Result::Taken)
///     return complain(u"another program is writing"_s);
/// write(path);
/// \endcode
class KTUTILITY_EXPORT KTLockFile
{
public:
    /// What came of trying to lock.
    enum class Result {
        Locked,  ///< the lock is this object's
        Taken,   ///< somebody else has it
        Blocked, ///< something that cannot be removed is in the file's place
        Failed,  ///< no file can be made, or the file system has no locks
    };

    /// A lock that is not locked yet.
    /// \param path of the file; the folder for it must exist.
    explicit KTLockFile(const QString &path);
    /// Unlocks it.
    ~KTLockFile();
    KTLockFile(const KTLockFile &) = delete;
    KTLockFile &operator=(const KTLockFile &) = delete;

    /// The path of the file.
    const QString &path() const { return _path; }
    /// Whether the lock is this object's now.
    bool isLocked() const { return _descriptor >= 0; }

    /// Waits until the lock is free.
    /// \param patience how long at most, in milliseconds; 0 asks once.
    /// \return Locked also if it is locked already.
    Result lock(int patience);
    /// Releases the lock and removes the file; without a lock it does nothing.
    void unlock();

private:
    Result tryLock();
    std::optional<Result> tryOnce(const QByteArray &path);
    std::optional<Result> lockOpened(int descriptor, const QByteArray &path);

    QString _path;
    int _descriptor = -1;
};
