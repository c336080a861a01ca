#include "Text/AlignedTable.h"

#include "support/TestSupport.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
QString printed(const QList<QStringList> &rows, int indentation = 0)
{
    AlignedTable table;
    for (const QStringList &row : rows)
        table.addRow(row);
    QString text;
    QTextStream stream(&text);
    table.print(stream, indentation);
    return text;
}
} // namespace

TEST(AlignedTable, TheExampleOfTheHeader)
{
    EXPECT_EQ(printed({{u"Table:"_s, u"kt_contacts"_s}, {u"Rows read:"_s, u"300"_s}}),
              u"Table:      kt_contacts\nRows read:  300\n"_s);
}

TEST(AlignedTable, NothingPrintsNothing)
{
    EXPECT_EQ(printed({}), QString());
}

TEST(AlignedTable, IndentsAndLeavesNoTrailingSpaces)
{
    EXPECT_EQ(printed({{u"a"_s, u""_s}, {u"bcd"_s}}, 2), u"  a\n  bcd\n"_s);
    EXPECT_EQ(printed({{u""_s}}, 2), u"\n"_s);
}

TEST(AlignedTable, WideAndCombiningCharactersAreAligned)
{
    EXPECT_EQ(printed({{u"公司"_s, u"x"_s}, {u"e\u0301"_s, u"y"_s}, {u"abcd"_s, u"z"_s}}),
              u"公司  x\ne\u0301     y\nabcd  z\n"_s);
}

TEST(AlignedTable, ALongCellMovesItsOwnRowOnly)
{
    const QString longest = QString(AlignedTable::WidestAligned + 10, u'w');
    const QString text = printed({{longest, u"x"_s}, {u"a"_s, u"y"_s}});
    const QString padding = QString(AlignedTable::WidestAligned + 1, u' ');
    EXPECT_EQ(text, QString(longest + u"  x\na" + padding + u"y\n"));
}

TEST(AlignedTable, HostileCellsStayOnOneLineEach)
{
    QList<QStringList> rows;
    qsizetype size = 0;
    for (const QString &text : testing_support::hostileTexts()) {
        rows.append({text, u"x"_s});
        size += text.size();
    }
    const QString text = printed(rows);
    EXPECT_EQ(text.count(u'\n'), rows.size());
    EXPECT_LT(text.size(), size + 100 * rows.size());
}

TEST(AlignedTable, CountsTerminalColumns)
{
    EXPECT_EQ(displayWidth(QString()), 0);
    EXPECT_EQ(displayWidth(u"abc"_s), 3);
    EXPECT_EQ(displayWidth(u"e\u0301"_s), 1);
    EXPECT_EQ(displayWidth(u"公司"_s), 4);
    EXPECT_EQ(displayWidth(u"２１"_s), 4);
    EXPECT_EQ(displayWidth(u"😀"_s), 2);
    EXPECT_EQ(displayWidth(u"שם"_s), 2);
    EXPECT_EQ(displayWidth(QString(QChar(0xD83D))), 1);
}
