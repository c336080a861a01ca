#include "Import/ImportValues.h"
#include "Import/SeparatedText.h"
#include "Import/TypeInference.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
ImportValues valuesOf(const QString &text)
{
    return *ImportValues::of(*SeparatedText::read(text));
}
} // namespace

TEST(ImportValues, CountsWhatIsReadAndKeepsWhatIsNot)
{
    QString text = u"Name,Paid,When\n"_s;
    for (int row = 1; row <= 12; ++row)
        text += u"Ann,$%1,3/%1/08\n"_s.arg(row);
    text += u"Bob,a cow,2/30/08,extra\nCy\nDee, ,\n"_s;
    const ImportValues values = valuesOf(text);
    ASSERT_EQ(values.columns.size(), 4);
    EXPECT_EQ(values.columns[0].typeName, u"text");
    EXPECT_EQ(values.columns[0].read, 15);
    EXPECT_EQ(values.columns[1].typeName, u"currency (USD)");
    EXPECT_EQ(values.columns[1].read, 12);
    EXPECT_EQ(values.columns[1].unread, 1);
    EXPECT_EQ(values.columns[1].empty, 2);
    EXPECT_EQ(values.columns[2].typeName, u"date");
    EXPECT_EQ(values.columns[3].empty, 14);
    ASSERT_EQ(values.unread.size(), 2);
    EXPECT_EQ(values.unread[0].row, 13);
    EXPECT_EQ(values.unread[0].column, 1);
    EXPECT_EQ(values.unread[0].text, u"a cow");
    EXPECT_EQ(values.unread[1].reason, u"There is no such date.");
}

TEST(ImportValues, HelpsSecondsThroughTheImportHooks)
{
    EXPECT_EQ(valuesOf(u"T\n45s\n1h 5s\n"_s).columns[0].typeName, u"duration");
}

TEST(ImportValues, NeedsNoRows)
{
    const ImportValues values = valuesOf(u"a,b\n"_s);
    EXPECT_EQ(values.columns.size(), 2);
    EXPECT_TRUE(values.unread.isEmpty());
}

TEST(ImportValues, ReadsBehindASeparatorLine)
{
    const ImportValues values = valuesOf(u"sep=;\nN;M\n1;2\n3;4\n"_s);
    EXPECT_EQ(values.columns[1].typeName, u"number");
    EXPECT_EQ(values.columns[1].read, 2);
}

TEST(ImportValues, AllRowsDecideNotOnlyTheFirst)
{
    QString text = u"When\n"_s;
    for (qsizetype row = 0; row <= TypeInference::SampleSize; ++row)
        text += u"3/2/2016\n"_s;
    const ImportValues open = valuesOf(text);
    EXPECT_EQ(open.columns[0].typeName, u"date"_s);
    EXPECT_EQ(open.columns[0].decision.readAs, u"month, day, year"_s);
    const ImportValues decided = valuesOf(text + u"13/2/2016\n"_s);
    EXPECT_EQ(decided.columns[0].decision.readAs, u"day, month, year"_s);
    EXPECT_EQ(decided.columns[0].read, TypeInference::SampleSize + 2);
}

TEST(ImportValues, SaysWhichCurrencyTheValuesName)
{
    EXPECT_FALSE(valuesOf(u"Cost\n$5\n$6\n"_s).columns[0].currency.isNeeded());
    const ImportValues values = valuesOf(u"Cost\n€5\n€6\n"_s);
    EXPECT_EQ(values.columns[0].currency.readAs, u"EUR"_s);
    EXPECT_EQ(values.columns[0].currency.since, u"the values name it"_s);
}
