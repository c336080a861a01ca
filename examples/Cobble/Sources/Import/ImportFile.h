#pragma once

#include "ImportRequest.h"
#include "ImportSchema.h"
#include "ImportValues.h"
#include "LibraryImport.h"
#include "MediaSources.h"
#include "RowSource.h"

#include <QTemporaryDir>

#include <memory>

/// What a library would show of an import.
struct ShownRows
{
    /// The most rows that are wanted.
    qsizetype most = 0;
    QList<FieldType> types;
    /// The first rows, as their fields show them.
    QList<QStringList> rows;
};

/// What a stored import leaves.
struct StoredImport
{
    ImportValues values;
    /// With the names that it got.
    Library library;
    qint64 recordCount = 0;
    /// What undoes it in the journal; 0 if there is nothing to undo.
    qint64 step = 0;
    StepTitle stepTitle;
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
    /// \param goesOn is asked now and then; may be empty.
    static Outcome<ImportFile> read(const ImportRequest &request,
                                    const std::function<bool()> &goesOn = {});

    /// Stores it as a library of the request's bundle: all of it or nothing. What it names on the web
    /// is downloaded first, while nothing is locked.
    /// \param patience how long to wait for another import, in milliseconds.
    Outcome<StoredImport> store(const ImportRequest &request, int patience = 5000) const;

    /// Reads the values as store() would, without downloading or storing anything: what is on the web
    /// is taken to be there. If a library is to be replaced, it is looked at, and this fails as
    /// store() would where files would be lost.
    /// \param shown receives the first rows; may be null.
    Outcome<ImportValues> preview(const ImportRequest &request, ShownRows *shown = nullptr) const;

    /// Whether a file needs no importer, by its name; others may call plug-ins, which only the main
    /// thread may do.
    static bool isSeparatedText(const QString &path);

    std::shared_ptr<const RowSource> rows;
    /// All columns of the file, also those that are left out.
    FileColumns columns;
    /// Whether something was chosen for other columns than the file has, which does not count.
    bool hasOtherColumns = false;
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
