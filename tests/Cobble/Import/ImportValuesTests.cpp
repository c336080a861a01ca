#include "Commands/ProgressLine.h"
#include "Commands/UserSettings.h"
#include "Import/ImportValues.h"
#include "Import/TypeInference.h"

#include <KTUtility/KTCurrencyFormatter>

#include "support/TestSupport.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

using namespace testing_support;

namespace {
/// The type that a column of these values gets, with the currency of money.
QString typeOf(const char16_t *values)
{
    TypeInference inference;
    const QStringList texts = QString::fromUtf16(values).split(u'|');
    for (const QString &text : texts)
        inference.add(text);
    const auto reader = inference.reader();
    const auto *const currency = qobject_cast<KTCurrencyFormatter *>(reader->formatter());
    const QString name = FieldTypes::nameOf(reader->type());
    return currency ? QString(name + u' ' + currency->currencyType()) : name;
}

ImportValues valuesOf(const QString &text)
{
    return ImportValues::fromText(text, ImportSource::fromText(text));
}
} // namespace

TEST(TypeInference, FindsTheTypeOfMostValues)
{
    const std::pair<const char16_t *, const char16_t *> columns[] = {
        {u"1|2,000|(3)|-4.5", u"number"},
        {u"$1|$2.50|3", u"currency USD"},
        {u"€1|€2.50|€3", u"currency EUR"},
        {u"£1|£2|£3|£4|£5|£6|£7|£8|£9|?", u"currency GBP"},
        {u"1h|2h 30m|3 days", u"duration"},
        {u"5:30 PM|17:30|9:05", u"time"},
        {u"3/4/08|March 5, 2008|2008-03-05", u"date"},
        {u"3/4/08 5:30 PM|3/5/08|3/6/08 17:00", u"date+time"},
        {u"2008-03-05T17:30:00|2008-03-06T17:30:00", u"date+time"},
        {u"(212) 555-0123|212.555.0124|+1 212 555 0125 x3", u"phone"},
        {u"Ann|Bob|5", u"text"},
        {u"1|2|3|4|x", u"text"},
        {u"1|2|3|4|5|6|7|8|9|x", u"number"},
        {u"", u"text"},
        {u"  |", u"text"}};
    for (const auto &[values, type] : columns)
        EXPECT_EQ(typeOf(values), QString::fromUtf16(type))
            << qPrintable(QString::fromUtf16(values));
}

TEST(TypeInference, FollowsTheLocale)
{
    const LocaleScope scope(u"de_DE"_s);
    EXPECT_EQ(typeOf(u"1.234,5|2"), u"number");
    EXPECT_EQ(typeOf(u"12,50 €|3 €"), u"currency EUR");
    EXPECT_EQ(typeOf(u"31.12.2008|5. März 2008"), u"date");
}

TEST(TypeInference, LooksAtSoManyValuesOnly)
{
    TypeInference inference;
    for (qsizetype count = 0; count < TypeInference::SampleSize; ++count)
        inference.add(u"5"_s);
    EXPECT_TRUE(inference.isComplete());
    for (qsizetype count = 0; count < TypeInference::SampleSize; ++count)
        inference.add(u"five"_s);
    EXPECT_EQ(inference.reader()->type(), FieldType::Number);
}

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
    EXPECT_EQ(values.unread[1].reason, u"it is no date or time");
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

TEST(ProgressLine, TellsHowFarItIsAndGoesAway)
{
    QString shown;
    QTextStream stream(&shown);
    {
        ProgressLine line(&stream, u"Working"_s, 200);
        line.setDelay(0);
        line.show(2);
        line.show(3);
        line.show(200);
    }
    EXPECT_EQ(shown, u"\rWorking: 1 %\rWorking: 100 %\r\x1b[K");
}

TEST(ProgressLine, KeepsQuietIfNobodyLooksOrWorkIsShort)
{
    QString shown;
    QTextStream stream(&shown);
    {
        ProgressLine line(&stream, u"Working"_s, 10);
        line.show(5); // well within half a second
        ProgressLine nobody(nullptr, u"Working"_s, 10);
        nobody.setDelay(0);
        nobody.show(5);
        ProgressLine nothing(&stream, u"Working"_s, 0);
        nothing.setDelay(0);
        nothing.show(5);
    }
    EXPECT_EQ(shown, QString());
}
