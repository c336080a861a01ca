#pragma once

#include "Library/RecordRows.h"

#include <functional>

class LibraryStore;

// Writing a library to a file, by the exporter for the file's extension.

namespace LibraryExport {
/// Is informed how many records are written, of how many, and says whether to go on.
using Progress = std::function<bool(qint64 done, qint64 total)>;

/// Writes all records, or leaves the file as it was; the reason then begins with what it is about,
/// the file or the library.
/// \param progress may be empty.
/// \return how many records were written.
Outcome<qint64> run(LibraryStore &store, const Library &library, const QString &path,
                    const Progress &progress = {});
/// The same for records that were chosen.
/// \param total how many there are, for \a progress.
Outcome<qint64> run(RecordRows &rows, const QString &path, qint64 total = 0,
                    const Progress &progress = {});
} // namespace LibraryExport
