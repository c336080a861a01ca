// What the tables do not show: typed lists, callables, errors, elements of mixed classes.

#include <KTUtility/NSException>
#include <KTUtility/NSObject_KTAdditions>
#include <KTUtility/NSSet_KTAdditions>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

using namespace KTAdditions;

namespace {
const QString Name = u"name"_s;
const QString Size = u"size"_s;
const QString Unknown = u"nmae"_s;

/// Fields by name, with their position as size.
class CollectionTest : public testing::Test
{
protected:
    QList<TestField *> fieldsNamed(const QStringList &names)
    {
        QList<TestField *> fields;
        for (const QString &name : names) {
            _owned.push_back(std::make_unique<TestField>(name, int(fields.size())));
            fields += _owned.back().get();
        }
        return fields;
    }

private:
    std::vector<std::unique_ptr<TestField>> _owned;

protected:
    QList<TestField *> abc = fieldsNamed({u"a"_s, u"b"_s, QString()});
};

// Typed lists come out as they went in.
using Fields = QList<TestField *>;
static_assert(std::same_as<decltype(sortByKey(Fields(), Name)), Fields>);
static_assert(std::same_as<decltype(objectWithValue(Fields(), 1, Name)), TestField *>);
static_assert(
    std::same_as<decltype(objectWithValue(QList<TestPoint>(), 1, Name)), std::optional<TestPoint>>);
static_assert(
    std::same_as<decltype(objectsSatisfyingCondition(QVariantList(), "a")), QVariantList>);
static_assert(
    std::same_as<decltype(arrayByPerformingSelector(Fields(), &TestField::size)), QList<int>>);
} // namespace

TEST_F(CollectionTest, FirstAndSingularObjects)
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

TEST_F(CollectionTest, FindingNeverMatchesNil)
{
    EXPECT_EQ(objectWithValue(abc, QVariant(), Name), nullptr);
    EXPECT_EQ(objectWithValue(abc, QString(), Name), nullptr);
    EXPECT_FALSE(containsObjectWithValue(abc, QVariant(), Name));
    EXPECT_TRUE(objectsWithValue(abc, QVariant(), Name).isEmpty());
    EXPECT_EQ(objectWithValue(abc, 1.0, Size), abc[1]);
    EXPECT_EQ(objectWithValue(abc, u"1"_s, Size), nullptr);
}

TEST_F(CollectionTest, TheNullObjectFindsNilInListsOnly)
{
    EXPECT_TRUE(containsObjectWithValue(abc, NSNull(), Name));
    EXPECT_FALSE(containsObjectWithValue(Fields{abc[0]}, NSNull(), Name));
    EXPECT_FALSE(containsObjectWithValue(QSet<TestField *>{abc[2]}, NSNull(), Name));
}

TEST_F(CollectionTest, ANilKeyAsksTheListItself)
{
    EXPECT_TRUE(containsObjectWithValue(abc, QVariant::fromValue(abc[1]), QString()));
    EXPECT_FALSE(containsObjectWithValue(abc, u"a"_s, QString()));
    const QVariantList numbers{1, 2};
    EXPECT_TRUE(containsObjectWithValue(numbers, 2.0, QString()));
    EXPECT_EQ(objectWithValue(abc, u"a"_s, QString()), nullptr);
}

TEST_F(CollectionTest, UnknownKeysRaiseEvenBehindAMatch)
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

TEST_F(CollectionTest, MixedClassesAndNilElements)
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

TEST_F(CollectionTest, PathsAreJoinedWithADot)
{
    abc[0]->_parent = abc[1];
    EXPECT_EQ(objectWithValue(abc, u"b"_s, Name, u"parent"_s), abc[0]);
    EXPECT_EQ(objectsWithValue(abc, 1, u"parent.size"_s), Fields{abc[0]});
}

