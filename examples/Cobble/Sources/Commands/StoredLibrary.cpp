#include "StoredLibrary.h"

std::unique_ptr<LibraryStore> StoredLibrary::openStore(const KTDatabaseBundle &bundle,
                                                       CommandContext &context)
{
    QString error;
    auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing, &error);
    if (!store)
        context.warn(bundle.bundlePath(), error);
    return store;
}

std::optional<Library> StoredLibrary::find(LibraryStore &store, const KTDatabaseBundle &bundle,
                                           const QString &name, CommandContext &context)
{
    std::optional<Library> library = store.libraryNamed(name);
    if (!library)
        context.warn(bundle.bundlePath(), store.reasonForNo(name));
    return library;
}
