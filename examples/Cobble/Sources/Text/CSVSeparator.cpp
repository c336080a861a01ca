#include "CSVSeparator.h"

#include "CSVReader.h"

#include <KTUtility/KTInternational>

#include <QHash>

#include <algorithm>
#include <array>

namespace {
struct NamedSeparator
{
    QStringView name;
    QChar separator;
};

/// In the order in which ties are decided; those from SniffedCount on are used on request only.
constexpr std::array<NamedSeparator, 5> NamedSeparators = {{
    {u"comma", u','},
    {u"semicolon", u';'},
    {u"tab", u'\t'},
    {u"pipe", u'|'},
    {u"space", u' '},
}};
constexpr size_t SniffedCount = 4;
constexpr int SniffedRows = 100;

bool areBlank(const QStringList &fields)
{
    return std::all_of(fields.begin(), fields.end(),
                       [](QStringView field) { return field.trimmed().isEmpty(); });
}

/// In how many of the first rows the separator stands equally often, at least once.
int agreeingRows(QStringView text, QChar separator)
{
    CSVReader reader(text, separator);
    QStringList fields;
    QHash<qsizetype, int> rowsOfWidth;
    int most = 0;
    for (int row = 0; row < SniffedRows && reader.readRow(&fields); ++row) {
        if (fields.size() > 1 && !areBlank(fields))
            most = std::max(most, ++rowsOfWidth[fields.size()]);
    }
    return most;
}

QStringView firstLineOf(QStringView text)
{
    const auto isLineBreak = [](QChar character) {
        return character == u'\n' || character == u'\r';
    };
    return text.first(std::find_if(text.begin(), text.end(), isLineBreak) - text.begin());
}

qsizetype lengthOfLineBreak(QStringView text)
{
    if (text.startsWith(u"\r\n"))
        return 2;
    return text.isEmpty() ? 0 : 1;
}

QStringView withoutQuotes(QStringView line)
{
    const bool isQuoted = line.size() >= 2 && line.startsWith(u'"') && line.endsWith(u'"');
    return isQuoted ? line.sliced(1).chopped(1) : line;
}
} // namespace

bool CSVSeparator::isUsable(QChar character)
{
    return !character.isSurrogate() && !QStringView(u"\"\r\n").contains(character) &&
           !character.isNull();
}

std::optional<QChar> CSVSeparator::fromName(QStringView name)
{
    for (const NamedSeparator &named : NamedSeparators) {
        if (named.name.compare(name, Qt::CaseInsensitive) == 0)
            return named.separator;
    }
    if (name == u"\\t")
        return u'\t';
    if (name.size() == 1 && isUsable(name.front()))
        return name.front();
    return std::nullopt;
}

QString CSVSeparator::nameOf(QChar separator)
{
    for (const NamedSeparator &named : NamedSeparators) {
        if (named.separator == separator)
            return named.name.toString();
    }
    return separator;
}

std::optional<CSVSeparator::Directive> CSVSeparator::directiveOf(QStringView text)
{
    constexpr QStringView Prefix = u"sep=";
    // Looked at first, so that a long first line costs nothing.
    if (!text.first(std::min(text.size(), Prefix.size() + 1)).contains(Prefix, Qt::CaseInsensitive))
        return std::nullopt;
    const QStringView line = firstLineOf(text);
    const QStringView directive = withoutQuotes(line);
    if (!directive.startsWith(Prefix, Qt::CaseInsensitive) ||
        directive.size() != Prefix.size() + 1 || !isUsable(directive.back()))
        return std::nullopt;
    return Directive{directive.back(), line.size() + lengthOfLineBreak(text.sliced(line.size()))};
}

QList<QChar> CSVSeparator::candidates()
{
    QStringList alternates;
    const QString localized =
        KTInternational::instance()->localizedCSVSeparatorAndAlternates(&alternates);
    for (size_t known = 0; known < SniffedCount; ++known)
        alternates += QString(NamedSeparators[known].separator);
    QList<QChar> separators;
    for (const QString &text : QStringList(localized) + alternates) {
        const bool isUsable = text.size() == 1 && CSVSeparator::isUsable(text.front());
        if (isUsable && !separators.contains(text.front()))
            separators += text.front();
    }
    return separators;
}

QChar CSVSeparator::sniffed(QStringView text)
{
    const QList<QChar> separators = candidates();
    QChar best = separators.first();
    int most = 0;
    for (const QChar separator : separators) {
        const int rows = agreeingRows(text, separator);
        if (rows > most) {
            best = separator;
            most = rows;
        }
    }
    return best;
}
