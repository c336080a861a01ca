#include "Table.h"

using namespace Qt::StringLiterals;

namespace {
/// A row as the rest of the import takes it: with a field at least, and none that is nil.
QStringList completed(const QStringList &fields)
{
    QStringList texts = fields.isEmpty() ? QStringList(u""_s) : fields;
    for (QString &text : texts) {
        if (text.isNull())
            text = u""_s;
    }
    return texts;
}
} // namespace

Outcome<Table> Table::of(const CobbleTable &table)
{
    Table rows(table.rows);
    qint64 line = 1;
    Outcome<> outcome = rows.addHeaders(completed(table.titles), line);
    for (const QStringList &fields : table.rows) {
        if (!outcome)
            break;
        outcome = rows.addRow(completed(fields), ++line);
    }
    if (!outcome)
        return outcome.failure();
    rows.endRows();
    return rows;
}

void Table::whileRows(const std::function<bool(qint64 row, const QStringList &fields)> &use) const
{
    qint64 row = 0;
    for (const QStringList &fields : _rows) {
        if (!use(++row, completed(fields)))
            return;
    }
}
