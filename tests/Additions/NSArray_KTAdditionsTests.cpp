// What the tables do not show: typed lists, callables, errors, elements of mixed classes.

#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSException>
#include <KTUtility/NSObject_KTAdditions>
#include <KTUtility/NSSet_KTAdditions>

#include "CollectionSupport.h"
#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTAdditions;
using namespace Qt::StringLiterals;

using NSArray_KTAdditionsTests = CollectionTest;

// Typed lists come out as they went in.
static_assert(std::same_as<decltype(sortByKey(Fields(), Name)), Fields>);
static_assert(std::same_as<decltype(objectWithValue(Fields(), 1, Name)), TestField *>);
static_assert(
    std::same_as<decltype(objectWithValue(QList<TestPoint>(), 1, Name)), std::optional<TestPoint>>);

TEST_F(NSArray_KTAdditionsTests, FindsFirstAndSingularObjects)
{
    EXPECT_EQ(firstObject(abc), abc[0]);
    EXPECT_EQ(firstObject(Fields()), nullptr);
    EXPECT_EQ(singularObject(abc), nullptr);
    EXPECT_EQ(singularObject(Fields{abc[1]}), abc[1]);
    EXPECT_FALSE(firstObject(QVariantList()).isValid());
    EXPECT_TRUE(firstObject(QStringList()).isNull());
    EXPECT_FALSE(firstObject(QList<int>()).has_value());
    EXPECT_EQ(singularObject(QSet<TestField *>{abc[2]}), abc[2]);
}

TEST_F(NSArray_KTAdditionsTests, FindingNeverMatchesNil)
{
    EXPECT_EQ(objectWithValue(abc, QVariant(), Name), nullptr);
    EXPECT_EQ(objectWithValue(abc, QString(), Name), nullptr);
    EXPECT_FALSE(containsObjectWithValue(abc, QVariant(), Name));
    EXPECT_TRUE(objectsWithValue(abc, QVariant(), Name).isEmpty());
    EXPECT_EQ(objectWithValue(abc, 1.0, Size), abc[1]);
    EXPECT_EQ(objectWithValue(abc, u"1"_s, Size), nullptr);
}

TEST_F(NSArray_KTAdditionsTests, TheNullObjectFindsNilInListsOnly)
{
    EXPECT_TRUE(containsObjectWithValue(abc, NSNull(), Name));
    EXPECT_FALSE(containsObjectWithValue(Fields{abc[0]}, NSNull(), Name));
    EXPECT_FALSE(containsObjectWithValue(QSet<TestField *>{abc[2]}, NSNull(), Name));
}

TEST_F(NSArray_KTAdditionsTests, ANilKeyAsksTheListItself)
{
    EXPECT_TRUE(containsObjectWithValue(abc, QVariant::fromValue(abc[1]), QString()));
    EXPECT_FALSE(containsObjectWithValue(abc, u"a"_s, QString()));
    const QVariantList numbers{1, 2};
    EXPECT_TRUE(containsObjectWithValue(numbers, 2.0, QString()));
    EXPECT_EQ(objectWithValue(abc, u"a"_s, QString()), nullptr);
}

TEST_F(NSArray_KTAdditionsTests, UnknownKeysRaiseEvenBehindAMatch)
{
    EXPECT_THROW(objectWithValue(abc, 1, Unknown), NSException);
    EXPECT_THROW(sortByKey(abc, Unknown), NSException);
    EXPECT_THROW(uniqueStringWithBase(abc, Name, Unknown), NSException);
    EXPECT_THROW(dictionaryIndexWithKey(abc, Unknown), NSException);
    EXPECT_THROW(listWithKey(abc, Unknown, QString(), QString(), QString()), NSException);
    EXPECT_THROW(dictionaryWithValuesForKeyPaths(abc[0], {Unknown}), NSException);
    QObject stranger;
    const QVariantList mixed{QVariant::fromValue(abc[0]), QVariant::fromValue(&stranger)};
    EXPECT_THROW(containsObjectWithValue(mixed, u"a"_s, Name), NSException);
    EXPECT_EQ(objectWithValue(mixed, u"a"_s, Name), mixed[0]);
    EXPECT_NO_THROW(objectWithValue(Fields(), 1, Unknown));
}

TEST_F(NSArray_KTAdditionsTests, TakesMixedClassesAndNilElements)
{
    const QVariantMap map{{Name, u"m"_s}, {Size, 9}};
    const QVariantList mixed{QVariant::fromValue(abc[0]), map, QVariant(),
                             QVariant::fromValue(TestPoint{1, 2})};
    EXPECT_EQ(objectWithValue(mixed.mid(0, 3), u"m"_s, Name), QVariant(map));
    EXPECT_EQ(objectsSatisfyingCondition(mixed, "flagged").size(), 0);
    EXPECT_EQ(objectsSatisfyingCondition(mixed, "isRight"), QVariantList{mixed[3]});
    EXPECT_EQ(sortByKey(mixed.mid(0, 3), Size).at(0), QVariant());
    const Fields withNull{abc[0], nullptr};
    EXPECT_EQ(objectWithValue(withNull, u"b"_s, Name), nullptr);
    EXPECT_TRUE(objectsSatisfyingCondition(withNull, "sizeInt").isEmpty());
}

