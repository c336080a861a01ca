#pragma once

#include "OwnTable.h"
#include "Text/Outcome.h"

#include <QSet>
#include <QSqlDatabase>

// The tables of the journal, which are made when the first step is kept: the steps, what each has
// changed, the media files that it needs, and the bin, which names the tables and columns that stay
// for it. In a database from elsewhere they may be anything: only those that are made exactly as
// these are read. JournalRepair makes them.

namespace JournalTables {
/// Whether the tables are there. Those of somebody else are an error.
Outcome<bool> areThere(const QSqlDatabase &database);
/// The same, without an error: they are somebody else's if one of them is, or some are missing, or if
/// the numbers of steps are nearly spent. Whether a database can be read at all is another question.
Outcome<OwnTable::State> stateIn(const QSqlDatabase &database);
/// Makes the tables where there are none.
Outcome<> make(const QSqlDatabase &database);
/// Makes the tables in the place of somebody else's. Their steps get no number that a step has had.
Outcome<> makeAnew(const QSqlDatabase &database);
/// Drops the indices that somebody has added, which could refuse what is added.
Outcome<> dropIndices(const QSqlDatabase &database);
/// The media URLs that steps need: of changed values, and of all that is in the bin.
Outcome<QSet<QString>> usedMedia(const QSqlDatabase &database);
} // namespace JournalTables
