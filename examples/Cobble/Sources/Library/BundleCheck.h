#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

// Whether a bundle may be used. Bundles come from other people, too: by what lies in one, nothing
// outside of it may be changed or deleted.

namespace BundleCheck {
/// Fails if a folder of the bundle is a link, by which files elsewhere would be stored or deleted.
Outcome<> folders(const KTDatabaseBundle &bundle);

/// Fails also if opening the database could reach a file that is not the bundle's: if it, or what
/// SQLite keeps beside it, is a link or no file at all, if its journal names another journal (which
/// SQLite deletes when it plays the first one back; only databases that are changed together have
/// one, and these never are), or if it has a write-ahead log, which these never have.
/// \param mayRead whether the database may be opened to look at its first bytes. While the process
/// has it open elsewhere, that would release its locks.
Outcome<> database(const KTDatabaseBundle &bundle, bool mayRead);

/// The same for a journal alone; one that is not there is a success.
Outcome<> journal(const QString &path);
} // namespace BundleCheck
