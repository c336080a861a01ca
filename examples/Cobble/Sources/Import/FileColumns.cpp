#include "FileColumns.h"

#include "RowSource.h"

FileColumns FileColumns::of(const RowSource &rows, bool hasHeaders)
{
    return {rows.headers(), hasHeaders, rows.separator(), rows.encoding()};
}

bool FileColumns::areSame(const FileColumns &other) const
{
    if (hasHeaders == other.hasHeaders)
        return headers == other.headers;
    return separator == other.separator && encoding == other.encoding &&
           headers.size() == other.headers.size();
}
