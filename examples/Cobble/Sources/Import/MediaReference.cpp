#include "MediaReference.h"

#include <KTUtility/NSPathUtilities>

using namespace Qt::StringLiterals;

namespace {
bool isKnownScheme(const NSURL &url)
{
    return url.isFileURL() || url.scheme() == u"http" || url.scheme() == u"cobblemedia";
}

QString absolutePath(const QString &text, const QString &folder)
{
    const QString path = NSString::stringByExpandingTildeInPath(text);
    return path.startsWith(u'/') ? path : NSString::stringByAppendingPathComponent(folder, path);
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
