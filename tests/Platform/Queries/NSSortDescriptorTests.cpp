#include <KTUtility/NSException>
#include <KTUtility/NSSortDescriptor>

#include <KTUtility/NSPredicate>

#include "support/DefaultLocale.h"
#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QCollator>
#include <QTimeZone>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
QVariantList boxed(const QVariantList &values)
{
    QVariantList list;
    for (const QVariant &value : values)
        list += QVariantMap{{u"v"_s, value}};
    return list;
}

QVariantList sortedValues(const QVariantList &values, const NSSortDescriptor &descriptor)
{
    QVariantList sorted;
    for (const QVariant &each : NSSortDescriptor::sorted(boxed(values), {descriptor}))
        sorted += each.toMap().value(u"v"_s);
    return sorted;
}

/// What the values are in the order in which NSObject compares each two of them.
QVariantList comparedOneByOne(QVariantList values)
{
    std::stable_sort(values.begin(), values.end(), [](const QVariant &left, const QVariant &right) {
        return NSObject::compare(left, right) < 0;
    });
    return values;
}

const double NaN = std::numeric_limits<double>::quiet_NaN();
const QDateTime Noon(QDate(2026, 3, 5), QTime(12, 0), QTimeZone::utc());
} // namespace

TEST(NSSortDescriptor, SortsBySeveralKeysInBothDirections)
{
    TestField a1(u"a"_s, 1);
    TestField a2(u"a"_s, 2);
    TestField b1(u"b"_s, 1);
    const QString name = u"name"_s;
    const QString size = u"size"_s;
    const QList<TestField *> fields{&b1, &a1, &a2};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{name, true}, {size, false}}),
              QList<TestField *>({&a2, &a1, &b1}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{size, true}, {name, false}}),
              QList<TestField *>({&b1, &a1, &a2}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {}), fields);
}

TEST(NSSortDescriptor, KeysMayBePaths)
{
    TestField low(u"low"_s, 1);
    TestField high(u"high"_s, 2);
    TestField first(u"first"_s);
    TestField second(u"second"_s);
    TestField orphan(u"orphan"_s);
    first._parent = &low;
    second._parent = &high;
    const QList<TestField *> fields{&second, &first, &orphan};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{u"parent.size"_s}}),
              QList<TestField *>({&orphan, &first, &second}));
    EXPECT_THROW(NSSortDescriptor::sorted(fields, {{u"parent.nmae"_s}}), NSException);
    const auto nested = [](int x) { return QVariantMap{{u"m"_s, QVariantMap{{u"x"_s, x}}}}; };
    EXPECT_EQ(NSSortDescriptor::sorted(QVariantList{nested(2), nested(1)}, {{u"m.x"_s}}),
              QVariantList({nested(1), nested(2)}));
}

TEST(NSSortDescriptor, TextsSortByThemselvesAndTheirLength)
{
    const QStringList texts{u"ccc"_s, u"a"_s, u"bb"_s, QString()};
    EXPECT_EQ(NSSortDescriptor::sorted(texts, {{u"length"_s, false}}),
              QStringList({u"ccc"_s, u"bb"_s, u"a"_s, QString()}));
    EXPECT_EQ(NSSortDescriptor::sorted(QVariantList{2, u"b"_s, 1}, {{u"self"_s}}),
              QVariantList({1, 2, u"b"_s}));
}

TEST(NSSortDescriptor, ValuesOfAllKindsAreInTheirOrder)
{
    const QVariantList rows[] = {
        {3, 1, 2, true, false, -7, QVariant(), 1},
        {2.5, -1.0, 1e300, QVariant(), 0.0, -0.0},
        {u"b"_s, u"a"_s, u""_s, QString(), u"ä"_s, u"B"_s},
        {Noon.addSecs(1), Noon.toOffsetFromUtc(3600), Noon, QVariant(), Noon.addDays(-1)},
        {3, 2.5, u"a"_s, QVariant(), Noon, 4u, QByteArray("x"),
         std::numeric_limits<quint64>::max()},
        {QDate(2026, 1, 2), QDate(2025, 1, 2), QVariant(), QDate(2026, 1, 1)},
        {QVariantList{2, 1}, QVariantList{1, 9}, QVariant()},
        {QVariant(), QVariant()},
        {},
    };
    for (const QVariantList &row : rows)
        EXPECT_EQ(sortedValues(row, {u"v"_s}), comparedOneByOne(row));
    const QVariantList withNaN = sortedValues({NaN, 1.0, QVariant(), -1.0}, {u"v"_s});
    EXPECT_EQ(withNaN.mid(0, 3), QVariantList({QVariant(), -1.0, 1.0}));
    EXPECT_TRUE(std::isnan(withNaN.last().toDouble()));
}

