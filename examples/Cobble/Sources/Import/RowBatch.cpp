#include "RowBatch.h"

#include "Text/FormulaText.h"

RowBatch::RowBatch(QString text, qint64 firstNumber)
    : _text(std::move(text)), _firstNumber(firstNumber)
{
}

void RowBatch::addRow(const std::vector<CSVField> &fields, qint64 line)
{
    _fields.insert(_fields.end(), fields.begin(), fields.end());
    _rows.push_back({line, _fields.size()});
}

void RowBatch::addRow(const QStringList &fields, qint64 line)
{
    _isAsTyped = false;
    for (const QString &field : fields) {
        _fields.push_back({_text.size(), field.size(), false});
        _text += field;
    }
    _rows.push_back({line, _fields.size()});
}

qsizetype RowBatch::width(qsizetype row) const
{
    return qsizetype(_rows[size_t(row)].end - beginOf(row));
}

QString RowBatch::fieldInFile(qsizetype row, qsizetype column) const
{
    if (column >= width(row))
        return {};
    const QString text = _fields[beginOf(row) + size_t(column)].textIn(_text);
    return _isAsTyped ? FormulaText::unmarked(text) : text;
}

QString RowBatch::field(qsizetype row, qsizetype column) const
{
    return fieldInFile(row, _columns.value(column, column));
}

QStringList RowBatch::fields(qsizetype row) const
{
    QStringList fields;
    if (_columns.isEmpty()) {
        for (qsizetype column = 0; column < width(row); ++column)
            fields += fieldInFile(row, column);
    }
    for (const qsizetype column : _columns) {
        if (column < width(row))
            fields += fieldInFile(row, column);
    }
    return fields;
}