TEST_F(NSArray_KTAdditionsTests, PathsAreJoinedWithADot)
{
    abc[0]->_parent = abc[1];
    EXPECT_EQ(objectWithValue(abc, u"b"_s, Name, u"parent"_s), abc[0]);
    EXPECT_EQ(objectsWithValue(abc, 1, u"parent.size"_s), Fields{abc[0]});
}

TEST_F(NSArray_KTAdditionsTests, SortingIsStableAndPutsNilFirst)
{
    const Fields sorted = sortByKey(abc, Name);
    EXPECT_EQ(sorted, Fields({abc[2], abc[0], abc[1]}));
    EXPECT_EQ(sortByKey(abc, u"flag"_s), abc);
    EXPECT_EQ(KTAdditions_Private::makeSortDescriptorForKey(Name),
              QList<NSSortDescriptor>({{Name, true}}));
    EXPECT_EQ(_makeSortDescriptorForKey(Name).size(), 1);
    EXPECT_EQ(NSSortDescriptor::sorted(abc, {{Size, false}}), Fields({abc[2], abc[1], abc[0]}));
}

TEST_F(NSArray_KTAdditionsTests, UserOrderFollowsTheLocale)
{
    const QStringList names{u"zebra"_s, u"Ärger"_s, u"b"_s, u"A"_s, u"a"_s};
    EXPECT_EQ(sortInUserFieldOrder(names),
              QStringList({u"a"_s, u"A"_s, u"Ärger"_s, u"b"_s, u"zebra"_s}));
    const QVariantList mixed{5, u"b"_s, QVariant(), u"a"_s};
    EXPECT_EQ(sortInUserFieldOrder(mixed).first(), QVariant(u"a"_s));
}

TEST_F(NSArray_KTAdditionsTests, NamesAreComparedExactly)
{
    const QStringList names{u"Name"_s, u""_s};
    EXPECT_TRUE(containsName(names, u"Name"_s));
    EXPECT_FALSE(containsName(names, u"name"_s));
    EXPECT_TRUE(containsName(names, u""_s));
    EXPECT_FALSE(containsName(names, QString()));
    EXPECT_TRUE(containsName(QVariantList{1, u"1"_s}, u"1"_s));
    EXPECT_FALSE(containsName(QVariantList{1, QVariant()}, u"1"_s));
}

TEST_F(NSArray_KTAdditionsTests, RenumberingLeavesRightNumbersAlone)
{
    const int orders[] = {1, 5, 3};
    for (int index = 0; index < 3; ++index)
        abc[index]->_order = orders[index];
    adjustOrder(abc);
    EXPECT_EQ(abc[0]->timesOrdered(), 0);
    EXPECT_EQ(abc[1]->order(), QVariant(2));
    EXPECT_EQ(abc[1]->timesOrdered(), 1);
    EXPECT_EQ(abc[2]->timesOrdered(), 0);
}

TEST_F(NSArray_KTAdditionsTests, RenumberingReachesValues)
{
    QList<TestPoint> points{{1, 9}, {2, 2}};
    adjustOrder(points);
    EXPECT_EQ(points, QList<TestPoint>({{1, 1}, {2, 2}}));
    QVariantList maps{QVariantMap(), QVariantMap{{u"order"_s, u"2"_s}}};
    adjustOrder(maps);
    EXPECT_EQ(maps[0].toMap().value(u"order"_s), QVariant(1));
    EXPECT_EQ(maps[1].toMap().value(u"order"_s), QVariant(u"2"_s));
}

TEST_F(NSArray_KTAdditionsTests, ListsAreJoinedToOneText)
{
    EXPECT_EQ(listWithKey(abc, Name, u"<"_s, u">"_s, QString()), u"<a><b><(null)>"_s);
    abc[1]->_flag = true;
    EXPECT_EQ(listWithKey(abc, Name, u"-"_s, u""_s, u"flag"_s), u"-b"_s);
    EXPECT_EQ(listWithKey(abc, Size, QString(), u" %d "_s, u"name"_s), u""_s);
    EXPECT_EQ(listWithKey(Fields(), Name, Name, Name, Name), u""_s);
}

TEST_F(NSArray_KTAdditionsTests, DictionariesAreByKeyAndByPosition)
{
    const auto bySize = dictionaryIndexWithKey(abc, Size);
    EXPECT_EQ(bySize.objectForKey(1), abc[1]);
    EXPECT_EQ(bySize.objectForKey(7), nullptr);
    EXPECT_EQ(dictionaryIndexWithKey(abc, Name).count(), 2);
    const auto positions = positionalDictionaryIndex(Fields({abc[0], abc[1], abc[0]}));
    EXPECT_EQ(positions.objectForKey(abc[0]), 2U);
    EXPECT_EQ(positions.count(), 2);
    EXPECT_EQ(dictionaryWithValuesForKeyPaths(abc[2], {Name, Size}), QVariantMap({{Size, 2}}));
}

TEST_F(NSArray_KTAdditionsTests, ListsOfValuesWithoutHashesCompareToo)
{
    const QList<TestPoint> points{{1, 1}, {2, 2}, {1, 1}};
    EXPECT_EQ(objectsNotInArray(points, {{2, 2}}).size(), 2);
    EXPECT_EQ(indexOfObjects(points, {{1, 1}, {9, 9}}), NSIndexSet{0});
}

TEST_F(NSArray_KTAdditionsTests, TheExactObjectOfAPointerListIsThePointer)
{
    EXPECT_EQ(indexesOfExactObjects(abc, {abc[2], abc[2], nullptr}), NSIndexSet{2});
}
