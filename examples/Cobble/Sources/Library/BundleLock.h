#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

#include <QLockFile>

/// Keeps other processes from importing into a bundle, or moving it, at the same time.
///
/// The lock is a file beside the bundle; it is removed when the lock is released. Where none can be
/// made, the database's own lock has to do.
class BundleLock
{
public:
    explicit BundleLock(const KTDatabaseBundle &bundle);
    ~BundleLock();
    BundleLock(const BundleLock &) = delete;
    BundleLock &operator=(const BundleLock &) = delete;

    /// \param patience how long to wait for another process, in milliseconds.
    Outcome<> lock(int patience);
    /// Whether there is a file.
    bool isLocked() const { return _file.isLocked(); }

private:
    QLockFile _file;
};