TEST(NSSortDescriptor, TextsMaySortAsPeopleSortThem)
{
    const testing_support::DefaultLocale german(QLocale(u"de_DE"_s));
    const QVariantList names{u"Zug"_s, u"äpfel"_s, u"apfel"_s, u"Birne"_s, QVariant(), 3};
    EXPECT_EQ(sortedValues(names, {.key = u"v"_s, .localized = true}),
              QVariantList({QVariant(), 3, u"apfel"_s, u"äpfel"_s, u"Birne"_s, u"Zug"_s}));
    EXPECT_EQ(sortedValues(names.mid(0, 4), {.key = u"v"_s, .ascending = false, .localized = true}),
              QVariantList({u"Zug"_s, u"Birne"_s, u"äpfel"_s, u"apfel"_s}));
    EXPECT_EQ(sortedValues(names.mid(0, 4), NSSortDescriptor{u"v"_s}.inLocalizedOrder()),
              QVariantList({u"apfel"_s, u"äpfel"_s, u"Birne"_s, u"Zug"_s}));
    EXPECT_EQ(sortedValues(names.mid(0, 4), NSSortDescriptor{u"v"_s}),
              QVariantList({u"Birne"_s, u"Zug"_s, u"apfel"_s, u"äpfel"_s}));
}

TEST(NSSortDescriptor, ComparatorsMayCapture)
{
    QCollator collator{QLocale(u"en_US"_s)};
    collator.setNumericMode(true);
    int calls = 0;
    const NSComparator byNumber = [&calls, collator](const QVariant &left, const QVariant &right) {
        ++calls;
        return collator.compare(left.toString(), right.toString()) <=> 0;
    };
    EXPECT_EQ(sortedValues({u"item 10"_s, u"item 9"_s}, {u"v"_s, true, byNumber}),
              QVariantList({u"item 9"_s, u"item 10"_s}));
    EXPECT_GT(calls, 0);
    // Copies are the same, others are not.
    const NSSortDescriptor descriptor{u"v"_s, true, byNumber};
    const NSSortDescriptor copy = descriptor;
    EXPECT_EQ(copy, descriptor);
    EXPECT_NE(copy, (NSSortDescriptor{u"v"_s, true}));
    EXPECT_EQ((NSSortDescriptor{u"v"_s, true, NSObject::compare}), (NSSortDescriptor{u"v"_s}));
}

TEST(NSSortDescriptor, SortsByMembersAndLambdas)
{
    TestField low(u"low"_s, 1);
    TestField high(u"high"_s, 2);
    TestJudge judge;
    const QList<TestField *> fields{&high, &low};
    const QList<TestField *> ascending{&low, &high};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {NSSortDescriptor::by(&TestField::size)}),
              ascending);
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {NSSortDescriptor::by(&TestField::_size)}),
              ascending);
    EXPECT_EQ(NSSortDescriptor::sorted(ascending, {NSSortDescriptor::by(&TestField::size, false)}),
              fields);
    EXPECT_EQ(NSSortDescriptor::sorted(
                  fields, {NSSortDescriptor::by([](const TestField &each) { return each._size; })}),
              ascending);
    EXPECT_EQ(NSSortDescriptor::sorted(
                  fields, {NSSortDescriptor::by([](TestField *each) { return each->size(); })}),
              ascending);
    // Objects of other classes have nil, which comes first.
    const QList<QObject *> mixed{&low, &judge};
    EXPECT_EQ(NSSortDescriptor::sorted(mixed, {NSSortDescriptor::by(&TestField::size)}),
              QList<QObject *>({&judge, &low}));
    const QVariantList points{QVariant::fromValue(TestPoint{2, 0}),
                              QVariant::fromValue(TestPoint{1, 0})};
    EXPECT_EQ(NSSortDescriptor::sorted(points, {NSSortDescriptor::by(&TestPoint::x)}).first(),
              points.last());
}

TEST(NSSortDescriptor, MembersAndLambdasFilter)
{
    TestField low(u"low"_s, 1);
    TestJudge judge;
    low._flag = true;
    EXPECT_TRUE(NSPredicate::where(&TestField::_flag).evaluateWithObject(&low));
    EXPECT_FALSE(NSPredicate::where(&TestField::_flag).evaluateWithObject(&judge));
    EXPECT_FALSE(NSPredicate::where([](const TestField &each) {
                     return each._size > 1;
                 }).evaluateWithObject(&low));
    EXPECT_TRUE(NSPredicate::where(&TestField::size).evaluateWithObject(QVariant::fromValue(&low)));
    EXPECT_FALSE(NSPredicate::where(&TestField::size).evaluateWithObject(u"text"_s));
    TestField high(u"high"_s, 2);
    const QList<TestField *> fields{&low, &high};
    EXPECT_EQ(NSPredicate::where(&TestField::_flag).filtered(fields), QList<TestField *>({&low}));
    EXPECT_EQ(
        NSPredicate::predicateWithFormat(u"length > 1").filtered(QStringList{u"a"_s, u"bb"_s}),
        QStringList(u"bb"_s));
    EXPECT_EQ(NSPredicate().filtered(fields), QList<TestField *>());
}
