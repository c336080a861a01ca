#pragma once

#include "Library.h"
#include "RecordIds.h"
#include "Text/Outcome.h"

#include <QSqlDatabase>

/// The numbers of all records of a library, ascending, each once, whatever a damaged table holds.
/// Where they follow each other without a gap, they are not read.
///
/// \code
/// const Outcome<RecordIds> ids = idsInTable(database, library);
/// \endcode
Outcome<RecordIds> idsInTable(const QSqlDatabase &database, const Library &library);
