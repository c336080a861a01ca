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

namespace {
/// A record that compares itself with names.
class Named : public QObject
{
    Q_OBJECT

public:
    explicit Named(const QString &name) : _name(name) {}

    Q_INVOKABLE int compare(const QVariant &name)
    {
        ++comparisons;
        return QString::compare(_name, name.toString());
    }

    int comparisons = 0;

private:
    QString _name;
};
} // namespace

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

TEST_F(NSArray_KTAdditionsTests, ValuesArePassedAsTheyAre)
{
    abc[0]->_parent = abc[1];
    const QPointer<TestField> guarded = abc[1];
    const TestField *const constant = abc[1];
    EXPECT_EQ(objectWithValue(abc, abc[1], u"parent"), abc[0]);
    EXPECT_EQ(objectWithValue(abc, guarded, u"parent"), abc[0]);
    EXPECT_EQ(objectWithValue(abc, constant, u"parent"), abc[0]);
    EXPECT_EQ(objectWithValue(abc, nullptr, u"parent"), nullptr);
    EXPECT_EQ(objectWithValue(abc, 1L, u"size"), abc[1]);
    EXPECT_EQ(objectWithValue(abc, std::optional(2), u"size"), abc[2]);
    EXPECT_EQ(objectWithValue(abc, std::optional<int>(), u"size"), nullptr);
    EXPECT_EQ(objectWithValue(abc, Qt::Monday, u"size"), abc[1]);
    EXPECT_EQ(objectWithValue(abc, u"b", u"name"), abc[1]);
    EXPECT_EQ(objectWithValue(abc, u"b", u"name", u"parent"), abc[0]);
    EXPECT_EQ(objectsWithValue(abc, QStringView(u"b"), u"parent.name"), Fields{abc[0]});
    EXPECT_TRUE(containsObjectWithValue(abc, abc[1], {}));
    EXPECT_TRUE(containsObjectWithValue(QSet<TestField *>{abc[0]}, abc[1], u"parent"));
    EXPECT_EQ(objectWithValue(QSet<TestField *>{abc[0]}, 0UL, "size"), abc[0]);
}

TEST_F(NSArray_KTAdditionsTests, ArgumentsOfMethodsArePassedAsTheyAre)
{
    TestJudge judge;
    EXPECT_EQ(objectsSatisfyingCondition(abc, "sizeOver:", 1L), Fields{abc[2]});
    EXPECT_EQ(objectsSatisfyingCondition(abc, "accept:over:", &judge, 1UL), Fields{abc[2]});
    EXPECT_EQ(arrayByPerformingSelector(abc, "describe:with:", &judge, u"-"),
              QVariantList({u"-a"_s, u"-b"_s}));
    EXPECT_EQ(arrayByPerformingSelector(Fields{abc[2]}, "sizeModulo:", std::optional(2)),
              QVariantList{0});
    performSelector(abc, "accept:over:", &judge, 2L);
    EXPECT_EQ(objectsSatisfyingCondition(QSet<TestField *>{abc[2]}, "sizeOver:", 1L).size(), 1);
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
    const QStringList texts{u"a"_s, u"b"_s};
    EXPECT_TRUE(containsObjectWithValue(texts, u"b", {}));
    EXPECT_FALSE(containsObjectWithValue(texts, u"c", {}));
    EXPECT_TRUE(containsObjectWithValue(texts, 1, u"length"));
    EXPECT_TRUE(containsObjectWithValue(QList<int>{1, 2}, 2L, {}));
    EXPECT_TRUE(containsObjectWithValue(QList<int>{1, 2}, 2, u"self"));
    EXPECT_THROW(containsObjectWithValue(QList<int>{1}, 1, u"size"), NSException);
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
    EXPECT_EQ(objectWithValue(abc, u"b"_s, Name, QString()), nullptr);
    EXPECT_EQ(objectWithValue(abc, u"b"_s, QString(), u"parent"_s), nullptr);
}

