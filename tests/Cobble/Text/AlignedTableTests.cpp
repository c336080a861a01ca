#include "Text/AlignedTable.h"

#include "support/TestSupport.h"

#include <QTextStream>

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
    EXPECT_EQ(printed({{QStringLiteral("Table:"), QStringLiteral("kt_contacts")},
                       {QStringLiteral("Rows read:"), QStringLiteral("300")}}),
              QStringLiteral("Table:      kt_contacts\nRows read:  300\n"));
}

TEST(AlignedTable, NothingPrintsNothing)
{
    EXPECT_EQ(printed({}), QString());
}

TEST(AlignedTable, IndentsAndLeavesNoTrailingBlanks)
{
    EXPECT_EQ(printed({{QStringLiteral("a"), QStringLiteral("")}, {QStringLiteral("bcd")}}, 2),
              QStringLiteral("  a\n  bcd\n"));
    EXPECT_EQ(printed({{QStringLiteral("")}}, 2), QStringLiteral("\n"));
}

TEST(AlignedTable, WideAndCombiningCharactersAreAligned)
{
    EXPECT_EQ(printed({{QStringLiteral("公司"), QStringLiteral("x")},
                       {QStringLiteral("e\u0301"), QStringLiteral("y")},
                       {QStringLiteral("abcd"), QStringLiteral("z")}}),
              QStringLiteral("公司  x\ne\u0301     y\nabcd  z\n"));
}

TEST(AlignedTable, ALongCellMovesItsOwnRowOnly)
{
    const QString longest = QString(AlignedTable::WidestAligned + 10, u'w');
    const QString text =
        printed({{longest, QStringLiteral("x")}, {QStringLiteral("a"), QStringLiteral("y")}});
    const QString padding = QString(AlignedTable::WidestAligned + 1, u' ');
    EXPECT_EQ(text, QString(longest + u"  x\na" + padding + u"y\n"));
}

TEST(AlignedTable, HostileCellsStayOnOneLineEach)
{
    QList<QStringList> rows;
    qsizetype size = 0;
    for (const QString &text : testing_support::hostileTexts()) {
        rows.append({text, QStringLiteral("x")});
        size += text.size();
    }
    const QString text = printed(rows);
    EXPECT_EQ(text.count(u'\n'), rows.size());
    EXPECT_LT(text.size(), size + 100 * rows.size());
}

TEST(PrintableText, EscapesWhatSteersTheTerminal)
{
    EXPECT_EQ(printableText(QStringLiteral("a\r\n\tb")), QStringLiteral("a\\r\\n\\tb"));
    EXPECT_EQ(printableText(QStringLiteral("\u001b[31m")), QStringLiteral("\\u001b[31m"));
    EXPECT_EQ(printableText(QString(QChar(0))), QStringLiteral("\\u0000"));
    EXPECT_EQ(printableText(QStringLiteral("\u0085\u007f")), QStringLiteral("\\u0085\\u007f"));
    EXPECT_EQ(printableText(QStringLiteral("\u202e\u2066\u200f\u2028")),
              QStringLiteral("\\u202e\\u2066\\u200f\\u2028"));
}

TEST(PrintableText, LeavesTextAlone)
{
    for (const QString &text : {QStringLiteral(""), QStringLiteral("Über Straße \\n"),
                                QStringLiteral("公司 שם 👩‍👩‍👧")})
        EXPECT_EQ(printableText(text), text);
}

TEST(DisplayWidth, CountsTerminalColumns)
{
    EXPECT_EQ(displayWidth(QString()), 0);
    EXPECT_EQ(displayWidth(QStringLiteral("abc")), 3);
    EXPECT_EQ(displayWidth(QStringLiteral("e\u0301")), 1);
    EXPECT_EQ(displayWidth(QStringLiteral("公司")), 4);
    EXPECT_EQ(displayWidth(QStringLiteral("２１")), 4);
    EXPECT_EQ(displayWidth(QStringLiteral("😀")), 2);
    EXPECT_EQ(displayWidth(QStringLiteral("שם")), 2);
    EXPECT_EQ(displayWidth(QString(QChar(0xD83D))), 1);
}
