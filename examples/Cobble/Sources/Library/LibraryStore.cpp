#include "LibraryStore.h"

#include "StoredValue.h"

#include <KTUtility/NSFileManager>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlError>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {
/// The form of the catalogue, which SQLite keeps as the user's version of the file.
constexpr int CatalogueVersion = 1;

QString quoted(const QString &identifier)
{
    return u'"' + QString(identifier).replace(u'"', u"\"\""_s) + u'"';
}

/// What SQLite says, without what Qt adds to it.
QString reasonOf(const QSqlError &error)
{
    return error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
}

/// Numbers have no declared type, so that SQLite keeps them as they are handed over.
QString declarationOf(const LibraryField &field)
{
    const bool isNumber = field.type == FieldType::Number || field.type == FieldType::Currency ||
                          field.type == FieldType::Duration;
    return quoted(field.columnName) + (isNumber ? u"" : u" TEXT");
}

QString columnsOf(const Library &library)
{
    QStringList names;
    for (const LibraryField &field : library.fields)
        names += quoted(field.columnName);
    return names.join(u", "_s);
}

QString optionsText(const QVariantMap &options)
{
    return QString::fromUtf8(
        QJsonDocument(QJsonObject::fromVariantMap(options)).toJson(QJsonDocument::Compact));
}

LibraryField fieldIn(const QSqlQuery &row)
{
    LibraryField field;
    field.columnName = row.value(0).toString();
    field.header = row.value(1).toString();
    field.label = row.value(2).toString();
    field.propertyName = row.value(3).toString();
    field.type = FieldTypes::storedTypeNamed(row.value(4).toString());
    field.options = QJsonDocument::fromJson(row.value(5).toByteArray()).object().toVariantMap();
    return field;
}
Library libraryIn(const QSqlQuery &row)
{
    Library library;
    library.name = row.value(0).toString();
    library.libraryEntityName = row.value(1).toString();
    library.entityName = row.value(2).toString();
    library.tableName = row.value(3).toString();
    return library;
}

Outcome<> outcomeOf(const QSqlQuery &query, bool isDone)
{
    return isDone ? Outcome<>() : Failure{reasonOf(query.lastError())};
}

/// Of a query whose rows were read.
Outcome<> outcomeOf(const QSqlQuery &query)
{
    return outcomeOf(query, !query.lastError().isValid());
}

Outcome<> execute(QSqlQuery &query, const QString &statement, const QVariantList &values = {})
{
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        return outcomeOf(query, false);
    for (const QVariant &value : values)
        query.addBindValue(value);
    return outcomeOf(query, query.exec());
}

/// For a statement about one record.
Outcome<> executeOnRecord(QSqlQuery &query, const QString &statement, const QVariantList &values)
{
    const Outcome<> outcome = execute(query, statement, values);
    if (outcome && query.numRowsAffected() != 1)
        return Failure{u"the record is no longer there"_s};
    return outcome;
}

/// What \a read makes of each row that a statement gives.
template<typename Read>
auto allRows(const QSqlDatabase &database, const QString &statement, const QVariantList &values,
             const Read &read) -> Outcome<QList<decltype(read(QSqlQuery()))>>
{
    QList<decltype(read(QSqlQuery()))> results;
    QSqlQuery query(database);
    const Outcome<> outcome = execute(query, statement, values).andThen([&] {
        while (query.next())
            results += read(query);
        return outcomeOf(query);
    });
    if (!outcome)
        return outcome.failure();
    return results;
}
} // namespace

RecordCursor::RecordCursor(QSqlQuery &&query, const Library &library) : _query(std::move(query))
{
    for (const LibraryField &field : library.fields)
        _types += field.type;
}

bool RecordCursor::next()
{
    return _query.next();
}

qint64 RecordCursor::id() const
{
    return _query.value(0).toLongLong();
}

QVariant RecordCursor::value(qsizetype field) const
{
    return StoredValue::fromDatabase(_types.at(field), _query.value(int(field) + 1));
}

Outcome<> RecordCursor::outcome() const
{
    return outcomeOf(_query);
}

Outcome<std::unique_ptr<LibraryStore>> LibraryStore::open(const KTDatabaseBundle &bundle, Mode mode)
{
    const QString path = bundle.databaseFilePath();
    if (mode == Mode::Existing && !NSFileManager::fileExistsAtPath(path))
        return Failure{u"there is no database"_s};
    std::unique_ptr<LibraryStore> store(new LibraryStore(path));
    const Outcome<> ready = store->connect().andThen([&] { return store->checkVersion(); });
    if (!ready)
        return ready.failure();
    return store;
}

