#pragma once

#include "Import/ImportFile.h"

/// What a file would become, before anything of it is stored.
///
/// \code
/// const Outcome<ImportPreview> preview = ImportPreview::of(request);
/// preview->shown.rows;               // the first rows, as the library would show them
/// preview->values.unread.size();     // what would be kept as it was typed
/// \endcode
struct ImportPreview
{
    /// So many rows are shown.
    static constexpr qsizetype MostRows = 50;

    /// \param goesOn is asked now and then; may be empty.
    static Outcome<ImportPreview> of(const ImportRequest &request,
                                     const std::function<bool()> &goesOn = {});
    /// The same of a file that is read already.
    static Outcome<ImportPreview> of(ImportFile file, const ImportRequest &request,
                                     const std::function<bool()> &goesOn = {});

    ImportFile file;
    ImportValues values;
    ShownRows shown;
};
