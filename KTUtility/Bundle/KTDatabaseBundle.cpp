#include "KTDatabaseBundle.h"

#include "KTMediaNames_p.h"
#include "MediaFolder_p.h"
#include <KTUtility/Additions/NSString_KTAdditions.h>
#include <KTUtility/Platform/Disk/FileRename_p.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Files/NSSearchPath.h>
#include <KTUtility/Platform/Files/NSUserDefaults.h>
#include <KTUtility/Platform/Files/ProgramIdentity_p.h>
#include <KTUtility/Platform/Text/NSPercentEscapes.h>

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

const QString KTDefaultDatabaseBundlePath = u"KTDefaultDatabaseBundlePath"_s;

namespace {
constexpr QStringView MediaScheme = u"cobblemedia";

QString userSupportFolder()
{
    const QStringList folders =
        NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, true);
    return folders.isEmpty() ? NSTemporaryDirectory() : folders.first();
}

/// What is in a folder; nil in nil, which is not the current folder.
QString pathIn(const QString &folder, const QString &name)
{
    return folder.isNull() ? QString() : NSString::stringByAppendingPathComponent(folder, name);
}
} // namespace

QString KTDatabaseBundle::databaseBundleFileType()
{
    return u"cobbledb"_s;
}

QString KTDatabaseBundle::cobbleSupportFolder()
{
    const QString support = userSupportFolder();
    _ensureDirectoryExistsAtPath(support);
    const QString folder =
        NSString::stringByAppendingPathComponent(support, ProgramIdentity::folderName());
    _ensureDirectoryExistsAtPath(folder);
    return folder;
}

QString KTDatabaseBundle::factoryDefaultDatabaseBundleName()
{
    return u"cobble"_s;
}

QString KTDatabaseBundle::pathInSupportFolder(const QString &name)
{
    return NSString::stringByAppendingPathExtension(
        NSString::stringByAppendingPathComponent(cobbleSupportFolder(), name),
        databaseBundleFileType());
}

QString KTDatabaseBundle::chosenBundlePath(const QString &factoryPath)
{
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    defaults->registerDefaults({{KTDefaultDatabaseBundlePath, factoryPath}});
    return defaults->stringForKey(KTDefaultDatabaseBundlePath);
}

bool KTDatabaseBundle::_ensureDirectoryExistsAtPath(const QString &path)
{
    if (NSFileManager::fileExistsAtPath(path))
        return true;
    // Another process may make it in between.
    if (!NSFileManager::createDirectoryAtPath(path, false))
        return NSFileManager::fileExistsAtPath(path);
    flushFolderOf(QFile::encodeName(path));
    return true;
}

KTDatabaseBundle::KTDatabaseBundle(const QString &bundlePath) : _bundlePath(bundlePath) {}

QString KTDatabaseBundle::_contentsFolderPath() const
{
    return pathIn(_bundlePath, u"Contents"_s);
}

QString KTDatabaseBundle::_resourcesFolderPath() const
{
    return pathIn(_contentsFolderPath(), u"Resources"_s);
}

QString KTDatabaseBundle::databaseFilePath() const
{
    return pathIn(_resourcesFolderPath(), u"Database"_s);
}

QString KTDatabaseBundle::mediaFolderPath() const
{
    return pathIn(_resourcesFolderPath(), u"Media"_s);
}

bool KTDatabaseBundle::doesExist() const
{
    bool isFolder = false;
    return NSFileManager::fileExistsAtPath(_bundlePath, &isFolder) && isFolder;
}

bool KTDatabaseBundle::isSelfContained() const
{
    const QStringList folders{_contentsFolderPath(), _resourcesFolderPath(), mediaFolderPath()};
    return std::none_of(folders.begin(), folders.end(), [](const QString &folder) {
        struct stat status = {};
        const int answer = ::lstat(QFile::encodeName(folder).constData(), &status);
        // What cannot be looked at may be one.
        return answer == 0 ? S_ISLNK(status.st_mode) : errno != ENOENT && errno != ENOTDIR;
    });
}

bool KTDatabaseBundle::buildDatabaseBundleOnDisk(const QVariant & /*sender*/) const
{
    return _ensureDirectoryExistsAtPath(_bundlePath) &&
           _ensureDirectoryExistsAtPath(_contentsFolderPath()) &&
           _ensureDirectoryExistsAtPath(_resourcesFolderPath()) &&
           _ensureDirectoryExistsAtPath(mediaFolderPath());
}

bool KTDatabaseBundle::removeDatabaseBundleOnDisk(const QVariant & /*sender*/) const
{
    return !doesExist() || NSFileManager::removeItemAtPath(_bundlePath);
}

