#include "InterruptedImport.h"

#include "Library/LibraryStore.h"
#include "Text/Reasons.h"
#include "UnusedMedia.h"

#include <KTUtility/NSPathUtilities>

#include <QFile>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {
using EntryType = std::filesystem::file_type;

/// What is at a path, not following links: EntryType::none if the system does not say.
EntryType entryTypeAt(const QString &path)
{
    std::error_code error;
    return std::filesystem::symlink_status(QFile::encodeName(path).toStdString(), error).type();
}

Failure cannotRemove()
{
    return {Reasons::tr("the files of an import that was interrupted cannot be removed")};
}

/// Removes the media files in the list, except those in use.
/// \return false if some are still there, or may be.
bool removeMediaInList(const KTDatabaseBundle &bundle, LibraryStore &store)
{
    QFile list(InterruptedImport::mediaListPath(bundle));
    const EntryType type = entryTypeAt(list.fileName());
    if (type != EntryType::regular)
        return type != EntryType::none;
    if (!list.open(QIODevice::ReadOnly))
        return false;
    QSet<QString> urls;
    // A last line that was cut off would name another file.
    for (QByteArray line = list.readLine(); line.endsWith('\n'); line = list.readLine())
        urls += QString::fromLatin1(line.chopped(1));
    return list.error() == QFileDevice::NoError &&
           UnusedMedia::remove(bundle, store, urls).isEmpty();
}

/// Only what is a file is a list.
Outcome<> removeList(const KTDatabaseBundle &bundle)
{
    const QString path = InterruptedImport::mediaListPath(bundle);
    QFile::remove(path);
    return entryTypeAt(path) == EntryType::regular ? cannotRemove() : Outcome<>();
}
} // namespace

QString InterruptedImport::mediaListPath(const KTDatabaseBundle &bundle)
{
    return NSString::stringByAppendingPathComponent(bundle._resourcesFolderPath(),
                                                    u"ImportedMedia"_s);
}

Outcome<> InterruptedImport::removeMedia(const KTDatabaseBundle &bundle, LibraryStore &store,
                                         bool isLocked)
{
    // A bundle from elsewhere may bring a list, and a link to a folder of the user's.
    const EntryType folder = entryTypeAt(bundle.mediaFolderPath());
    const bool areGone = folder == EntryType::directory
                             ? removeMediaInList(bundle, store) &&
                                   (!isLocked || UnusedMedia::removeUnfinished(bundle))
                             : folder != EntryType::none;
    return areGone ? Outcome<>() : cannotRemove();
}

Outcome<> InterruptedImport::settle(const KTDatabaseBundle &bundle, bool isLocked)
{
    if (entryTypeAt(mediaListPath(bundle)) == EntryType::not_found)
        return {};
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Create);
    if (!store)
        return store.failure();
    const Outcome<> settled = (*store)
                                  ->beginChange()
                                  .andThen([&] { return removeMedia(bundle, **store, isLocked); })
                                  .andThen([&] { return removeList(bundle); });
    (*store)->rollback();
    return settled;
}
