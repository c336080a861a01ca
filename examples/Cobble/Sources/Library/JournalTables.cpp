#include "JournalTables.h"

#include "DatabaseTables.h"
#include "JournalBin.h"
#include "SQL.h"
#include "Text/Reasons.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
/// Numbers behind these count as nearly spent. Journals that are made anew go on after half of them
/// at the most.
constexpr qint64 LargestStep = 1'000'000'000'000;

const QList<OwnTable> &journalTables()
{
    static const QList<OwnTable> tables = {
        {u"cobble_step"_s,
         u"CREATE TABLE cobble_step (number INTEGER PRIMARY KEY AUTOINCREMENT, kind TEXT, "
         "parameters TEXT, time TEXT, is_done INTEGER, size INTEGER)"_s},
        {u"cobble_step_change"_s,
         u"CREATE TABLE cobble_step_change (step INTEGER, place INTEGER, kind TEXT, "
         "table_name TEXT, content BLOB, PRIMARY KEY (step, place))"_s},
        {u"cobble_step_media"_s,
         u"CREATE TABLE cobble_step_media (step INTEGER, url TEXT, PRIMARY KEY (step, url))"_s},
        {u"cobble_bin"_s,
         u"CREATE TABLE cobble_bin (step INTEGER, table_name TEXT, column_name TEXT, "
         "PRIMARY KEY (table_name, column_name))"_s},
    };
    return tables;
}

/// Does the same with each of the tables, until that fails.
Outcome<> eachJournalTable(const std::function<Outcome<>(const OwnTable &)> &perform)
{
    Outcome<> done;
    for (const OwnTable &table : journalTables())
        done = done.andThen([&] { return perform(table); });
    return done;
}

/// Numbers that are spent would refuse what is added.
Outcome<OwnTable::State> stateOfNumbers(const QSqlDatabase &database)
{
    const Outcome<qint64> bad =
        SQL::number(database,
                    u"SELECT (SELECT count(*) FROM cobble_step WHERE number NOT BETWEEN "
                    "1 AND ?) + (SELECT count(*) FROM sqlite_sequence WHERE "
                    "name = 'cobble_step' AND (typeof(seq) <> 'integer' OR seq NOT "
                    "BETWEEN 0 AND ?))"_s,
                    {LargestStep, LargestStep});
    if (!bad)
        return bad.failure();
    return *bad == 0 ? OwnTable::State::Ours : OwnTable::State::Foreign;
}

/// The greatest number of a step in a column of a table that may be anybody's.
Outcome<qint64> greatestStepIn(const QSqlDatabase &database, const QString &table,
                               const QString &column)
{
    const Outcome<bool> isThere = DatabaseTables::has(database, table);
    if (!isThere && !isThere.failure().isFinal)
        return isThere.failure();
    const Outcome<QStringList> columns = DatabaseTables::columnsOf(database, table);
    if (!columns)
        return columns.failure();
    // What is no table has no steps.
    if (!isThere.valueOr(false) || !columns->contains(column))
        return 0;
    const QString name = SQL::columnIn(table, column);
    return SQL::number(database,
                       u"SELECT max(%1) FROM %2 WHERE typeof(%1) = 'integer' AND %1 BETWEEN 0 AND "
                       "?"_s.arg(name, SQL::quoted(table)),
                       {LargestStep / 2});
}

/// Where numbers of steps are.
const QList<std::pair<QString, QString>> &stepColumns()
{
    static const QList<std::pair<QString, QString>> columns = {{u"cobble_step"_s, u"number"_s},
                                                               {u"cobble_step_change"_s, u"step"_s},
                                                               {u"cobble_step_media"_s, u"step"_s},
                                                               {u"cobble_bin"_s, u"step"_s},
                                                               {u"sqlite_sequence"_s, u"seq"_s}};
    return columns;
}

/// The greatest number that steps have had.
Outcome<qint64> greatestStep(const QSqlDatabase &database)
{
    qint64 greatest = 0;
    for (const auto &[table, column] : stepColumns()) {
        const Outcome<qint64> some = greatestStepIn(database, table, column);
        if (!some)
            return some;
        greatest = std::max(greatest, *some);
    }
    return greatest;
}

Outcome<> setGreatestStep(const QSqlDatabase &database, qint64 number)
{
    return SQL::run(database, u"DELETE FROM sqlite_sequence WHERE name = 'cobble_step'"_s)
        .andThen([&] {
            return SQL::run(database,
                            u"INSERT INTO sqlite_sequence (name, seq) VALUES ('cobble_step', ?)"_s,
                            {number});
        });
}
} // namespace

Outcome<OwnTable::State> JournalTables::stateIn(const QSqlDatabase &database)
{
    using State = OwnTable::State;
    qsizetype count = 0;
    for (const OwnTable &table : journalTables()) {
        const Outcome<State> state = table.stateIn(database);
        if (!state || *state == State::Foreign)
            return state;
        count += *state == State::Ours ? 1 : 0;
    }
    if (count == 0)
        return State::Missing;
    return count < journalTables().size() ? State::Foreign : stateOfNumbers(database);
}

Outcome<bool> JournalTables::areThere(const QSqlDatabase &database)
{
    const Outcome<OwnTable::State> state = stateIn(database);
    if (!state)
        return state.failure();
    if (*state == OwnTable::State::Foreign)
        return Failure{.reason = Reasons::tr("the history cannot be read"), .isFinal = true};
    return *state == OwnTable::State::Ours;
}

Outcome<> JournalTables::make(const QSqlDatabase &database)
{
    return eachJournalTable([&](const OwnTable &table) { return table.make(database); });
}

Outcome<> JournalTables::makeAnew(const QSqlDatabase &database)
{
    const Outcome<qint64> number = greatestStep(database);
    if (!number)
        return number.failure();
    return eachJournalTable([&](const OwnTable &table) { return table.drop(database); })
        .andThen([&] { return make(database); })
        .andThen([&] { return setGreatestStep(database, *number); });
}

Outcome<> JournalTables::dropIndices(const QSqlDatabase &database)
{
    return eachJournalTable([&](const OwnTable &table) { return table.dropIndices(database); });
}

Outcome<QSet<QString>> JournalTables::usedMedia(const QSqlDatabase &database)
{
    const Outcome<bool> isThere = areThere(database);
    if (!isThere)
        return isThere.failure();
    if (!*isThere)
        return QSet<QString>();
    const auto urls = SQL::texts(database, u"SELECT url FROM cobble_step_media"_s);
    Outcome<QSet<QString>> inBin = JournalBin::media(database);
    if (!urls || !inBin)
        return urls ? inBin.failure() : urls.failure();
    *inBin += QSet<QString>(urls->begin(), urls->end());
    return inBin;
}
