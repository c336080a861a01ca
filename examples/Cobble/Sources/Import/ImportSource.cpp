#include "ImportSource.h"

#include "Text/CSVReader.h"
#include "Text/CSVSeparator.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ImportSource ImportSource::fromText(QStringView text, std::optional<QChar> separator)
{
    ImportSource source;
    qint64 firstLine = 1;
    if (const auto directive = CSVSeparator::directiveOf(text)) {
        text = text.sliced(directive->length);
        firstLine = 2;
        separator = separator.value_or(directive->separator);
    }
    source.separator = separator ? *separator : CSVSeparator::sniffed(text);
    source.readRows(text, firstLine);
    return source;
}

void ImportSource::forEachRow(
    QStringView text, const std::function<void(qint64 row, const QStringList &fields)> &use) const
{
    whileRows(text, [&use](qint64 row, const QStringList &fields) {
        use(row, fields);
        return true;
    });
}

void ImportSource::whileRows(
    QStringView text, const std::function<bool(qint64 row, const QStringList &fields)> &use) const
{
    if (const auto directive = CSVSeparator::directiveOf(text))
        text = text.sliced(directive->length);
    CSVReader reader(text, separator);
    QStringList fields;
    reader.readRow(&fields); // the headers
    for (qint64 row = 1; reader.readRow(&fields) && use(row, fields); ++row) {
    }
}

void ImportSource::readRows(QStringView text, qint64 firstLine)
{
    CSVReader reader(text, separator, firstLine);
    if (!reader.readRow(&headers)) {
        errorDescription = u"there is nothing but blank lines"_s;
        return;
    }
    const qsizetype headerCount = headers.size();
    qsizetype widest = headerCount;
    bool fits = checkWidth(widest, reader.lineNumber());
    QStringList fields;
    while (fits && reader.readRow(&fields)) {
        ++rowCount;
        raggedRowCount += fields.size() == headerCount ? 0 : 1;
        widest = std::max(widest, fields.size());
        fits = checkWidth(widest, reader.lineNumber());
    }
    unclosedQuoteLine = reader.unclosedQuoteLine();
    if (fits)
        headers.resize(widest, u""_s);
}

bool ImportSource::checkWidth(qsizetype width, qint64 line)
{
    if (width > ColumnLimit)
        errorDescription = u"line %1 has %2 columns, more than the %3 that a library "
                           "can have"_s.arg(line)
                               .arg(width)
                               .arg(ColumnLimit);
    return width <= ColumnLimit;
}
