#include "ImportTransaction.h"

#include "BundleOption.h"
#include "UnusedMedia.h"

#include <KTUtility/Platform/Foundation/NSFileManager.h>
#include <KTUtility/Platform/Foundation/NSPathUtilities.h>

#include <QDir>
#include <QFileInfo>

std::unique_ptr<ImportTransaction> ImportTransaction::begin(const KTDatabaseBundle &bundle,
                                                            QString *error, int patience)
{
    std::unique_ptr<ImportTransaction> transaction(new ImportTransaction(bundle));
    return transaction->prepare(error, patience) ? std::move(transaction) : nullptr;
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
                                                    QStringLiteral("ImportedMedia"));
}

bool ImportTransaction::prepare(QString *error, int patience)
{
    BundleOption::needFolderOf(_bundle);
    if (!_lock.lock(patience, error))
        return false;
    _isNewBundle = !NSFileManager::fileExistsAtPath(_bundle.bundlePath());
    _isNewDatabase = !NSFileManager::fileExistsAtPath(_bundle.databaseFilePath());
    if (!_bundle.buildDatabaseBundleOnDisk()) {
        *error = QStringLiteral("the database bundle cannot be made");
        return false;
    }
    _store = LibraryStore::open(_bundle, LibraryStore::Mode::Create, error);
    if (!_store)
        return false;
    if (!_store->begin()) {
        *error = _store->errorText();
        return false;
    }
    // A bundle from elsewhere may bring a list, and a link to a folder of the user's.
    if (!QFileInfo(_bundle.mediaFolderPath()).isSymLink())
        removeMediaInList(false);
    return beginList(error);
}

/// Makes the list anew: a link in its place must not lead to another file.
bool ImportTransaction::beginList(QString *error)
{
    _mediaList.remove();
    _isListing = _mediaList.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
    if (!_isListing)
        *error = _mediaList.errorString();
    return _isListing;
}

std::optional<NSURL> ImportTransaction::storeMedia(const NSURL &url)
{
    if (_bundle.isMediaURL(url)) {
        const QString path = _bundle.filePathFromMediaUrl(url);
        return NSFileManager::fileExistsAtPath(path) ? std::optional(url) : std::nullopt;
    }
    const std::optional<NSURL> stored = _bundle.storeFileFromURL(url);
    if (!stored || addToList(*stored))
        return stored;
    // What is not in the list could not be taken back.
    UnusedMedia::removeFile(_bundle, stored->absoluteString());
    return std::nullopt;
}

/// \return false if the disk is full; then the list is as it was.
bool ImportTransaction::addToList(const NSURL &url)
{
    const QByteArray line = url.absoluteString().toLatin1() + '\n';
    const qint64 size = _mediaList.size();
    if (_mediaList.write(line) == line.size())
        return true;
    _mediaList.resize(size);
    _mediaList.seek(size);
    return false;
}

bool ImportTransaction::commit()
{
    _isDone = _store->commit();
    if (_isDone) {
        _mediaList.remove();
        UnusedMedia::remove(_bundle, *_store, _mediaOfRemovedLibraries);
    }
    return _isDone;
}

bool ImportTransaction::removeLibrary(const Library &library)
{
    _mediaOfRemovedLibraries += _store->mediaOf(library).value_or(QSet<QString>());
    return _store->remove(library);
}

/// Removes the media files of an import that came to nothing.
/// \param evenIfUsed whether records may still refer to them, as they never will be written.
void ImportTransaction::removeMediaInList(bool evenIfUsed)
{
    QFile list(mediaListPath());
    if (!QFileInfo(list).isFile() || !list.open(QIODevice::ReadOnly))
        return;
    const std::optional<QSet<QString>> used =
        evenIfUsed ? std::optional(QSet<QString>()) : _store->usedMedia();
    // A last line that was cut off would name another file.
    for (QByteArray line = list.readLine(); line.endsWith('\n'); line = list.readLine()) {
        const QString text = QString::fromLatin1(line.chopped(1));
        if (used && !used->contains(text))
            UnusedMedia::removeFile(_bundle, text);
    }
}

void ImportTransaction::takeBack()
{
    // First, while the database keeps others from making a list of their own.
    if (_isListing) {
        removeMediaInList(true);
        _mediaList.remove();
    }
    if (_store)
        _store->rollback();
    _store.reset();
    if (!_lock.isLocked())
        return;
    if (_isNewDatabase)
        NSFileManager::removeItemAtPath(_bundle.databaseFilePath());
    if (_isNewBundle)
        removeEmptyBundle();
}

/// Removes the folders that were made, except those that hold what another process has put there.
void ImportTransaction::removeEmptyBundle() const
{
    for (const QString &folder : {_bundle.mediaFolderPath(), _bundle._resourcesFolderPath(),
                                  _bundle._contentsFolderPath(), _bundle.bundlePath()})
        QDir().rmdir(folder);
}
