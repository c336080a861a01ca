#include "BundleLock.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {
/// Beside the bundle, also if its path ends with "/".
QString pathFor(const KTDatabaseBundle &bundle)
{
    return NSString::stringByAppendingPathComponent(bundle.bundlePath(), QString()) + u".lock";
}
} // namespace

BundleLock::BundleLock(const KTDatabaseBundle &bundle) : _file(pathFor(bundle))
{
    // A lock is stale when its process has ended, however long an import takes.
    _file.setStaleLockTime(0);
}

BundleLock::~BundleLock()
{
    if (!_file.isLocked())
        return;
    _file.unlock();
    // If the file could not be removed, it would keep this process from importing again.
    qint64 process = 0;
    QString host;
    QString name;
    if (_file.getLockInfo(&process, &host, &name) && process == QCoreApplication::applicationPid())
        _file.removeStaleLockFile();
}

Outcome<> BundleLock::lock(int patience)
{
    const QString folder = NSString::stringByDeletingLastPathComponent(_file.fileName());
    if (_file.tryLock(patience))
        return {};
    if (_file.error() == QLockFile::LockFailedError)
        return Failure{u"another import is running"_s};
    if (!NSFileManager::fileExistsAtPath(folder))
        return Failure{u"there is no folder for the database bundle"_s};
    return {};
}
