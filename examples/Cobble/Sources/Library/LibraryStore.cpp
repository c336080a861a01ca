#include "LibraryStore.h"

#include "BundleCheck.h"
#include "DatabaseConnection.h"
#include "DatabaseCopy.h"
#include "StoredValue.h"
#include "Text/Reasons.h"

#include <KTUtility/NSFileManager>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlError>

using namespace Qt::StringLiterals;

namespace {
/// The form of the catalogue, which SQLite keeps as the user's version of the file.
constexpr int CatalogueVersion = 1;

QString quoted(const QString &identifier)
{
    return u'"' + QString(identifier).replace(u'"', u"\"\""_s) + u'"';
}

/// A column of a table. Without the table's name, one that is missing would be its own name as text.
QString columnIn(const QString &table, const QString &column)
{
    return quoted(table) + u'.' + quoted(column);
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

/// The numbers and the fields of the records of a library.
QString recordsOf(const Library &library)
{
    QString columns = columnIn(library.tableName, u"id"_s);
    for (const LibraryField &field : library.fields)
        columns += u", " + columnIn(library.tableName, field.columnName);
    return u"SELECT " + columns + u" FROM " + quoted(library.tableName);
}

/// Columns that are looked through at once; SQLite does not take any number of conditions.
constexpr qsizetype ColumnsAtOnce = 100;

/// The rows in which some of the columns hold what may be a media URL.
QString rowsWithMedia(const QString &table, const QList<LibraryField> &fields)
{
    QStringList columns;
    QStringList conditions;
    for (const LibraryField &field : fields) {
        columns += columnIn(table, field.columnName);
        conditions += columns.last() + u" LIKE '%cobblemedia:%'"_s;
    }
    return u"SELECT " + columns.join(u", "_s) + u" FROM " + quoted(table) + u" WHERE " +
           conditions.join(u" OR "_s);
}

void addMediaIn(const QSqlQuery &row, qsizetype columnCount, QSet<QString> *media)
{
    for (qsizetype column = 0; column < columnCount; ++column) {
        const QString text = row.value(int(column)).toString().trimmed();
        if (text.startsWith(u"cobblemedia:", Qt::CaseInsensitive))
            media->insert(text);
    }
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
    return isDone ? Outcome<>() : Failure{DatabaseConnection::reasonOf(query.lastError())};
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
        return Failure{Reasons::tr("the record is no longer there")};
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

RecordCursor::RecordCursor(const Failure &failure) : _failure(failure) {}

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
    return _failure ? *_failure : outcomeOf(_query);
}

Outcome<std::unique_ptr<LibraryStore>> LibraryStore::open(const KTDatabaseBundle &bundle, Mode mode)
{
    std::unique_ptr<LibraryStore> store(new LibraryStore(bundle));
    const Outcome<> ready =
        store->checkBundle(mode)
            .andThen([&] {
                return mode == Mode::Create ? store->openForWriting() : store->openForReading();
            })
            .andThen([&] { return store->checkVersion(); });
    if (!ready)
        return ready.failure();
    return store;
}

LibraryStore::LibraryStore(const KTDatabaseBundle &bundle) : _bundle(bundle) {}

LibraryStore::~LibraryStore() = default;

Outcome<> LibraryStore::checkBundle(Mode mode) const
{
    const Outcome<> checked = BundleCheck::database(_bundle, DatabaseConnection::count() == 0);
    const bool isThere = NSFileManager::fileExistsAtPath(_bundle.databaseFilePath());
    if (checked && mode == Mode::Existing && !isThere)
        return Failure{Reasons::tr("there is no database")};
    return checked;
}

Outcome<> LibraryStore::openForReading()
{
    using Access = DatabaseConnection::Access;
    const Outcome<> opened = connect(_bundle.databaseFilePath(), Access::Read);
    if (!opened || !_connection->needsPlayback())
        return opened;
    auto copy = DatabaseCopy::make(_bundle);
    if (!copy)
        return copy.failure();
    _copy = std::move(*copy);
    return connect(_copy->path(), Access::Write);
}

Outcome<> LibraryStore::openForWriting()
{
    const Outcome<> opened = connect(_bundle.databaseFilePath(), DatabaseConnection::Access::Write);
    const Outcome<> outcome = opened.andThen([this] { return checkNoTriggers(); });
    _isForWriting = bool(outcome);
    return outcome;
}

/// A trigger does with each change what somebody else has written, which may have no end.
Outcome<> LibraryStore::checkNoTriggers()
{
    // Everything else counts as one: SQLite takes a trigger however its entry is spelt.
    const Outcome<qint64> count = number(
        u"SELECT count(*) FROM sqlite_master WHERE NOT (sql LIKE "
        "'CREATE TABLE %' OR sql LIKE 'CREATE VIRTUAL TABLE %' OR sql LIKE 'CREATE VIEW %' OR "
        "sql LIKE 'CREATE INDEX %' OR sql LIKE 'CREATE UNIQUE INDEX %')"_s);
    if (!count)
        return count.failure();
    return *count == 0
               ? Outcome<>()
               : Failure{Reasons::tr("the database has a trigger, which Cobble does not use")};
}

Outcome<> LibraryStore::connect(const QString &path, DatabaseConnection::Access access)
{
    auto connection = std::make_unique<DatabaseConnection>(path, access);
    const Outcome<> opened = connection->open();
    if (!opened)
        return opened;
    _insertion.reset();
    _connection = std::move(connection);
    if (_patience)
        setPatience(*_patience);
    return {};
}

/// Opens the database anew if it was for reading.
Outcome<> LibraryStore::needWriting()
{
    if (_isForWriting)
        return {};
    std::unique_ptr<DatabaseConnection> reading = std::move(_connection);
    const Outcome<> opened =
        checkBundle(Mode::Existing).andThen([this] { return openForWriting(); });
    if (opened) {
        followVersionsOf(*reading);
        _copy.reset();
    } else {
        _connection = std::move(reading);
    }
    return opened;
}

QSqlDatabase LibraryStore::database() const
{
    return _connection->database();
}

Outcome<> LibraryStore::checkVersion()
{
    const Outcome<qint64> version = number(u"PRAGMA user_version"_s);
    if (!version)
        return version.failure();
    if (*version > CatalogueVersion)
        return Failure{Reasons::tr("the database was made by a newer version of Cobble")};
    return {};
}

Outcome<> LibraryStore::run(const QString &statement)
{
    QSqlQuery query(database());
    return outcomeOf(query, query.exec(statement));
}

/// The number that a statement gives; 0 if it gives none.
Outcome<qint64> LibraryStore::number(const QString &statement)
{
    const auto numbers = allRows(database(), statement, {},
                                 [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
    if (!numbers)
        return numbers.failure();
    return qint64(numbers->value(0));
}

// --- Reading

Outcome<QList<LibraryField>> LibraryStore::fieldsOf(const QString &tableName)
{
    return allRows(database(),
                   u"SELECT column_name, header, label, property, type, options FROM "
                   "cobble_field WHERE table_name = ? ORDER BY position"_s,
                   {tableName}, fieldIn);
}

/// Fails for columns that the database makes by itself, of whatever size.
Outcome<> LibraryStore::checkColumns(const QString &table)
{
    const auto areStored =
        allRows(database(), u"PRAGMA table_xinfo(" + quoted(table) + u')', {},
                [](const QSqlQuery &row) { return row.value(u"hidden"_s).toInt() == 0; });
    if (!areStored)
        return areStored.failure();
    return areStored->contains(false)
               ? Failure{Reasons::tr("'%1' has a computed column").arg(table)}
               : Outcome<>();
}

/// Whether there is a table. A view of that name, which may have no end, is an error, and so is a
/// table that computes columns.
Outcome<bool> LibraryStore::hasTable(const QString &name)
{
    // Tables have pages of their own; views and what is computed by a module have none.
    const auto areTables =
        allRows(database(),
                u"SELECT type = 'table' AND rootpage > 0 FROM sqlite_master WHERE type IN "
                "('table', 'view') AND name = ? COLLATE NOCASE"_s,
                {name}, [](const QSqlQuery &row) { return row.value(0).toBool(); });
    if (!areTables)
        return areTables.failure();
    if (areTables->contains(false))
        return Failure{Reasons::tr("'%1' is no table").arg(name)};
    if (const Outcome<> checked = checkColumns(name); !checked)
        return checked.failure();
    return !areTables->isEmpty();
}

Outcome<> LibraryStore::needTable(const QString &name)
{
    const Outcome<bool> isThere = hasTable(name);
    if (!isThere)
        return isThere.failure();
    return *isThere ? Outcome<>() : Failure{Reasons::tr("no such table: %1").arg(name)};
}

/// Fails for a library that only a damaged catalogue has.
Outcome<> LibraryStore::checkLibrary(const Library &library)
{
    if (library.fields.isEmpty())
        return Failure{Reasons::tr("the library has no fields")};
    return needTable(library.tableName);
}

Outcome<QList<Library>> LibraryStore::libraries()
{
    // There is no catalogue in a database that nothing was stored in yet.
    const Outcome<bool> isThere = hasTable(u"cobble_library"_s);
    if (!isThere)
        return isThere.failure();
    if (!*isThere)
        return QList<Library>();
    const Outcome<> hasFields = needTable(u"cobble_field"_s);
    return hasFields ? librariesInCatalogue() : hasFields.failure();
}

Outcome<QList<Library>> LibraryStore::librariesInCatalogue()
{
    auto libraries = allRows(database(),
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
        return Failure{Reasons::tr("no library '%1'").arg(name)};
    return *library;
}

Outcome<qint64> LibraryStore::recordCount(const Library &library)
{
    const Outcome<> checked = needTable(library.tableName);
    if (!checked)
        return checked.failure();
    return number(u"SELECT count(*) FROM " + quoted(library.tableName));
}

RecordCursor LibraryStore::records(const Library &library, qint64 limit)
{
    if (const Outcome<> checked = checkLibrary(library); !checked)
        return checked.failure();
    QSqlQuery query(database());
    // The cursor reports if that fails.
    (void)execute(query, recordsOf(library) + u" ORDER BY 1 LIMIT ?", {limit});
    return {std::move(query), library};
}

Outcome<QSet<QString>> LibraryStore::usedMedia()
{
    const Outcome<QList<Library>> all = libraries();
    if (!all)
        return all.failure();
    QSet<QString> used;
    for (const Library &library : *all) {
        const Outcome<> added = addUsedMedia(library, &used);
        if (!added)
            return added.failure();
    }
    return used;
}

/// Looks at all columns: who has a file's URL as a text still names the file.
Outcome<> LibraryStore::addUsedMedia(const Library &library, QSet<QString> *used)
{
    Outcome<> outcome = needTable(library.tableName);
    for (qsizetype first = 0; outcome && first < library.fields.size(); first += ColumnsAtOnce) {
        const QList<LibraryField> fields = library.fields.mid(first, ColumnsAtOnce);
        const auto rows = allRows(database(), rowsWithMedia(library.tableName, fields), {},
                                  [&](const QSqlQuery &row) {
                                      addMediaIn(row, fields.size(), used);
                                      return true;
                                  });
        outcome = rows ? Outcome<>() : rows.failure();
    }
    return outcome;
}

Outcome<QSet<QString>> LibraryStore::mediaOf(const Library &library)
{
    QSet<QString> media;
    if (const Outcome<> checked = needTable(library.tableName); !checked)
        return checked.failure();
    for (const LibraryField &field : library.fields) {
        if (field.type != FieldType::Media)
            continue;
        const auto values =
            allRows(database(),
                    u"SELECT " + columnIn(library.tableName, field.columnName) + u" FROM " +
                        quoted(library.tableName),
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
    if (const Outcome<> opened = needWriting(); !opened)
        return opened;
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
    return needWriting().andThen([this] { return run(u"BEGIN IMMEDIATE"_s); });
}

Outcome<> LibraryStore::commit()
{
    _insertion.reset();
    return run(u"COMMIT"_s);
}

void LibraryStore::rollback()
{
    _insertion.reset();
    QSqlQuery(database()).exec(u"ROLLBACK"_s);
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
    QSqlQuery query(database());
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
    QSqlQuery query(database());
    return execute(query, u"INSERT INTO cobble_field VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s,
                   {tableName, position, field.columnName, field.header, field.label,
                    field.propertyName, FieldTypes::nameOf(field.type),
                    optionsText(field.options)});
}

Outcome<> LibraryStore::prepareInsertion(const Library &library)
{
    const QStringList places(library.fields.size(), u"?"_s);
    _insertion.emplace(database());
    const bool isPrepared =
        _insertion->prepare(u"INSERT INTO " + quoted(library.tableName) + u" (" +
                            columnsOf(library) + u") VALUES (" + places.join(u',') + u')');
    return outcomeOf(*_insertion, isPrepared);
}

Outcome<> LibraryStore::remove(const Library &library)
{
    for (const QStringView table : {u"cobble_library", u"cobble_field"}) {
        QSqlQuery query(database());
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
    if (const Outcome<> opened = needWriting(); !opened)
        return opened;
    QSqlQuery query(database());
    return executeOnRecord(query,
                           u"UPDATE " + quoted(library.tableName) + u" SET " +
                               quoted(library.fields.at(field).columnName) + u" = ? WHERE id = ?",
                           {StoredValue::forDatabase(value), id});
}

Outcome<> LibraryStore::removeRecord(const Library &library, qint64 id)
{
    if (const Outcome<> opened = needWriting(); !opened)
        return opened;
    QSqlQuery query(database());
    return executeOnRecord(query, u"DELETE FROM " + quoted(library.tableName) + u" WHERE id = ?",
                           {id});
}

qint64 LibraryStore::dataVersion()
{
    const Outcome<qint64> version = number(u"PRAGMA data_version"_s);
    return version ? *version + _versionsBefore : -1;
}

/// Goes on counting where the connection for reading was. A change that was made meanwhile counts.
void LibraryStore::followVersionsOf(const DatabaseConnection &reading)
{
    const qint64 own = dataVersion();
    QSqlQuery query(reading.database());
    query.exec(u"PRAGMA data_version"_s);
    const qint64 last = query.next() ? query.value(0).toLongLong() : -1;
    // Of the database behind a copy nothing is known.
    const bool isKnown = last >= 0 && !_copy;
    _versionsBefore = last - own + (isKnown ? 0 : 1);
}

void LibraryStore::setPatience(int milliseconds)
{
    _patience = milliseconds;
    // Without it, windows wait longer.
    (void)run(u"PRAGMA busy_timeout = %1"_s.arg(milliseconds));
}
