#include "KTDatabaseBundle.h"

#include "KTMediaDownload_p.h"
#include "KTMediaNames_p.h"
#include "KTStagedFile_p.h"
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QBuffer>
#include <QImage>

using namespace Qt::StringLiterals;

// How files come into the media folder.

namespace {
/// Permissions that a copy gets if it cannot be read: the number 775 in decimal, deliberately.
constexpr unsigned UnreadableCopyPermissions = 775;

template<typename... Arguments>
void logStoring(int line, QStringView format, const Arguments &...arguments)
{
    KTLogger *const logger = KTLogger::sharedLogger();
    if (logger->shouldLogComponent(kLog_MediaFilenames, 4))
        logger->logComponent(kLog_MediaFilenames, 4, "KTDatabaseBundle", line, format,
                             arguments...);
}

/// The picture as the bytes of a TIFF file; nothing if it is empty.
QByteArray TIFFRepresentation(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.save(&buffer, "TIFF") ? bytes : QByteArray();
}
} // namespace

QString KTDatabaseBundle::numberedMediaPath(const QString &name) const
{
    return mediaPath(fileNameWithMediaInstanceNumber(name));
}

/// Fills a file in the media folder and gives it a name with a number.
QString KTDatabaseBundle::placeInMediaFolder(const QString &name,
                                             const std::function<bool(KTStagedFile &)> &fill) const
{
    if (mediaPath(name).isNull())
        return {};
    const auto target = [&] { return numberedMediaPath(name); };
    KTStagedFile file(mediaFolderPath());
    return fill(file) ? file.place(target(), target) : QString();
}

QString KTDatabaseBundle::copyFilePathToMediaFolderAndReturnMediaPath(const QString &path) const
{
    const QString copy = placeInMediaFolder(
        NSString::lastPathComponent(path), [&path](KTStagedFile &file) { return file.copy(path); });
    if (!copy.isNull() && !NSFileManager::isReadableFileAtPath(copy))
        NSFileManager::setPosixPermissions(copy, UnreadableCopyPermissions);
    return copy;
}

QString KTDatabaseBundle::downloadHttpFileToBundleAndReturnPath(const NSURL &url) const
{
    const QString name = NSString::lastPathComponent(url.path());
    if (!KTMediaDownload::isAllowed(url) || !KTMediaNames::isFileName(name))
        return {};
    const std::optional<QByteArray> data = KTMediaDownload::dataFrom(url);
    if (!data) {
        logStoring(203, u"Download of file %@ failed.", url.absoluteString());
        return {};
    }
    const QString target = numberedMediaPath(name);
    logStoring(210, u"Writing file to %@", target);
    const QString path =
        placeInMediaFolder(name, [&data](KTStagedFile &file) { return file.write(*data); });
    if (path.isNull())
        logStoring(215, u"Writing file to %@ failed.", target);
    return path;
}

QString KTDatabaseBundle::saveTIFFImageToMediaFolderAndReturnMediaPath(const QImage &image) const
{
    const QByteArray bytes = TIFFRepresentation(image);
    if (bytes.isEmpty())
        return {};
    const QString base = NSBundle::mainBundle().localizedStringForKey(u"iSight Picture"_s);
    const QString name = NSString::stringByAppendingPathExtension(base, u"tiff"_s);
    return placeInMediaFolder(name, [&bytes](KTStagedFile &file) { return file.write(bytes); });
}

std::optional<NSURL> KTDatabaseBundle::storeFileFromURL(const NSURL &url) const
{
    const QString path = url.isFileURL() ? copyFilePathToMediaFolderAndReturnMediaPath(url.path())
                                         : downloadHttpFileToBundleAndReturnPath(url);
    // The file is there: to ask again might fail, and leave a file that nobody knows.
    return path.isNull() ? std::nullopt : mediaURLNamed(NSString::lastPathComponent(path));
}
