#include "OpenBundle.h"

#include "OpenLibrary.h"

#include <KTUtility/NSApplication>
#include <KTUtility/NSFileManager>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
/// How long windows stand still for another program that writes, in milliseconds.
constexpr int PatienceWithStore = 500;
} // namespace

OpenBundle::OpenBundle(const KTDatabaseBundle &bundle) : _bundle(bundle)
{
    reload();
}

OpenBundle::~OpenBundle() = default;

void OpenBundle::reload()
{
    _open.clear();
    _libraries.clear();
    _errorText = QString();
    const QFileInfo bundlePath(_bundle.bundlePath());
    if (bundlePath.exists() && !bundlePath.isDir())
        _errorText = u"%1 is no folder"_s.arg(_bundle.bundlePath());
    else if (!_store && NSFileManager::fileExistsAtPath(_bundle.databaseFilePath()))
        _store = LibraryStore::open(_bundle, LibraryStore::Mode::Existing, &_errorText);
    if (_store) {
        _store->setPatience(PatienceWithStore);
        _dataVersion = _store->dataVersion();
        _libraries = _store->libraries();
        _errorText = _store->errorText();
    }
    Q_EMIT librariesChanged();
}

std::shared_ptr<OpenLibrary> OpenBundle::open(const QString &name, QString *error)
{
    const std::optional<Library> library = _store ? _store->libraryNamed(name) : std::nullopt;
    if (!library) {
        *error = _store                ? _store->reasonForNo(name)
                 : _errorText.isNull() ? u"there is no database"_s
                                       : _errorText;
        return nullptr;
    }
    if (std::shared_ptr<OpenLibrary> opened = _open.value(library->name).lock())
        return opened;
    std::shared_ptr<OpenLibrary> opened = OpenLibrary::load(this, *library, error);
    if (opened)
        _open.insert(library->name, opened);
    return opened;
}

QString OpenBundle::reasonNotToWrite()
{
    if (_isBusy)
        return u"an import or export is on its way; please wait until it is done"_s;
    return _store ? QString() : u"there is no database"_s;
}

/// Begins to write, if what the windows show is what the database holds.
QString OpenBundle::beginChange()
{
    const QString reason = reasonNotToWrite();
    if (!reason.isNull())
        return reason;
    if (!_store->beginChange())
        return _store->errorText();
    if (_store->dataVersion() == _dataVersion)
        return {};
    _store->rollback();
    NSApplication::performOnNextTurn(this, [this] { reload(); });
    return u"another program has changed the database, which is read again; please "
           "try once more"_s;
}

QString OpenBundle::change(const std::function<bool()> &changes)
{
    QString reason = beginChange();
    if (!reason.isNull())
        return reason;
    if (changes() && _store->commit())
        return {};
    reason = _store->errorText();
    _store->rollback();
    return reason;
}
