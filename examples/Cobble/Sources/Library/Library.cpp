#include "Library.h"

#include "Fields/FieldReader.h"

#include <algorithm>

QString LibraryField::title() const
{
    if (!header.trimmed().isEmpty())
        return header;
    return label.isEmpty() ? columnName : label;
}

std::unique_ptr<FieldReader> LibraryField::reader() const
{
    auto reader = std::make_unique<FieldReader>(type);
    if (reader->formatter() && !options.isEmpty())
        reader->formatter()->setOptions(options);
    return reader;
}

QSet<QString> Library::mediaColumns() const
{
    QSet<QString> columns;
    for (const LibraryField &field : fields) {
        if (field.type == FieldType::Media)
            columns += field.columnName;
    }
    return columns;
}

std::optional<Library> Libraries::named(const QString &name, const QList<Library> &libraries)
{
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        const auto found =
            std::find_if(libraries.begin(), libraries.end(), [&](const Library &library) {
                return library.name.compare(name, sensitivity) == 0;
            });
        if (found != libraries.end())
            return *found;
    }
    return std::nullopt;
}
