#include "Library.h"

#include "Fields/FieldReader.h"

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
