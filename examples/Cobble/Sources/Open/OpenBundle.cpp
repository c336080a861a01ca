#include "OpenBundle.h"

#include "Import/ImportTransaction.h"
#include "Import/InterruptedImport.h"
#include "Import/MediaSources.h"
#include "Import/UnusedMedia.h"
#include "Library/BundleLock.h"
#include "OpenLibrary.h"

#include <KTUtility/NSApplication>
#include <KTUtility/NSFileManager>

#include <QFileInfo>
#include <QScopeGuard>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// How long windows stand still for another program that writes, in milliseconds.
constexpr int PatienceWithStore = 500;
/// The same for records that are about to be painted.
constexpr int PatienceOfPainting = 20;

/// The version of a store that windows are to read.
qint64 versionOf(LibraryStore *store)
{
    if (!store)
        return 0;
    store->setPatience(PatienceWithStore);
    return store->dataVersion();
}
} // namespace

OpenBundle::OpenBundle(const KTDatabaseBundle &bundle) : _bundle(bundle)
{
    reload();
}

OpenBundle::~OpenBundle() = default;

void OpenBundle::reload()
{
    _willReload = false;
    _open.clear();
    _libraries.clear();
    _errorText = QString();
    // Anew: what was opened for reading may meanwhile need a change taken back.
    _store.reset();
    openStore();
    // Before anything is read: what is committed meanwhile counts as not read.
    _dataVersion = versionOf(_store.get());
    if (_store)
        readLibraries();
    Q_EMIT librariesChanged();
}

/// Opens the database if there is one.
void OpenBundle::openStore()
{
    const QFileInfo bundlePath(_bundle.bundlePath());
    if (bundlePath.exists() && !bundlePath.isDir()) {
        _errorText = tr("%1 is no folder").arg(_bundle.bundlePath());
    } else if (NSFileManager::fileExistsAtPath(_bundle.databaseFilePath())) {
        auto store = LibraryStore::open(_bundle, LibraryStore::Mode::Existing);
        _errorText = store.reason();
        _store = std::move(store).valueOr(nullptr);
    }
}

Outcome<> OpenBundle::needStore()
{
    if (_store)
        return {};
    if (!_errorText.isNull())
        return Failure{_errorText};
    auto made = ImportTransaction::begin(_bundle, PatienceWithStore);
    const Outcome<> committed = made ? (*made)->commit() : made.failure();
    if (committed) {
        made->reset();
        reload();
    }
    return committed;
}

void OpenBundle::readLibraries()
{
    const Outcome<QList<Library>> libraries = _store->libraries();
    _libraries = libraries.valueOr({});
    _errorText = libraries.reason();
}

Outcome<Library> OpenBundle::libraryNamed(const QString &name)
{
    if (_store)
        return _store->libraryNamed(name);
    return Failure{_errorText.isNull() ? tr("there is no database") : _errorText};
}

Outcome<std::shared_ptr<OpenLibrary>> OpenBundle::open(const QString &name)
{
    const Outcome<Library> library = libraryNamed(name);
    if (!library)
        return library.failure();
    if (std::shared_ptr<OpenLibrary> opened = _open.value(library->name).lock())
        return opened;
    auto opened = OpenLibrary::load(this, *library);
    if (opened)
        _open.insert(library->name, *opened);
    return opened;
}

Outcome<> OpenBundle::mayWrite() const
{
    if (_isBusy)
        return Failure{tr("an import or export is on its way; please wait until it is done")};
    return _store ? Outcome<>() : Failure{tr("there is no database")};
}

/// Begins to write, if what the windows show is what the database holds.
Outcome<> OpenBundle::beginChange()
{
    const Outcome<> begun = mayWrite().andThen([this] { return _store->beginChange(); });
    if (!begun || _store->dataVersion() == _dataVersion)
        return begun;
    _store->rollback();
    reloadLater();
    return Failure{tr("another program has changed the database, which is read again; please "
                      "try once more")};
}

void OpenBundle::reloadLater()
{
    if (!std::exchange(_willReload, true))
        NSApplication::performOnNextTurn(this, [this] { reloadIfFree(); });
}

/// Who imports or exports reads what would go.
void OpenBundle::reloadIfFree()
{
    if (_willReload && !_isBusy)
        reload();
}

void OpenBundle::setBusy(bool isBusy)
{
    _isBusy = isBusy;
    reloadIfFree();
}

void OpenBundle::read(const std::function<void(LibraryStore &store)> &reading)
{
    if (!_store)
        return;
    _store->setPatience(PatienceOfPainting);
    const auto patience = qScopeGuard([this] { _store->setPatience(PatienceWithStore); });
    const qint64 version = _store->dataVersion();
    if (version >= 0 && version != _dataVersion && !_isBusy)
        reloadLater();
    reading(*_store);
}