TEST_F(CollectionTest, SortingIsStableAndPutsNilFirst)
{
    const Fields sorted = sortByKey(abc, Name);
    EXPECT_EQ(sorted, Fields({abc[2], abc[0], abc[1]}));
    EXPECT_EQ(sortByKey(abc, u"flag"_s), abc);
    EXPECT_EQ(KTAdditions_Private::makeSortDescriptorForKey(Name),
              QList<NSSortDescriptor>({{Name, true}}));
    EXPECT_EQ(_makeSortDescriptorForKey(Name).size(), 1);
    EXPECT_EQ(NSSortDescriptor::sorted(abc, {{Size, false}}), Fields({abc[2], abc[1], abc[0]}));
}

TEST_F(CollectionTest, UserOrderFollowsTheLocale)
{
    const QStringList names{u"zebra"_s, u"Ärger"_s, u"b"_s, u"A"_s, u"a"_s};
    EXPECT_EQ(sortInUserFieldOrder(names),
              QStringList({u"a"_s, u"A"_s, u"Ärger"_s, u"b"_s, u"zebra"_s}));
    const QVariantList mixed{5, u"b"_s, QVariant(), u"a"_s};
    EXPECT_EQ(sortInUserFieldOrder(mixed).first(), QVariant(u"a"_s));
}

TEST_F(CollectionTest, NamesAreComparedExactly)
{
    const QStringList names{u"Name"_s, u""_s};
    EXPECT_TRUE(containsName(names, u"Name"_s));
    EXPECT_FALSE(containsName(names, u"name"_s));
    EXPECT_TRUE(containsName(names, u""_s));
    EXPECT_FALSE(containsName(names, QString()));
    EXPECT_TRUE(containsName(QVariantList{1, u"1"_s}, u"1"_s));
    EXPECT_FALSE(containsName(QVariantList{1, QVariant()}, u"1"_s));
}

TEST_F(CollectionTest, CallablesFilterAndMap)
{
    EXPECT_EQ(objectsSatisfyingCondition(abc, [](const TestField *f) { return f->size() > 1; }),
              Fields{abc[2]});
    EXPECT_EQ(objectsSatisfyingCondition(abc, &TestField::size), Fields({abc[1], abc[2]}));
    EXPECT_EQ(arrayByPerformingSelector(abc, &TestField::name), QList<QString>({u"a"_s, u"b"_s}));
    EXPECT_TRUE(arrayByPerformingSelector(abc, [](TestField *f) { return f->_parent; }).isEmpty());
    const QSet<int> sizes =
        setByPerformingSelector(QSet<TestField *>{abc[1], abc[2]}, &TestField::size);
    EXPECT_EQ(sizes, QSet<int>({1, 2}));
}

TEST_F(CollectionTest, SelectorsMapElementsAndTargets)
{
    EXPECT_EQ(arrayByPerformingSelector(abc, "name").size(), 2);
    EXPECT_EQ(arrayByPerformingSelector(abc, "labelIfSmall:", 5).size(), 0);
    TestJudge judge;
    EXPECT_EQ(arrayByPerformingSelector(abc, "describe::", &judge, u"+"_s),
              QVariantList({u"+a"_s, u"+b"_s}));
    performSelector(abc, "describe::", &judge, u"+"_s);
    EXPECT_EQ(judge.calls(), 6);
    EXPECT_THROW(arrayByPerformingSelector(abc, "missing"), NSException);
    EXPECT_THROW(performSelector(abc, "missing::", &judge, QVariant()), NSException);
    EXPECT_THROW(objectsSatisfyingCondition(abc, "ambiguous:", 1), NSException);
    EXPECT_TRUE(
        arrayByPerformingSelector(abc, "describe::", static_cast<TestJudge *>(nullptr), QVariant())
            .isEmpty());
}

TEST_F(CollectionTest, AnObjectReturnTypeSelectsNothing)
{
    EXPECT_TRUE(objectsSatisfyingCondition(abc, "sizeObject").isEmpty());
    EXPECT_TRUE(objectsSatisfyingCondition(abc, "name").isEmpty());
}

TEST_F(CollectionTest, AFunctionSeesTheListAsItWas)
{
    Fields list = abc;
    const Fields kept = objectsSatisfyingCondition(list, [&](TestField *) {
        list.clear();
        return true;
    });
    EXPECT_EQ(kept, abc);
}

