// The questions of lists, asked of other ranges.

#include <KTUtility/NSArray_KTRanges>
#include <KTUtility/NSException>

#include "CollectionSupport.h"
#include "support/TestField.h"
#include "support/TestSupport.h"

#include <array>
#include <forward_list>
#include <ranges>
#include <span>
#include <vector>

using namespace KTAdditions;
using namespace Qt::StringLiterals;

namespace {
class NSArray_KTRangesTests : public CollectionTest
{
protected:
    std::vector<TestField *> fields{abc.begin(), abc.end()};
};
} // namespace

// What comes out is a list of what the range holds.
static_assert(std::same_as<decltype(sortByKey(std::vector<TestField *>(), u"name")), Fields>);
static_assert(
    std::same_as<decltype(objectsNotInArray(Fields(), std::vector<TestField *>())), Fields>);

TEST_F(NSArray_KTRangesTests, FindInVectorsSpansArraysAndViews)
{
    EXPECT_EQ(objectWithValue(fields, u"b", u"name"), abc[1]);
    EXPECT_EQ(objectWithValue(std::span(fields).subspan(2), u"b", u"name"), nullptr);
    EXPECT_EQ(objectsWithValue(std::array{abc[2], abc[1]}, 1, u"size"), Fields{abc[1]});
    EXPECT_TRUE(containsObjectWithValue(abc | std::views::drop(1), 2, u"size"));
    EXPECT_FALSE(containsObjectWithValue(abc | std::views::take(2), 2, u"size"));
    EXPECT_EQ(firstObject(fields), abc[0]);
    EXPECT_EQ(singularObject(std::span(fields).first(1)), abc[0]);
    EXPECT_EQ(singularObject(fields), nullptr);
    EXPECT_TRUE(containsName(std::vector{u"a"_s, u"b"_s}, u"b"));
    EXPECT_TRUE(containsName(std::array{u"a"_s, u"b"_s}, u"a"));
}

TEST_F(NSArray_KTRangesTests, TakeWhatCanBeWalkedOnce)
{
    const std::forward_list<TestField *> list(abc.begin(), abc.end());
    EXPECT_EQ(sortByKey(list, u"size", Qt::DescendingOrder), Fields({abc[2], abc[1], abc[0]}));
    auto isSmall = [](const TestField *field) { return field->size() < 2; };
    EXPECT_EQ(listWithKey(fields | std::views::filter(isSmall), u"name", u"<", u">"), u"<a><b>"_s);
}

TEST_F(NSArray_KTRangesTests, SortFilterAndAsk)
{
    EXPECT_EQ(sortByKey(fields | std::views::reverse, u"size"), abc);
    EXPECT_EQ(objectsSatisfyingCondition(fields, &TestField::size), Fields({abc[1], abc[2]}));
    int asked = 0;
    EXPECT_EQ(
        objectsSatisfyingCondition(fields, [&asked](const TestField *) { return ++asked == 2; }),
        Fields{abc[1]});
    EXPECT_EQ(arrayByPerformingSelector(fields, "name").size(), 2);
    EXPECT_EQ(dictionaryIndexWithKey(fields, u"size").objectForKey(2), abc[2]);
    EXPECT_EQ(positionalDictionaryIndex(fields).objectForKey(abc[1]), 1U);
    EXPECT_EQ(uniqueStringWithBase(std::vector{u"Field"_s, u"Field 1"_s}, u"Field", QString()),
              uniqueStringWithBase(QStringList{u"Field"_s, u"Field 1"_s}, u"Field", QString()));
    EXPECT_THROW(sortByKey(fields, Unknown), NSException);
}

TEST_F(NSArray_KTRangesTests, AreComparedWithListsAndEachOther)
{
    const std::array other{abc[1]};
    EXPECT_EQ(objectsNotInArray(fields, other), Fields({abc[0], abc[2]}));
    EXPECT_EQ(objectsNotInArray(abc, other), Fields({abc[0], abc[2]}));
    EXPECT_EQ(arrayByRemovingObjectsInArray(std::span(other), abc), Fields());
    EXPECT_EQ(indexOfObjects(fields, other), NSIndexSet({1}));
    EXPECT_EQ(indexesOfExactObjects(abc, std::span(fields).last(2)), NSIndexSet({1, 2}));
}

TEST_F(NSArray_KTRangesTests, RenumberWhatTheyPointTo)
{
    const std::vector ordered{QVariantMap{{u"order"_s, 7}, {u"name"_s, u"z"_s}},
                              QVariantMap{{u"order"_s, 3}, {u"name"_s, u"y"_s}}};
    EXPECT_EQ(listWithKey(sortByOrder(ordered), u"name"), u"yz"_s);
    abc[1]->setProperty("order", 9);
    adjustOrder(fields);
    EXPECT_EQ(abc[1]->property("order").toInt(), 2);
}
