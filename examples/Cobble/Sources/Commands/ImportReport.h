#pragma once

#include "Import/ImportSchema.h"
#include "Import/ImportValues.h"
#include "Import/RowSource.h"

class QTextStream;

// What an import reports about a file.

namespace ImportReport {
/// The names of the library and its columns, and how the file is made.
void printSchema(const RowSource &rows, const ImportSchema &schema, QTextStream &out);
/// The types of the columns, what was decided about how they are typed, and the values that were not
/// read, or the first ones of very many with the number of the others.
void printValues(const ImportSchema &schema, const ImportValues &values, QTextStream &out);
/// Logs the names under kLog_ImportDialog and kLog_SchemaManager.
void log(const QString &path, const RowSource &rows, const ImportSchema &schema);
} // namespace ImportReport
