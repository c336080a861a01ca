#include "AlignedTable.h"

#include "PrintableText.h"

#include <QTextStream>

#include <unicode/uchar.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int SpacesBetween = 2;

int widthOfCharacter(char32_t character)
{
    const auto point = UChar32(character);
    constexpr uint32_t Invisible = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK;
    if (U_GET_GC_MASK(point) & Invisible)
        return 0;
    const int width = u_getIntPropertyValue(point, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

QString lineOf(const QStringList &cells, const QList<qsizetype> &widths, int indentation)
{
    QString line(indentation, u' ');
    for (qsizetype column = 0; column < cells.size(); ++column) {
        const QString &cell = cells.at(column);
        const qsizetype padding = std::max<qsizetype>(0, widths.at(column) - displayWidth(cell));
        line += cell + QString(padding + SpacesBetween, u' ');
    }
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}
} // namespace

qsizetype displayWidth(const QString &text)
{
    qsizetype width = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar first = text[index];
        const bool isPair =
            first.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
        width += widthOfCharacter(isPair ? QChar::surrogateToUcs4(first, text[index + 1])
                                         : char32_t(first.unicode()));
        index += isPair ? 1 : 0;
    }
    return width;
}

void AlignedTable::addRow(const QStringList &cells)
{
    QStringList row;
    for (const QString &cell : cells)
        row += printableText(cell);
    _widths.resize(std::max(_widths.size(), row.size()));
    for (qsizetype column = 0; column < row.size(); ++column) {
        const qsizetype width = std::min(WidestAligned, displayWidth(row.at(column)));
        _widths[column] = std::max(_widths.at(column), width);
    }
    _rows += row;
}

void AlignedTable::print(QTextStream &out, int indentation) const
{
    for (const QStringList &row : _rows)
        out << lineOf(row, _widths, indentation) << '\n';
}
