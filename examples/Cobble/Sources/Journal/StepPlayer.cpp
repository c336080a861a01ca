#include "StepPlayer.h"

#include "JournalKinds.h"
#include "Library/DatabaseTables.h"
#include "Library/JournalBin.h"
#include "Library/LibraryCatalogue.h"
#include "Library/SQL.h"
#include "Text/Reasons.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
struct Part
{
    QString kind;
    QString table;
    QByteArray content;
};

Part partIn(const QSqlQuery &row)
{
    return {row.value(0).toString(), row.value(1).toString(), row.value(2).toByteArray()};
}

Failure unreadable()
{
    return {.reason = Reasons::tr("the step cannot be read"), .isFinal = true};
}

/// Without the columns that the table no longer has.
RecordChange withColumnsOf(const LibraryTable &table, const RecordChange &change)
{
    RecordChange result{change.id, {}, {}, {}};
    const auto append = [](std::optional<QVariantList> *to, const std::optional<QVariantList> &from,
                           qsizetype place) {
        if (from)
            *to = to->value_or(QVariantList()) + QVariantList{from->at(place)};
    };
    for (qsizetype place = 0; place < change.columns.size(); ++place) {
        if (!table.columns().contains(change.columns.at(place)))
            continue;
        result.columns += change.columns.at(place);
        append(&result.before, change.before, place);
        append(&result.after, change.after, place);
    }
    return result;
}

QStringList columnNamesOf(const Library &library)
{
    QStringList columns;
    for (const LibraryField &field : library.fields)
        columns += field.columnName;
    return columns;
}

/// Whether the field of a column has another column in the other library.
bool hasOtherColumn(const Library &library, const Library &other, const QString &column)
{
    const QStringList columns = columnNamesOf(library);
    const QStringList others = columnNamesOf(other);
    const qsizetype place = columns.indexOf(column);
    return place >= 0 && columns.size() == others.size() && !others.contains(column) &&
           !columns.contains(others.at(place));
}

/// Whether a change, or undoing it, is one of a field's type, which gives the field another column.
bool replacesColumn(const CatalogueChange &change, const QString &column)
{
    return change.before && change.after &&
           (hasOtherColumn(*change.before, *change.after, column) ||
            hasOtherColumn(*change.after, *change.before, column));
}

bool isOurs(const QString &table)
{
    return table.startsWith(u"cobble_", Qt::CaseInsensitive) ||
           table.startsWith(u"sqlite_", Qt::CaseInsensitive);
}
} // namespace

Failure StepPlayer::conflict() const
{
    return {.reason = isUndo() ? Reasons::tr("it was changed since, so that it cannot be undone")
                               : Reasons::tr("it was changed since, so that it cannot be redone"),
            .isFinal = true};
}

/// For what cannot be found: it was changed, unless only looking has failed.
Failure StepPlayer::conflictUnless(const Failure &failure) const
{
    return failure.isFinal ? conflict() : failure;
}

