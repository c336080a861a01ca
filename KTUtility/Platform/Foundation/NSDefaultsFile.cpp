#include "NSDefaultsFile_p.h"

#include "NSFileManager.h"
#include "NSPropertyListSerialization.h"
#include "NSSearchPath.h"
#include "NSStringFormat.h"

#include <QFile>
#include <QLockFile>

namespace {
constexpr int LockMilliseconds = 2000;

constexpr int MostDamagedFiles = 100;

/// Keeps a file that is there and cannot be read as a dictionary from being overwritten: as
/// "<path>.damaged", or with a number behind it if such a file was kept before.
bool moveDamagedFileAside(const QString &path)
{
    // QFile::rename() never replaces a file.
    for (int number = 1; number <= MostDamagedFiles; ++number) {
        const QString suffix = number == 1 ? QString() : QString(u'.' + QString::number(number));
        if (QFile::rename(path, QString(path + u".damaged" + suffix)))
            return true;
    }
    return false;
}
} // namespace

QString NSDefaultsFile::folder()
{
    const QStringList folders =
        NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true);
    return folders.isEmpty() ? QString() : QString(folders.first() + u"/Preferences");
}

QString NSDefaultsFile::path(const QString &domain)
{
    const QString where = folder();
    return where.isNull() ? where : NSString::stringWithFormat(u"%@/%@.plist", where, domain);
}

std::optional<QVariantMap> NSDefaultsFile::read(const QString &domain)
{
    return NSDictionary::dictionaryWithContentsOfFile(path(domain));
}

bool NSDefaultsFile::update(const QString &domain, const std::function<void(QVariantMap &)> &change)
{
    const QString file = path(domain);
    if (file.isNull() || !NSFileManager::createDirectoryAtPath(folder(), true))
        return false;
    QLockFile lock(file + u".lock");
    if (!lock.tryLock(LockMilliseconds))
        return false;
    const std::optional<QVariantMap> stored = read(domain);
    if (!stored && NSFileManager::fileExistsAtPath(file) && !moveDamagedFileAside(file))
        return false;
    QVariantMap values = stored.value_or(QVariantMap());
    change(values);
    return NSDictionary::writeToFile(values, file, true);
}

bool NSDefaultsFile::remove(const QString &domain)
{
    const QString file = path(domain);
    return !file.isNull() && (!NSFileManager::fileExistsAtPath(file) || QFile::remove(file));
}
