#include "CSVReader.h"

#include "LineBreaks.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QChar Quote = u'"';
} // namespace

CSVReader::CSVReader(QStringView text, QChar separator, qint64 firstLine)
    : _text(text), _separator(separator), _line(firstLine), _rowLine(firstLine)
{
}

bool CSVReader::readRow(QStringList *fields)
{
    while (_position < _text.size()) {
        readRecord(fields);
        if (!isBlankRecord(*fields))
            return true;
    }
    fields->clear();
    return false;
}

void CSVReader::readRecord(QStringList *fields)
{
    fields->clear();
    _rowLine = _line;
    _rowHasQuotedField = false;
    do {
        fields->append(readField());
    } while (skip(_separator));
    skipLineBreak();
}

bool CSVReader::isBlankRecord(const QStringList &fields) const
{
    return fields.size() == 1 && !_rowHasQuotedField &&
           QStringView(fields.first()).trimmed().isEmpty();
}

QString CSVReader::readField()
{
    QString field = isAt(Quote) ? readQuotedPart() : u""_s;
    const qsizetype end = endOfPlainPart();
    field += _text.sliced(_position, end - _position);
    _position = end;
    return field;
}

/// Reads from the opening quote to behind the closing one.
QString CSVReader::readQuotedPart()
{
    const qint64 openingLine = _line;
    _rowHasQuotedField = true;
    ++_position;
    QString part = u""_s;
    while (true) {
        const qsizetype quote = _text.indexOf(Quote, _position);
        const qsizetype end = quote < 0 ? _text.size() : quote;
        const QStringView piece = _text.sliced(_position, end - _position);
        part += piece;
        _line += lineBreakCount(piece);
        _position = end;
        if (!skip(Quote)) {
            _unclosedQuoteLine = openingLine;
            return part;
        }
        if (!skip(Quote))
            return part;
        part += Quote;
    }
}

bool CSVReader::isAt(QChar character) const
{
    return _position < _text.size() && _text[_position] == character;
}

bool CSVReader::skip(QChar character)
{
    const bool isThere = isAt(character);
    _position += isThere ? 1 : 0;
    return isThere;
}

void CSVReader::skipLineBreak()
{
    const bool hasReturn = skip(u'\r');
    const bool hasFeed = skip(u'\n');
    _line += hasReturn || hasFeed ? 1 : 0;
}

qsizetype CSVReader::endOfPlainPart() const
{
    qsizetype end = _position;
    while (end < _text.size() && _text[end] != _separator && _text[end] != u'\n' &&
           _text[end] != u'\r')
        ++end;
    return end;
}
