#include "StepRecorder.h"

#include "JournalKinds.h"
#include "Library/DatabaseTables.h"
#include "Library/JournalBin.h"
#include "Library/LibraryCatalogue.h"
#include "Library/LibraryNames.h"
#include "Library/MediaInTables.h"
#include "Library/SQL.h"
#include "Library/StoredValue.h"
#include "Text/Reasons.h"

#include <KTUtility/NSString_KTNaming>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
/// How much of the changes to records is written at once, in bytes.
constexpr qsizetype LargestPart = qsizetype(1) << 20;

Failure recordIsGone()
{
    return {Reasons::tr("the record is no longer there")};
}

QStringList columnsOf(const Library &library)
{
    QStringList columns;
    for (const LibraryField &field : library.fields)
        columns += field.columnName;
    return columns;
}

QVariantList storedValues(const QVariantList &values)
{
    QVariantList stored;
    for (const QVariant &value : values)
        stored += StoredValue::forDatabase(value);
    return stored;
}

bool isPermutation(QList<qsizetype> order, qsizetype count)
{
    QList<qsizetype> all(count);
    std::iota(all.begin(), all.end(), 0);
    std::sort(order.begin(), order.end());
    return order == all;
}
/// The numbers of the records that have a value in a column.
Outcome<QList<qint64>> numbersWithValue(const QSqlDatabase &database, const QString &table,
                                        const QString &column)
{
    return SQL::rows(database,
                     u"SELECT " + SQL::columnIn(table, u"id"_s) + u" FROM " + SQL::quoted(table) +
                         u" WHERE " + SQL::columnIn(table, column) + u" IS NOT NULL",
                     {}, [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
}

Outcome<> convertValue(LibraryTable &table, qint64 id, const LibraryField &from,
                       const QString &column, const StepRecorder::Conversion &conversion)
{
    const auto values = table.valuesOf(id, {from.columnName});
    if (!values || !*values)
        return values ? recordIsGone() : values.failure();
    const auto converted =
        conversion(StoredValue::fromDatabase(from.type, (*values)->constFirst()));
    return converted ? table.update(id, {column}, {StoredValue::forDatabase(*converted)})
                     : converted.failure();
}
} // namespace

// --- Records

Outcome<LibraryTable *> StepRecorder::tableOf(const Library &library)
{
    if (_table && _table->name() == library.tableName)
        return &*_table;
    if (const Outcome<> written = writeRecords(); !written)
        return written.failure();
    const Outcome<LibraryTable> table = LibraryTable::open(_database, library.tableName);
    const Outcome<> checked =
        table ? LibraryCatalogue::checkColumns(_database, library) : table.failure();
    if (!checked)
        return checked.failure();
    _table = *table;
    return &*_table;
}

Outcome<qint64> StepRecorder::insert(const Library &library, const QVariantList &values)
{
    // A table that cannot be changed needs no number.
    if (const Outcome<LibraryTable *> table = tableOf(library); !table)
        return table.failure();
    const Outcome<std::optional<qint64>> id = _numbers.next(library.tableName);
    return id ? insertInto(library, *id, values) : id.failure();
}

Outcome<> StepRecorder::insertWithId(const Library &library, qint64 id, const QVariantList &values)
{
    const Outcome<qint64> inserted = insertInto(library, id, values);
    return inserted ? _numbers.take(library.tableName, id) : inserted.failure();
}

Outcome<qint64> StepRecorder::insertInto(const Library &library, const std::optional<qint64> &id,
                                         const QVariantList &values)
{
    const Outcome<LibraryTable *> table = tableOf(library);
    if (!table)
        return table.failure();
    const auto inserted = (*table)->insert(id, columnsOf(library), storedValues(values));
    const Outcome<> noted = inserted ? noteInserted(library, *inserted) : inserted.failure();
    return noted ? inserted : noted.failure();
}

Outcome<> StepRecorder::noteInserted(const Library &library, qint64 id)
{
    const Outcome<LibraryTable *> table = tableOf(library);
    if (!table)
        return table.failure();
    const QStringList &columns = (*table)->columns();
    const auto after = (*table)->valuesOf(id, columns);
    if (!after || !*after)
        return after ? recordIsGone() : after.failure();
    return note({id, columns, std::nullopt, *after});
}

Outcome<> StepRecorder::update(const Library &library, qint64 id, qsizetype field,
                               const QVariant &value)
{
    const Outcome<LibraryTable *> table = tableOf(library);
    if (!table)
        return table.failure();
    const QStringList columns = {library.fields.at(field).columnName};
    const auto before = (*table)->valuesOf(id, columns);
    if (!before || !*before)
        return before ? recordIsGone() : before.failure();
    const Outcome<> updated = (*table)->update(id, columns, {StoredValue::forDatabase(value)});
    if (!updated)
        return updated;
    // As the database has taken it: columns of texts make texts of numbers.
    const auto after = (*table)->valuesOf(id, columns);
    if (!after || !*after)
        return after ? recordIsGone() : after.failure();
    return LibraryTable::areEqual(**before, **after) ? Outcome<>()
                                                     : note({id, columns, *before, *after});
}

Outcome<> StepRecorder::remove(const Library &library, qint64 id)
{
    const Outcome<LibraryTable *> table = tableOf(library);
    if (!table)
        return table.failure();
    const QStringList &columns = (*table)->columns();
    const auto before = (*table)->valuesOf(id, columns);
    if (!before || !*before)
        return before ? recordIsGone() : before.failure();
    return _numbers.keep(library.tableName, id)
        .andThen([&] { return (*table)->remove(id); })
        .andThen([&] {
            return note({id, columns, *before, std::nullopt});
        });
}

// --- Libraries

Outcome<Library> StepRecorder::createLibrary(const Library &library)
{
    if (library.fields.isEmpty())
        return Failure{Reasons::tr("a library needs a field")};
    const Outcome<QStringList> tables = DatabaseTables::names(_database);
    if (!tables)
        return tables.failure();
    const Library made = LibraryNames::completed(library, *tables);
    const Outcome<> outcome = LibraryCatalogue::need(_database)
                                  .andThen([&] { return checkNameIsFree(made.name); })
                                  .andThen([&] { return LibraryTable::make(_database, made); })
                                  .andThen([&] { return LibraryCatalogue::add(_database, made); })
                                  .andThen([&] { return noteCreated(made); });
    return outcome ? Outcome<Library>(made) : outcome.failure();
}

Outcome<Library> StepRecorder::renameLibrary(const Library &library, const QString &name)
{
    Library renamed = library;
    renamed.name = name;
    const Outcome<> isFree = checkNameIsFree(name, library.tableName);
    return isFree ? replace(library, renamed) : isFree.failure();
}

Outcome<> StepRecorder::removeLibrary(const Library &library)
{
    return checkCurrent(library)
        .andThen([&] { return LibraryCatalogue::remove(_database, library.tableName); })
        .andThen([&] { return noteRemoved(library); });
}

// --- Fields

Outcome<Library> StepRecorder::addField(const Library &library, const LibraryField &field,
                                        qsizetype position)
{
    Library after = library;
    LibraryField added = field;
    const Outcome<QString> column = addColumn(library, &added);
    if (!column)
        return column.failure();
    after.fields.insert(position < 0 ? after.fields.size() : position, added);
    return replace(library, after);
}

Outcome<Library> StepRecorder::renameField(const Library &library, qsizetype field,
                                           const QString &title)
{
    Library after = library;
    after.fields[field].header = title;
    after.fields[field].label = KTAdditions::labelString(KTAdditions::propertyString(title));
    return replace(library, after);
}

Outcome<Library> StepRecorder::reorderFields(const Library &library, const QList<qsizetype> &order)
{
    if (!isPermutation(order, library.fields.size()))
        return Failure{Reasons::tr("this is no order of the fields")};
    Library after = library;
    for (qsizetype place = 0; place < order.size(); ++place)
        after.fields[place] = library.fields.at(order.at(place));
    return replace(library, after);
}

Outcome<Library> StepRecorder::changeType(const Library &library, qsizetype field, FieldType type,
                                          const QVariantMap &options, const Conversion &conversion)
{
    Library after = library;
    LibraryField &changed = after.fields[field];
    changed.type = type;
    changed.options = options;
    const QString old = changed.columnName;
    const Outcome<QString> column = addColumn(library, &changed);
    if (!column)
        return column.failure();
    const Outcome<> converted =
        convert(library, field, *column, conversion).andThen([&] { return putAway(library, old); });
    return converted ? replace(library, after) : converted.failure();
}

Outcome<Library> StepRecorder::changeOptions(const Library &library, qsizetype field,
                                             const QVariantMap &options)
{
    Library after = library;
    after.fields[field].options = options;
    return replace(library, after);
}

Outcome<Library> StepRecorder::removeField(const Library &library, qsizetype field)
{
    if (library.fields.size() < 2)
        return Failure{Reasons::tr("a library needs a field")};
    Library after = library;
    const QString column = after.fields.takeAt(field).columnName;
    const Outcome<> isAway = putAway(library, column);
    return isAway ? replace(library, after) : isAway.failure();
}

/// Adds a column for a field, which gets its name.
Outcome<QString> StepRecorder::addColumn(const Library &library, LibraryField *field)
{
    const Outcome<> checked = checkCurrent(library).andThen([this] { return writeRecords(); });
    const Outcome<QStringList> columns = DatabaseTables::columnsOf(_database, library.tableName);
    if (!checked || !columns)
        return checked ? columns.failure() : checked.failure();
    *field = LibraryNames::completed(*field, *columns);
    _table.reset();
    const Outcome<> added =
        SQL::run(_database, u"ALTER TABLE " + SQL::quoted(library.tableName) + u" ADD COLUMN " +
                                LibraryCatalogue::declarationOf(*field));
    return added ? Outcome<QString>(field->columnName) : added.failure();
}

/// The values are read one by one: a column may be of any size.
Outcome<> StepRecorder::convert(const Library &library, qsizetype field, const QString &column,
                                const Conversion &conversion)
{
    const LibraryField &from = library.fields.at(field);
    const auto ids = numbersWithValue(_database, library.tableName, from.columnName);
    Outcome<LibraryTable> table = LibraryTable::open(_database, library.tableName);
    if (!ids || !table)
        return ids ? table.failure() : ids.failure();
    Outcome<> converted;
    for (const qint64 id : *ids)
        converted =
            converted.andThen([&] { return convertValue(*table, id, from, column, conversion); });
    return converted;
}

// --- The catalogue

/// Fails for a library that is no longer as it is thought to be.
Outcome<> StepRecorder::checkCurrent(const Library &library)
{
    const Outcome<Library> current = LibraryCatalogue::libraryOf(_database, library.tableName);
    if (!current)
        return current.failure();
    if (CatalogueChange::areEqual(*current, library))
        return {};
    return Failure{Reasons::tr("the library was changed meanwhile")};
}

/// \param except the table of the library that has the name already.
Outcome<> StepRecorder::checkNameIsFree(const QString &name, const QString &except)
{
    const Outcome<QList<Library>> libraries = LibraryCatalogue::libraries(_database);
    if (!libraries)
        return libraries.failure();
    if (name.trimmed().isEmpty())
        return Failure{Reasons::tr("a library needs a name")};
    const bool isTaken =
        std::any_of(libraries->begin(), libraries->end(), [&](const Library &each) {
            return each.tableName != except && each.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    return isTaken ? Failure{Reasons::tr("there is a library of that name")} : Outcome<>();
}

Outcome<Library> StepRecorder::replace(const Library &before, const Library &after)
{
    const Outcome<> replaced =
        checkCurrent(before)
            .andThen([this] { return writeRecords(); })
            .andThen([&] { return LibraryCatalogue::remove(_database, before.tableName); })
            .andThen([&] { return LibraryCatalogue::add(_database, after); })
            .andThen([&] {
                return write(CatalogueChange{before, after});
            });
    _table.reset();
    return replaced ? Outcome<Library>(after) : replaced.failure();
}

Outcome<> StepRecorder::putAway(const Library &library, const QString &column)
{
    const Outcome<QStringList> columns =
        column.isNull() ? DatabaseTables::columnsOf(_database, library.tableName)
                        : Outcome<QStringList>(QStringList(column));
    if (!columns)
        return columns.failure();
    const Outcome<qint64> size = JournalBin::sizeOf(_database, library.tableName, *columns);
    if (!size)
        return size.failure();
    _size += *size;
    return JournalBin::put(_database, _step, library.tableName, column);
}

Outcome<> StepRecorder::noteCreated(const Library &library)
{
    return writeRecords().andThen([&] { return write(CatalogueChange{std::nullopt, library}); });
}

Outcome<> StepRecorder::noteRemoved(const Library &library)
{
    return writeRecords().andThen([&] { return putAway(library); }).andThen([&] {
        return write(CatalogueChange{library, std::nullopt});
    });
}

// --- Writing down

Outcome<> StepRecorder::note(const RecordChange &change)
{
    _changes.add(change);
    noteMedia(change.before);
    noteMedia(change.after);
    return _changes.bytes().size() < LargestPart ? Outcome<>() : writeRecords();
}

void StepRecorder::noteMedia(const std::optional<QVariantList> &values)
{
    for (const QVariant &value : values.value_or(QVariantList())) {
        if (value.typeId() == QMetaType::QString && MediaInTables::isURL(value))
            _media += value.toString().trimmed();
    }
}

Outcome<> StepRecorder::writeRecords()
{
    if (_changes.bytes().isEmpty())
        return {};
    const QByteArray bytes = std::exchange(_changes, RecordChanges()).bytes();
    return write(JournalKinds::Records, _table->name(), bytes);
}

Outcome<> StepRecorder::write(const CatalogueChange &change)
{
    const QString table = (change.before ? change.before : change.after)->tableName;
    return write(JournalKinds::Catalogue, table, change.bytes());
}

Outcome<> StepRecorder::write(const QString &kind, const QString &table, const QByteArray &content)
{
    _size += content.size();
    return SQL::run(_database, u"INSERT INTO cobble_step_change VALUES (?, ?, ?, ?, ?)"_s,
                    {_step, _place++, kind, table, content});
}

Outcome<> StepRecorder::writeMedia()
{
    Outcome<> written;
    for (const QString &url : std::as_const(_media))
        written = written.andThen([&] {
            return SQL::run(_database, u"INSERT INTO cobble_step_media VALUES (?, ?)"_s,
                            {_step, url});
        });
    return written;
}

Outcome<> StepRecorder::finish()
{
    const Outcome<> written = writeRecords().andThen([this] { return writeMedia(); });
    _table.reset();
    return written;
}
