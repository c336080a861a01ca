#include "MediaReference.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QStringList>

namespace {
bool isMediaExtension(const QString &extension)
{
    static const QStringList extensions = {
        QStringLiteral("bmp"),  QStringLiteral("gif"),  QStringLiteral("heic"),
        QStringLiteral("jpeg"), QStringLiteral("jpg"),  QStringLiteral("m4a"),
        QStringLiteral("mov"),  QStringLiteral("mp3"),  QStringLiteral("mp4"),
        QStringLiteral("odt"),  QStringLiteral("ogg"),  QStringLiteral("pdf"),
        QStringLiteral("png"),  QStringLiteral("rtf"),  QStringLiteral("svg"),
        QStringLiteral("tif"),  QStringLiteral("tiff"), QStringLiteral("wav"),
        QStringLiteral("webp"), QStringLiteral("zip")};
    return extensions.contains(extension, Qt::CaseInsensitive);
}

bool isKnownScheme(const NSURL &url)
{
    return url.isFileURL() || url.scheme() == u"http" || url.scheme() == u"cobblemedia";
}

QString absolutePath(const QString &text, const QString &folder)
{
    const QString path = NSString::stringByExpandingTildeInPath(text);
    return path.startsWith(u'/') ? path : NSString::stringByAppendingPathComponent(folder, path);
}

bool isFile(const QString &path)
{
    bool isFolder = false;
    return NSFileManager::fileExistsAtPath(path, &isFolder) && !isFolder;
}
} // namespace

std::optional<NSURL> MediaReference::urlIn(const QString &text, const QString &folder)
{
    const QString trimmed = text.trimmed();
    const std::optional<NSURL> url = NSURL::URLWithString(trimmed);
    if (url && isKnownScheme(*url))
        return url;
    const bool isOtherURL = url && trimmed.contains(QStringLiteral("://"));
    return isOtherURL ? std::nullopt : NSURL::fileURLWithPath(absolutePath(trimmed, folder));
}

bool MediaReference::isObvious(const QString &text, const QString &folder)
{
    const std::optional<NSURL> url = urlIn(text, folder);
    if (!url)
        return false;
    if (url->scheme() == u"http")
        return isMediaExtension(NSString::pathExtension(url->path()));
    return text.trimmed().contains(u"://") || isFile(url->path());
}
