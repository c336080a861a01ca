#pragma once

#include "Filter/QueriedRecords.h"
#include "Library/LibraryStore.h"
#include "Text/Outcome.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

// Libraries and their records as the JSON that commands print and read: values as they are, and not
// as a locale shows them.
//
// Numbers are JSON's where a double holds all of their digits, else texts of these ("0.1" is one,
// 12345678901234567890 is none). Dates are texts of ISO 8601. What a field could not read is the
// text that was typed, and a field without a value is null.

namespace LibraryJSON {
/// How the fields of a library are called: by their titles; one with the title of a field before it
/// by the name of its column.
QStringList namesOf(const Library &library);

QJsonValue of(const QVariant &value);
/// The value of a field that of() has made. A field of texts takes no numbers, and none takes what
/// cannot be read.
Outcome<QVariant> valueIn(FieldType type, const QJsonValue &value);

/// {"fields": […], "library": "People", "table": "kt_people"}
QJsonObject describing(const Library &library);
/// {"id": 3, "values": {"Age": 31, "Name": "Ann"}}
QJsonObject recordOf(const QStringList &names, const QueriedRecords &record);

/// One line, without what steers a terminal.
QString textOf(const QJsonObject &object);
} // namespace LibraryJSON
