#pragma once

#include "Library.h"

#include <KTUtility/KTDatabaseBundle>

#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <memory>
#include <optional>

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

    /// Goes to the next record, at first to the first one. \return false if there is none.
    bool next();
    /// The number by which the database knows the record.
    qint64 id() const;
    /// The value of a field, as StoredValue::fromDatabase() has it.
    QVariant value(qsizetype field) const;
    /// Why the records end early; nil if they do not.
    QString errorText() const;

private:
    QSqlQuery _query;
    QList<FieldType> _types;
};

/// The SQLite database in a bundle: a table for each library, and two that say what they hold.
///
/// Functions that may fail give false, and errorText() says why.
///
/// \code
/// QString error;
/// const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing, &error);
/// for (const Library &library : store->libraries())
///     show(library.name, store->recordCount(library));
/// \endcode
class LibraryStore
{
public:
    enum class Mode {
        Existing, ///< a database that is not there is an error
        Create,   ///< makes one if there is none
    };

    /// \param error receives why there is no result.
    static std::unique_ptr<LibraryStore> open(const KTDatabaseBundle &bundle, Mode mode,
                                              QString *error);
    ~LibraryStore();
    LibraryStore(const LibraryStore &) = delete;
    LibraryStore &operator=(const LibraryStore &) = delete;

    /// All libraries, by name. None if the database cannot be read; errorText(), which is nil
    /// otherwise, tells.
    QList<Library> libraries();
    /// The library with a name; if no other, the one whose name differs in case only. None also as
    /// for libraries().
    std::optional<Library> libraryNamed(const QString &name);
    /// Why libraryNamed() has just found none, for a person to read.
    QString reasonForNo(const QString &name) const;
    /// 0 also if the table cannot be read; then errorText() tells.
    qint64 recordCount(const Library &library);
    /// \param limit the most records that are wanted; all if negative.
    RecordCursor records(const Library &library, qint64 limit = -1);
    /// The values in the fields of media of a library; nothing if they cannot be read.
    std::optional<QSet<QString>> mediaOf(const Library &library);
    /// Those of all libraries.
    std::optional<QSet<QString>> usedMedia();

    /// Begins to write; nobody else can until commit() or rollback().
    bool begin();
    /// The same for changes to records that are there.
    bool beginChange();
    bool commit();
    void rollback();
    /// Makes the table of a library, and its entries in the catalogue.
    bool create(const Library &library);
    bool remove(const Library &library);
    /// Adds a record to the library that was created last.
    bool insert(const QVariantList &values);

    // --- Single records

    /// Writes one value of a record. A record that is gone is an error.
    bool update(const Library &library, qint64 id, qsizetype field, const QVariant &value);
    /// Takes a record away. One that is gone already is an error.
    bool removeRecord(const Library &library, qint64 id);
    /// How long to wait for somebody else who writes, in milliseconds; 5,000 unless set.
    void setPatience(int milliseconds);
    /// A number that is another one when somebody else has written since it was asked for last
    /// (SQLite's data_version); −1 if the database cannot be read.
    qint64 dataVersion();

    const QString &errorText() const { return _errorText; }

private:
    explicit LibraryStore(const QString &path);
    bool connect();
    bool hasKnownVersion();
    bool makeCatalogue();
    bool hasCatalogue();
    bool goToNext(QSqlQuery &query);
    bool addValues(const QString &tableName, const QString &columnName, QSet<QString> *values);
    bool run(const QString &statement, QSqlQuery &query);
    bool run(QSqlQuery &query);
    bool run(const QString &statement);
    bool runOnOneRecord(QSqlQuery &query);
    QList<LibraryField> fieldsOf(const QString &tableName);
    bool addField(const QString &tableName, qsizetype position, const LibraryField &field);

    QString _connectionName;
    QSqlDatabase _database;
    std::optional<QSqlQuery> _insertion;
    QString _errorText;
};
