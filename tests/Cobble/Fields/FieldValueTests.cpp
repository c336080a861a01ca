#include "Fields/FieldValue.h"

#include "support/TestSupport.h"

#include <KTUtility/NSCalendar>
#include <KTUtility/NSObject>

#include <QDateTime>

using namespace Qt::StringLiterals;

TEST(FieldValue, NumbersArePlainDigits)
{
    for (const FieldType type : {FieldType::Number, FieldType::Currency, FieldType::Duration}) {
        EXPECT_EQ(FieldValue::textOf(FieldValue::valueOf(type, u"-1234.5"_s)), u"-1234.5"_s);
        EXPECT_EQ(FieldValue::textOf(FieldValue::valueOf(type, u"1e3"_s)), u"1000"_s);
        for (const QString &text : {u"1,234"_s, u"12abc"_s, u""_s, u"."_s, u"NaN"_s, u" 1"_s})
            EXPECT_FALSE(FieldValue::valueOf(type, text).isValid()) << text.toStdString();
    }
}

TEST(FieldValue, DatesAreOfISO8601)
{
    const QTimeZone zone = NSCalendar::systemTimeZone();
    EXPECT_EQ(FieldValue::valueOf(FieldType::Date, u"2008-03-04"_s).toDateTime(),
              QDateTime(QDate(2008, 3, 4), QTime(0, 0), zone));
    EXPECT_EQ(FieldValue::valueOf(FieldType::DateTime, u"2008-03-04T17:30"_s).toDateTime(),
              QDateTime(QDate(2008, 3, 4), QTime(17, 30), zone));
    EXPECT_EQ(FieldValue::valueOf(FieldType::Time, u"17:30"_s).toDateTime(),
              QDateTime(QDate(2001, 1, 1), QTime(17, 30), zone));
    for (const QString &text : {u"2008-02-30"_s, u"4.3.2008"_s, u"25:00"_s, u""_s})
        EXPECT_FALSE(FieldValue::valueOf(FieldType::Date, text).isValid()) << text.toStdString();
}

TEST(FieldValue, ADistanceToUTCIsKept)
{
    const QVariant value = FieldValue::valueOf(FieldType::DateTime, u"2008-03-04T17:30:00+02:00"_s);
    EXPECT_EQ(value.toDateTime(),
              QDateTime(QDate(2008, 3, 4), QTime(15, 30), QTimeZone(QByteArray("UTC"))));
}

TEST(FieldValue, EverythingElseIsText)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_EQ(FieldValue::valueOf(FieldType::Text, text).toString(), text);
    EXPECT_EQ(FieldValue::textOf(QVariant(u"Ann"_s)), u"Ann"_s);
    EXPECT_EQ(FieldValue::textOf(QVariant()), u"(nil)"_s);
}
