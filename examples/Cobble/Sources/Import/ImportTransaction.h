#pragma once

#include "Library/BundleLock.h"
#include "Library/LibraryStore.h"

#include <QFile>
#include <QSet>

/// An import into a bundle: all of it, or nothing.
///
/// What is written becomes visible with commit(). Without that, or if the process dies, the
/// database stays as it was. The names of the media files that were stored are kept in a file
/// beside the database, so that the next import removes those of one that was interrupted. Imports
/// wait for each other.
///
/// \code
/// const auto import = *ImportTransaction::begin(bundle);
/// import->store().create(library);
/// import->store().insert({"Ada", import->storeMedia(url)->absoluteString()});
/// import->commit();
/// \endcode
class ImportTransaction
{
public:
    /// Makes the bundle if there is none, and the folder for it if that is the application's own.
    /// \param patience how long to wait for another import, in milliseconds.
    static Outcome<std::unique_ptr<ImportTransaction>> begin(const KTDatabaseBundle &bundle,
                                                             int patience = 5000);
    /// Takes everything back unless it was committed.
    ~ImportTransaction();
    ImportTransaction(const ImportTransaction &) = delete;
    ImportTransaction &operator=(const ImportTransaction &) = delete;

    LibraryStore &store() { return *_store; }
    /// Removes a library; its media files are deleted after commit(), unless others have them, too.
    Outcome<> removeLibrary(const Library &library);
    /// Puts a file into the media folder.
    /// \return its URL; nothing if that failed.
    std::optional<NSURL> storeMedia(const NSURL &url);
    /// If it cannot be written, nothing is.
    Outcome<> commit();

private:
    explicit ImportTransaction(const KTDatabaseBundle &bundle);
    Outcome<> prepare(int patience);
    Outcome<> openStore();
    QString mediaListPath() const;
    Outcome<> beginList();
    bool addToList(const QString &url);
    bool removeMediaInList(bool evenIfUsed);
    Outcome<> removeMediaBefore();
    void takeBack();
    void removeDatabase() const;
    void removeEmptyBundle() const;

    KTDatabaseBundle _bundle;
    BundleLock _lock;
    bool _isNewBundle = false;
    bool _isNewDatabase = false;
    bool _isDone = false;
    bool _isListing = false;
    std::unique_ptr<LibraryStore> _store;
    QFile _mediaList;
    QSet<QString> _mediaOfRemovedLibraries;
};
