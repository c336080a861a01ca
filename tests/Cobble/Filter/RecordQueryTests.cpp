#include "Filter/RecordQuery.h"

#include "FilterSupport.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace filter_support;

TEST(RecordQuery, ReadsOrders)
{
    const FilterFields fields(people());
    const struct
    {
        const char16_t *text;
        QList<RecordOrder> order;
    } rows[] = {
        {u"Name", {{0, true}}},
        {u"-balance, name", {{2, false}, {0, true}}},
        {u"- balance", {{2, false}}},
        {u"\"First name\",-'Checked in'", {{1, true}, {9, false}}},
    };
    for (const auto &row : rows) {
        const auto order = RecordQuery::orderIn(QString::fromUtf16(row.text), fields);
        ASSERT_TRUE(order) << order.reason().toStdString();
        EXPECT_TRUE(*order == row.order);
        const QString text = RecordQuery::textOf(*order, fields, FilterNotation::Portable);
        EXPECT_TRUE(*RecordQuery::orderIn(text, fields, FilterNotation::Portable) == row.order);
    }
}

TEST(RecordQuery, ReadsColumns)
{
    const FilterFields fields(people());
    EXPECT_EQ(*RecordQuery::columnsIn(u"born,NAME"_s, fields), QList<qsizetype>({5, 0}));
    EXPECT_EQ(RecordQuery::textOf(QList<qsizetype>{5, 1}, fields, FilterNotation::Typed),
              u"Born,First name"_s);
    for (const QString &text : {u""_s, u"x"_s, u"name,"_s, u"name,Name"_s})
        EXPECT_FALSE(RecordQuery::columnsIn(text, fields)) << text.toStdString();
    for (const QString &text : {u""_s, u"x"_s, u"-"_s, u"name,,born"_s, u"--name"_s})
        EXPECT_FALSE(RecordQuery::orderIn(text, fields)) << text.toStdString();
}

TEST(RecordQuery, NamesWithSignsAreQuoted)
{
    Library library = people();
    library.fields[0].header = u"a, \"b\" \\"_s;
    library.fields[1].header = u"-x"_s;
    const FilterFields fields(library);
    const QList<qsizetype> columns{0, 1};
    EXPECT_EQ(*RecordQuery::columnsIn(RecordQuery::textOf(columns, fields, FilterNotation::Typed),
                                      fields),
              columns);
    EXPECT_TRUE(*RecordQuery::orderIn(u"-x"_s, fields) == QList<RecordOrder>({{1, true}}));
}

TEST(RecordQuery, AnApostropheInANameIsNoQuotationMark)
{
    Library library = people();
    library.fields[0].header = u"Owner's name"_s;
    library.fields[1].header = u"Dog's name"_s;
    const FilterFields fields(library);
    EXPECT_EQ(RecordQuery::columnsIn(u"Owner's name, Dog's name"_s, fields).valueOr({}),
              QList<qsizetype>({0, 1}));
    EXPECT_TRUE(
        RecordQuery::orderIn(u"-Owner's name,Visits,-'Dog\\'s name'"_s, fields).valueOr({}) ==
        QList<RecordOrder>({{0, false}, {3, true}, {1, false}}));
}

TEST(RecordQuery, SortsAsTablesDo)
{
    const FilterFields fields(people());
    QVariantList all;
    for (const QVariantMap &each : records())
        all += QVariant(each);
    const auto sorted =
        NSSortDescriptor::sorted(all, RecordQuery::sortDescriptors({{3, false}}, fields));
    QString letters;
    for (const QVariant &each : sorted)
        letters += each.toMap().value(u"kt_name"_s).toString().front();
    EXPECT_EQ(letters, u"cBAéD"_s);
}
