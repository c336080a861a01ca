#include "Text/CSVScanner.h"

#include "Text/CSVReader.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
const QString Text =
    u"name,note\r\n\"a, \"\"b\"\"\",x\"y\r\r\n  \n\"two\r\nlines\"tail,\n1,2\n,\n\"last"_s;

QList<QStringList> rowsOf(const QString &text)
{
    CSVReader reader(text, u',');
    QList<QStringList> rows;
    for (QStringList fields; reader.readRow(&fields);)
        rows += fields;
    return rows;
}

/// The rows of a text that comes in two pieces.
QList<QStringList> rowsInPieces(const QString &text, qsizetype cut)
{
    QList<QStringList> rows;
    QString piece = text.first(cut);
    for (const bool isLast : {false, true}) {
        CSVScanner scanner(piece, u',');
        qsizetype end = 0;
        while (scanner.next() && (isLast || !scanner.mayGoOn())) {
            QStringList fields;
            for (const CSVField &field : scanner.fields())
                fields += field.textIn(piece);
            rows += fields;
            end = scanner.position();
        }
        piece = piece.sliced(end) + text.sliced(cut);
    }
    return rows;
}
} // namespace

TEST(CSVScanner, TellsWhereFieldsStand)
{
    const QString text = u"a,\"b\"\"c\"d,\n"_s;
    CSVScanner scanner(text, u',');
    ASSERT_TRUE(scanner.next());
    ASSERT_EQ(scanner.fields().size(), 3U);
    EXPECT_EQ(scanner.fields()[0].textIn(text), u"a"_s);
    EXPECT_EQ(scanner.fields()[1].textIn(text), u"b\"cd"_s);
    EXPECT_TRUE(scanner.fields()[1].isQuoted);
    EXPECT_EQ(scanner.fields()[2].textIn(text), u""_s);
    EXPECT_FALSE(scanner.fields()[2].textIn(text).isNull());
    EXPECT_FALSE(scanner.mayGoOn());
    EXPECT_FALSE(scanner.next());
    EXPECT_EQ(scanner.position(), text.size());
    EXPECT_EQ(scanner.line(), 2);
}

TEST(CSVScanner, ATextMayBeCutAnywhere)
{
    const QList<QStringList> rows = rowsOf(Text);
    EXPECT_EQ(rows.size(), 6);
    for (qsizetype cut = 0; cut <= Text.size(); ++cut)
        EXPECT_EQ(rowsInPieces(Text, cut), rows) << cut;
}

TEST(CSVScanner, OnlyAWholeLineBreakEndsARecordForSure)
{
    const std::pair<QString, bool> texts[] = {
        {u"a\n"_s, false}, {u"a\r\n"_s, false}, {u"a\rb\n"_s, false}, {u"a"_s, true},
        {u"a\r"_s, true},  {u"\"a\""_s, true},  {u"\"a\n"_s, true},   {u"a,"_s, true}};
    for (const auto &[text, mayGoOn] : texts) {
        CSVScanner scanner(text, u',');
        ASSERT_TRUE(scanner.next());
        EXPECT_EQ(scanner.mayGoOn(), mayGoOn) << text.toStdString();
    }
}
