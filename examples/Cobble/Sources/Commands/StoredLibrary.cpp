#include "StoredLibrary.h"

#include "Filter/SmartLibraries.h"

using namespace Qt::StringLiterals;

namespace {
/// The library of that name among the smart ones, with the library that it filters.
std::optional<std::pair<SmartLibrary, Library>> smartLibraryIn(LibraryStore &store,
                                                               const QString &name)
{
    const auto smart = SmartLibraries::named(name, SmartLibraries::all(store).valueOr({}));
    const auto library =
        smart ? SmartLibraries::libraryOf(*smart, store.libraries().valueOr({})) : std::nullopt;
    return library ? std::optional(std::pair(*smart, *library)) : std::nullopt;
}
} // namespace

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

std::optional<StoredLibrary::Records> StoredLibrary::findRecords(LibraryStore &store,
                                                                 const KTDatabaseBundle &bundle,
                                                                 const QString &name,
                                                                 CommandContext &context)
{
    const auto found = store.libraryNamed(name) ? std::nullopt : smartLibraryIn(store, name);
    if (!found) {
        const std::optional<Library> library = find(store, bundle, name, context);
        return library ? std::optional(Records{*library, {}}) : std::nullopt;
    }
    const auto &[smart, library] = *found;
    const auto query = SmartLibraries::queryOf(smart, std::make_shared<FilterFields>(library));
    if (query)
        return Records{library, *query};
    context.warn(u"the filter of '%1' no longer fits: %2"_s.arg(smart.name, query.reason()));
    return std::nullopt;
}
