#include "UnusedMedia.h"

#include "Library/LibraryStore.h"

#include <KTUtility/NSPathUtilities>

bool UnusedMedia::removeFile(const KTDatabaseBundle &bundle, const QString &url)
{
    const std::optional<NSURL> media = NSURL::URLWithString(url);
    if (!media || !bundle.isMediaURL(*media))
        return true;
    // The file would be one of another folder, which is not the bundle's to delete.
    if (!bundle.isSelfContained())
        return false;
    const QString name = NSString::lastPathComponent(bundle.filePathFromMediaUrl(*media));
    return bundle.deleteFileFromMediaFolder(name) || !bundle.isFileNameInMediaFolder(name);
}

QSet<QString> UnusedMedia::remove(const KTDatabaseBundle &bundle, LibraryStore &store,
                                  const QSet<QString> &urls)
{
    if (urls.isEmpty())
        return {};
    const Outcome<QSet<QString>> used = store.usedMedia();
    if (!used)
        return urls;
    QSet<QString> left;
    for (const QString &url : urls) {
        if (!used->contains(url) && !removeFile(bundle, url))
            left += url;
    }
    return left;
}
