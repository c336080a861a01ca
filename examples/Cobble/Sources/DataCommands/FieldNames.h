#pragma once

#include "Library/Library.h"

// Fields by the names that people type.

namespace FieldNames {
/// The field of a name, as LibraryJSON::namesOf() gives it; if there is none, the one whose name
/// differs in case only, then the one of a column. −1 if there is no such field.
qsizetype indexOf(const Library &library, const QString &name);

/// The two sides of "FIELD=VALUE". Titles and values may hold "=": the longest name of a field counts.
struct Assignment
{
    /// −1 if there is no such field.
    qsizetype field = -1;
    QString name;
    QString value;
};
Assignment assignmentIn(const Library &library, const QString &text);
} // namespace FieldNames
