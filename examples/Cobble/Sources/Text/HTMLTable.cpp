#include "HTMLTable.h"

#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
/// More columns than that no cell spans.
constexpr int MostColumns = 1000;
/// A table with more cells is none: most of them would be empty, and of no use to anybody.
constexpr qsizetype MostCells = 4'000'000;

QString cells(const QStringList &texts, const QString &tag)
{
    QString row = u"<tr>"_s;
    for (const QString &text : texts)
        row +=
            u'<' + tag + u'>' + text.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</" + tag + u'>';
    return row + u"</tr>\n";
}

/// What "&name;" stands for; nil if that is unknown.
QString characterNamed(const QString &name)
{
    if (name.startsWith(u'#')) {
        const bool isHex = name.mid(1, 1).compare(u"x"_s, Qt::CaseInsensitive) == 0;
        const uint code = isHex ? name.mid(2).toUInt(nullptr, 16) : name.mid(1).toUInt();
        const bool isCharacter = code > 0 && code <= 0x10ffff && (code < 0xd800 || code > 0xdfff);
        return isCharacter ? QStringView(QChar::fromUcs4(code)).toString() : QString();
    }
    static const QMap<QString, QString> names{{u"amp"_s, u"&"_s},  {u"lt"_s, u"<"_s},
                                              {u"gt"_s, u">"_s},   {u"quot"_s, u"\""_s},
                                              {u"apos"_s, u"'"_s}, {u"nbsp"_s, u"\u00A0"_s}};
    return names.value(name);
}

QString withoutEntities(const QString &text)
{
    static const QRegularExpression entity(u"&(#?[A-Za-z0-9]{1,16});"_s);
    QString result;
    qsizetype end = 0;
    for (auto found = entity.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QString character = characterNamed(match.captured(1));
        result += QStringView(text).sliced(end, match.capturedStart() - end);
        result += character.isNull() ? match.captured() : character;
        end = match.capturedEnd();
    }
    return result + QStringView(text).sliced(end);
}

/// Collects the first table of a page, tag by tag.
class TableReader
{
public:
    void addText(QStringView text);
    /// \return whether there is more to come.
    bool addTag(const QString &name, bool isEnd, const QString &attributes);
    QList<QStringList> rows();

private:
    void beginRow();
    void beginCell(const QString &attributes);
    void endCell();
    void breakLine();

    QList<QStringList> _rows;
    QString _cell;
    int _tables = 0;
    int _span = 1;
    qsizetype _cells = 0;
    bool _isInCell = false;
};

void TableReader::addText(QStringView text)
{
    if (!_isInCell)
        return;
    static const QRegularExpression blanks(u"[ \t\r\n\f]+"_s);
    QString shown = text.toString().replace(blanks, u" "_s);
    if (shown.startsWith(u' ') &&
        (_cell.isEmpty() || _cell.back() == u'\n' || _cell.back() == u' '))
        shown.remove(0, 1);
    _cell += withoutEntities(shown);
}

bool TableReader::addTag(const QString &name, bool isEnd, const QString &attributes)
{
    const bool isOutside = _tables == 0;
    if (name == u"table" && !(isOutside && isEnd))
        _tables += isEnd ? -1 : 1;
    if (_tables == 0)
        return isOutside;
    if (_cells > MostCells)
        return false;
    if (_tables > 1)
        return true;
    if (name == u"tr" && !isEnd)
        beginRow();
    else if ((name == u"td" || name == u"th") && !isEnd)
        beginCell(attributes);
    else if (name == u"tr" || name == u"td" || name == u"th")
        endCell();
    else if (name == u"br" || ((name == u"p" || name == u"div") && !isEnd))
        breakLine();
    return true;
}

void TableReader::beginRow()
{
    endCell();
    _rows += QStringList();
}

void TableReader::beginCell(const QString &attributes)
{
    static const QRegularExpression spanning(u"colspan\\s*=\\s*[\"']?(\\d{1,4})"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    endCell();
    if (_rows.isEmpty())
        beginRow();
    _isInCell = true;
    _span = qBound(1, spanning.match(attributes).captured(1).toInt(), MostColumns);
    _cells += _span;
}

void TableReader::endCell()
{
    if (!_isInCell)
        return;
    _rows.last() += _cell.trimmed();
    _rows.last() += QStringList(_span - 1, u""_s);
    _cell.clear();
    _isInCell = false;
}

/// A paragraph at the beginning of a cell begins no line.
void TableReader::breakLine()
{
    if (_isInCell && !_cell.isEmpty())
        _cell += u'\n';
}

QList<QStringList> TableReader::rows()
{
    if (_cells > MostCells)
        return {};
    endCell();
    _rows.removeIf([](const QStringList &row) { return row.isEmpty(); });
    return _rows;
}
} // namespace

QString HTMLTable::text(const QStringList &titles, const QList<QStringList> &rows)
{
    QString table = u"<meta charset=\"utf-8\">\n<table>\n"_s + cells(titles, u"th"_s);
    for (const QStringList &row : rows)
        table += cells(row, u"td"_s);
    return table + u"</table>\n";
}

QList<QStringList> HTMLTable::rows(const QString &html)
{
    // Comments, texts that are none for people, and tags with quotes in which anything may stand. What
    // is never closed reaches to the end, and nothing is looked at twice.
    static const QRegularExpression tag(
        uR"(<!--.*?(?:-->|\z)|<(script|style|head)\b.*?(?:</\1\s*>|\z)|)"
        uR"(<(/?)([A-Za-z][A-Za-z0-9]*+)((?>[^>"']++|"[^"]*+"|'[^']*+'|["'])*+)(?:>|\z))"_s,
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::CaseInsensitiveOption);
    TableReader reader;
    qsizetype end = 0;
    for (auto found = tag.globalMatch(html); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        reader.addText(QStringView(html).sliced(end, match.capturedStart() - end));
        end = match.capturedEnd();
        if (!reader.addTag(match.captured(3).toLower(), !match.captured(2).isEmpty(),
                           match.captured(4)))
            return reader.rows();
    }
    reader.addText(QStringView(html).sliced(end));
    return reader.rows();
}
