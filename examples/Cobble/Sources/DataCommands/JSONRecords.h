#pragma once

#include "TypedRecord.h"

#include <QByteArray>
#include <QList>

#include <optional>

/// A record as JSON gives it; see LibraryJSON.
struct JSONRecord
{
    std::optional<qint64> id;
    FieldValues values;
};

namespace JSONRecords {
/// Reads one record, an array of records, or an object with such an array as "records", as
/// `cobble show --json` prints it. What is anything else, or has fields or values that the library
/// does not have, fails. Media are only files of the bundle: whoever has written the JSON need not
/// be the one who may read the files of this user.
Outcome<QList<JSONRecord>> read(DataChange &change, const Library &library, const QByteArray &json);
} // namespace JSONRecords
