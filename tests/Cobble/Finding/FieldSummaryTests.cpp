#include "Finding/FieldSummary.h"

#include "Commands/UserSettings.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QVariant number(const QString &digits)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits));
}

FieldSummary summaryOf(const QVariantList &values)
{
    FieldSummary summary;
    for (const QVariant &value : values)
        summary.add(value);
    return summary;
}
} // namespace

TEST(FieldSummary, SumsExactly)
{
    QVariantList tenths;
    for (int count = 0; count < 10; ++count)
        tenths += number(u"0.1"_s);
    EXPECT_EQ(summaryOf(tenths).sum().description(), u"1"_s);
    EXPECT_EQ(summaryOf(tenths).average().description(), u"0.1"_s);
    const QVariantList large{number(u"9007199254740993"_s), number(u"0.25"_s)};
    EXPECT_EQ(summaryOf(large).sum().description(), u"9007199254740993.25"_s);
}

TEST(FieldSummary, IsShownAsTheFieldShowsValues)
{
    const struct
    {
        const char16_t *locale;
        FieldType type;
        QVariantList values;
        const char16_t *text;
    } rows[] = {
        {u"en_US",
         FieldType::Number,
         {number(u"1000"_s), number(u"-2"_s)},
         u"Sum 998 · Average 499 · Least -2 · Most 1,000"},
        {u"de_DE",
         FieldType::Number,
         {number(u"1000.5"_s), number(u"2"_s)},
         u"Sum 1.002,5 · Average 501,25 · Least 2 · Most 1.000,5"},
        {u"en_US",
         FieldType::Currency,
         {number(u"5.5"_s), QVariant(), number(u"1"_s)},
         u"Sum $6.50 · Average $3.25 · Least $1.00 · Most $5.50"},
        {u"en_US",
         FieldType::Duration,
         {number(u"3600"_s), number(u"1800"_s)},
         u"Sum 1h 30m · Average 45m · Least 30m · Most 1h"},
        {u"en_US", FieldType::Number, {QVariant(), u"many"_s}, u""},
        {u"en_US", FieldType::Text, {u"a"_s, u"b"_s}, u""},
    };
    for (const auto &row : rows) {
        const LocaleScope scope(QString::fromUtf16(row.locale));
        const FieldReader reader(row.type);
        EXPECT_EQ(summaryOf(row.values).text(reader), QString::fromUtf16(row.text));
    }
}

TEST(FieldSummary, DatesHaveAFirstAndALast)
{
    const LocaleScope scope(u"en_US"_s);
    const FieldReader reader(FieldType::Date);
    const QVariant first = *reader.read(u"3/4/2008"_s);
    const QVariant last = *reader.read(u"12/31/2010"_s);
    EXPECT_EQ(summaryOf({last, QVariant(), first, u"soon"_s}).text(reader),
              u"From 3/4/2008 to 12/31/2010"_s);
    EXPECT_EQ(summaryOf({QVariant()}).text(reader), QString());
}

TEST(FieldSummary, WhatIsTooLargeIsSaid)
{
    const LocaleScope scope(u"en_US"_s);
    const QVariant most = QVariant::fromValue(NSDecimalNumber::maximumDecimalNumber());
    const FieldSummary summary =
        summaryOf({most, most, QVariant::fromValue(NSDecimalNumber::notANumber())});
    EXPECT_EQ(summary.numberCount(), 2);
    EXPECT_TRUE(summary.sum().isNaN());
    EXPECT_TRUE(summary.text(FieldReader(FieldType::Number))
                    .startsWith(u"Sum too large · Average too large"));
}
