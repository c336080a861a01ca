#pragma once

#include "DatabaseConnection.h"
#include "Library.h"
#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

#include <QSet>
#include <QSqlQuery>

#include <memory>
#include <optional>

class DatabaseCopy;

/// The records of a library, one after the other.
///
/// \code
/// RecordCursor records = store->records(library);
/// while (records.next())
///     use(records.value(0));
/// \endcode
class RecordCursor
{
public:
    RecordCursor(QSqlQuery &&query, const Library &library);
    /// No records, for a reason.
    RecordCursor(const Failure &failure);

    /// Goes to the next record, at first to the first one.
    /// \return false if there is none.
    bool next();
    /// The number by which the database knows the record.
    qint64 id() const;
    /// The value of a field, as StoredValue::fromDatabase() has it.
    QVariant value(qsizetype field) const;
    /// Whether there is nothing wrong with the records so far; when they end, whether these were all.
    Outcome<> outcome() const;

private:
    QSqlQuery _query;
    QList<FieldType> _types;
    std::optional<Failure> _failure;
};

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
    /// The values in the fields of media of a library.
    Outcome<QSet<QString>> mediaOf(const Library &library);
    /// The media URLs in all fields of all libraries, whatever their types: also those that stand in
    /// a field of texts name a file.
    Outcome<QSet<QString>> usedMedia();

    /// Begins to write; nobody else can until commit() or rollback().
    Outcome<> begin();
    /// The same for changes to records that are there.
    Outcome<> beginChange();
    Outcome<> commit();
    void rollback();
    /// Makes the table of a library, and its entries in the catalogue.
    Outcome<> create(const Library &library);
    Outcome<> remove(const Library &library);
    /// Adds a record to the library that was created last.
    Outcome<> insert(const QVariantList &values);

    // --- Single records

    /// Writes one value of a record. A record that was deleted is an error.
    Outcome<> update(const Library &library, qint64 id, qsizetype field, const QVariant &value);
    /// Deletes a record. One that was deleted already is an error.
    Outcome<> removeRecord(const Library &library, qint64 id);
    /// How long to wait for somebody else who writes, in milliseconds; 5,000 unless set.
    void setPatience(int milliseconds);
    /// A number that is another one when somebody else has written since it was asked for last
    /// (SQLite's data_version); −1 if the database cannot be read.
    qint64 dataVersion();

private:
    explicit LibraryStore(const KTDatabaseBundle &bundle);
    Outcome<> checkBundle(Mode mode) const;
    Outcome<> openForReading();
    Outcome<> openForWriting();
    Outcome<> connect(const QString &path, DatabaseConnection::Access access);
    Outcome<> needWriting();
    void followVersionsOf(const DatabaseConnection &reading);
    QSqlDatabase database() const;
    Outcome<> checkVersion();
    Outcome<> checkNoTriggers();
    Outcome<> checkColumns(const QString &table);
    Outcome<bool> hasTable(const QString &name);
    Outcome<> needTable(const QString &name);
    Outcome<> checkLibrary(const Library &library);
    Outcome<> run(const QString &statement);
    Outcome<qint64> number(const QString &statement);
    Outcome<QList<Library>> librariesInCatalogue();
    Outcome<QList<LibraryField>> fieldsOf(const QString &tableName);
    Outcome<> addUsedMedia(const Library &library, QSet<QString> *used);
    Outcome<> addEntry(const Library &library);
    Outcome<> addFields(const Library &library);
    Outcome<> addField(const QString &tableName, qsizetype position, const LibraryField &field);
    Outcome<> makeTable(const Library &library);
    Outcome<> prepareInsertion(const Library &library);

    KTDatabaseBundle _bundle;
    /// What is read instead of a database whose last change was interrupted.
    std::unique_ptr<DatabaseCopy> _copy;
    std::unique_ptr<DatabaseConnection> _connection;
    bool _isForWriting = false;
    std::optional<int> _patience;
    /// What dataVersion() adds to the connection's own number.
    qint64 _versionsBefore = 0;
    // It must go before the connection.
    std::optional<QSqlQuery> _insertion;
};
