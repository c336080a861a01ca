#include "UnusedMedia.h"

#include "LibraryStore.h"

#include <KTUtility/Platform/Foundation/NSPathUtilities.h>

void UnusedMedia::removeFile(const KTDatabaseBundle &bundle, const QString &url)
{
    const std::optional<NSURL> media = NSURL::URLWithString(url);
    if (media && bundle.isMediaURL(*media))
        bundle.deleteFileFromMediaFolder(
            NSString::lastPathComponent(bundle.filePathFromMediaUrl(*media)));
}

void UnusedMedia::remove(const KTDatabaseBundle &bundle, LibraryStore &store,
                         const QSet<QString> &urls)
{
    if (urls.isEmpty())
        return;
    const QSet<QString> used = store.usedMedia().value_or(urls);
    for (const QString &url : urls) {
        if (!used.contains(url))
            removeFile(bundle, url);
    }
}
