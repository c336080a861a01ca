#include <KTUtility/NSCollections>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QDateTime>

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
        {std::numeric_limits<qlonglong>::min(), -0x1p63, decimal(u"-9223372036854775808")},
        {-1.5, decimal(u"-1.50")},
        {-1, -1.0, decimal(u"-1"), qlonglong(-1)},
        {0, false, 0.0, -0.0, decimal(u"0"), 0u},
        {decimal(u"0.1")},
        {1, true, 1.0f, ushort(1), decimal(u"1.0")},
        {qlonglong(1) << 53, double(qlonglong(1) << 53)},
        {(qlonglong(1) << 53) + 1},
        {std::numeric_limits<qlonglong>::max()},
        {0x1p63, quint64(1) << 63, decimal(u"9223372036854775808")},
        {0x1.8p63, (quint64(1) << 63) + (quint64(1) << 62), decimal(u"13835058055282163712")},
        {std::numeric_limits<quint64>::max()},
        {std::numeric_limits<double>::infinity()},
        {u""_s},
        {u"1"_s},
        {u"a"_s},
        {u"é"_s},
        {QVariantList()},
        {QVariantList{u"a"_s}, QStringList{u"a"_s}},
        {QVariantList{u"a"_s, 1}, QVariantList{u"a"_s, 1.0}},
        {QStringList{u"a"_s, u"b"_s}},
        {QVariantList{u"b"_s}},
        {QVariantMap{{u"a"_s, 1}}, QVariantHash{{u"a"_s, 1}}},
        {QVariantMap{{u"a"_s, 2}}},
        {QVariantHash{{u"b"_s, 1}}},
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

TEST(NSObject, DescribesValuesAsThePlatformDoes)
{
    EXPECT_EQ(NSObject::description(QVariant()), u"(null)"_s);
    EXPECT_EQ(NSObject::description(NSNull()), u"<null>"_s);
    EXPECT_EQ(NSObject::description(true), u"1"_s);
    EXPECT_EQ(NSObject::description(QByteArray("\x01\xFF")), u"<01ff>"_s);
    EXPECT_EQ(NSObject::description(QDateTime(QDate(2008, 3, 5), QTime(14, 30), KTPrivate::UTC)),
              u"2008-03-05 14:30:00 +0000"_s);
    EXPECT_EQ(NSObject::description(
                  QDateTime(QDate(2008, 3, 5), QTime(14, 30), QTimeZone(-5 * 3600 - 1800))),
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
