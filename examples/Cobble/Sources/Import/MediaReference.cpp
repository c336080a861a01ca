#include "MediaReference.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
bool isMediaExtension(const QString &extension)
{
    static const QStringList extensions = {u"bmp"_s, u"gif"_s,  u"heic"_s, u"jpeg"_s, u"jpg"_s,
                                           u"m4a"_s, u"mov"_s,  u"mp3"_s,  u"mp4"_s,  u"odt"_s,
                                           u"ogg"_s, u"pdf"_s,  u"png"_s,  u"rtf"_s,  u"svg"_s,
                                           u"tif"_s, u"tiff"_s, u"wav"_s,  u"webp"_s, u"zip"_s};
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
    const bool isOtherURL = url && trimmed.contains(u"://"_s);
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
