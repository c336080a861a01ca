#include "SpentNumbers.h"

#include "JournalKinds.h"
#include "Library/NumberTable.h"
#include "Library/SQL.h"
#include "RecordChanges.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 LastOfAll = std::numeric_limits<qint64>::max();

/// The greatest number in the table. What is no whole number, which only somebody else's table has,
/// is none.
Outcome<qint64> greatestIn(const QSqlDatabase &database, const QString &table)
{
    return SQL::number(database,
                       u"SELECT CASE typeof(last) WHEN 'integer' THEN last ELSE 0 END FROM "
                       "(SELECT max(%1) AS last FROM %2)"_s.arg(SQL::columnIn(table, u"id"_s),
                                                                SQL::quoted(table)));
}

/// What cannot be read names no record that could be changed.
qint64 greatestInChanges(const QByteArray &content)
{
    qint64 greatest = 0;
    const auto changes = RecordChanges::read(content).valueOr({});
    for (const RecordChange &change : changes)
        greatest = std::max(greatest, change.id);
    return greatest;
}

/// The greatest number that the journal has of a table.
Outcome<qint64> greatestInJournal(const QSqlDatabase &database, const QString &table)
{
    const auto numbers = SQL::rows(
        database, u"SELECT content FROM cobble_step_change WHERE kind = ? AND table_name = ?"_s,
        {JournalKinds::Records, table},
        [](const QSqlQuery &row) { return greatestInChanges(row.value(0).toByteArray()); });
    if (!numbers)
        return numbers.failure();
    const auto greatest = std::max_element(numbers->begin(), numbers->end());
    return greatest == numbers->end() ? qint64(0) : *greatest;
}
} // namespace

Outcome<std::optional<qint64>> SpentNumbers::next(const QString &table)
{
    const Outcome<Last *> last = lastOf(table);
    if (!last)
        return last.failure();
    if ((*last)->number == LastOfAll)
        return std::optional<qint64>();
    (*last)->number += 1;
    return std::optional((*last)->number);
}

Outcome<> SpentNumbers::take(const QString &table, qint64 number)
{
    const Outcome<Last *> last = lastOf(table);
    if (!last)
        return last.failure();
    (*last)->number = std::max((*last)->number, number);
    return {};
}

Outcome<> SpentNumbers::keep(const QString &table, qint64 number)
{
    return take(table, number).andThen([&] { return write(table, &_last[table]); });
}

Outcome<SpentNumbers::Last *> SpentNumbers::lastOf(const QString &table)
{
    if (const auto known = _last.find(table); known != _last.end())
        return &*known;
    Outcome<Last> last = readLast(table);
    if (!last)
        return last.failure();
    // The journal, which may forget, is asked once.
    const bool isKept = last->kept >= 0;
    if (const Outcome<> written = isKept ? Outcome<>() : write(table, &*last); !written)
        return written.failure();
    return &*_last.insert(table, *last);
}

Outcome<SpentNumbers::Last> SpentNumbers::readLast(const QString &table)
{
    const Outcome<std::optional<qint64>> kept = NumberTable::lastOf(_database, table);
    const Outcome<qint64> present = greatestIn(_database, table);
    if (!kept || !present)
        return kept ? present.failure() : kept.failure();
    if (*kept)
        return Last{std::max(**kept, *present), **kept};
    const Outcome<qint64> past = greatestInJournal(_database, table);
    return past ? Outcome<Last>({std::max(*past, *present), -1}) : past.failure();
}

Outcome<> SpentNumbers::write(const QString &table, Last *last)
{
    if (last->kept >= last->number)
        return {};
    const Outcome<> written = NumberTable::keep(_database, table, last->number);
    last->kept = last->number;
    return written;
}
