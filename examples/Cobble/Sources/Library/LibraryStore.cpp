#include "LibraryStore.h"

#include "BundleCheck.h"
#include "DatabaseConnection.h"
#include "DatabaseCopy.h"
#include "DatabaseTables.h"
#include "IdsInTable.h"
#include "JournalTables.h"
#include "LibraryCatalogue.h"
#include "LibraryTable.h"
#include "MediaInTables.h"
#include "SQL.h"
#include "StoredValue.h"
#include "Text/Reasons.h"

#include <KTUtility/NSFileManager>

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {
QString columnsOf(const Library &library)
{
    QStringList names;
    for (const LibraryField &field : library.fields)
        names += SQL::quoted(field.columnName);
    return names.join(u", "_s);
}
} // namespace

Outcome<std::unique_ptr<LibraryStore>> LibraryStore::open(const KTDatabaseBundle &bundle, Mode mode)
{
    std::unique_ptr<LibraryStore> store(new LibraryStore(bundle));
    const Outcome<> ready =
        store->checkBundle(mode)
            .andThen([&] {
                return mode == Mode::Create ? store->openForWriting() : store->openForReading();
            })
            .andThen([&] { return LibraryCatalogue::checkVersion(store->database()); });
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
    const Outcome<> outcome =
        opened.andThen([this] { return DatabaseTables::checkNoTriggers(database()); });
    _isForWriting = bool(outcome);
    return outcome;
}

