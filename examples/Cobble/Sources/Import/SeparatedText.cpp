#include "SeparatedText.h"

#include "Text/CSVReader.h"
#include "Text/CSVSeparator.h"

using namespace Qt::StringLiterals;

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
    if (!reader.readRow(&fields))
        return Failure{u"there is nothing but blank lines"_s};
    Outcome<> outcome = addHeaders(fields, reader.lineNumber());
    while (outcome && reader.readRow(&fields))
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
    reader.readRow(&fields); // the headers
    for (qint64 row = 1; reader.readRow(&fields) && use(row, fields); ++row) {
    }
}
