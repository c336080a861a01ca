#pragma once

#include "DatabaseConnection.h"
#include "Library.h"
#include "RecordCursor.h"
#include "RecordPart.h"
#include "StagedRows.h"
#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

#include <QSet>
#include <QSqlQuery>

#include <functional>
#include <memory>
#include <optional>

class DatabaseCopy;

/// The SQLite database in a bundle: a table for each library, and two that say what they hold.
///
/// Bundles come from other people, too. A store that was opened for an existing database changes
/// nothing in the bundle, and makes no file in it, until something is written; see BundleCheck for
/// what is not opened at all. If a change was interrupted, it shows what was there before. Views in
/// the place of tables are not read, nor tables with computed columns, and nothing is written where
/// there are triggers.
///
/// \code
/// const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
/// if (!store)
///     return complain(store.reason());
/// for (const Library &library : (*store)->libraries().valueOr({}))
///     show(library.name);
/// \endcode
class LibraryStore
{
public:
    enum class Mode {
        Existing, ///< a database that is not there is an error; it is read only until something is written
        Create, ///< makes one if there is none
    };

    static Outcome<std::unique_ptr<LibraryStore>> open(const KTDatabaseBundle &bundle, Mode mode);
    ~LibraryStore();
    LibraryStore(const LibraryStore &) = delete;
    LibraryStore &operator=(const LibraryStore &) = delete;

    /// All libraries, by name.
    Outcome<QList<Library>> libraries();
    /// The library with a name; if no other, the one whose name differs in case only.
    Outcome<Library> libraryNamed(const QString &name);
    Outcome<qint64> recordCount(const Library &library);
    /// \param limit the most records that are wanted; all if negative.
    RecordCursor records(const Library &library, qint64 limit = -1);
    /// Some records, or some of their values.
    RecordCursor records(const Library &library, const RecordPart &part);
    /// The numbers of all records, ascending.
    Outcome<RecordIds> recordIds(const Library &library);
    /// The values in the fields of media of a library.
    Outcome<QSet<QString>> mediaOf(const Library &library);
    /// The media URLs in all fields of all libraries, whatever their types: also those that stand in
    /// a field of texts name a file. What the journal needs counts, too.
    Outcome<QSet<QString>> usedMedia();
    /// The names of all tables, also of those that no library has.
    Outcome<QStringList> tableNames();

    /// Begins to write; nobody else can until commit() or rollback().
    Outcome<> begin();
    /// The same for changes to records that are there.
    Outcome<> beginChange();
    Outcome<> commit();
    void rollback();
    /// Makes changes, all of them or none. Within what was begun already they are a part of that.
    Outcome<> transaction(const std::function<Outcome<>()> &changes);
    /// Makes the table of a library, and its entries in the catalogue.
    Outcome<> create(const Library &library);
    /// Takes a library out of the catalogue. Its table stays, for the journal; see
    /// StepRecorder::noteRemoved().
    Outcome<> remove(const Library &library);
    /// Adds a record to the library that was created last.
    Outcome<> insert(const QVariantList &values);
    /// The same for many, with values that are as StoredValue::forDatabase() gives them. They are in
    /// the library after commit() only.
    Outcome<> insertStored(const QVariantList &values);

    // --- Single records, without the journal

    /// Writes one value of a record. A record that was deleted is an error.
    Outcome<> update(const Library &library, qint64 id, qsizetype field, const QVariant &value);
    /// Deletes a record. One that was deleted already is an error.
    Outcome<> removeRecord(const Library &library, qint64 id);

    // --- The connection

    /// How long to wait for somebody else who writes, in milliseconds; 5,000 unless set.
    void setPatience(int milliseconds);
    /// A number that is another one when somebody else has written since it was asked for last
    /// (SQLite's data_version); −1 if the database cannot be read.
    qint64 dataVersion();
    /// For the parts of the store: the connection, which is another one once something is written.
    QSqlDatabase database() const;

private:
    explicit LibraryStore(const KTDatabaseBundle &bundle);
    Outcome<> checkBundle(Mode mode) const;
    Outcome<> openForReading();
    Outcome<> openForWriting();
    Outcome<> connect(const QString &path, DatabaseConnection::Access access);
    Outcome<> needWriting();
    void followVersionsOf(const DatabaseConnection &reading);
    Outcome<> checkLibrary(const Library &library);
    Outcome<> checkTable(const Library &library);
    Outcome<> prepareInsertion(const Library &library);

    KTDatabaseBundle _bundle;
    /// What is read instead of a database whose last change was interrupted.
    std::unique_ptr<DatabaseCopy> _copy;
    std::unique_ptr<DatabaseConnection> _connection;
    bool _isForWriting = false;
    bool _isChanging = false;
    std::optional<int> _patience;
    /// What dataVersion() adds to the connection's own number.
    qint64 _versionsBefore = 0;
    // It must go before the connection.
    std::optional<QSqlQuery> _insertion;
    std::unique_ptr<StagedRows> _staged;
    /// The table that was made last.
    QString _created;
};
