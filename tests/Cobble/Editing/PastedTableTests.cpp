#include "Editing/PastedTable.h"

#include "Editing/CopiedForms.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QList<QStringList> rowsOfPlainText(const QString &text)
{
    QMimeData data;
    data.setText(text);
    return PastedTable::of(data).rows;
}
} // namespace

TEST(PastedTableTests, TextIsATable)
{
    const QList<std::pair<QString, QList<QStringList>>> cases = {
        {u"a\tb\nc\td\n"_s, {{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}}},
        {u"a\tb\r\n\t\r\nc\td"_s, {{u"a"_s, u"b"_s}, {u""_s, u""_s}, {u"c"_s, u"d"_s}}},
        {u"\"two\nlines\"\tb\n"_s, {{u"two\nlines"_s, u"b"_s}}},
        {u"a,b\nc,d"_s, {{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}}},
        {u"a;\"b;c\"\nd;e"_s, {{u"a"_s, u"b;c"_s}, {u"d"_s, u"e"_s}}},
        // Lines, not a table.
        {u"Smith, Ann"_s, {{u"Smith, Ann"_s}}},
        {u"one, two\nthree"_s, {{u"one, two"_s}, {u"three"_s}}},
        {u"a\n\nb\n"_s, {{u"a"_s}, {u""_s}, {u"b"_s}}},
        {u"'=1+1\t'plain"_s, {{u"=1+1"_s, u"'plain"_s}}},
    };
    for (const auto &[text, rows] : cases)
        EXPECT_EQ(rowsOfPlainText(text), rows) << text.toStdString();
}

TEST(PastedTableTests, NothingIsEmpty)
{
    const QMimeData nothing;
    EXPECT_TRUE(PastedTable::of(nothing).isEmpty());
    EXPECT_FALSE(PastedTable::canBeIn(nullptr));
    QMimeData picture;
    picture.setData(u"image/png"_s, "png");
    EXPECT_FALSE(PastedTable::canBeIn(&picture));
    EXPECT_TRUE(PastedTable::of(picture).isEmpty());
}

TEST(PastedTableTests, TheBestFormIsTaken)
{
    QMimeData data;
    data.setText(u"text"_s);
    EXPECT_TRUE(PastedTable::canBeIn(&data));
    data.setData(u"text/csv"_s, "x;y\r\n1;2\r\n");
    EXPECT_EQ(PastedTable::of(data).rows.first(), QStringList({u"x"_s, u"y"_s}));
    data.setHtml(u"<p>no table</p>"_s);
    EXPECT_EQ(PastedTable::of(data).rows.first(), QStringList({u"x"_s, u"y"_s}));
    data.setHtml(u"<table><td>html</td></table>"_s);
    EXPECT_EQ(PastedTable::of(data).rows, QList<QStringList>{{u"html"_s}});
    data.setData(CopiedRecords::MimeType, "damaged");
    EXPECT_EQ(PastedTable::of(data).rows, QList<QStringList>{{u"html"_s}});
    CopiedRecords copied;
    copied.fields = {{u"A"_s, FieldType::Text, {}}};
    copied.rows = {{{u"own"_s, u"own"_s}}};
    data.setData(CopiedRecords::MimeType, copied.bytes());
    ASSERT_TRUE(PastedTable::of(data).exact);
    EXPECT_EQ(PastedTable::of(data).exact->texts(0), QStringList(u"own"_s));
}
