#include "OpenBundle.h"

#include "OpenLibrary.h"

#include <KTUtility/Platform/Foundation/NSFileManager.h>

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
    if (!_store && NSFileManager::fileExistsAtPath(_bundle.databaseFilePath()))
        _store = LibraryStore::open(_bundle, LibraryStore::Mode::Existing, &_errorText);
    if (_store) {
        _libraries = _store->libraries();
        _errorText = _store->errorText();
    }
    Q_EMIT librariesChanged();
}

std::shared_ptr<OpenLibrary> OpenBundle::open(const QString &name, QString *error)
{
    if (std::shared_ptr<OpenLibrary> opened = _open.value(name).lock())
        return opened;
    const std::optional<Library> library = _store ? _store->libraryNamed(name) : std::nullopt;
    if (!library) {
        *error = _store ? _store->reasonForNo(name) : QStringLiteral("there is no database");
        return nullptr;
    }
    std::shared_ptr<OpenLibrary> opened = OpenLibrary::load(this, *library, error);
    if (opened)
        _open.insert(name, opened);
    return opened;
}

void OpenBundle::setBusy(bool isBusy)
{
    if (_isBusy == isBusy)
        return;
    _isBusy = isBusy;
    Q_EMIT busyChanged();
}

QString OpenBundle::reasonNotToWrite() const
{
    return _isBusy ? QStringLiteral("an import is being stored; please wait until it is done")
                   : QString();
}
