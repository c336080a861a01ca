#include "JournalTables.h"

#include "DatabaseTables.h"
#include "JournalBin.h"
#include "SQL.h"
#include "Text/Reasons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
struct JournalTable
{
    QString name;
    /// As SQLite keeps it.
    QString definition;
};

const QList<JournalTable> &journalTables()
{
    static const QList<JournalTable> tables = {
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

Failure foreignTables()
{
    return {.reason = Reasons::tr("the history cannot be read"), .isFinal = true};
}

/// \return how many of the tables are there, as they should be.
Outcome<qint64> countTables(const QSqlDatabase &database)
{
    qint64 count = 0;
    for (const JournalTable &table : journalTables()) {
        const Outcome<QStringList> definitions =
            SQL::texts(database, u"SELECT sql FROM sqlite_master WHERE name = ? COLLATE NOCASE"_s,
                       {table.name});
        if (!definitions)
            return definitions.failure();
        if (!definitions->isEmpty() && *definitions != QStringList(table.definition))
            return foreignTables();
        count += definitions->size();
    }
    return count;
}

/// Indices could refuse what is added, and numbers that are spent could, too.
Outcome<> checkContent(const QSqlDatabase &database)
{
    const Outcome<qint64> indices = SQL::number(
        database, u"SELECT count(*) FROM sqlite_master WHERE type <> 'table' AND sql IS NOT NULL "
                  "AND tbl_name COLLATE NOCASE IN ('cobble_step', 'cobble_step_change', "
                  "'cobble_step_media', 'cobble_bin')"_s);
    const Outcome<qint64> numbers =
        SQL::number(database, u"SELECT (SELECT count(*) FROM cobble_step WHERE number NOT BETWEEN "
                              "1 AND 1000000000000) + (SELECT count(*) FROM sqlite_sequence WHERE "
                              "name = 'cobble_step' AND (typeof(seq) <> 'integer' OR seq NOT "
                              "BETWEEN 0 AND 1000000000000))"_s);
    if (!indices || !numbers)
        return indices ? numbers.failure() : indices.failure();
    return *indices == 0 && *numbers == 0 ? Outcome<>() : foreignTables();
}

Outcome<> makeTables(const QSqlDatabase &database)
{
    Outcome<> made;
    for (const JournalTable &table : journalTables())
        made = made.andThen([&] { return SQL::run(database, table.definition); });
    return made;
}

Outcome<> dropTables(const QSqlDatabase &database)
{
    Outcome<> dropped;
    for (const JournalTable &table : journalTables())
        dropped = dropped.andThen(
            [&] { return SQL::run(database, u"DROP TABLE IF EXISTS " + SQL::quoted(table.name)); });
    return dropped;
}
} // namespace

Outcome<bool> JournalTables::areThere(const QSqlDatabase &database)
{
    const Outcome<qint64> count = countTables(database);
    if (!count)
        return count.failure();
    if (*count == 0)
        return false;
    if (*count < journalTables().size())
        return foreignTables();
    const Outcome<> checked = checkContent(database);
    if (!checked)
        return checked.failure();
    return true;
}

Outcome<> JournalTables::need(const QSqlDatabase &database)
{
    const Outcome<bool> isThere = areThere(database);
    if (isThere && *isThere)
        return {};
    return dropTables(database).andThen([&] { return makeTables(database); });
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
