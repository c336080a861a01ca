#include "UnusedMedia.h"

#include "Library/LibraryStore.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QFile>
#include <QRegularExpression>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {
/// The path of the file of a media URL; nil for other texts.
QString pathOf(const KTDatabaseBundle &bundle, const QString &url)
{
    const std::optional<NSURL> media = NSURL::URLWithString(url);
    return media ? bundle.filePathFromMediaUrl(*media) : QString();
}

QSet<QString> pathsOf(const KTDatabaseBundle &bundle, const QSet<QString> &urls)
{
    QSet<QString> paths;
    for (const QString &url : urls)
        paths += pathOf(bundle, url);
    return paths;
}

std::filesystem::directory_iterator entriesOf(const QString &folder, std::error_code &error)
{
    const std::filesystem::path path(QFile::encodeName(folder).toStdString());
    std::filesystem::directory_iterator entries(path, error);
    while (error == std::errc::interrupted)
        entries = std::filesystem::directory_iterator(path, error);
    return entries;
}
} // namespace

bool UnusedMedia::removeFile(const KTDatabaseBundle &bundle, const QString &url)
{
    const QString path = pathOf(bundle, url);
    if (path.isNull())
        return true;
    // The file would be one of another folder, which is not the bundle's to delete.
    if (!bundle.isSelfContained())
        return false;
    const QString name = NSString::lastPathComponent(path);
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
    const QSet<QString> usedPaths = pathsOf(bundle, *used);
    QSet<QString> left;
    for (const QString &url : urls) {
        if (!usedPaths.contains(pathOf(bundle, url)) && !removeFile(bundle, url))
            left += url;
    }
    return left;
}

bool UnusedMedia::isUnfinished(const QString &fileName)
{
    static const QRegularExpression form(uR"(\A\.cobble-[0-9a-f]+\z)"_s);
    return form.match(fileName).hasMatch();
}

bool UnusedMedia::removeUnfinished(const KTDatabaseBundle &bundle)
{
    if (!bundle.isSelfContained())
        return false;
    std::error_code error;
    auto entries = entriesOf(bundle.mediaFolderPath(), error);
    bool areGone = true;
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        const QString path = QFile::decodeName(entries->path().c_str());
        if (isUnfinished(NSString::lastPathComponent(path)))
            areGone = NSFileManager::removeItemAtPath(path) && areGone;
    }
    return areGone && !error;
}
