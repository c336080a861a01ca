#pragma once

#include <KTUtility/KTDatabaseBundle>

#include <QSet>

class LibraryStore;

// Taking media files away that no record refers to any more.

namespace UnusedMedia {
/// Removes the file of a media URL from the bundle, whoever uses it.
/// \return false if it is still there.
bool removeFile(const KTDatabaseBundle &bundle, const QString &url);

/// Removes the files of those URLs that no library has. Texts that are no media URLs are passed
/// over. If the database cannot be read, everything counts as used.
/// \return the URLs of those that are still there, or may be.
QSet<QString> remove(const KTDatabaseBundle &bundle, LibraryStore &store,
                     const QSet<QString> &urls);
} // namespace UnusedMedia
