#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

class LibraryStore;

// What an import leaves that was interrupted: a list of names, of which some are those of files that
// nobody knows and others are still free. Whoever stores files, which may get such a name, has to
// settle that first; else the next import would take them for the files of that import.

namespace InterruptedImport {
/// The path of the list of an import's media files, a URL on each line.
QString mediaListPath(const KTDatabaseBundle &bundle);

/// Removes the listed files that no library has, and copies that were never finished. The list stays.
/// \param store nobody else must be able to write to it meanwhile.
/// \param isLocked whether the bundle is locked; without that, an unfinished copy may be somebody's
/// who is at work.
Outcome<> removeMedia(const KTDatabaseBundle &bundle, LibraryStore &store, bool isLocked);

/// The same for who stores files without importing; then the list goes, too. If there is none,
/// nothing is opened.
/// \param isLocked whether the bundle is locked; without that, an import that is at work is waited
/// for.
Outcome<> settle(const KTDatabaseBundle &bundle, bool isLocked);
} // namespace InterruptedImport
