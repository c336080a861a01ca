#include "IdsInTable.h"

#include "SQL.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
/// The numbers of a table that are asked for one by one.
struct TableNumbers
{
    qint64 isKey = 0; ///< whether each record has a whole number of its own
    qint64 count = 0;
    qint64 first = 0;
    qint64 last = 0;

    bool areInARow() const
    {
        return isKey == 1 && count > 0 && quint64(last) - quint64(first) == quint64(count) - 1;
    }
};

Outcome<TableNumbers> numbersOf(const QSqlDatabase &database, const Library &library)
{
    TableNumbers numbers;
    const QString id = SQL::columnIn(library.tableName, u"id"_s);
    const QString from = u" FROM " + SQL::quoted(library.tableName);
    Outcome<> outcome;
    const auto ask = [&](qint64 *number, const QString &statement, const QVariantList &values) {
        const Outcome<qint64> answer = SQL::number(database, statement, values);
        *number = answer.valueOr(0);
        if (outcome && !answer)
            outcome = answer.failure();
    };
    ask(&numbers.isKey,
        u"SELECT count(*) = 1 AND sum(name = 'id' AND type = 'INTEGER') = 1 FROM "
        "pragma_table_info(?) WHERE pk > 0"_s,
        {library.tableName});
    ask(&numbers.count, u"SELECT count(*)" + from, {});
    ask(&numbers.first, u"SELECT min(" + id + u')' + from, {});
    ask(&numbers.last, u"SELECT max(" + id + u')' + from, {});
    return outcome ? Outcome<TableNumbers>(numbers) : outcome.failure();
}

Outcome<RecordIds> readIds(const QSqlDatabase &database, const Library &library)
{
    RecordIds ids;
    QSqlQuery query(database);
    const Outcome<> read =
        SQL::execute(query, u"SELECT " + SQL::columnIn(library.tableName, u"id"_s) + u" FROM " +
                                SQL::quoted(library.tableName) + u" ORDER BY 1")
            .andThen([&] {
                while (query.next())
                    ids.push_back(query.value(0).toLongLong());
                return SQL::outcomeOf(query);
            });
    if (!read)
        return read.failure();
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}
} // namespace

Outcome<RecordIds> idsInTable(const QSqlDatabase &database, const Library &library)
{
    const Outcome<TableNumbers> numbers = numbersOf(database, library);
    if (!numbers)
        return numbers.failure();
    if (!numbers->areInARow())
        return readIds(database, library);
    RecordIds ids(size_t(numbers->count));
    std::iota(ids.begin(), ids.end(), numbers->first);
    return ids;
}
