#pragma once

#include <KTUtility/KTDatabaseBundle>

#include <QSet>

class LibraryStore;

// Taking media files away that no record refers to any more.

namespace UnusedMedia {
/// Removes the file of a media URL from the bundle, whoever uses it.
/// \return false if it is still there.
bool removeFile(const KTDatabaseBundle &bundle, const QString &url);

/// Removes the files of those URLs that no library has, however its own URL of a file is written.
/// Texts that are no media URLs are passed over. If the database cannot be read, everything counts
/// as used.
/// \return the URLs of those that are still there, or may be.
QSet<QString> remove(const KTDatabaseBundle &bundle, LibraryStore &store,
                     const QSet<QString> &urls);

/// Whether a file in the media folder is what a copy has left that was interrupted; files that are
/// stored have a number behind a dot.
bool isUnfinished(const QString &fileName);
/// Removes all of these. Nobody else must be storing files meanwhile.
/// \return false if some are still there, or may be.
bool removeUnfinished(const KTDatabaseBundle &bundle);
} // namespace UnusedMedia
