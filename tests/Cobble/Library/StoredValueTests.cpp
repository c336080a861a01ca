#include "Library/StoredValue.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include <QDateTime>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace {
QVariant decimal(const char16_t *digits)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits));
}

QVariant thereAndBack(FieldType type, const QVariant &value)
{
    return StoredValue::fromDatabase(type, StoredValue::forDatabase(value));
}
} // namespace

TEST(StoredValue, NumbersAreSQLitesOwnWhereTheyFit)
{
    EXPECT_EQ(StoredValue::forDatabase(decimal(u"42")), QVariant(qlonglong(42)));
    EXPECT_EQ(StoredValue::forDatabase(decimal(u"-0.5")), QVariant(-0.5));
    EXPECT_EQ(StoredValue::forDatabase(9000), QVariant(qlonglong(9000)));
    EXPECT_EQ(StoredValue::forDatabase(decimal(u"123456789012345678")),
              QVariant(qlonglong(123456789012345678)));
    EXPECT_EQ(StoredValue::forDatabase(decimal(u"1234567890123456789")),
              QVariant(u"1234567890123456789"_s));
    EXPECT_EQ(StoredValue::forDatabase(decimal(u"0.1234567890123456")),
              QVariant(u"0.1234567890123456"_s));
}

TEST(StoredValue, NumbersComeBackExactly)
{
    for (const char16_t *digits :
         {u"0", u"1", u"-1", u"0.1", u"-8777.01", u"99999999999999.9", u"0.000000000000001",
          u"123456789012345678", u"12345678901234567890123456789012345678",
          u"0.12345678901234567890123456789012345678", u"1000000000000000000000000000000"}) {
        for (const FieldType type : {FieldType::Number, FieldType::Currency, FieldType::Duration}) {
            const QVariant value = thereAndBack(type, decimal(digits));
            EXPECT_TRUE(NSObject::isNumber(value)) << QString::fromUtf16(digits).toStdString();
            EXPECT_TRUE(NSObject::isEqual(value, decimal(digits)));
        }
    }
}

TEST(StoredValue, ADoubleOfFewDigitsIsThatDecimal)
{
    for (const double value : {0.1, 1e-7, 123456.789, -2.5}) {
        const QVariant stored(value);
        EXPECT_EQ(NSObject::description(StoredValue::fromDatabase(FieldType::Number, stored)),
                  QString::number(value, 'f', QLocale::FloatingPointShortest));
    }
}

TEST(StoredValue, TypedTextsStayAsTheyAre)
{
    for (const FieldType type :
         {FieldType::Number, FieldType::Currency, FieldType::Duration, FieldType::Date,
          FieldType::Time, FieldType::DateTime, FieldType::Phone, FieldType::Text}) {
        for (const QString &text :
             {u"about 40"_s, u"12.5"_s, u"1,5"_s, u"2/30/2008"_s, u"2008-03-05"_s, u""_s})
            EXPECT_EQ(thereAndBack(type, text), QVariant(text)) << text.toStdString();
    }
}

TEST(StoredValue, DatesAreISOAndKeepTheirInstant)
{
    const QDateTime summer(QDate(2008, 7, 4), QTime(17, 30), QTimeZone("America/New_York"));
    const QVariant stored = StoredValue::forDatabase(summer);
    EXPECT_EQ(stored.toDateTime().toUTC(), summer.toUTC());
    EXPECT_EQ(thereAndBack(FieldType::DateTime, summer).toDateTime(), summer);
    const QDateTime precise = summer.addMSecs(7);
    EXPECT_TRUE(StoredValue::forDatabase(precise).toString().contains(u".007"));
    EXPECT_EQ(thereAndBack(FieldType::Date, precise).toDateTime(), precise);
}

TEST(StoredValue, DatesBeforeThereWereZonesKeepTheirInstant)
{
    // New York was 4:56:02 behind until 1883.
    const QDateTime early(QDate(1880, 5, 5), QTime(10, 0, 45), QTimeZone("America/New_York"));
    ASSERT_EQ(early.offsetFromUtc() % 60, -2);
    EXPECT_EQ(thereAndBack(FieldType::DateTime, early).toDateTime(), early);
}

TEST(StoredValue, NilIsNil)
{
    EXPECT_TRUE(StoredValue::forDatabase(QVariant()).isNull());
    EXPECT_TRUE(StoredValue::forDatabase(QVariant(QString())).isNull());
    for (const FieldType type : {FieldType::Number, FieldType::Date, FieldType::Text})
        EXPECT_FALSE(StoredValue::fromDatabase(type, QVariant()).isValid());
}
