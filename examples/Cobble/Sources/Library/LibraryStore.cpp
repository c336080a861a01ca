#include "LibraryStore.h"

#include "StoredValue.h"

#include <KTUtility/NSFileManager>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlError>
#include <QUuid>

#include <algorithm>

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

QString RecordCursor::errorText() const
{
    return _query.lastError().isValid() ? reasonOf(_query.lastError()) : QString();
}

std::unique_ptr<LibraryStore> LibraryStore::open(const KTDatabaseBundle &bundle, Mode mode,
                                                 QString *error)
{
    const QString path = bundle.databaseFilePath();
    if (mode == Mode::Existing && !NSFileManager::fileExistsAtPath(path)) {
        *error = u"there is no database"_s;
        return nullptr;
    }
    std::unique_ptr<LibraryStore> store(new LibraryStore(path));
    const bool isReady = store->connect() && store->hasKnownVersion();
    if (isReady)
        return store;
    *error = store->errorText();
    return nullptr;
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

bool LibraryStore::connect()
{
    if (_database.open())
        return true;
    _errorText = reasonOf(_database.lastError());
    return false;
}

bool LibraryStore::hasKnownVersion()
{
    QSqlQuery version(_database);
    if (!version.prepare(u"PRAGMA user_version"_s) || !run(version)) {
        _errorText = reasonOf(version.lastError());
        return false;
    }
    if (version.next() && version.value(0).toInt() > CatalogueVersion) {
        _errorText = u"the database was made by a newer version of Cobble"_s;
        return false;
    }
    return true;
}

bool LibraryStore::run(const QString &statement, QSqlQuery &query)
{
    if (query.prepare(statement))
        return run(query);
    _errorText = reasonOf(query.lastError());
    return false;
}

bool LibraryStore::run(QSqlQuery &query)
{
    if (query.exec())
        return true;
    _errorText = reasonOf(query.lastError());
    return false;
}

bool LibraryStore::run(const QString &statement)
{
    QSqlQuery query(_database);
    if (query.exec(statement))
        return true;
    _errorText = reasonOf(query.lastError());
    return false;
}

bool LibraryStore::makeCatalogue()
{
    return run(u"CREATE TABLE IF NOT EXISTS cobble_library (name TEXT PRIMARY KEY, "
               "library_entity TEXT, entity TEXT, table_name TEXT UNIQUE)"_s) &&
           run(u"CREATE TABLE IF NOT EXISTS cobble_field (table_name TEXT, position "
               "INTEGER, column_name TEXT, header TEXT, label TEXT, property TEXT, "
               "type TEXT, options TEXT, PRIMARY KEY (table_name, position))"_s) &&
           run(u"PRAGMA user_version = %1"_s.arg(CatalogueVersion));
}

QList<LibraryField> LibraryStore::fieldsOf(const QString &tableName)
{
    QSqlQuery query(_database);
    query.prepare(u"SELECT column_name, header, label, property, type, options FROM "
                  "cobble_field WHERE table_name = ? ORDER BY position"_s);
    query.addBindValue(tableName);
    QList<LibraryField> fields;
    for (run(query); goToNext(query);)
        fields += fieldIn(query);
    return fields;
}

/// Whether there is a catalogue; not in a database that nothing was stored in yet.
bool LibraryStore::hasCatalogue()
{
    QSqlQuery query(_database);
    return run(u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND "
               "name = 'cobble_library'"_s,
               query) &&
           goToNext(query);
}

/// \return false at the end, and if the database cannot be read.
bool LibraryStore::goToNext(QSqlQuery &query)
{
    const bool hasNext = query.next();
    if (query.lastError().isValid())
        _errorText = reasonOf(query.lastError());
    return hasNext;
}

QList<Library> LibraryStore::libraries()
{
    _errorText = QString();
    QList<Library> libraries;
    QSqlQuery query(_database);
    if (!hasCatalogue() ||
        !run(u"SELECT name, library_entity, entity, table_name FROM cobble_library "
             "ORDER BY name COLLATE NOCASE"_s,
             query))
        return {};
    while (goToNext(query)) {
        Library library;
        library.name = query.value(0).toString();
        library.libraryEntityName = query.value(1).toString();
        library.entityName = query.value(2).toString();
        library.tableName = query.value(3).toString();
        library.fields = fieldsOf(library.tableName);
        libraries += library;
    }
    return _errorText.isNull() ? libraries : QList<Library>();
}

std::optional<Library> LibraryStore::libraryNamed(const QString &name)
{
    const QList<Library> all = libraries();
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        const auto found = std::find_if(all.begin(), all.end(), [&](const Library &library) {
            return library.name.compare(name, sensitivity) == 0;
        });
        if (found != all.end())
            return *found;
    }
    return std::nullopt;
}

QString LibraryStore::reasonForNo(const QString &name) const
{
    return _errorText.isNull() ? u"no library '%1'"_s.arg(name) : _errorText;
}

qint64 LibraryStore::recordCount(const Library &library)
{
    QSqlQuery query(_database);
    const bool isCounted = run(u"SELECT count(*) FROM " + quoted(library.tableName), query);
    return isCounted && goToNext(query) ? query.value(0).toLongLong() : 0;
}

RecordCursor LibraryStore::records(const Library &library, qint64 limit)
{
    QSqlQuery query(_database);
    query.setForwardOnly(true);
    if (query.prepare(u"SELECT id, " + columnsOf(library) + u" FROM " + quoted(library.tableName) +
                      u" ORDER BY id LIMIT ?")) {
        query.addBindValue(limit);
        run(query);
    }
    return {std::move(query), library};
}

