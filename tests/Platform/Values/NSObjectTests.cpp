#include <KTUtility/NSCollections>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
QVariant decimal(const char16_t *text)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(text));
}

/// Values in ascending order; equal ones stand in one list.
QList<QVariantList> ascendingValues()
{
    return {
        {QVariant(), QVariant(QString())},
        {-std::numeric_limits<double>::infinity()},
        {std::numeric_limits<qlonglong>::min(), -0x1p63},
        {-1.5, decimal(u"-1.50")},
        {-1, -1.0, decimal(u"-1"), qlonglong(-1)},
        {0, false, 0.0, -0.0, decimal(u"0"), 0u},
        {decimal(u"0.1")},
        {1, true, 1.0f, ushort(1), decimal(u"1.0")},
        {qlonglong(1) << 53, double(qlonglong(1) << 53)},
        {(qlonglong(1) << 53) + 1},
        {std::numeric_limits<qlonglong>::max()},
        {0x1p63, quint64(1) << 63},
        {std::numeric_limits<quint64>::max()},
        {std::numeric_limits<double>::infinity()},
        {u""_s},
        {u"1"_s},
        {u"a"_s},
        {u"é"_s},
    };
}
} // namespace

TEST(NSObject, EqualityAndOrderAgreeOverAllPairs)
{
    const auto values = ascendingValues();
    for (qsizetype i = 0; i < values.size(); ++i) {
        for (qsizetype j = 0; j < values.size(); ++j) {
            for (const QVariant &left : values[i]) {
                for (const QVariant &right : values[j]) {
                    SCOPED_TRACE(testing::PrintToString(left) + " and " +
                                 testing::PrintToString(right));
                    EXPECT_EQ(NSObject::compare(left, right), i <=> j);
                    EXPECT_EQ(NSObject::isEqual(left, right), i == j);
                    EXPECT_EQ(NSObject::isEqualTo(left, right), i == j && i != 0);
                    if (i == j) {
                        EXPECT_EQ(NSObject::hash(left), NSObject::hash(right));
                    }
                }
            }
        }
    }
}

TEST(NSObject, NumbersNeverEqualTexts)
{
    EXPECT_FALSE(NSObject::isEqual(1, u"1"_s));
    EXPECT_FALSE(NSObject::isEqual(true, u"true"_s));
    EXPECT_FALSE(NSObject::isEqual(QByteArray("a"), u"a"_s));
    EXPECT_FALSE(NSObject::isEqual(u"é"_s, u"e\u0301"_s));
}

TEST(NSObject, NotANumberHasAPlaceOfItsOwn)
{
    const QVariant nan = std::nan("");
    EXPECT_TRUE(NSObject::isEqual(nan, nan));
    EXPECT_TRUE(NSObject::compare(nan, 1e308) > 0);
    EXPECT_TRUE(NSObject::compare(decimal(u"x"), decimal(u"9")) > 0);
    EXPECT_FALSE(NSObject::isEqual(nan, 5));
    EXPECT_FALSE(NSObject::isEqual(5, nan));
}

TEST(NSObject, ListsAndMapsCompareByElements)
{
    EXPECT_TRUE(NSObject::isEqual(QVariantList{1, 2.0}, QVariantList{1.0, 2}));
    EXPECT_FALSE(NSObject::isEqual(QVariantList{1}, QVariantList{1, 2}));
    const QVariantMap one{{u"a"_s, 1}};
    const QVariantMap same{{u"a"_s, 1.0}};
    EXPECT_TRUE(NSObject::isEqual(one, same));
    EXPECT_EQ(NSObject::hash(one), NSObject::hash(same));
    EXPECT_FALSE(NSObject::isEqual(one, QVariantMap{{u"b"_s, 1}}));
}

TEST(NSObject, ObjectsEqualOnlyThemselves)
{
    TestField one(u"same"_s);
    TestField other(u"same"_s);
    const QVariant boxed = QVariant::fromValue(&one);
    EXPECT_TRUE(NSObject::isEqual(boxed, QVariant::fromValue<QObject *>(&one)));
    EXPECT_FALSE(NSObject::isEqual(boxed, QVariant::fromValue(&other)));
    EXPECT_TRUE(NSObject::isNil(QVariant::fromValue<TestField *>(nullptr)));
}

TEST(NSObject, IdentityOfTextsIsThatOfTheirStorage)
{
    const QString text = u"text"_s + QString::number(1);
    const QString copy = text;
    const QString equal = u"text"_s + QString::number(1);
    EXPECT_TRUE(NSObject::isIdenticalTo(text, copy));
    EXPECT_FALSE(NSObject::isIdenticalTo(text, equal));
    EXPECT_TRUE(NSObject::isIdenticalTo(5, 5));
    EXPECT_FALSE(NSObject::isIdenticalTo(5, 5.0));
}

TEST(NSObject, NumbersAndTruthOfValues)
{
    EXPECT_EQ(NSObject::integerValue(u" 12 pieces"_s), 12);
    EXPECT_EQ(NSObject::integerValue(-2.9), -2);
    EXPECT_EQ(NSObject::integerValue(1e300), 0);
    EXPECT_EQ(NSObject::integerValue(std::nan("")), 0);
    EXPECT_EQ(NSObject::integerValue(decimal(u"7.9")), 7);
    EXPECT_EQ(NSObject::integerValue(QVariant()), 0);
    EXPECT_EQ(NSObject::integerValue(QVariantList{1}), 0);
    EXPECT_TRUE(NSObject::boolValue(u"yes"_s));
    EXPECT_TRUE(NSObject::boolValue(0.5));
    EXPECT_FALSE(NSObject::boolValue(decimal(u"0.0")));
    EXPECT_FALSE(NSObject::boolValue(QVariant()));
}

