#pragma once

#include "Text/Outcome.h"

#include <QSet>
#include <QSqlDatabase>

// The tables of the journal, which are made when the first step is kept: the steps, what each has
// changed, the media files that it needs, and the bin, which names the tables and columns that stay
// for it. In a database from elsewhere they may be anything: only those that are made exactly as
// these are read.

namespace JournalTables {
/// Whether the tables are there. Those of somebody else are an error.
Outcome<bool> areThere(const QSqlDatabase &database);
/// Makes the tables if they are not there, also in the place of somebody else's.
Outcome<> need(const QSqlDatabase &database);
/// The media URLs that steps need: of changed values, and of all that is in the bin.
Outcome<QSet<QString>> usedMedia(const QSqlDatabase &database);
} // namespace JournalTables