TEST_F(NSArray_KTAdditionsTests, SortingTakesPathsAndAnOrder)
{
    abc[0]->_parent = abc[2];
    abc[1]->_parent = abc[1];
    EXPECT_EQ(sortByKey(abc, u"parent.size"), Fields({abc[2], abc[1], abc[0]}));
    EXPECT_EQ(sortByKey(abc, "size", Qt::DescendingOrder), Fields({abc[2], abc[1], abc[0]}));
    const QSet<TestField *> set(abc.begin(), abc.end());
    EXPECT_EQ(sortedArrayUsingKey(set, u"parent.size"), Fields({abc[2], abc[1], abc[0]}));
    EXPECT_EQ(sortedArrayUsingKey(set, u"size", Qt::DescendingOrder),
              Fields({abc[2], abc[1], abc[0]}));
    EXPECT_EQ(sortByKey(QStringList{u"b"_s, u"a"_s}, u"self"), QStringList({u"a"_s, u"b"_s}));
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

TEST_F(NSArray_KTAdditionsTests, ObjectsCompareTheirNamesThemselves)
{
    Named ann(u"Ann"_s);
    Named bob(u"Bob"_s);
    const QList<Named *> records{&ann, nullptr, &bob};
    EXPECT_TRUE(containsName(records, u"Bob"));
    EXPECT_TRUE(containsName(records, u"Ann"));
    EXPECT_FALSE(containsName(records, u"Cid"));
    EXPECT_FALSE(containsName(records, QString()));
    const QVariantList mixed{u"Cid"_s, 1, QVariant::fromValue(abc[0]), NSBoxed(&bob)};
    EXPECT_TRUE(containsName(mixed, u"Bob"));
    EXPECT_TRUE(containsName(mixed, u"Cid"));
    EXPECT_FALSE(containsName(mixed, u"a"));
    // In order, and no further than needed.
    ann.comparisons = bob.comparisons = 0;
    containsName(records, u"Ann");
    EXPECT_EQ(ann.comparisons, 1);
    EXPECT_EQ(bob.comparisons, 0);
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
    EXPECT_EQ(listWithKey(abc, u"size"), u"012"_s);
    EXPECT_EQ(listWithKey(abc, u"size", u"<", u">"), u"<0><1><2>"_s);
}

TEST_F(NSArray_KTAdditionsTests, DictionariesAreByKeyAndByPosition)
{
    const auto bySize = dictionaryIndexWithKey(abc, Size);
    EXPECT_EQ(bySize.objectForKey(1), abc[1]);
    EXPECT_EQ(bySize.objectForKey(7), nullptr);
    EXPECT_EQ(bySize[2L], abc[2]);
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

TEST_F(NSArray_KTAdditionsTests, TheExactTextIsTheOneWithTheSameStorage)
{
    const auto copy = [](const QString &text) { return QString(text.constData(), text.size()); };
    const QString text = copy(u"same"_s);
    const QStringList list{copy(text), text, text};
    EXPECT_EQ(indexesOfExactObjects(list, {text}), NSIndexSet{1});
    EXPECT_TRUE(indexesOfExactObjects(list, {copy(text)}).empty());
    const QVariantList values{1, 1.0, text, QByteArray("x")};
    EXPECT_EQ(indexesOfExactObjects(values, {1.0, text, values[3]}), (NSIndexSet{1, 2, 3}));
}

TEST_F(NSArray_KTAdditionsTests, ExactTextsAreFoundInLinearTime)
{
    QStringList texts;
    for (int index = 0; index < 200000; ++index)
        texts += QString::fromUtf16(u"equal");
    EXPECT_EQ(indexesOfExactObjects(texts, texts).size(), size_t(texts.size()));
}

TEST_F(NSArray_KTAdditionsTests, ListsOfRelatedClassesCompare)
{
    QObject stranger;
    const QList<QObject *> others{abc[1], &stranger};
    EXPECT_EQ(objectsNotInArray(abc, others), Fields({abc[0], abc[2]}));
    EXPECT_EQ(objectsNotInArray(others, abc), QList<QObject *>{&stranger});
    EXPECT_EQ(arrayByRemovingObjectsInArray(abc, others).size(), 2);
    EXPECT_EQ(indexOfObjects(abc, others), NSIndexSet{1});
    EXPECT_EQ(indexesOfExactObjects(others, abc), NSIndexSet{0});
}

#include "NSArray_KTAdditionsTests.moc"
