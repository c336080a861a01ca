#pragma once

#include "Text/Outcome.h"

#include <QSqlDatabase>

// A journal that cannot be read, since somebody else has changed its tables, is made anew with the
// next change. What only it can bring back must not be lost with it.

namespace JournalRepair {
/// Makes the tables of the journal if they are not there, or not as they should be. In the latter
/// case libraries that were removed come back first, under a free name: their tables would stay
/// without anybody knowing of them. A database that cannot be read is an error, and nothing changes.
Outcome<> need(const QSqlDatabase &database);
} // namespace JournalRepair