std::optional<QSet<QString>> LibraryStore::usedMedia()
{
    QSet<QString> values;
    const QList<Library> all = libraries();
    if (!_errorText.isNull())
        return std::nullopt;
    for (const Library &library : all) {
        const std::optional<QSet<QString>> media = mediaOf(library);
        if (!media)
            return std::nullopt;
        values += *media;
    }
    return values;
}

std::optional<QSet<QString>> LibraryStore::mediaOf(const Library &library)
{
    QSet<QString> values;
    for (const LibraryField &field : library.fields) {
        if (field.type == FieldType::Media &&
            !addValues(library.tableName, field.columnName, &values))
            return std::nullopt;
    }
    return values;
}

/// \return false if the column cannot be read.
bool LibraryStore::addValues(const QString &tableName, const QString &columnName,
                             QSet<QString> *values)
{
    QSqlQuery query(_database);
    query.setForwardOnly(true);
    if (!query.prepare(u"SELECT " + quoted(columnName) + u" FROM " + quoted(tableName)) ||
        !run(query))
        return false;
    while (query.next())
        values->insert(query.value(0).toString());
    return !query.lastError().isValid();
}

bool LibraryStore::begin()
{
    // Others can read until all is written.
    run(u"PRAGMA cache_spill = OFF"_s);
    return beginChange() && makeCatalogue();
}

bool LibraryStore::beginChange()
{
    return run(u"BEGIN IMMEDIATE"_s);
}

bool LibraryStore::commit()
{
    _insertion.reset();
    return run(u"COMMIT"_s);
}

void LibraryStore::rollback()
{
    _insertion.reset();
    QSqlQuery(_database).exec(u"ROLLBACK"_s);
}

bool LibraryStore::addField(const QString &tableName, qsizetype position, const LibraryField &field)
{
    QSqlQuery query(_database);
    query.prepare(u"INSERT INTO cobble_field VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s);
    for (const QVariant &value :
         {QVariant(tableName), QVariant(position), QVariant(field.columnName),
          QVariant(field.header), QVariant(field.label), QVariant(field.propertyName),
          QVariant(FieldTypes::nameOf(field.type)), QVariant(optionsText(field.options))})
        query.addBindValue(value);
    return run(query);
}

bool LibraryStore::create(const Library &library)
{
    QStringList columns = {u"id INTEGER PRIMARY KEY"_s};
    for (const LibraryField &field : library.fields)
        columns += declarationOf(field);
    QSqlQuery entry(_database);
    entry.prepare(u"INSERT INTO cobble_library VALUES (?, ?, ?, ?)"_s);
    for (const QString &value :
         {library.name, library.libraryEntityName, library.entityName, library.tableName})
        entry.addBindValue(value);
    if (!run(entry) ||
        !run(u"CREATE TABLE " + quoted(library.tableName) + u" (" + columns.join(u", "_s) + u')'))
        return false;
    for (qsizetype position = 0; position < library.fields.size(); ++position) {
        if (!addField(library.tableName, position, library.fields.at(position)))
            return false;
    }
    QStringList places(library.fields.size(), u"?"_s);
    _insertion.emplace(_database);
    if (_insertion->prepare(u"INSERT INTO " + quoted(library.tableName) + u" (" +
                            columnsOf(library) + u") VALUES (" + places.join(u',') + u')'))
        return true;
    _errorText = reasonOf(_insertion->lastError());
    return false;
}

bool LibraryStore::remove(const Library &library)
{
    for (const char16_t *table : {u"cobble_library", u"cobble_field"}) {
        QSqlQuery query(_database);
        query.prepare(u"DELETE FROM " + QString::fromUtf16(table) + u" WHERE table_name = ?");
        query.addBindValue(library.tableName);
        if (!run(query))
            return false;
    }
    return run(u"DROP TABLE " + quoted(library.tableName));
}

bool LibraryStore::insert(const QVariantList &values)
{
    for (qsizetype column = 0; column < values.size(); ++column)
        _insertion->bindValue(int(column), StoredValue::forDatabase(values.at(column)));
    return run(*_insertion);
}

bool LibraryStore::update(const Library &library, qint64 id, qsizetype field, const QVariant &value)
{
    QSqlQuery query(_database);
    if (!query.prepare(u"UPDATE " + quoted(library.tableName) + u" SET " +
                       quoted(library.fields.at(field).columnName) + u" = ? WHERE id = ?")) {
        _errorText = reasonOf(query.lastError());
        return false;
    }
    query.addBindValue(StoredValue::forDatabase(value));
    query.addBindValue(id);
    return runOnOneRecord(query);
}

bool LibraryStore::removeRecord(const Library &library, qint64 id)
{
    QSqlQuery query(_database);
    if (!query.prepare(u"DELETE FROM " + quoted(library.tableName) + u" WHERE id = ?")) {
        _errorText = reasonOf(query.lastError());
        return false;
    }
    query.addBindValue(id);
    return runOnOneRecord(query);
}

bool LibraryStore::runOnOneRecord(QSqlQuery &query)
{
    if (!run(query))
        return false;
    if (query.numRowsAffected() == 1)
        return true;
    _errorText = u"the record is no longer there"_s;
    return false;
}

qint64 LibraryStore::dataVersion()
{
    QSqlQuery query(_database);
    const bool isRead = run(u"PRAGMA data_version"_s, query) && goToNext(query);
    return isRead ? query.value(0).toLongLong() : -1;
}

void LibraryStore::setPatience(int milliseconds)
{
    run(u"PRAGMA busy_timeout = %1"_s.arg(milliseconds));
}