TEST_F(CollectionTest, RenumberingLeavesRightNumbersAlone)
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

TEST_F(CollectionTest, RenumberingReachesValues)
{
    QList<TestPoint> points{{1, 9}, {2, 2}};
    adjustOrder(points);
    EXPECT_EQ(points, QList<TestPoint>({{1, 1}, {2, 2}}));
    QVariantList maps{QVariantMap(), QVariantMap{{u"order"_s, u"2"_s}}};
    adjustOrder(maps);
    EXPECT_EQ(maps[0].toMap().value(u"order"_s), QVariant(1));
    EXPECT_EQ(maps[1].toMap().value(u"order"_s), QVariant(u"2"_s));
}

TEST(MovingObjects, LandBeforeTheElementAtTheIndex)
{
    const auto moved = [](QStringList list, const char16_t *object, qsizetype index) {
        KTMutableArrayAdditions::moveObject(list, QString::fromUtf16(object), index);
        return list.join(QString());
    };
    const QStringList letters{u"A"_s, u"B"_s, u"C"_s, u"D"_s};
    EXPECT_EQ(moved(letters, u"A", 2), u"BACD"_s);
    EXPECT_EQ(moved(letters, u"A", 9), u"BCDA"_s);
    EXPECT_EQ(moved(letters, u"A", 4), u"BCDA"_s);
    EXPECT_EQ(moved(letters, u"D", 0), u"DABC"_s);
    EXPECT_EQ(moved(letters, u"B", 1), u"ABCD"_s);
    EXPECT_EQ(moved(letters, u"X", 1), u"AXBCD"_s);
    EXPECT_EQ(moved(letters, u"A", -1), u"BCDA"_s);
}

TEST(MovingObjects, TheObjectMayBeAReferenceIntoTheList)
{
    QStringList list{u"A"_s, u"B"_s};
    KTMutableArrayAdditions::moveObject(list, list[0], 5);
    EXPECT_EQ(list.join(QString()), u"BA"_s);
    KTMutableArrayAdditions::insertObjects(list, list, 1);
    EXPECT_EQ(list.join(QString()), u"BBAA"_s);
}

TEST(MovingObjects, InsertingBeyondTheEndRaises)
{
    QStringList list{u"A"_s};
    EXPECT_THROW(KTMutableArrayAdditions::insertObjects(list, list, 2), NSException);
    EXPECT_THROW(KTMutableArrayAdditions::insertObjects(list, list, -1), NSException);
    EXPECT_EQ(list.size(), 1);
}

TEST_F(CollectionTest, UniqueNamesFillTheFirstGap)
{
    const auto names = [&](const QStringList &list) { return fieldsNamed(list); };
    const QString base = u" Field\n"_s;
    EXPECT_EQ(uniqueStringWithBase(names({}), base), u"Field"_s);
    EXPECT_EQ(uniqueStringWithBase(names({u"Field"_s, u"Field 1"_s}), base), u"Field 2"_s);
    EXPECT_EQ(uniqueStringWithBase(names({u"Field"_s, u"Field 2"_s}), base), u"Field 1"_s);
    EXPECT_EQ(uniqueStringWithBase(names({u"Field 1"_s}), base), u"Field"_s);
    EXPECT_EQ(
        uniqueStringWithBase(names({u"Field"_s, u"Field 01"_s, u"Field  1"_s, u"Field +1"_s,
                                    u"Field 1 "_s, u"Field1"_s, u"Field 99999999999999999999"_s}),
                             base),
        u"Field 1"_s);
}

