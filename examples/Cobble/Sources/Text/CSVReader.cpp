#include "CSVReader.h"

CSVReader::CSVReader(QStringView text, QChar separator, qint64 firstLine)
    : _text(text), _scanner(text, separator, firstLine)
{
}

bool CSVReader::readRow(QStringList *fields)
{
    fields->clear();
    if (!_scanner.next())
        return false;
    for (const CSVField &field : _scanner.fields())
        fields->append(field.textIn(_text));
    return true;
}