Outcome<> StepPlayer::play()
{
    const auto places = SQL::rows(
        _database, u"SELECT place FROM cobble_step_change WHERE step = ? ORDER BY place * ?"_s,
        {_step, isUndo() ? -1 : 1}, [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
    if (!places)
        return places.failure();
    Outcome<> played;
    for (const qint64 place : *places)
        played = played.andThen([&] { return playPart(place); });
    return played;
}

Outcome<> StepPlayer::playPart(qint64 place)
{
    const auto parts = SQL::rows(_database,
                                 u"SELECT kind, table_name, content FROM cobble_step_change "
                                 "WHERE step = ? AND place = ?"_s,
                                 {_step, place}, partIn);
    if (!parts)
        return parts.failure();
    const Part part = parts->value(0);
    if (part.kind == JournalKinds::Records)
        return playRecords(place, part.table, part.content);
    return part.kind == JournalKinds::Catalogue ? playCatalogue(part.content) : unreadable();
}

// --- Records

Outcome<> StepPlayer::playRecords(qint64 place, const QString &tableName, const QByteArray &content)
{
    Outcome<QList<RecordChange>> changes = RecordChanges::read(content);
    if (!changes)
        return changes.failure();
    Outcome<LibraryTable> table = openTable(tableName);
    if (!table)
        return table.failure();
    if (isUndo())
        std::reverse(changes->begin(), changes->end());
    _isAmended = false;
    Outcome<> played;
    for (RecordChange &change : *changes)
        played = played.andThen([&] { return playRecord(*table, &change); });
    return played.andThen([&] { return keepChanges(place, *std::move(changes)); });
}

/// Writes the changes again if they say more than before.
Outcome<> StepPlayer::keepChanges(qint64 place, QList<RecordChange> changes)
{
    if (!_isAmended)
        return {};
    if (isUndo())
        std::reverse(changes.begin(), changes.end());
    RecordChanges written;
    for (const RecordChange &change : std::as_const(changes))
        written.add(change);
    return SQL::run(_database,
                    u"UPDATE cobble_step_change SET content = ? WHERE step = ? AND place = ?"_s,
                    {written.bytes(), _step, place});
}

Outcome<LibraryTable> StepPlayer::openTable(const QString &tableName)
{
    const auto library = LibraryCatalogue::libraryOf(_database, tableName);
    if (!library)
        return conflictUnless(library.failure());
    _fieldColumns = columnNamesOf(*library);
    // The changes of many records come in many parts, of the same table.
    const Outcome<> found = tableName == _lookedAt ? Outcome<>() : findReplacedColumns(tableName);
    _lookedAt = found ? tableName : QString();
    return found ? LibraryTable::open(_database, tableName) : found.failure();
}

/// What is written into these would not be in the field: it has another column meanwhile.
Outcome<> StepPlayer::findReplacedColumns(const QString &tableName)
{
    _replacedColumns.clear();
    const auto put = SQL::rows(
        _database,
        u"SELECT number, column_name FROM cobble_bin JOIN cobble_step ON number = step WHERE "
        "table_name = ? AND CASE WHEN number > ? THEN is_done ELSE NOT is_done END"_s,
        {tableName, _step}, [](const QSqlQuery &row) {
            return std::pair(row.value(0).toLongLong(), row.value(1).toString());
        });
    if (!put)
        return put.failure();
    for (const auto &[step, column] : *put) {
        const Outcome<bool> isReplaced = hasReplaced(step, column);
        if (!isReplaced)
            return isReplaced.failure();
        if (*isReplaced)
            _replacedColumns += column;
    }
    return {};
}

/// Whether a step has given the field of a column another column, so another type.
Outcome<bool> StepPlayer::hasReplaced(qint64 step, const QString &column)
{
    const auto contents = SQL::rows(
        _database, u"SELECT content FROM cobble_step_change WHERE step = ? AND kind = ?"_s,
        {step, JournalKinds::Catalogue},
        [](const QSqlQuery &row) { return row.value(0).toByteArray(); });
    if (!contents)
        return contents.failure();
    return std::ranges::any_of(*contents, [&](const QByteArray &content) {
        const Outcome<CatalogueChange> change = CatalogueChange::read(content);
        return change && replacesColumn(*change, column);
    });
}

/// Whether a field of which the change has a value has got another type, or its former one.
bool StepPlayer::hasOtherType(const RecordChange &change) const
{
    const auto hasValue = [](const std::optional<QVariantList> &values, qsizetype place) {
        return values && !values->at(place).isNull();
    };
    for (qsizetype place = 0; place < change.columns.size(); ++place) {
        if (_replacedColumns.contains(change.columns.at(place)) &&
            (hasValue(change.before, place) || hasValue(change.after, place)))
            return true;
    }
    return false;
}

Failure StepPlayer::typeConflict() const
{
    return {.reason = isUndo() ? Reasons::tr("a field has another type since, so that it cannot be "
                                             "undone")
                               : Reasons::tr("a field has another type since, so that it cannot be "
                                             "redone"),
            .isFinal = true};
}

/// Whether it is there as the change has left it, and can be given back what it was.
Outcome<> StepPlayer::checkRecord(LibraryTable &table, const RecordChange &change)
{
    const std::optional<QVariantList> &from = isUndo() ? change.after : change.before;
    // All its fields are gone.
    if (change.columns.isEmpty() || (!change.before && !change.after))
        return conflict();
    if (hasOtherType(change))
        return typeConflict();
    const auto there = table.valuesOf(change.id, change.columns);
    if (!there)
        return there.failure();
    const bool isSame =
        there->has_value() == from.has_value() && (!from || LibraryTable::areEqual(**there, *from));
    return isSame ? Outcome<>() : conflict();
}

/// Takes down what a record that goes has in columns that are newer than the change. What only undone
/// steps know would not come back with them; what is in a field is a conflict.
Outcome<> StepPlayer::keepOthers(LibraryTable &table, RecordChange *change)
{
    QStringList others = table.columns();
    others.removeIf([&](const QString &column) { return change->columns.contains(column); });
    if (others.isEmpty())
        return {};
    const auto values = table.valuesOf(change->id, others);
    if (!values)
        return values.failure();
    for (qsizetype place = 0; *values && place < others.size(); ++place) {
        if ((*values)->at(place).isNull())
            continue;
        if (_fieldColumns.contains(others.at(place)))
            return conflict();
        change->columns += others.at(place);
        (isUndo() ? change->after : change->before)->append((*values)->at(place));
        _isAmended = true;
    }
    return {};
}

Outcome<> StepPlayer::playRecord(LibraryTable &table, RecordChange *recorded)
{
    const RecordChange change = withColumnsOf(table, *recorded);
    const std::optional<QVariantList> &from = isUndo() ? change.after : change.before;
    const std::optional<QVariantList> &to = isUndo() ? change.before : change.after;
    _effect.records[table.name()].push_back(change.id);
    if (const Outcome<> checked = checkRecord(table, change); !checked)
        return checked;
    if (!to)
        return keepOthers(table, recorded)
            .andThen([&] { return _numbers.keep(table.name(), change.id); })
            .andThen([&] { return table.remove(change.id); });
    if (from)
        return table.update(change.id, change.columns, *to);
    const auto inserted = table.insert(change.id, change.columns, *to);
    return inserted ? Outcome<>() : inserted.failure();
}

// --- The catalogue

Outcome<> StepPlayer::playCatalogue(const QByteArray &content)
{
    const Outcome<CatalogueChange> change = CatalogueChange::read(content);
    if (!change)
        return change.failure();
    const std::optional<Library> &from = isUndo() ? change->after : change->before;
    const std::optional<Library> &to = isUndo() ? change->before : change->after;
    const QString table = (from ? from : to)->tableName;
    if (isOurs(table) || (from && to && from->tableName != to->tableName))
        return unreadable();
    _effect.libraries += table;
    _lookedAt = QString();
    return checkThere(from, to)
        .andThen([&] { return moveTable(from, to); })
        .andThen([&] { return LibraryCatalogue::remove(_database, table); })
        .andThen([&] { return to ? addEntries(*to) : Outcome<>(); });
}

Outcome<> StepPlayer::addEntries(const Library &library)
{
    return checkNameIsFree(library.name).andThen([&] {
        return LibraryCatalogue::add(_database, library);
    });
}

Outcome<> StepPlayer::checkThere(const std::optional<Library> &from,
                                 const std::optional<Library> &to)
{
    const Library &any = from ? *from : *to;
    const Outcome<Library> there = LibraryCatalogue::libraryOf(_database, any.tableName);
    if (!there && !there.failure().isFinal)
        return there.failure();
    if (bool(there) != from.has_value() || (from && !CatalogueChange::areEqual(*there, *from)))
        return conflict();
    return to ? checkColumns(*to) : Outcome<>();
}

/// Fails for a library whose fields the table does not have.
Outcome<> StepPlayer::checkColumns(const Library &library)
{
    const Outcome<LibraryTable> table = LibraryTable::open(_database, library.tableName);
    if (!table)
        return conflictUnless(table.failure());
    if (library.fields.isEmpty())
        return conflict();
    const Outcome<> checked = LibraryCatalogue::checkColumns(_database, library);
    return checked ? Outcome<>() : conflictUnless(checked.failure());
}

Outcome<> StepPlayer::checkNameIsFree(const QString &name)
{
    const Outcome<qint64> count =
        SQL::number(_database, u"SELECT count(*) FROM cobble_library WHERE name = ?"_s, {name});
    if (!count)
        return count.failure();
    return *count == 0
               ? Outcome<>()
               : Failure{.reason =
                             Reasons::tr("there is another library of the name “%1”").arg(name),
                         .isFinal = true};
}

/// Puts what goes into the bin, and takes out of it what comes back.
Outcome<> StepPlayer::moveTable(const std::optional<Library> &from,
                                const std::optional<Library> &to)
{
    if (from && to)
        return moveColumns(*from, *to);
    return from ? putAway(from->tableName) : JournalBin::take(_database, _step, to->tableName);
}

Outcome<> StepPlayer::moveColumns(const Library &from, const Library &to)
{
    const QStringList before = columnNamesOf(from);
    const QStringList after = columnNamesOf(to);
    Outcome<> moved;
    for (const QString &column : before) {
        if (moved && !after.contains(column))
            moved = putAway(from.tableName, column);
    }
    for (const QString &column : after) {
        if (moved && !before.contains(column))
            moved = JournalBin::take(_database, _step, from.tableName, column);
    }
    return moved;
}

Outcome<> StepPlayer::putAway(const QString &table, const QString &column)
{
    return checkNothingLater(table).andThen(
        [&] { return JournalBin::put(_database, _step, table, column); });
}

/// With a table or a column, what later steps have put into it would go.
Outcome<> StepPlayer::checkNothingLater(const QString &tableName)
{
    const Outcome<qint64> count = SQL::number(
        _database,
        u"SELECT count(*) FROM cobble_step_change AS later JOIN cobble_step ON number = later.step "
        "WHERE is_done AND later.step > ? AND later.table_name = ?"_s,
        {_step, tableName});
    if (!count)
        return count.failure();
    return *count == 0 ? Outcome<>() : conflict();
}
