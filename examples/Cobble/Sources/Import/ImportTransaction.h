#pragma once

#include "Journal/StepTitle.h"
#include "Library/BundleLock.h"
#include "Library/LibraryStore.h"

#include <QFile>
#include <QSet>

#include <functional>

/// An import into a bundle: all of it, or nothing.
///
/// What is written becomes visible with commit(). Without that, or if the process dies, the
/// database stays as it was. The names of the media files that are stored, and of those that will go
/// with forgotten steps of the journal, are kept in a file beside the database, so that who next stores files
/// removes what one that was interrupted has left, before it was committed or after; see
/// InterruptedImport. Imports wait for each other.
///
/// \code
/// const auto import = *ImportTransaction::begin(bundle);
/// import->create(library);
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

    const KTDatabaseBundle &bundle() const { return _bundle; }
    LibraryStore &store() { return *_store; }
    /// Makes a library, to which records can be added.
    Outcome<> create(const Library &library);
    /// Takes a library out of the catalogue; commit() puts it away for the journal.
    Outcome<> removeLibrary(const Library &library);
    /// Puts a file into the media folder.
    /// \param meanwhile is called again and again while a large file is copied; may be empty.
    /// \return its URL; nothing if that failed.
    std::optional<NSURL> storeMedia(const NSURL &url, const std::function<void()> &meanwhile = {});
    /// Writes the import as a step of the journal. If it cannot be written, nothing is.
    Outcome<> commit();
    /// Its step once it is committed; 0 if there is nothing to undo.
    qint64 step() const { return _step; }
    const StepTitle &stepTitle() const { return _stepTitle; }

private:
    explicit ImportTransaction(const KTDatabaseBundle &bundle);
    Outcome<> prepare(int patience);
    Outcome<> openStore();
    Outcome<> beginList();
    bool addToList(const QString &url);
    void cutList(qint64 size);
    std::optional<NSURL> listAnew(const NSURL &stored, qint64 size);
    Outcome<> addStep();
    bool listMedia(const QSet<QString> &media);
    bool removeStoredMedia() const;
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
    QStringList _storedMedia;
    QList<Library> _removed;
    QList<Library> _created;
    qint64 _step = 0;
    StepTitle _stepTitle;
    /// What the journal no longer needs.
    QSet<QString> _forgottenMedia;
};
