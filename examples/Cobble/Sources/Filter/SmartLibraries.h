#pragma once

#include "Library/LibraryStore.h"
#include "RecordQuery.h"

/// A filter of a library that was given a name, to be shown as if it were a library of its own.
struct SmartLibrary
{
    QString name;
    /// Of the library: its table, and its name, which counts if the table is another one by now.
    QString tableName;
    QString libraryName;
    /// In the portable notation, so that they can be read in every locale, and whatever the fields
    /// are called by now.
    QString filter;
    QString order;
    QString columns;

    friend bool operator==(const SmartLibrary &, const SmartLibrary &) = default;
};

/// The smart libraries of a database. Their table is made when the first one is saved.
///
/// Saving, renaming and removing are changes, between LibraryStore::beginChange() and commit().
///
/// \code
/// const SmartLibrary rich = SmartLibraries::make(u"Rich"_s, library, query, *fields);
/// const Outcome<> saved = store->beginChange().andThen([&] {
///     return SmartLibraries::save(*store, rich);
/// });
/// \endcode
namespace SmartLibraries {
/// One of a query of a library.
SmartLibrary make(const QString &name, const Library &library, const RecordQuery &query,
                  const FilterFields &fields);
/// The query that it stands for. Fails if the library no longer has its fields.
Outcome<RecordQuery> queryOf(const SmartLibrary &smart, const RecordFilter::Fields &fields);
/// The library that it filters; nothing if that is gone.
std::optional<Library> libraryOf(const SmartLibrary &smart, const QList<Library> &libraries);

/// All of them, by name.
Outcome<QList<SmartLibrary>> all(LibraryStore &store);
/// The one with a name; if no other, the one whose name differs in case only.
std::optional<SmartLibrary> named(const QString &name, const QList<SmartLibrary> &all);
/// Fails for a name that a library, or another smart one, has already, in whatever case.
Outcome<> checkName(LibraryStore &store, const QString &name, const QString &formerName = {});

/// Fails if what would be saved could not be read again.
Outcome<> save(LibraryStore &store, const SmartLibrary &smart);
Outcome<> rename(LibraryStore &store, const QString &name, const QString &newName);
Outcome<> remove(LibraryStore &store, const QString &name);
} // namespace SmartLibraries
