#pragma once

#include "ImportRequest.h"
#include "ImportSchema.h"
#include "ImportSource.h"
#include "ImportValues.h"
#include "LibraryImport.h"

#include <QTemporaryDir>

#include <memory>

/// A file that was read once, by an importer if its kind needs one, and can now be shown or stored.
///
/// \code
/// ImportFile file;
/// const QString reason = ImportFile::read(request, &file);
/// if (reason.isNull())
///     const ImportFile::Outcome outcome = file.store(request);
/// \endcode
struct ImportFile
{
    /// \param file receives what was read.
    /// \return why it cannot be imported, for a person to read; nil if it can be.
    static QString read(const ImportRequest &request, ImportFile *file);

    /// What a stored import leaves.
    struct Outcome
    {
        /// Why nothing was stored; nil if it was. It was cancelled if values.isCancelled.
        QString errorDescription;
        ImportValues values;
        /// With the names that it got.
        Library stored;
        qint64 recordCount = 0;
    };

    /// Stores it as a library of the request's bundle: all of it or nothing.
    /// \param patience how long to wait for another import, in milliseconds.
    Outcome store(const ImportRequest &request, int patience = 5000) const;

    QString text;
    ImportSource source;
    ImportSchema schema;
    /// Where relative paths of media begin.
    QString folder;
    /// The files that an importer took out of it.
    std::shared_ptr<QTemporaryDir> extracted;
    ImportValues::Settings settings;
};
