#pragma once

#include "Journal/ChangeJournal.h"
#include "Library/LibraryStore.h"

#include <QHash>
#include <QObject>

#include <functional>

class OpenLibrary;

/// The database bundle that the windows of the application show.
///
/// \code
/// OpenBundle bundle(KTDatabaseBundle::defaultDatabaseBundle());
/// for (const Library &library : bundle.libraries())
///     list->addItem(library.name);
/// \endcode
class OpenBundle : public QObject
{
    Q_OBJECT

public:
    explicit OpenBundle(const KTDatabaseBundle &bundle);
    ~OpenBundle() override;

    const KTDatabaseBundle &bundle() const { return _bundle; }
    /// The database; null if there is none yet, or it cannot be opened.
    LibraryStore *store() const { return _store.get(); }
    /// Why the database cannot be opened; nil if it can be, or if there is none yet.
    const QString &errorText() const { return _errorText; }

    const QList<Library> &libraries() const { return _libraries; }
    /// A library with its records, the same one for all that ask while it is open.
    Outcome<std::shared_ptr<OpenLibrary>> open(const QString &name);
    /// Looks at the database again, after an import: libraries are opened anew.
    void reload();

    /// Makes the bundle and its database if there are none yet.
    Outcome<> needStore();
    /// Puts a file into the bundle for a change that makes a record name it.
    /// \param use makes the change; if that fails, the file goes again.
    Outcome<> storeFile(const QString &path,
                        const std::function<Outcome<>(const QString &url)> &use);
    /// Whether an import or an export is on its way. Only one can be.
    bool isBusy() const { return _isBusy; }
    /// What another program has changed meanwhile is read when it is over.
    void setBusy(bool isBusy);
    /// Makes changes as a step of the journal, all of them or none. If another program has written
    /// meanwhile, that is why it fails, and the libraries are read again in the next iteration of
    /// the event loop.
    /// \param changes fails for a change that the store has rejected. What it changes in the
    /// database, it has to change in the open libraries, too.
    Outcome<> change(const StepTitle &title,
                     const std::function<Outcome<>(StepRecorder &)> &changes);
    /// The same for what is not undone, such as a saved filter.
    Outcome<> changeWithoutStep(const std::function<Outcome<>(LibraryStore &)> &changes);
    /// Undoes or redoes a step; the open libraries follow.
    /// \return what has changed.
    Outcome<StepEffect> play(qint64 step, StepPlayer::Direction direction);
    /// Whether a change could be made now.
    Outcome<> checkChange();
    /// Whether a library is what open() would give.
    bool isCurrent(const std::shared_ptr<OpenLibrary> &library) const;
    /// The last step that is done, whoever has made it; nothing if there is none.
    std::optional<ChangeJournal::Step> lastStep() const;
    /// Has something read from the store, without waiting long for somebody who writes. If another
    /// program has written since the database was read, that is read again in the next iteration of
    /// the event loop.
    void read(const std::function<void(LibraryStore &store)> &reading);

Q_SIGNALS:
    void librariesChanged();
    /// change() has made a step.
    void stepMade(qint64 step, const StepTitle &title);
    /// One was saved, renamed or removed.
    void smartLibrariesChanged();

private:
    Outcome<Library> libraryNamed(const QString &name);
    void openStore();
    void readLibraries();
    Outcome<> mayWrite() const;
    Outcome<> checkFile(const QString &path) const;
    Outcome<> beginChange();
    Outcome<> transaction(const std::function<Outcome<>(ChangeJournal &)> &changes);
    void follow(const StepEffect &effect);
    Outcome<> refresh(const StepEffect &effect);
    void reloadLater();
    void reloadIfFree();

    KTDatabaseBundle _bundle;
    std::unique_ptr<LibraryStore> _store;
    QString _errorText;
    QList<Library> _libraries;
    QHash<QString, std::weak_ptr<OpenLibrary>> _open;
    bool _isBusy = false;
    bool _willReload = false;
    /// The store's, before all was read last. What follows changes of this program alone leaves it, so
    /// that those of others are noticed.
    qint64 _dataVersion = 0;
};
