#include "RowSource.h"

#include "Text/Reasons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

Outcome<> RowSource::addHeaders(const QStringList &headers, qint64 line)
{
    _headers = headers;
    return addWidth(headers.size(), line);
}

Outcome<> RowSource::addRow(const QStringList &fields, qint64 line)
{
    ++_rowCount;
    _raggedRowCount += fields.size() == _headers.size() ? 0 : 1;
    return addWidth(fields.size(), line);
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
