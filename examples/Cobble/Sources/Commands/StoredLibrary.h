#pragma once

#include "CommandContext.h"
#include "Filter/RecordQuery.h"
#include "Library/LibraryStore.h"

// What commands about stored libraries begin with. What is missing is reported, and fails.

namespace StoredLibrary {
/// The database of a bundle; null if there is none.
std::unique_ptr<LibraryStore> openStore(const KTDatabaseBundle &bundle, CommandContext &context);
/// A library in it; nothing if there is none of that name.
std::optional<Library> find(LibraryStore &store, const KTDatabaseBundle &bundle,
                            const QString &name, CommandContext &context);

/// The records that a name stands for.
struct Records
{
    Library library;
    /// All of a library, or those of a smart library.
    RecordQuery query;
};
/// Those of a library or of a smart library. One whose filter no longer fits is reported, and has no
/// records: nobody has asked for all of them.
std::optional<Records> findRecords(LibraryStore &store, const KTDatabaseBundle &bundle,
                                   const QString &name, CommandContext &context);
} // namespace StoredLibrary
