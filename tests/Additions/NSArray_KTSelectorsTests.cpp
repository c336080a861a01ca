#include <KTUtility/NSArray_KTSelectors>
#include <KTUtility/NSException>
#include <KTUtility/NSSet_KTAdditions>

#include "CollectionSupport.h"
#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTAdditions;
using namespace Qt::StringLiterals;

using NSArray_KTSelectorsTests = CollectionTest;

// Typed lists come out as they went in.
static_assert(
    std::same_as<decltype(objectsSatisfyingCondition(QVariantList(), "a")), QVariantList>);
static_assert(
    std::same_as<decltype(arrayByPerformingSelector(Fields(), &TestField::size)), QList<int>>);

TEST_F(NSArray_KTSelectorsTests, CallablesFilterAndMap)
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

TEST_F(NSArray_KTSelectorsTests, SelectorsMapElementsAndTargets)
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

TEST_F(NSArray_KTSelectorsTests, AnObjectReturnTypeSelectsNothing)
{
    EXPECT_TRUE(objectsSatisfyingCondition(abc, "sizeObject").isEmpty());
    EXPECT_TRUE(objectsSatisfyingCondition(abc, "name").isEmpty());
}

TEST_F(NSArray_KTSelectorsTests, AFunctionSeesTheListAsItWas)
{
    Fields list = abc;
    const Fields kept = objectsSatisfyingCondition(list, [&](TestField *) {
        list.clear();
        return true;
    });
    EXPECT_EQ(kept, abc);
}
