#include "ImportPreview.h"

Outcome<ImportPreview> ImportPreview::of(const ImportRequest &request,
                                         const std::function<bool()> &goesOn)
{
    const Outcome<ImportFile> file = ImportFile::read(request, goesOn);
    return file ? of(*file, request, goesOn) : file.failure();
}

Outcome<ImportPreview> ImportPreview::of(ImportFile file, const ImportRequest &request,
                                         const std::function<bool()> &goesOn)
{
    ImportPreview preview;
    if (goesOn)
        file.settings.progress = [&goesOn](qint64, qint64) { return goesOn(); };
    preview.shown.most = MostRows;
    const Outcome<ImportValues> values = file.preview(request, &preview.shown);
    if (!values)
        return values.failure();
    preview.values = *values;
    preview.file = std::move(file);
    preview.file.settings.progress = {};
    return preview;
}