QString KTDatabaseBundle::moveDatabaseToPreUpgradePath() const
{
    const auto freePath = [this](const QString &suffix) {
        return KTAdditions::uniqueFilePathForFilePath(
            KTAdditions::stringByAppendingToFilename(_bundlePath, suffix));
    };
    const QString backup = freePath(u"1Backup"_s);
    const bool isMoved = NSFileManager::moveItemAtPath(_bundlePath, backup);
    const QString preUpgrade = freePath(u"_PreUpgrade"_s);
    // What is at the backup's path otherwise is another one.
    if (isMoved && NSFileManager::copyItemAtPath(backup, preUpgrade))
        flushFolderOf(QFile::encodeName(preUpgrade));
    return preUpgrade;
}

QString KTDatabaseBundle::filePathByAddingExtComment(const QString &path,
                                                     const QString &comment) const
{
    return KTMediaNames::pathByAddingExtComment(path, comment);
}

QString KTDatabaseBundle::filePathByRemovingExtComment(const QString &path) const
{
    return KTMediaNames::pathByRemovingExtComment(path);
}

int KTDatabaseBundle::nextInstanceNumberForFilePath(const QString &path) const
{
    return MediaFolder(mediaFolderPath()).nextInstanceNumber(NSString::lastPathComponent(path));
}

QString KTDatabaseBundle::fileNameWithMediaInstanceNumber(const QString &fileName) const
{
    return filePathByAddingExtComment(fileName,
                                      QString::number(nextInstanceNumberForFilePath(fileName)));
}

/// The path of a media file; nil for names that could lead out of the media folder.
QString KTDatabaseBundle::mediaPath(const QString &name) const
{
    return MediaFolder(mediaFolderPath()).pathOf(name);
}

// --- Storing

QString KTDatabaseBundle::copyFilePathToMediaFolderAndReturnMediaPath(const QString &path) const
{
    return MediaFolder(mediaFolderPath()).copyFile(path);
}

QString KTDatabaseBundle::downloadHttpFileToBundleAndReturnPath(const NSURL &url) const
{
    return MediaFolder(mediaFolderPath()).download(url);
}

QString KTDatabaseBundle::saveTIFFImageToMediaFolderAndReturnMediaPath(const QImage &image) const
{
    return MediaFolder(mediaFolderPath()).saveTIFFImage(image);
}

std::optional<NSURL> KTDatabaseBundle::storeFileFromURL(const NSURL &url) const
{
    const QString path = url.isFileURL() ? copyFilePathToMediaFolderAndReturnMediaPath(url.path())
                                         : downloadHttpFileToBundleAndReturnPath(url);
    // The file is there: to ask again might fail, and leave a file that nobody knows.
    return path.isNull() ? std::nullopt : mediaURLNamed(NSString::lastPathComponent(path));
}

// --- Media URLs

bool KTDatabaseBundle::isMediaURL(const NSURL &url) const
{
    return url.scheme() == MediaScheme;
}

std::optional<NSURL> KTDatabaseBundle::mediaUrlFromFilePath(const QString &path) const
{
    const QString name = NSString::lastPathComponent(path);
    return isFileNameInMediaFolder(name) ? mediaURLNamed(name) : std::nullopt;
}

/// The URL of a media file, whether there is one or not.
std::optional<NSURL> KTDatabaseBundle::mediaURLNamed(const QString &name)
{
    return NSURL::URLWithString(MediaScheme + u"://" +
                                NSString::stringByAddingPercentEscapes(name));
}

QString KTDatabaseBundle::filePathFromMediaUrl(const NSURL &url) const
{
    if (!isMediaURL(url))
        return {};
    return mediaPath(NSString::stringByReplacingPercentEscapes(
        NSString::lastPathComponent(url.absoluteString())));
}

bool KTDatabaseBundle::isFileNameInMediaFolder(const QString &fileName) const
{
    return NSFileManager::fileExistsAtPath(mediaPath(fileName));
}

bool KTDatabaseBundle::deleteFileFromMediaFolder(const QString &fileName) const
{
    return NSFileManager::removeItemAtPath(mediaPath(fileName));
}

bool KTDatabaseBundle::isFilenameInBundle(const QString &fileName) const
{
    return isFileNameInMediaFolder(fileName);
}

QString KTDatabaseBundle::filepathFromBundleURL(const NSURL &url) const
{
    return filePathFromMediaUrl(url);
}

bool KTDatabaseBundle::deleteFileFromBundle(const QString &fileName) const
{
    return deleteFileFromMediaFolder(fileName);
}
