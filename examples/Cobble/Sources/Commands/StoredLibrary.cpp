#include "StoredLibrary.h"

std::unique_ptr<LibraryStore> StoredLibrary::openStore(const KTDatabaseBundle &bundle,
                                                       CommandContext &context)
{
    auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    if (!store)
        context.warn(bundle.bundlePath(), store.reason());
    return std::move(store).valueOr(nullptr);
}

std::optional<Library> StoredLibrary::find(LibraryStore &store, const KTDatabaseBundle &bundle,
                                           const QString &name, CommandContext &context)
{
    const Outcome<Library> library = store.libraryNamed(name);
    if (library)
        return *library;
    context.warn(bundle.bundlePath(), library.reason());
    return std::nullopt;
}
