#include "MediaFolder_p.h"

#include "KTInstanceNumbers_p.h"
#include "KTMediaDownload_p.h"
#include "KTMediaNames_p.h"
#include "KTStagedFile_p.h"
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QBuffer>
#include <QImage>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Permissions that a copy gets if it cannot be read: the number 775 in decimal, deliberately.
constexpr unsigned UnreadableCopyPermissions = 775;

/// Logs as the bundle does. The lines are fixed: they are part of what is logged.
template<typename... Arguments>
void logStoring(int line, QStringView format, const Arguments &...arguments)
{
    KTLogger *const logger = KTLogger::sharedLogger();
    if (logger->shouldLogComponent(kLog_MediaFilenames, 4))
        logger->logComponent(kLog_MediaFilenames, 4, "KTDatabaseBundle", line, format,
                             arguments...);
}

/// A text as the name of a file; a translation may have "1/2" in it.
QString asFileName(QString text)
{
    return text.replace(u'/', u'-').remove(QChar(u'\0'));
}

/// The picture as the bytes of a TIFF file; nothing if it is empty.
QByteArray TIFFRepresentation(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.save(&buffer, "TIFF") ? bytes : QByteArray();
}
} // namespace

MediaFolder::MediaFolder(const QString &path) : _path(path) {}

QString MediaFolder::pathOf(const QString &name) const
{
    if (_path.isNull() || !KTMediaNames::isFileName(name))
        return {};
    return NSString::stringByAppendingPathComponent(_path, name);
}

int MediaFolder::nextInstanceNumber(const QString &name) const
{
    const QString path = pathOf(name);
    return path.isNull() ? 0 : KTInstanceNumbers(path).next();
}

QString MediaFolder::numberedPath(const QString &name) const
{
    const QString number = QString::number(nextInstanceNumber(name));
    return pathOf(KTMediaNames::pathByAddingExtComment(name, number));
}

/// Fills a file in the folder and gives it a name with a number.
QString MediaFolder::store(const QString &name,
                           const std::function<bool(KTStagedFile &)> &fill) const
{
    if (pathOf(name).isNull())
        return {};
    return store([&] { return numberedPath(name); }, fill);
}

/// \param target gives the path: at first before the file is filled, and again if it is taken when
/// the file is there.
QString MediaFolder::store(const std::function<QString()> &target,
                           const std::function<bool(KTStagedFile &)> &fill) const
{
    const QString path = target();
    // The last step would find that out, after all bytes were copied.
    if (path.isNull() || KTMediaNames::isTooLong(path))
        return {};
    KTStagedFile file(_path);
    return fill(file) ? file.place(path, target) : QString();
}

QString MediaFolder::copyFile(const QString &source) const
{
    const QString copy = store(NSString::lastPathComponent(source),
                               [&source](KTStagedFile &file) { return file.copy(source); });
    if (!copy.isNull() && !NSFileManager::isReadableFileAtPath(copy))
        NSFileManager::setPosixPermissions(copy, UnreadableCopyPermissions);
    return copy;
}

QString MediaFolder::download(const NSURL &url) const
{
    const QString name = NSString::lastPathComponent(url.path());
    if (!KTMediaDownload::isAllowed(url) || !KTMediaNames::isFileName(name))
        return {};
    const std::optional<QByteArray> data = KTMediaDownload::dataFrom(url);
    if (!data) {
        logStoring(203, u"Download of file %@ failed.", url.absoluteString());
        return {};
    }
    QString target;
    const auto nextTarget = [&] {
        const QString before = std::exchange(target, numberedPath(name));
        if (target != before)
            logStoring(210, u"Writing file to %@", target);
        return target;
    };
    const QString path =
        store(nextTarget, [&data](KTStagedFile &file) { return file.write(*data); });
    if (path.isNull())
        logStoring(215, u"Writing file to %@ failed.", target);
    return path;
}

QString MediaFolder::saveTIFFImage(const QImage &image) const
{
    const QByteArray bytes = TIFFRepresentation(image);
    if (bytes.isEmpty())
        return {};
    const QString base = NSBundle::mainBundle().localizedStringForKey(u"iSight Picture"_s);
    const QString name = NSString::stringByAppendingPathExtension(asFileName(base), u"tiff"_s);
    return store(name, [&bytes](KTStagedFile &file) { return file.write(bytes); });
}
