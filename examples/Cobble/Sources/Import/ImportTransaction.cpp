#include "ImportTransaction.h"

#include "InterruptedImport.h"
#include "Journal/ChangeJournal.h"
#include "Library/BundleCheck.h"
#include "Library/BundleOption.h"
#include "Text/Reasons.h"
#include "UnusedMedia.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>
#include <KTUtility/NSPercentEscapes>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <future>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {
/// Whether what will be at a path was made by this import, which removes it again then. If the
/// system does not say, something is there.
bool isFree(const QString &path)
{
    std::error_code error;
    return std::filesystem::symlink_status(QFile::encodeName(path).toStdString(), error).type() ==
           std::filesystem::file_type::not_found;
}

/// Files that are copied at once, in bytes.
constexpr qint64 LargeFile = qint64(8) << 20;

/// The URL that a file will get, unless somebody else stores one of that name meanwhile.
QString expectedURL(const KTDatabaseBundle &bundle, const NSURL &url)
{
    const QString name = NSString::lastPathComponent(url.path());
    return u"cobblemedia://"_s +
           NSString::stringByAddingPercentEscapes(bundle.fileNameWithMediaInstanceNumber(name));
}

/// Begins to store a file in a thread of its own; where none starts, it is stored when it is asked for.
std::future<std::optional<NSURL>> beginToStore(const KTDatabaseBundle &bundle, const NSURL &url)
{
    const auto store = [&bundle, &url] { return bundle.storeFileFromURL(url); };
    try {
        return std::async(std::launch::async, store);
    } catch (const std::system_error &) {
        return std::async(std::launch::deferred, store);
    }
}

/// Stores a file; a large one in a thread of its own.
std::optional<NSURL> storeFile(const KTDatabaseBundle &bundle, const NSURL &url,
                               const std::function<void()> &meanwhile)
{
    const bool isLarge = url.isFileURL() && QFileInfo(url.path()).size() >= LargeFile;
    if (!isLarge || !meanwhile)
        return bundle.storeFileFromURL(url);
    auto stored = beginToStore(bundle, url);
    do {
        meanwhile();
    } while (stored.wait_for(std::chrono::milliseconds(40)) == std::future_status::timeout);
    return stored.get();
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
    : _bundle(bundle), _lock(bundle), _mediaList(InterruptedImport::mediaListPath(bundle))
{
}

ImportTransaction::~ImportTransaction()
{
    if (!_isDone)
        takeBack();
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
        return Failure{Reasons::tr("the database bundle cannot be made")};
    return openStore()
        .andThen([this] { return _store->begin(); })
        .andThen(
            [this] { return InterruptedImport::removeMedia(_bundle, *_store, _lock.isLocked()); })
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

/// Makes the list anew: a link in its place must not lead to another file.
Outcome<> ImportTransaction::beginList()
{
    _mediaList.remove();
    _isListing = _mediaList.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
    return _isListing ? Outcome<>() : Failure{_mediaList.errorString()};
}

std::optional<NSURL> ImportTransaction::storeMedia(const NSURL &url,
                                                   const std::function<void()> &meanwhile)
{
    if (_bundle.isMediaURL(url)) {
        const QString path = _bundle.filePathFromMediaUrl(url);
        return NSFileManager::fileExistsAtPath(path) ? std::optional(url) : std::nullopt;
    }
    // It is listed before it is there, so that it can be found whenever the process ends.
    const qint64 size = _mediaList.size();
    const QString expected = expectedURL(_bundle, url);
    const bool isListed = addToList(expected);
    const std::optional<NSURL> stored =
        isListed ? storeFile(_bundle, url, meanwhile) : std::nullopt;
    if (stored && stored->absoluteString() != expected)
        return listAnew(*stored, size);
    if (stored)
        _storedMedia += expected;
    else
        cutList(size);
    return stored;
}

/// For a file that got another name than was listed, which somebody else has taken.
std::optional<NSURL> ImportTransaction::listAnew(const NSURL &stored, qint64 size)
{
    cutList(size);
    if (addToList(stored.absoluteString())) {
        _storedMedia += stored.absoluteString();
        return stored;
    }
    // What is not in the list could not be taken back.
    UnusedMedia::removeFile(_bundle, stored.absoluteString());
    return std::nullopt;
}

/// \return false if the disk is full; then the list is as it was.
bool ImportTransaction::addToList(const QString &url)
{
    const QByteArray line = url.toLatin1() + '\n';
    const qint64 size = _mediaList.size();
    if (_mediaList.write(line) == line.size())
        return true;
    cutList(size);
    return false;
}

void ImportTransaction::cutList(qint64 size)
{
    _mediaList.resize(size);
    _mediaList.seek(size);
}

/// Lists what will be of no use once all is written; until then it is in use, and stays.
/// \return false if the disk is full.
bool ImportTransaction::listMedia(const QSet<QString> &media)
{
    return std::all_of(media.begin(), media.end(), [this](const QString &text) {
        const std::optional<NSURL> url = NSURL::URLWithString(text);
        return !url || !_bundle.isMediaURL(*url) || addToList(text);
    });
}

Outcome<> ImportTransaction::commit()
{
    const Outcome<> added = addStep();
    if (!added)
        return added;
    if (!listMedia(_forgottenMedia))
        return Failure{_mediaList.errorString()};
    if (const Outcome<> committed = _store->commit(); !committed)
        return committed;
    _isDone = true;
    // A list that stays is for the next import.
    if (UnusedMedia::remove(_bundle, *_store, _forgottenMedia).isEmpty())
        _mediaList.remove();
    return {};
}

/// The step holds no records: undoing it puts the table away.
Outcome<> ImportTransaction::addStep()
{
    if (_created.isEmpty() && _removed.isEmpty())
        return {};
    ChangeJournal journal(*_store);
    const QString name = (_created.isEmpty() ? _removed : _created).first().name;
    _stepTitle = {StepKinds::Import, {{StepParameters::Library, name}}};
    const Outcome<qint64> made = journal.make(_stepTitle, [this](StepRecorder &step) {
        Outcome<> noted;
        for (const Library &library : std::as_const(_removed))
            noted = noted.andThen([&] { return step.noteRemoved(library); });
        for (const Library &library : std::as_const(_created))
            noted = noted.andThen([&] { return step.noteCreated(library); });
        return noted;
    });
    _step = made.valueOr(0);
    _forgottenMedia = journal.forgottenMedia();
    return made ? Outcome<>() : made.failure();
}

Outcome<> ImportTransaction::create(const Library &library)
{
    _created += library;
    return _store->create(library);
}

Outcome<> ImportTransaction::removeLibrary(const Library &library)
{
    _removed += library;
    return _store->remove(library);
}

/// Removes the media files of this import, whose records never will be written.
/// \return false if some are still there.
bool ImportTransaction::removeStoredMedia() const
{
    bool areGone = true;
    for (const QString &url : _storedMedia)
        areGone = UnusedMedia::removeFile(_bundle, url) && areGone;
    return areGone;
}

void ImportTransaction::takeBack()
{
    // First, while the database keeps others from making a list of their own.
    if (_isListing && removeStoredMedia())
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
