#pragma once

#include "ImportRequest.h"
#include "ImportSchema.h"
#include "ImportValues.h"
#include "LibraryImport.h"
#include "MediaSources.h"
#include "RowSource.h"

#include <QTemporaryDir>

#include <memory>

/// What a stored import leaves.
struct StoredImport
{
    ImportValues values;
    /// With the names that it got.
    Library library;
    qint64 recordCount = 0;
};

/// A file that was read once, by an importer if its kind needs one, and can now be shown or stored.
///
/// \code
/// const Outcome<ImportFile> file = ImportFile::read(request);
/// if (file)
///     const Outcome<StoredImport> stored = file->store(request);
/// \endcode
struct ImportFile
{
    static Outcome<ImportFile> read(const ImportRequest &request);

    /// Stores it as a library of the request's bundle: all of it or nothing. What it names on the web
    /// is downloaded first, while nothing is locked.
    /// \param patience how long to wait for another import, in milliseconds.
    Outcome<StoredImport> store(const ImportRequest &request, int patience = 5000) const;

    /// Reads the values as store() would, without downloading or storing anything: what is on the web
    /// is taken to be there. If a library is to be replaced, it is looked at, and this fails as
    /// store() would where files would be lost.
    Outcome<ImportValues> preview(const ImportRequest &request) const;

    std::shared_ptr<const RowSource> rows;
    ImportSchema schema;
    /// Which files it may bring along.
    MediaSources media;
    /// The files that an importer took out of it.
    std::shared_ptr<QTemporaryDir> extracted;
    ImportValues::Settings settings;

private:
    bool goesOn(qint64 row) const;
    Outcome<> downloadInto(MediaDownloads *downloads) const;
    Outcome<> downloadRow(const QStringList &fields, MediaDownloads *downloads) const;
};
