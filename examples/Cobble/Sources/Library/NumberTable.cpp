#include "NumberTable.h"

#include "OwnTable.h"
#include "SQL.h"

using namespace Qt::StringLiterals;

namespace {
const OwnTable &numberTable()
{
    static const OwnTable table = {
        u"cobble_number"_s,
        u"CREATE TABLE cobble_number (table_name TEXT PRIMARY KEY, last INTEGER)"_s};
    return table;
}
} // namespace

Outcome<std::optional<qint64>> NumberTable::lastOf(const QSqlDatabase &database,
                                                   const QString &table)
{
    const Outcome<> ready = numberTable().need(database);
    if (!ready)
        return ready.failure();
    const auto last =
        SQL::rows(database,
                  u"SELECT last FROM cobble_number WHERE table_name = ? AND "
                  "typeof(last) = 'integer'"_s,
                  {table}, [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
    if (!last)
        return last.failure();
    return last->isEmpty() ? std::optional<qint64>() : std::optional(last->first());
}

Outcome<> NumberTable::keep(const QSqlDatabase &database, const QString &table, qint64 number)
{
    return SQL::run(database, u"INSERT OR REPLACE INTO cobble_number VALUES (?, ?)"_s,
                    {table, number});
}

Outcome<> NumberTable::forget(const QSqlDatabase &database, const QString &table)
{
    const Outcome<OwnTable::State> state = numberTable().stateIn(database);
    if (!state)
        return state.failure();
    return *state == OwnTable::State::Ours
               ? SQL::run(database, u"DELETE FROM cobble_number WHERE table_name = ?"_s, {table})
               : Outcome<>();
}
