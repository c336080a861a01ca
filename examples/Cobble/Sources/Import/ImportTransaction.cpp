#include "ImportTransaction.h"

#include "Library/BundleCheck.h"
#include "Library/BundleOption.h"
#include "UnusedMedia.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include <QDir>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {
using FileType = std::filesystem::file_type;

/// What is at a path, not following links: FileType::none if the system does not say, which is not
/// the same as FileType::not_found.
FileType typeOf(const QString &path)
{
    std::error_code error;
    return std::filesystem::symlink_status(QFile::encodeName(path).toStdString(), error).type();
}

/// Whether what will be at a path was made by this import, which removes it again then.
bool isFree(const QString &path)
{
    return typeOf(path) == FileType::not_found;
}
} // namespace

Outcome<std::unique_ptr<ImportTransaction>> ImportTransaction::begin(const KTDatabaseBundle &bundle,
                                                                     int patience)
{
    std::unique_ptr<ImportTransaction> transaction(new ImportTransaction(bundle));
    const Outcome<> prepared = transaction->prepare(patience);
    if (!prepared)
        return prepared.failure();
    return transaction;
}

ImportTransaction::ImportTransaction(const KTDatabaseBundle &bundle)
    : _bundle(bundle), _lock(bundle), _mediaList(mediaListPath())
{
}

ImportTransaction::~ImportTransaction()
{
    if (!_isDone)
        takeBack();
}

QString ImportTransaction::mediaListPath() const
{
    return NSString::stringByAppendingPathComponent(_bundle._resourcesFolderPath(),
                                                    u"ImportedMedia"_s);
}

Outcome<> ImportTransaction::prepare(int patience)
{
    BundleOption::needFolderOf(_bundle);
    const Outcome<> locked = _lock.lock(patience);
    if (!locked)
        return locked;
    if (const Outcome<> checked = BundleCheck::folders(_bundle); !checked)
        return checked;
    _isNewBundle = isFree(_bundle.bundlePath());
    _isNewDatabase = isFree(_bundle.databaseFilePath());
    if (!_bundle.buildDatabaseBundleOnDisk())
        return Failure{u"the database bundle cannot be made"_s};
    return openStore()
        .andThen([this] { return _store->begin(); })
        .andThen([this] { return removeMediaBefore(); })
        .andThen([this] { return beginList(); });
}

Outcome<> ImportTransaction::openStore()
{
    auto store = LibraryStore::open(_bundle, LibraryStore::Mode::Create);
    if (!store)
        return store.failure();
    _store = std::move(*store);
    return {};
}

/// Removes the media files of an import that was killed.
Outcome<> ImportTransaction::removeMediaBefore()
{
    // A bundle from elsewhere may bring a list, and a link to a folder of the user's.
    const FileType folder = typeOf(_bundle.mediaFolderPath());
    if (folder == FileType::directory ? removeMediaInList(false) : folder != FileType::none)
        return {};
    return Failure{u"the files of an import that was interrupted cannot be removed"_s};
}

/// Makes the list anew: a link in its place must not lead to another file.
Outcome<> ImportTransaction::beginList()
{
    _mediaList.remove();
    _isListing = _mediaList.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
    return _isListing ? Outcome<>() : Failure{_mediaList.errorString()};
}

std::optional<NSURL> ImportTransaction::storeMedia(const NSURL &url)
{
    if (_bundle.isMediaURL(url)) {
        const QString path = _bundle.filePathFromMediaUrl(url);
        return NSFileManager::fileExistsAtPath(path) ? std::optional(url) : std::nullopt;
    }
    const std::optional<NSURL> stored = _bundle.storeFileFromURL(url);
    if (!stored || addToList(stored->absoluteString()))
        return stored;
    // What is not in the list could not be taken back.
    UnusedMedia::removeFile(_bundle, stored->absoluteString());
    return std::nullopt;
}

/// \return false if the disk is full; then the list is as it was.
bool ImportTransaction::addToList(const QString &url)
{
    const QByteArray line = url.toLatin1() + '\n';
    const qint64 size = _mediaList.size();
    if (_mediaList.write(line) == line.size())
        return true;
    _mediaList.resize(size);
    _mediaList.seek(size);
    return false;
}

Outcome<> ImportTransaction::commit()
{
    Outcome<> committed = _store->commit();
    _isDone = bool(committed);
    if (!_isDone)
        return committed;
    const QSet<QString> left = UnusedMedia::remove(_bundle, *_store, _mediaOfRemovedLibraries);
    for (const QString &url : left)
        addToList(url);
    // A list that stays is for the next import; what is in use stays then.
    if (left.isEmpty())
        _mediaList.remove();
    return {};
}

Outcome<> ImportTransaction::removeLibrary(const Library &library)
{
    _mediaOfRemovedLibraries += _store->mediaOf(library).valueOr({});
    return _store->remove(library);
}

/// Removes the media files of an import that came to nothing.
/// \param evenIfUsed whether records may still refer to them, as they never will be written.
/// \return false if some are still there, or may be.
bool ImportTransaction::removeMediaInList(bool evenIfUsed)
{
    QFile list(mediaListPath());
    const FileType type = typeOf(mediaListPath());
    if (type != FileType::regular)
        return type != FileType::none;
    const Outcome<QSet<QString>> used = evenIfUsed ? QSet<QString>() : _store->usedMedia();
    if (!used || !list.open(QIODevice::ReadOnly))
        return false;
    bool areGone = true;
    // A last line that was cut off would name another file.
    for (QByteArray line = list.readLine(); line.endsWith('\n'); line = list.readLine()) {
        const QString text = QString::fromLatin1(line.chopped(1));
        areGone = (used->contains(text) || UnusedMedia::removeFile(_bundle, text)) && areGone;
    }
    return areGone && list.error() == QFileDevice::NoError;
}

void ImportTransaction::takeBack()
{
    // First, while the database keeps others from making a list of their own.
    if (_isListing && removeMediaInList(true))
        _mediaList.remove();
    if (_store)
        _store->rollback();
    _store.reset();
    if (!_lock.isLocked())
        return;
    if (_isNewDatabase)
        removeDatabase();
    if (_isNewBundle)
        removeEmptyBundle();
}

/// With what SQLite leaves where it cannot take a change back.
void ImportTransaction::removeDatabase() const
{
    for (const char16_t *suffix : {u"", u"-journal"})
        NSFileManager::removeItemAtPath(_bundle.databaseFilePath() + QString::fromUtf16(suffix));
}

/// Removes the folders that were made, except those that hold what another process has put there.
void ImportTransaction::removeEmptyBundle() const
{
    for (const QString &folder : {_bundle.mediaFolderPath(), _bundle._resourcesFolderPath(),
                                  _bundle._contentsFolderPath(), _bundle.bundlePath()})
        QDir().rmdir(folder);
}
