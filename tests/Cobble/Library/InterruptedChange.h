#pragma once

#include <KTUtility/KTDatabaseBundle>

/// What the end of a process in the middle of a change leaves: a database that is half changed, and
/// the journal with what was there before.
namespace InterruptedChange {
/// Changes the names of all records of a table in a bundle, which has many, and leaves that half
/// done.
void leaveIn(const KTDatabaseBundle &bundle, const QString &table, const QString &column);
/// Lets the journal name another one, as that of a change of several databases at once does.
void nameInJournal(const KTDatabaseBundle &bundle, const QString &path);
} // namespace InterruptedChange
