#include "DefaultsFile_p.h"

#include "NSFileManager.h"
#include "NSPropertyListSerialization.h"
#include "NSSearchPath.h"
#include <KTUtility/Platform/Disk/KTLockFile.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QFile>

#include <cerrno>
#include <unistd.h>

using namespace KTPrivate;

namespace {
constexpr int LockMilliseconds = 2000;

/// Waits for others; a folder in the lock's place is nobody's lock, but may hold what is needed.
bool isLocked(KTLockFile &lock)
{
    using Result = KTLockFile::Result;
    Result result = lock.lock(LockMilliseconds);
    if (result == Result::Blocked && moveDamagedFileAside(lock.path()))
        result = lock.lock(LockMilliseconds);
    return result == Result::Locked;
}

bool updateLocked(const QString &file, const std::function<void(QVariantMap &)> &change)
{
    using Result = DictionaryReading::Result;
    DictionaryReading stored = readDictionary(file);
    // What cannot be read now may be whole.
    if (stored.result == Result::Unreadable ||
        (stored.result == Result::NoDictionary && !moveDamagedFileAside(file)))
        return false;
    change(stored.dictionary);
    return NSDictionary::writeToFile(stored.dictionary, file, true);
}
} // namespace

QString DefaultsFile::folder()
{
    const QStringList folders =
        NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true);
    return folders.isEmpty() ? QString() : QString(folders.first() + u"/Preferences");
}

QString DefaultsFile::path(const QString &domain)
{
    const QString where = folder();
    return where.isNull() ? where : NSString::stringWithFormat(u"%@/%@.plist", where, domain);
}

DictionaryReading DefaultsFile::read(const QString &domain)
{
    return readDictionary(path(domain));
}

bool DefaultsFile::update(const QString &domain, const std::function<void(QVariantMap &)> &change)
{
    const QString file = path(domain);
    if (file.isNull() || !NSFileManager::createDirectoryAtPath(folder(), true))
        return false;
    KTLockFile lock(file + u".lock");
    return isLocked(lock) && updateLocked(file, change);
}

bool DefaultsFile::remove(const QString &domain)
{
    const QByteArray file = QFile::encodeName(path(domain));
    return !file.isEmpty() &&
           (::unlink(file.constData()) == 0 || errno == ENOENT || errno == ENOTDIR);
}