Outcome<> OpenBundle::checkChange()
{
    const Outcome<> begun = beginChange();
    if (begun)
        _store->rollback();
    return begun;
}

Outcome<> OpenBundle::transaction(const std::function<Outcome<>(ChangeJournal &)> &changes)
{
    const Outcome<> begun = beginChange();
    if (!begun)
        return begun;
    // Also if what changes throws.
    auto takingBack = qScopeGuard([this] { _store->rollback(); });
    ChangeJournal journal(*_store);
    const Outcome<> changed = changes(journal).andThen([this] { return _store->commit(); });
    if (!changed)
        return changed;
    takingBack.dismiss();
    UnusedMedia::remove(_bundle, *_store, journal.forgottenMedia());
    return {};
}

Outcome<> OpenBundle::change(const StepTitle &title,
                             const std::function<Outcome<>(StepRecorder &)> &changes)
{
    std::optional<ChangeJournal::Step> made;
    const Outcome<> changed = transaction([&](ChangeJournal &journal) -> Outcome<> {
        const Outcome<qint64> step = journal.make(title, changes);
        if (!step)
            return step.failure();
        made = journal.step(*step).valueOr(std::nullopt);
        return {};
    });
    if (changed && made)
        Q_EMIT stepMade(made->number, made->title);
    return changed;
}

Outcome<> OpenBundle::changeWithoutStep(const std::function<Outcome<>(LibraryStore &)> &changes)
{
    return transaction([&](ChangeJournal &) { return changes(*_store); });
}

std::optional<ChangeJournal::Step> OpenBundle::lastStep() const
{
    return _store ? ChangeJournal(*_store).last().valueOr(std::nullopt) : std::nullopt;
}

// --- Media --------------------------------------------------------------------------------------

/// Fails for files that an import would not take either.
Outcome<> OpenBundle::checkFile(const QString &path) const
{
    return mayWrite().andThen([&] { return MediaSources::check(path); }).andThen([&] {
        const QString name = QFileInfo(path).fileName();
        return MediaSources::checkName(_bundle.fileNameWithMediaInstanceNumber(name));
    });
}

Outcome<> OpenBundle::storeFile(const QString &path,
                                const std::function<Outcome<>(const QString &url)> &use)
{
    BundleLock lock(_bundle);
    const Outcome<> ready =
        checkFile(path).andThen([&] { return lock.lock(PatienceWithStore); }).andThen([&] {
            return InterruptedImport::settle(_bundle, lock.isLocked());
        });
    if (!ready)
        return ready;
    const std::optional<NSURL> file = NSURL::fileURLWithPath(path);
    const std::optional<NSURL> url = file ? _bundle.storeFileFromURL(*file) : std::nullopt;
    if (!url)
        return Failure{tr("the file cannot be copied")};
    const Outcome<> used = use(url->absoluteString());
    if (!used)
        UnusedMedia::removeFile(_bundle, url->absoluteString());
    return used;
}

// --- Undo ---------------------------------------------------------------------------------------

Outcome<StepEffect> OpenBundle::play(qint64 step, StepPlayer::Direction direction)
{
    StepEffect effect;
    const Outcome<> played = transaction([&](ChangeJournal &journal) -> Outcome<> {
        const bool isUndo = direction == StepPlayer::Direction::Undo;
        const Outcome<StepEffect> done = isUndo ? journal.undo(step) : journal.redo(step);
        effect = done.valueOr({});
        return done ? Outcome<>() : done.failure();
    });
    if (!played)
        return played.failure();
    follow(effect);
    return effect;
}

void OpenBundle::follow(const StepEffect &effect)
{
    if (!refresh(effect)) {
        reload();
        return;
    }
    if (effect.libraries.isEmpty())
        return;
    _open.removeIf([&effect](const auto &entry) {
        const std::shared_ptr<OpenLibrary> library = entry.value().lock();
        return !library || effect.libraries.contains(library->definition().tableName);
    });
    readLibraries();
    Q_EMIT librariesChanged();
}

/// Has open libraries look at the records again that have changed.
Outcome<> OpenBundle::refresh(const StepEffect &effect)
{
    Outcome<> refreshed;
    for (const auto &open : std::as_const(_open)) {
        const std::shared_ptr<OpenLibrary> library = open.lock();
        const QString table = library ? library->definition().tableName : QString();
        if (library && effect.records.contains(table) && !effect.libraries.contains(table))
            refreshed =
                refreshed.andThen([&] { return library->refresh(effect.records.value(table)); });
    }
    return refreshed;
}

bool OpenBundle::isCurrent(const std::shared_ptr<OpenLibrary> &library) const
{
    return library && _open.value(library->definition().name).lock() == library;
}
