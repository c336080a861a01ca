#pragma once

#include "Text/Outcome.h"

#include <QSet>
#include <QSqlDatabase>
#include <QStringList>

// The tables and columns that no library has any more, and that stay until the step of the journal
// that has put them away is forgotten.

namespace JournalBin {
/// Puts a table away, or with \a column one of its columns.
Outcome<> put(const QSqlDatabase &database, qint64 step, const QString &table,
              const QString &column = {});
/// Gives back what a step has put away; fails if it has not.
Outcome<> take(const QSqlDatabase &database, qint64 step, const QString &table,
               const QString &column = {});
/// Drops what a step has put away.
/// \return the media URLs that were in it.
Outcome<QSet<QString>> drop(const QSqlDatabase &database, qint64 step);
/// The media URLs in all tables of the bin. Columns of it are among those of their tables.
Outcome<QSet<QString>> media(const QSqlDatabase &database);
/// About how many bytes the values of a table have, or those of a column.
Outcome<qint64> sizeOf(const QSqlDatabase &database, const QString &table,
                       const QStringList &columns);
} // namespace JournalBin
