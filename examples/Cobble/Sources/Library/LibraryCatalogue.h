#pragma once

#include "Library.h"
#include "Text/Outcome.h"

#include <QSqlDatabase>

// The two tables of a database that say which libraries it has, and what their tables hold.

namespace LibraryCatalogue {
/// The form of the catalogue, which SQLite keeps as the user's version of the file.
inline constexpr int Version = 1;

/// Makes the tables if they are not there.
Outcome<> need(const QSqlDatabase &database);
/// Fails for the database of a newer version.
Outcome<> checkVersion(const QSqlDatabase &database);
/// All libraries, by name. There is no catalogue in a database that nothing was stored in yet.
Outcome<QList<Library>> libraries(const QSqlDatabase &database);
/// The library whose records are in a table; fails if there is none.
Outcome<Library> libraryOf(const QSqlDatabase &database, const QString &tableName);
/// Adds the entries of a library. Its table is somebody else's business.
Outcome<> add(const QSqlDatabase &database, const Library &library);
/// Removes the entries of a library.
Outcome<> remove(const QSqlDatabase &database, const QString &tableName);
/// Fails for fields whose values cannot be told apart, or from the numbers of the records: of no column
/// of the table, of one that another field has, or of one that is, or may mean, the number. Cobble
/// makes none of these.
Outcome<> checkColumns(const QSqlDatabase &database, const Library &library);
/// How the column of a field is declared.
QString declarationOf(const LibraryField &field);
} // namespace LibraryCatalogue
