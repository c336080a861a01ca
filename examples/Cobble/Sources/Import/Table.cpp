#include "Table.h"

#include <algorithm>

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

class Table::Cursor : public RowCursor
{
public:
    explicit Cursor(const Table &table) : _table(table) {}

    Outcome<bool> next(RowBatch *batch) override
    {
        *batch = RowBatch(QString(), _next + 1);
        batch->select(_table.selected());
        const qsizetype end = std::min(_next + RowsAtOnce, _table._rows.size());
        for (; _next < end; ++_next)
            batch->addRow(completed(_table._rows.at(_next)), _next + 2);
        return !batch->isEmpty();
    }

private:
    static constexpr qsizetype RowsAtOnce = 500;

    const Table &_table;
    qsizetype _next = 0;
};

Outcome<Table> Table::of(const CobbleTable &table)
{
    Table rows(table.rows);
    qint64 line = 1;
    Outcome<> outcome = rows.addHeaders(completed(table.titles), line);
    for (const QStringList &fields : table.rows) {
        if (!outcome)
            break;
        outcome = rows.addRow(completed(fields).size(), ++line);
    }
    if (!outcome)
        return outcome.failure();
    rows.endRows();
    return rows;
}

std::unique_ptr<RowCursor> Table::cursor() const
{
    return std::make_unique<Cursor>(*this);
}
