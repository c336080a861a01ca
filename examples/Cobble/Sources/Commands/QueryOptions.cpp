#include "QueryOptions.h"

using namespace Qt::StringLiterals;

namespace {
const QString WhereOption = u"where"_s;
const QString SortOption = u"sort"_s;
const QString ColumnsOption = u"columns"_s;
const QString LimitOption = u"limit"_s;

/// The number of records that are wanted, −1 for all; nothing if what was typed is no number.
std::optional<qint64> limitIn(const QCommandLineParser &parser)
{
    if (!parser.isSet(LimitOption))
        return -1;
    bool isNumber = false;
    const qint64 limit = parser.value(LimitOption).toLongLong(&isNumber);
    return isNumber && limit >= 0 ? std::optional(limit) : std::nullopt;
}

Failure failure(const QString &option, const QString &reason)
{
    return {u"--%1: %2"_s.arg(option, reason)};
}

Outcome<> readFilter(const QString &text, const RecordFilter::Fields &fields, RecordQuery *query)
{
    const RecordFilter filter = RecordFilter::read(text, fields);
    if (filter.problem())
        return failure(WhereOption, filter.outcome().reason());
    query->filter = RecordFilter::both(query->filter, filter);
    return {};
}

Outcome<> readOrder(const QString &text, const FilterFields &fields, RecordQuery *query)
{
    const auto order = RecordQuery::orderIn(text, fields);
    if (!order)
        return failure(SortOption, order.reason());
    query->order = *order;
    return {};
}

Outcome<> readColumns(const QString &text, const FilterFields &fields, RecordQuery *query)
{
    const auto columns = RecordQuery::columnsIn(text, fields);
    if (!columns)
        return failure(ColumnsOption, columns.reason());
    query->columns = *columns;
    return {};
}
} // namespace

void QueryOptions::add(QCommandLineParser *parser)
{
    parser->addOption({WhereOption, QString(), u"TEXT"_s});
    parser->addOption({SortOption, QString(), u"FIELDS"_s});
    parser->addOption({ColumnsOption, QString(), u"FIELDS"_s});
    parser->addOption({LimitOption, QString(), u"N"_s});
}

bool QueryOptions::areGiven(const QCommandLineParser &parser)
{
    return parser.isSet(WhereOption) || parser.isSet(SortOption) || parser.isSet(ColumnsOption);
}

Outcome<> QueryOptions::check(const QCommandLineParser &parser)
{
    if (!limitIn(parser))
        return Failure{u"bad limit '%1'"_s.arg(parser.value(LimitOption))};
    for (const QString &option : {WhereOption, SortOption, ColumnsOption}) {
        if (parser.isSet(option) && parser.value(option).trimmed().isEmpty())
            return Failure{u"--%1 needs a text"_s.arg(option)};
    }
    return {};
}

Outcome<RecordQuery> QueryOptions::queryIn(const QCommandLineParser &parser, const Library &library,
                                           const RecordQuery &base)
{
    const auto fields = std::make_shared<FilterFields>(library);
    RecordQuery query = base;
    query.limit = *limitIn(parser);
    Outcome<> read;
    if (parser.isSet(WhereOption))
        read = readFilter(parser.value(WhereOption), fields, &query);
    if (parser.isSet(SortOption))
        read = read.andThen([&] { return readOrder(parser.value(SortOption), *fields, &query); });
    if (parser.isSet(ColumnsOption))
        read =
            read.andThen([&] { return readColumns(parser.value(ColumnsOption), *fields, &query); });
    return read ? Outcome<RecordQuery>(query) : read.failure();
}
