#pragma once

#include "Library.h"

#include <functional>

class LibraryStore;

// Writing a library to a file, by the exporter for the file's extension.

namespace LibraryExport {
/// Is told how many records are written, of how many, and says whether to go on.
using Progress = std::function<bool(qint64 done, qint64 total)>;

struct Outcome
{
    /// Why there is no file, or still the one that was there; nil if it was written.
    QString errorDescription;
    /// What that is about: the file or the library.
    QString subject;
    qint64 recordCount = 0;
    bool isCancelled = false;
};

/// Writes all records, or leaves the file as it was.
/// \param progress may be empty.
Outcome run(LibraryStore &store, const Library &library, const QString &path,
            const Progress &progress = {});
} // namespace LibraryExport
