// Which columns are what. The samples' columns are in ImportValuesTests.cpp.

#include "Commands/UserSettings.h"
#include "Import/TypeInference.h"

#include "Formatters/FormatterSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/KTCurrencyFormatter>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QString typeOf(const QStringList &values, const std::function<bool(const QString &)> &isMedia = {})
{
    TypeInference inference(isMedia);
    for (const QString &value : values)
        inference.add(value);
    return FieldTypes::nameOf(inference.reader()->type());
}

QStringList times(int count, const QString &text)
{
    return QStringList(count, text);
}
} // namespace

TEST(TypeInference, RunsItsExample)
{
    TypeInference inference;
    inference.add(u"€5"_s);
    inference.add(u"€7.50"_s);
    EXPECT_EQ(inference.reader()->type(), FieldType::Currency);
}

TEST(TypeInference, CodesAreNoNumbers)
{
    EXPECT_EQ(typeOf({u"10115"_s, u"80331"_s}), u"number"_s);
    EXPECT_NE(typeOf({u"10115"_s, u"01067"_s}), u"number"_s);
    EXPECT_EQ(typeOf({u"+49 170 1234567"_s, u"030 654321"_s}), u"phone"_s);
    EXPECT_EQ(typeOf({u"0"_s, u"0.5"_s, u"-3"_s}), u"number"_s);
}

TEST(TypeInference, DatesAreNoNumbersWithOddGroups)
{
    // Where the point separates thousands, a formatter of numbers would read them.
    for (const char *const locale : {"de_DE", "tr_TR", "es_ES", "da_DK"}) {
        const UserLocale user(locale);
        EXPECT_EQ(typeOf({u"26.05.2014"_s, u"14.04.2012"_s}), u"date"_s);
        EXPECT_EQ(typeOf({u"6.06.1984"_s, u"31.12.1951"_s}), u"date"_s);
        EXPECT_EQ(typeOf({u"1.234.567"_s, u"12.345"_s}), u"number"_s);
        EXPECT_EQ(typeOf(times(9, u"12"_s) + times(1, u"1.1.2008"_s)), u"number"_s);
    }
}

TEST(TypeInference, NineInTenDecide)
{
    EXPECT_EQ(typeOf(times(9, u"12"_s) + times(1, u"cow"_s)), u"number"_s);
    EXPECT_EQ(typeOf(times(8, u"12"_s) + times(2, u"cow"_s)), u"text"_s);
    EXPECT_EQ(typeOf({}), u"text"_s);
}

TEST(TypeInference, FilesAreMedia)
{
    const auto isMedia = [](const QString &text) { return text.endsWith(u".png"); };
    EXPECT_EQ(typeOf(times(9, u"a.png"_s) + times(1, u"lost"_s), isMedia), u"media"_s);
    EXPECT_EQ(typeOf(times(9, u"a.png"_s)), u"text"_s);
    EXPECT_EQ(typeOf(times(2, u"a.png"_s) + times(8, u"b"_s), isMedia), u"text"_s);
}

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

TEST(TypeInference, ValuesDecideTogetherHowTheyAreTyped)
{
    EXPECT_EQ(typeOf(u"1,50|2,25"), u"number");
    EXPECT_EQ(typeOf(u"1.234|1,5"), u"number");
    EXPECT_EQ(typeOf(u"$1,50|$2,25"), u"currency USD");
    EXPECT_EQ(typeOf(u"€1,50|€2,25"), u"currency EUR");
    EXPECT_EQ(typeOf(u"13/2/2016|3/2/2016|25/12/2016"), u"date");
    EXPECT_EQ(typeOf(u"13/2/2016 14:30|3/2/2016 8:00"), u"date+time");
    const LocaleScope german(u"de_DE"_s);
    EXPECT_EQ(typeOf(u"1,234.50|2.25"), u"number");
    EXPECT_EQ(typeOf(u"2/13/2016|3/2/2016"), u"date");
}

TEST(TypeInference, WhatIsPlainGoesBeforeCommonForms)
{
    EXPECT_EQ(typeOf(u"3/4|3/5|12/31"), u"date");
    EXPECT_EQ(typeOf(u"1:30|12:45|23:59"), u"time");
}

TEST(TypeInference, WhoTellsTheConventionNeedsHalfOfTheValues)
{
    const auto typeWith = [](const ColumnConventions &told, const QStringList &values) {
        TypeInference inference({}, told);
        for (const QString &value : values)
            inference.add(value);
        return FieldTypes::nameOf(inference.reader()->type());
    };
    const QStringList mixed{u"3/2/2016"_s, u"13/2/2016"_s, u"2/14/2016"_s, u"1/2/2016"_s};
    EXPECT_EQ(typeWith({.order = u"dmy"_s, .point = {}, .unit = {}}, mixed), u"date"_s);
    EXPECT_EQ(typeWith({.order = u"mdy"_s, .point = {}, .unit = {}}, mixed), u"date"_s);
    EXPECT_EQ(typeWith({.order = {}, .point = {}, .unit = u"EUR"_s}, {u"5"_s, u"6"_s}),
              u"currency"_s);
}

TEST(TypeInference, NumbersHaveEvenGroups)
{
    EXPECT_EQ(typeOf({u"1,500"_s, u"2,250.5"_s}), u"number"_s);
    EXPECT_EQ(typeOf({u"1,50"_s, u"2.25"_s}), u"text"_s);
    EXPECT_EQ(typeOf({u"$1,50"_s, u"$2.25"_s}), u"text"_s);
    EXPECT_EQ(typeOf({u"1,2,3"_s, u"1.2.3"_s}), u"text"_s);
    const LocaleScope japan(u"ja_JP"_s);
    EXPECT_EQ(typeOf({u"¥500"_s, u"¥1,200"_s, u"¥80"_s}), u"currency"_s);
}