Outcome<> LibraryStore::connect(const QString &path, DatabaseConnection::Access access)
{
    auto connection = std::make_unique<DatabaseConnection>(path, access);
    const Outcome<> opened = connection->open();
    if (!opened)
        return opened;
    _insertion.reset();
    _staged.reset();
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

// --- Reading

/// Fails for a library that only a damaged catalogue has.
Outcome<> LibraryStore::checkLibrary(const Library &library)
{
    if (library.fields.isEmpty())
        return Failure{Reasons::tr("the library has no fields")};
    return checkTable(library);
}

/// Fails for a library whose table has not what its fields need.
Outcome<> LibraryStore::checkTable(const Library &library)
{
    return DatabaseTables::need(database(), library.tableName).andThen([&] {
        return LibraryCatalogue::checkColumns(database(), library);
    });
}

Outcome<QList<Library>> LibraryStore::libraries()
{
    return LibraryCatalogue::libraries(database());
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
    const Outcome<> checked = DatabaseTables::need(database(), library.tableName);
    if (!checked)
        return checked.failure();
    return SQL::number(database(), u"SELECT count(*) FROM " + SQL::quoted(library.tableName));
}

RecordCursor LibraryStore::records(const Library &library, qint64 limit)
{
    RecordPart part;
    part.limit = limit;
    return records(library, part);
}

RecordCursor LibraryStore::records(const Library &library, const RecordPart &part)
{
    if (const Outcome<> checked = checkLibrary(library); !checked)
        return checked.failure();
    QSqlQuery query(database());
    // The cursor reports if that fails.
    (void)SQL::execute(query, part.statementFor(library));
    return {std::move(query), library};
}

Outcome<RecordIds> LibraryStore::recordIds(const Library &library)
{
    const Outcome<> checked = checkLibrary(library);
    return checked ? idsInTable(database(), library) : checked.failure();
}

Outcome<QSet<QString>> LibraryStore::usedMedia()
{
    const Outcome<QList<Library>> all = libraries();
    if (!all)
        return all.failure();
    Outcome<QSet<QString>> used = JournalTables::usedMedia(database());
    for (const Library &library : *all) {
        const Outcome<QSet<QString>> some = MediaInTables::urlsIn(database(), library.tableName);
        if (!used || !some)
            return used ? some : used;
        *used += *some;
    }
    return used;
}

Outcome<QSet<QString>> LibraryStore::mediaOf(const Library &library)
{
    QSet<QString> media;
    if (const Outcome<> checked = DatabaseTables::need(database(), library.tableName); !checked)
        return checked.failure();
    for (const LibraryField &field : library.fields) {
        if (field.type != FieldType::Media)
            continue;
        const auto values =
            SQL::texts(database(), u"SELECT " + SQL::columnIn(library.tableName, field.columnName) +
                                       u" FROM " + SQL::quoted(library.tableName));
        if (!values)
            return values.failure();
        media += QSet<QString>(values->begin(), values->end());
    }
    return media;
}

Outcome<QStringList> LibraryStore::tableNames()
{
    return DatabaseTables::names(database());
}

// --- Writing

Outcome<> LibraryStore::begin()
{
    if (const Outcome<> opened = needWriting(); !opened)
        return opened;
    // Others can read until all is written.
    (void)SQL::run(database(), u"PRAGMA main.cache_spill = 2147483647"_s);
    return beginChange().andThen([this] { return LibraryCatalogue::need(database()); });
}

Outcome<> LibraryStore::beginChange()
{
    const Outcome<> begun =
        needWriting().andThen([this] { return SQL::run(database(), u"BEGIN IMMEDIATE"_s); });
    _isChanging = _isChanging || begun;
    return begun;
}

Outcome<> LibraryStore::commit()
{
    _insertion.reset();
    const Outcome<> finished = _staged ? _staged->finish() : Outcome<>();
    _staged.reset();
    const Outcome<> committed =
        finished.andThen([this] { return SQL::run(database(), u"COMMIT"_s); });
    _isChanging = _isChanging && !committed;
    return committed;
}

void LibraryStore::rollback()
{
    _insertion.reset();
    _staged.reset();
    _isChanging = false;
    QSqlQuery(database()).exec(u"ROLLBACK"_s);
}

Outcome<> LibraryStore::transaction(const std::function<Outcome<>()> &changes)
{
    if (_isChanging)
        return changes();
    const Outcome<> begun = beginChange();
    if (!begun)
        return begun;
    // Also if what changes throws.
    auto takingBack = qScopeGuard([this] { rollback(); });
    const Outcome<> changed = changes().andThen([this] { return commit(); });
    if (changed)
        takingBack.dismiss();
    return changed;
}

Outcome<> LibraryStore::create(const Library &library)
{
    _created = library.tableName;
    return LibraryCatalogue::add(database(), library)
        .andThen([&] { return LibraryTable::make(database(), library); })
        .andThen([&] { return prepareInsertion(library); });
}

Outcome<> LibraryStore::remove(const Library &library)
{
    return DatabaseTables::need(database(), library.tableName).andThen([&] {
        return LibraryCatalogue::remove(database(), library.tableName);
    });
}

Outcome<> LibraryStore::prepareInsertion(const Library &library)
{
    _insertion.emplace(database());
    const bool isPrepared = _insertion->prepare(u"INSERT INTO " + SQL::quoted(library.tableName) +
                                                u" (" + columnsOf(library) + u") VALUES (" +
                                                SQL::placesFor(library.fields.size()) + u')');
    return SQL::outcomeOf(*_insertion, isPrepared);
}

Outcome<> LibraryStore::insert(const QVariantList &values)
{
    for (qsizetype column = 0; column < values.size(); ++column)
        _insertion->bindValue(int(column), StoredValue::forDatabase(values.at(column)));
    return SQL::outcomeOf(*_insertion, _insertion->exec());
}

Outcome<> LibraryStore::insertStored(const QVariantList &values)
{
    if (!_staged) {
        auto staged = StagedRows::begin(database(), _created);
        if (!staged)
            return staged.failure();
        _staged = std::move(*staged);
    }
    return _staged->add(values);
}

// --- Single records

Outcome<> LibraryStore::update(const Library &library, qint64 id, qsizetype field,
                               const QVariant &value)
{
    if (const Outcome<> opened = needWriting(); !opened)
        return opened;
    return SQL::runOnRecord(database(),
                            u"UPDATE " + SQL::quoted(library.tableName) + u" SET " +
                                SQL::quoted(library.fields.at(field).columnName) +
                                u" = ? WHERE id = ?",
                            {StoredValue::forDatabase(value), id});
}

Outcome<> LibraryStore::removeRecord(const Library &library, qint64 id)
{
    if (const Outcome<> opened = needWriting(); !opened)
        return opened;
    return SQL::runOnRecord(
        database(), u"DELETE FROM " + SQL::quoted(library.tableName) + u" WHERE id = ?", {id});
}

qint64 LibraryStore::dataVersion()
{
    const Outcome<qint64> version = SQL::number(database(), u"PRAGMA data_version"_s);
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
    (void)SQL::run(database(), u"PRAGMA busy_timeout = %1"_s.arg(milliseconds));
}
