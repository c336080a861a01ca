#include "RecordPart.h"

#include "SQL.h"

using namespace Qt::StringLiterals;

namespace {
QString wantedColumns(const Library &library, const std::optional<QList<qsizetype>> &fields)
{
    QString columns = SQL::columnIn(library.tableName, u"id"_s);
    for (qsizetype field = 0; field < library.fields.size(); ++field) {
        const bool isWanted = !fields || fields->contains(field);
        columns += u", " +
                   (isWanted ? SQL::columnIn(library.tableName, library.fields.at(field).columnName)
                             : u"NULL"_s);
    }
    return columns;
}

QString numbers(const RecordIds &ids)
{
    QString list;
    for (const qint64 id : ids)
        list += (list.isEmpty() ? u"" : u",") + QString::number(id);
    return list;
}
} // namespace

QString RecordPart::statementFor(const Library &library) const
{
    const QString id = SQL::columnIn(library.tableName, u"id"_s);
    QString statement = u"SELECT " + wantedColumns(library, fields) + u" FROM " +
                        SQL::quoted(library.tableName) + u" WHERE 1";
    if (ids)
        statement += u" AND " + id + u" IN (" + numbers(*ids) + u')';
    if (after)
        statement += u" AND " + id + u" > " + QString::number(*after);
    return statement + u" ORDER BY 1 LIMIT " + QString::number(limit);
}