LibraryStore::LibraryStore(const QString &path)
    : _connectionName(QUuid::createUuid().toString())
    , _database(QSqlDatabase::addDatabase(u"QSQLITE"_s, _connectionName))
{
    _database.setDatabaseName(path);
}

LibraryStore::~LibraryStore()
{
    _insertion.reset();
    _database.close();
    _database = QSqlDatabase();
    QSqlDatabase::removeDatabase(_connectionName);
}

Outcome<> LibraryStore::connect()
{
    return _database.open() ? Outcome<>() : Failure{reasonOf(_database.lastError())};
}

Outcome<> LibraryStore::checkVersion()
{
    const Outcome<qint64> version = number(u"PRAGMA user_version"_s);
    if (!version)
        return version.failure();
    if (*version > CatalogueVersion)
        return Failure{u"the database was made by a newer version of Cobble"_s};
    return {};
}

Outcome<> LibraryStore::run(const QString &statement)
{
    QSqlQuery query(_database);
    return outcomeOf(query, query.exec(statement));
}

/// The number that a statement gives; 0 if it gives none.
Outcome<qint64> LibraryStore::number(const QString &statement)
{
    const auto numbers = allRows(_database, statement, {},
                                 [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
    if (!numbers)
        return numbers.failure();
    return qint64(numbers->value(0));
}

// --- Reading

Outcome<QList<LibraryField>> LibraryStore::fieldsOf(const QString &tableName)
{
    return allRows(_database,
                   u"SELECT column_name, header, label, property, type, options FROM "
                   "cobble_field WHERE table_name = ? ORDER BY position"_s,
                   {tableName}, fieldIn);
}

Outcome<QList<Library>> LibraryStore::libraries()
{
    // There is no catalogue in a database that nothing was stored in yet.
    const Outcome<qint64> catalogues = number(u"SELECT count(*) FROM sqlite_master WHERE "
                                              "type = 'table' AND name = 'cobble_library'"_s);
    if (!catalogues)
        return catalogues.failure();
    return *catalogues == 0 ? QList<Library>() : librariesInCatalogue();
}

Outcome<QList<Library>> LibraryStore::librariesInCatalogue()
{
    auto libraries = allRows(_database,
                             u"SELECT name, library_entity, entity, table_name FROM "
                             "cobble_library ORDER BY name COLLATE NOCASE"_s,
                             {}, libraryIn);
    if (!libraries)
        return libraries;
    for (Library &library : *libraries) {
        const auto fields = fieldsOf(library.tableName);
        if (!fields)
            return fields.failure();
        library.fields = *fields;
    }
    return libraries;
}

Outcome<Library> LibraryStore::libraryNamed(const QString &name)
{
    const Outcome<QList<Library>> all = libraries();
    if (!all)
        return all.failure();
    const std::optional<Library> library = Libraries::named(name, *all);
    if (!library)
        return Failure{u"no library '%1'"_s.arg(name)};
    return *library;
}

Outcome<qint64> LibraryStore::recordCount(const Library &library)
{
    return number(u"SELECT count(*) FROM " + quoted(library.tableName));
}

RecordCursor LibraryStore::records(const Library &library, qint64 limit)
{
    QSqlQuery query(_database);
    // The cursor reports if that fails.
    (void)execute(query,
                  u"SELECT id, " + columnsOf(library) + u" FROM " + quoted(library.tableName) +
                      u" ORDER BY id LIMIT ?",
                  {limit});
    return {std::move(query), library};
}

Outcome<QSet<QString>> LibraryStore::usedMedia()
{
    const Outcome<QList<Library>> all = libraries();
    if (!all)
        return all.failure();
    QSet<QString> used;
    for (const Library &library : *all) {
        const Outcome<QSet<QString>> media = mediaOf(library);
        if (!media)
            return media;
        used += *media;
    }
    return used;
}

Outcome<QSet<QString>> LibraryStore::mediaOf(const Library &library)
{
    QSet<QString> media;
    for (const LibraryField &field : library.fields) {
        if (field.type != FieldType::Media)
            continue;
        const auto values =
            allRows(_database,
                    u"SELECT " + quoted(field.columnName) + u" FROM " + quoted(library.tableName),
                    {}, [](const QSqlQuery &row) { return row.value(0).toString(); });
        if (!values)
            return values.failure();
        media += QSet<QString>(values->begin(), values->end());
    }
    return media;
}

// --- Writing

Outcome<> LibraryStore::begin()
{
    // Others can read until all is written.
    (void)run(u"PRAGMA cache_spill = OFF"_s);
    return beginChange()
        .andThen([this] {
            return run(u"CREATE TABLE IF NOT EXISTS cobble_library (name TEXT PRIMARY KEY, "
                       "library_entity TEXT, entity TEXT, table_name TEXT UNIQUE)"_s);
        })
        .andThen([this] {
            return run(u"CREATE TABLE IF NOT EXISTS cobble_field (table_name TEXT, position "
                       "INTEGER, column_name TEXT, header TEXT, label TEXT, property TEXT, "
                       "type TEXT, options TEXT, PRIMARY KEY (table_name, position))"_s);
        })
        .andThen([this] { return run(u"PRAGMA user_version = %1"_s.arg(CatalogueVersion)); });
}

Outcome<> LibraryStore::beginChange()
{
    return run(u"BEGIN IMMEDIATE"_s);
}

Outcome<> LibraryStore::commit()
{
    _insertion.reset();
    return run(u"COMMIT"_s);
}

void LibraryStore::rollback()
{
    _insertion.reset();
    QSqlQuery(_database).exec(u"ROLLBACK"_s);
}

Outcome<> LibraryStore::create(const Library &library)
{
    return addEntry(library)
        .andThen([&] { return makeTable(library); })
        .andThen([&] { return addFields(library); })
        .andThen([&] { return prepareInsertion(library); });
}

Outcome<> LibraryStore::addEntry(const Library &library)
{
    QSqlQuery query(_database);
    return execute(
        query, u"INSERT INTO cobble_library VALUES (?, ?, ?, ?)"_s,
        {library.name, library.libraryEntityName, library.entityName, library.tableName});
}

Outcome<> LibraryStore::makeTable(const Library &library)
{
    QStringList columns = {u"id INTEGER PRIMARY KEY"_s};
    for (const LibraryField &field : library.fields)
        columns += declarationOf(field);
    return run(u"CREATE TABLE " + quoted(library.tableName) + u" (" + columns.join(u", "_s) + u')');
}

Outcome<> LibraryStore::addFields(const Library &library)
{
    for (qsizetype position = 0; position < library.fields.size(); ++position) {
        const Outcome<> added = addField(library.tableName, position, library.fields.at(position));
        if (!added)
            return added;
    }
    return {};
}

Outcome<> LibraryStore::addField(const QString &tableName, qsizetype position,
                                 const LibraryField &field)
{
    QSqlQuery query(_database);
    return execute(query, u"INSERT INTO cobble_field VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s,
                   {tableName, position, field.columnName, field.header, field.label,
                    field.propertyName, FieldTypes::nameOf(field.type),
                    optionsText(field.options)});
}

Outcome<> LibraryStore::prepareInsertion(const Library &library)
{
    const QStringList places(library.fields.size(), u"?"_s);
    _insertion.emplace(_database);
    const bool isPrepared =
        _insertion->prepare(u"INSERT INTO " + quoted(library.tableName) + u" (" +
                            columnsOf(library) + u") VALUES (" + places.join(u',') + u')');
    return outcomeOf(*_insertion, isPrepared);
}

Outcome<> LibraryStore::remove(const Library &library)
{
    for (const QStringView table : {u"cobble_library", u"cobble_field"}) {
        QSqlQuery query(_database);
        const Outcome<> removed =
            execute(query, u"DELETE FROM " + table.toString() + u" WHERE table_name = ?",
                    {library.tableName});
        if (!removed)
            return removed;
    }
    return run(u"DROP TABLE " + quoted(library.tableName));
}

Outcome<> LibraryStore::insert(const QVariantList &values)
{
    for (qsizetype column = 0; column < values.size(); ++column)
        _insertion->bindValue(int(column), StoredValue::forDatabase(values.at(column)));
    return outcomeOf(*_insertion, _insertion->exec());
}

// --- Single records

Outcome<> LibraryStore::update(const Library &library, qint64 id, qsizetype field,
                               const QVariant &value)
{
    QSqlQuery query(_database);
    return executeOnRecord(query,
                           u"UPDATE " + quoted(library.tableName) + u" SET " +
                               quoted(library.fields.at(field).columnName) + u" = ? WHERE id = ?",
                           {StoredValue::forDatabase(value), id});
}

Outcome<> LibraryStore::removeRecord(const Library &library, qint64 id)
{
    QSqlQuery query(_database);
    return executeOnRecord(query, u"DELETE FROM " + quoted(library.tableName) + u" WHERE id = ?",
                           {id});
}

qint64 LibraryStore::dataVersion()
{
    return number(u"PRAGMA data_version"_s).valueOr(-1);
}

void LibraryStore::setPatience(int milliseconds)
{
    // Without it, windows wait longer.
    (void)run(u"PRAGMA busy_timeout = %1"_s.arg(milliseconds));
}