TEST(NSObject, Descriptions)
{
    EXPECT_EQ(NSObject::description(QVariant()), u"(null)"_s);
    EXPECT_EQ(NSObject::description(NSNull()), u"<null>"_s);
    EXPECT_EQ(NSObject::description(true), u"1"_s);
    EXPECT_EQ(NSObject::description(QByteArray("\x01\xFF")), u"<01ff>"_s);
    EXPECT_EQ(NSObject::description(QDateTime(QDate(2008, 3, 5), QTime(14, 30), Qt::UTC)),
              u"2008-03-05 14:30:00 +0000"_s);
    EXPECT_EQ(NSObject::description(
                  QDateTime(QDate(2008, 3, 5), QTime(14, 30), Qt::OffsetFromUTC, -5 * 3600 - 1800)),
              u"2008-03-05 14:30:00 -0530"_s);
    EXPECT_EQ(NSObject::description(QVariantMap{{u"a b"_s, QVariantList{}}}),
              u"{\n    \"a b\" = (\n    );\n}"_s);
}

TEST(NSObject, DescriptionsOfDeepListsEnd)
{
    QVariantList list;
    for (int depth = 0; depth < 5000; ++depth)
        list = QVariantList{list};
    EXPECT_TRUE(NSObject::description(list).contains(u"..."));
}

TEST(NSCollections, SetsAndTablesUseThePlatformsEquality)
{
    NSSet set{1, u"1"_s};
    EXPECT_EQ(set.size(), 2);
    EXPECT_FALSE(set.addObject(1.0));
    EXPECT_TRUE(set.contains(decimal(u"1.00")));
    set.remove(true);
    EXPECT_EQ(set, NSSet{u"1"_s});

    NSMapTable<QVariant, int> table;
    table.setObject(5, 1);
    table.setObject(6, 1.0);
    EXPECT_EQ(table.count(), 1);
    EXPECT_EQ(table.objectForKey(1), 6);
    EXPECT_FALSE(table.objectForKey(2).has_value());
}

TEST(NSCollections, BoxingMakesNilOfNullTextsAndPointers)
{
    EXPECT_FALSE(NSBoxed(QString()).isValid());
    EXPECT_TRUE(NSBoxed(u""_s).isValid());
    EXPECT_FALSE(NSBoxed(static_cast<TestField *>(nullptr)).isValid());
    EXPECT_FALSE(NSBoxed(std::shared_ptr<TestField>()).isValid());
    const auto field = std::make_shared<TestField>();
    EXPECT_EQ(NSBoxed(field).value<TestField *>(), field.get());
}

TEST(NSDecimalNumber, KeepsThirtyEightDigitsRoundedHalfAwayFromZero)
{
    const auto description = [](const char16_t *text) {
        return NSDecimalNumber::decimalNumberWithString(text).description();
    };
    EXPECT_EQ(description(u"3.14159265358979323846264338327950288419"),
              u"3.1415926535897932384626433832795028842"_s);
    EXPECT_EQ(description(u"99999999999999999999999999999999999999"), QString(38, u'9'));
    EXPECT_EQ(description(u"999999999999999999999999999999999999995"), u"1"_s + QString(39, u'0'));
    EXPECT_EQ(description(u"1e127"), u"1"_s + QString(127, u'0'));
    EXPECT_EQ(description(u"1e-128").size(), 130);
    EXPECT_EQ(description(u"1e128"), u"1"_s + QString(128, u'0'));
    EXPECT_EQ(description(u"1e165"), u"NaN"_s);
    EXPECT_EQ(description(u"-0"), u"0"_s);
    EXPECT_EQ(description(u"1e"), u"1"_s);
    EXPECT_EQ(description(u"1e99999999999999999999"), u"NaN"_s);
}

TEST(NSDecimalNumber, TheExampleOfTheHeaderHolds)
{
    const auto price = NSDecimalNumber::decimalNumberWithString(u"12.50");
    EXPECT_EQ(price.description(), u"12.5"_s);
    EXPECT_TRUE(price == NSDecimalNumber::decimalNumberWithString(u"12.5"));
    EXPECT_TRUE(NSDecimalNumber::decimalNumberWithString(u"abc").isNaN());
    EXPECT_EQ(NSDecimalNumber(-1200).integerValue(), -1200);
    EXPECT_DOUBLE_EQ(price.doubleValue(), 12.5);
}

TEST(NSDecimalNumber, OrdersBySignPlaceAndDigits)
{
    const char16_t *ascending[] = {u"-1e40", u"-12.5",  u"-12.49", u"-1",   u"-0.001",
                                   u"0",     u"1e-100", u"0.5",    u"9.99", u"10",
                                   u"10.01", u"1e40",   u"x"};
    for (size_t i = 0; i < std::size(ascending); ++i) {
        for (size_t j = 0; j < std::size(ascending); ++j)
            EXPECT_EQ(NSDecimalNumber::decimalNumberWithString(ascending[i]) <=>
                          NSDecimalNumber::decimalNumberWithString(ascending[j]),
                      i <=> j);
    }
}

TEST(NSDecimalNumber, EqualsADoubleOfTheSameShortestText)
{
    EXPECT_TRUE(NSObject::isEqual(decimal(u"0.1"), 0.1));
    EXPECT_FALSE(NSObject::isEqual(decimal(u"0.10000000000000001"), 0.1));
}