TEST_F(CollectionTest, InternalUniqueNames)
{
    const QString base = u"My Field"_s;
    EXPECT_EQ(internalUniqueStringWithBase(Fields(), base, Name), u"MyField"_s);
    EXPECT_EQ(internalUniqueStringWithBase(fieldsNamed({u"MyField"_s}), base, Name), u"MyField1"_s);
    const Fields taken = fieldsNamed({u"name"_s, u"NAME1"_s});
    EXPECT_EQ(internalCaseInsensitiveUniqueStringWithBase(taken, u"Name"_s, Name), u"Name2"_s);
    EXPECT_EQ(internalUniqueStringWithBase(taken, u"Name"_s, Name), u"Name"_s);
    EXPECT_TRUE(internalUniqueStringWithBase(abc, QString(), Name).isNull());
    EXPECT_EQ(internalUniqueStringWithBase(fieldsNamed({u""_s}), u" "_s, Name), u"1"_s);
}

TEST_F(CollectionTest, UniqueNamesAgreeWithTryingThemOneByOne)
{
    // The same answer as the plain way of asking for each candidate in turn.
    const QStringList pool{u"a"_s, u"a 1"_s, u"a 2"_s, u"a 3"_s, u"A 1"_s, QString()};
    for (unsigned mask = 0; mask < 64; ++mask) {
        QStringList names;
        for (int bit = 0; bit < 6; ++bit) {
            if (mask >> bit & 1)
                names += pool[bit];
        }
        const Fields fields = fieldsNamed(names);
        QString candidate = u"a"_s;
        for (int number = 1; containsObjectWithValue(fields, candidate, Name); ++number)
            candidate = u"a %1"_s.arg(number);
        EXPECT_EQ(uniqueStringWithBase(fields, u"a"_s), candidate) << mask;
    }
}

TEST_F(CollectionTest, UniqueNamesRefuseNilAndBlankBases)
{
    testing_support::standardErrorOf([&] {
        EXPECT_RAISES(uniqueStringWithBase(abc, QString()), NSInternalInconsistencyException,
                      u"NSArray_KTAdditions basename can't be null"_s);
        EXPECT_RAISES(uniqueStringWithBase(abc, u" \n"_s), NSInternalInconsistencyException,
                      u"NSArray_KTAdditions basename can't be empty"_s);
    });
    const QString log = testing_support::standardErrorOf(
        [&] { EXPECT_THROW(uniqueStringWithBase(abc, QString()), NSException); });
    EXPECT_TRUE(log.contains(u"-[NSArray uniqueStringWithBase:forKey:], "
                             u"Additions/NSArray_KTAdditions:154"));
}

TEST_F(CollectionTest, HostileNamesStayUnique)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const Fields fields = fieldsNamed({text, text});
        const QString name = internalUniqueStringWithBase(fields, text, Name);
        EXPECT_FALSE(containsObjectWithValue(fields, name, Name));
        const QString insensitive = internalCaseInsensitiveUniqueStringWithBase(fields, text, Name);
        EXPECT_FALSE(containsObjectWithValue(fields, insensitive, Name));
        EXPECT_EQ(objectWithValue(fields, text, Name), text.isNull() ? nullptr : fields[0]);
    }
}

TEST_F(CollectionTest, ListsAsText)
{
    EXPECT_EQ(listWithKey(abc, Name, u"<"_s, u">"_s, QString()), u"<a><b><(null)>"_s);
    abc[1]->_flag = true;
    EXPECT_EQ(listWithKey(abc, Name, u"-"_s, u""_s, u"flag"_s), u"-b"_s);
    EXPECT_EQ(listWithKey(abc, Size, QString(), u" %d "_s, u"name"_s), u""_s);
    EXPECT_EQ(listWithKey(Fields(), Name, Name, Name, Name), u""_s);
}

TEST_F(CollectionTest, DictionariesByKeyAndPosition)
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

TEST_F(CollectionTest, ListsOfValuesWithoutHashesCompareToo)
{
    const QList<TestPoint> points{{1, 1}, {2, 2}, {1, 1}};
    EXPECT_EQ(objectsNotInArray(points, {{2, 2}}).size(), 2);
    EXPECT_EQ(indexOfObjects(points, {{1, 1}, {9, 9}}), NSIndexSet{0});
}

TEST_F(CollectionTest, TheExactObjectOfAPointerListIsThePointer)
{
    EXPECT_EQ(indexesOfExactObjects(abc, {abc[2], abc[2], nullptr}), NSIndexSet{2});
}
