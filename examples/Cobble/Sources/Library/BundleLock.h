#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTLockFile>

/// Keeps other processes from importing into a bundle, or moving it, at the same time.
///
/// The lock is a file beside the bundle; it is removed when the lock is released. Where none can be
/// made, the database's own lock has to do. It ends with its process, whatever happens, and what
/// else lies in its place keeps nobody waiting; see KTLockFile.
class BundleLock
{
public:
    explicit BundleLock(const KTDatabaseBundle &bundle);

    /// \param patience how long to wait for another process, in milliseconds.
    Outcome<> lock(int patience);
    /// Whether there is a file.
    bool isLocked() const { return _file.isLocked(); }

private:
    KTLockFile _file;
};
