#include "CSVScanner.h"

#include "LineBreaks.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QChar Quote = u'"';

/// What a field with quotes means: two of them are one, and what follows the closing one is kept.
QString unquoted(QStringView field)
{
    QString text = u""_s;
    for (qsizetype position = 1; position < field.size();) {
        const qsizetype quote = field.indexOf(Quote, position);
        const qsizetype end = quote < 0 ? field.size() : quote;
        text += field.sliced(position, end - position);
        position = end + 1;
        if (position >= field.size() || field[position] != Quote)
            return position < field.size() ? QString(text + field.sliced(position)) : text;
        text += Quote;
        ++position;
    }
    return text;
}
} // namespace

QString CSVField::textIn(QStringView text) const
{
    const QStringView field = text.sliced(start, length);
    if (isQuoted)
        return unquoted(field);
    return field.isEmpty() ? u""_s : field.toString();
}

CSVScanner::CSVScanner(QStringView text, QChar separator, qint64 firstLine)
    : _text(text), _separator(separator), _line(firstLine), _recordLine(firstLine)
{
}

bool CSVScanner::next()
{
    while (_position < _text.size()) {
        scanRecord();
        if (!isBlank())
            return true;
    }
    return false;
}

void CSVScanner::scanRecord()
{
    _fields.clear();
    _recordLine = _line;
    do {
        scanField();
    } while (skip(_separator));
    _isEnded = skipLineBreak();
}

bool CSVScanner::isBlank() const
{
    const CSVField &first = _fields.front();
    return _fields.size() == 1 && !first.isQuoted &&
           _text.sliced(first.start, first.length).trimmed().isEmpty();
}

void CSVScanner::scanField()
{
    CSVField field{_position, 0, isAt(Quote)};
    if (field.isQuoted)
        scanQuotedPart();
    scanPlainPart();
    field.length = _position - field.start;
    _fields.push_back(field);
}

/// From the opening quote to behind the closing one.
void CSVScanner::scanQuotedPart()
{
    const qint64 openingLine = _line;
    do {
        const qsizetype start = _position + 1;
        const qsizetype quote = _text.indexOf(Quote, start);
        _position = quote < 0 ? _text.size() : quote + 1;
        _line += lineBreakCount(_text.sliced(start, (quote < 0 ? _position : quote) - start));
        if (quote < 0)
            _unclosedQuoteLine = openingLine;
    } while (isAt(Quote));
}

void CSVScanner::scanPlainPart()
{
    const char16_t *const text = _text.utf16();
    const char16_t separator = _separator.unicode();
    const qsizetype size = _text.size();
    qsizetype end = _position;
    while (end < size && text[end] != separator && text[end] != u'\n' && text[end] != u'\r')
        ++end;
    _position = end;
}

bool CSVScanner::isAt(QChar character) const
{
    return _position < _text.size() && _text[_position] == character;
}

bool CSVScanner::skip(QChar character)
{
    const bool isThere = isAt(character);
    _position += isThere ? 1 : 0;
    return isThere;
}

/// \return false if there is none, or half of one at the end of the text.
bool CSVScanner::skipLineBreak()
{
    const bool hasReturn = skip(u'\r');
    const bool isHalf = hasReturn && _position == _text.size();
    const bool hasFeed = skip(u'\n');
    _line += hasReturn || hasFeed ? 1 : 0;
    return !isHalf && (hasReturn || hasFeed);
}
