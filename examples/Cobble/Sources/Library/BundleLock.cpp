#include "BundleLock.h"

#include "Text/Reasons.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

using namespace Qt::StringLiterals;

namespace {
/// Beside the bundle, also if its path ends with "/".
QString pathFor(const KTDatabaseBundle &bundle)
{
    return NSString::stringByAppendingPathComponent(bundle.bundlePath(), QString()) + u".lock";
}
} // namespace

BundleLock::BundleLock(const KTDatabaseBundle &bundle) : _file(pathFor(bundle)) {}

Outcome<> BundleLock::lock(int patience)
{
    const KTLockFile::Result result = _file.lock(patience);
    if (result == KTLockFile::Result::Taken)
        return Failure{Reasons::tr("another program is changing the bundle")};
    if (result == KTLockFile::Result::Blocked)
        return Failure{Reasons::tr("'%1' is in the way; please remove it").arg(_file.path())};
    const QString folder = NSString::stringByDeletingLastPathComponent(_file.path());
    if (result == KTLockFile::Result::Failed && !NSFileManager::fileExistsAtPath(folder))
        return Failure{Reasons::tr("there is no folder for the database bundle")};
    return {};
}
