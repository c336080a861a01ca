#include "PastedTable.h"

#include "Text/CSVReader.h"
#include "Text/CSVSeparator.h"
#include "Text/FormulaText.h"
#include "Text/HTMLTable.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// Where there are no quotes, each line is a row, also an empty one.
QList<QStringList> plainRows(const QString &text, QChar separator)
{
    static const QRegularExpression lineBreak(u"\r\n|\r|\n"_s);
    QStringList lines = text.split(lineBreak);
    if (lines.last().isEmpty())
        lines.removeLast();
    QList<QStringList> rows;
    for (const QString &line : lines)
        rows += line.split(separator);
    return rows;
}

QList<QStringList> quotedRows(const QString &text, QChar separator)
{
    CSVReader reader(text, separator);
    QList<QStringList> rows;
    for (QStringList row; reader.readRow(&row);)
        rows += row;
    return rows;
}

QList<QStringList> rowsIn(const QString &text, QChar separator)
{
    return text.contains(u'"') ? quotedRows(text, separator) : plainRows(text, separator);
}

/// Whether all rows have the same number of cells, of which there are several.
bool isTable(const QList<QStringList> &rows)
{
    return rows.size() > 1 && rows.first().size() > 1 &&
           std::all_of(rows.begin(), rows.end(), [&rows](const QStringList &row) {
               return row.size() == rows.first().size();
           });
}

/// Text without tabs is a table if its lines look like one; a line with a comma is a line.
QList<QStringList> rowsInText(const QString &text)
{
    if (text.contains(u'\t'))
        return rowsIn(text, u'\t');
    const QList<QStringList> rows = rowsIn(text, CSVSeparator::sniffed(text));
    return isTable(rows) ? rows : plainRows(text, u'\t');
}

QList<QStringList> rowsOf(const QMimeData &data)
{
    const QList<QStringList> table =
        data.hasHtml() ? HTMLTable::rows(data.html()) : QList<QStringList>();
    if (!table.isEmpty())
        return table;
    const QString separated = QString::fromUtf8(data.data(u"text/csv"_s));
    return separated.isEmpty() ? rowsInText(data.text())
                               : rowsIn(separated, CSVSeparator::sniffed(separated));
}

void unmark(QStringList *row)
{
    std::transform(row->begin(), row->end(), row->begin(), &FormulaText::unmarked);
}
} // namespace

PastedTable PastedTable::of(const QMimeData &data)
{
    PastedTable table;
    if (data.hasFormat(CopiedRecords::MimeType)) {
        const auto exact = CopiedRecords::read(data.data(CopiedRecords::MimeType));
        if (exact)
            table.exact = *exact;
    }
    if (table.exact)
        return table;
    table.rows = rowsOf(data);
    std::for_each(table.rows.begin(), table.rows.end(), [](QStringList &row) { unmark(&row); });
    return table;
}

bool PastedTable::canBeIn(const QMimeData *data)
{
    return data && (data->hasFormat(CopiedRecords::MimeType) || data->hasHtml() ||
                    data->hasFormat(u"text/csv"_s) || data->hasText());
}
