#include "SeparatedText.h"

#include "Text/CSVReader.h"
#include "Text/CSVSeparator.h"
#include "Text/FormulaText.h"
#include "Text/Reasons.h"

using namespace Qt::StringLiterals;

namespace {
/// Reads a row as it was typed, without the marks that an export has given it.
bool readRow(CSVReader &reader, QStringList *fields)
{
    const bool isRead = reader.readRow(fields);
    for (QString &field : *fields)
        field = FormulaText::unmarked(field);
    return isRead;
}
} // namespace

SeparatedText::SeparatedText(const QString &text, std::optional<QChar> separator) : _text(text)
{
    if (const auto directive = CSVSeparator::directiveOf(text)) {
        _start = directive->length;
        _firstLine = 2;
        separator = separator.value_or(directive->separator);
    }
    _separator = separator ? *separator : CSVSeparator::sniffed(rowsText());
}

Outcome<SeparatedText> SeparatedText::read(const QString &text, std::optional<QChar> separator)
{
    SeparatedText rows(text, separator);
    const Outcome<> outcome = rows.readRows();
    if (!outcome)
        return outcome.failure();
    return rows;
}

Outcome<> SeparatedText::readRows()
{
    CSVReader reader(rowsText(), _separator, _firstLine);
    QStringList fields;
    if (!readRow(reader, &fields))
        return Failure{Reasons::tr("there is nothing but blank lines")};
    Outcome<> outcome = addHeaders(fields, reader.lineNumber());
    while (outcome && readRow(reader, &fields))
        outcome = addRow(fields, reader.lineNumber());
    _unclosedQuoteLine = reader.unclosedQuoteLine();
    endRows();
    return outcome;
}

void SeparatedText::whileRows(
    const std::function<bool(qint64 row, const QStringList &fields)> &use) const
{
    CSVReader reader(rowsText(), _separator);
    QStringList fields;
    readRow(reader, &fields); // the headers
    for (qint64 row = 1; readRow(reader, &fields) && use(row, fields); ++row) {
    }
}
