#include "RowSource.h"

#include "Text/Reasons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// \return whether all rows were wanted.
bool useRows(const RowBatch &batch,
             const std::function<bool(qint64 row, const QStringList &fields)> &use)
{
    for (qsizetype row = 0; row < batch.rowCount(); ++row) {
        if (!use(batch.number(row), batch.fields(row)))
            return false;
    }
    return true;
}
} // namespace

Outcome<>
RowSource::whileRows(const std::function<bool(qint64 row, const QStringList &fields)> &use) const
{
    return whileBatches([&use](const RowBatch &batch) { return useRows(batch, use); });
}

Outcome<> RowSource::whileBatches(const std::function<bool(const RowBatch &batch)> &use) const
{
    const std::unique_ptr<RowCursor> rows = cursor();
    while (true) {
        RowBatch batch;
        const Outcome<bool> isRead = rows->next(&batch);
        if (!isRead)
            return isRead.failure();
        if (!*isRead || !use(batch))
            return {};
    }
}

void RowSource::skip(const QList<qsizetype> &columns)
{
    QStringList headers;
    QList<qsizetype> selected;
    for (qsizetype column = 0; column < _headers.size(); ++column) {
        if (columns.contains(column))
            continue;
        headers += _headers.at(column);
        selected += _selected.value(column, column);
    }
    _headers = headers;
    _selected = selected;
}

Outcome<> RowSource::addHeaders(const QStringList &headers, qint64 line)
{
    _headers = headers;
    return addWidth(headers.size(), line);
}

Outcome<> RowSource::addRow(qsizetype width, qint64 line)
{
    ++_rowCount;
    _raggedRowCount += width == _headers.size() ? 0 : 1;
    return addWidth(width, line);
}

Outcome<> RowSource::addWidth(qsizetype width, qint64 line)
{
    _widest = std::max(_widest, width);
    if (width <= ColumnLimit)
        return {};
    return Failure{Reasons::tr("line %1 has %2 columns, more than the %3 that a library can have")
                       .arg(line)
                       .arg(width)
                       .arg(ColumnLimit)};
}

void RowSource::endRows()
{
    _headers.resize(_widest, u""_s);
}
