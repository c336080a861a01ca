// Questions by key as views.

#include <KTUtility/KTViews>
#include <KTUtility/NSArray_KTRanges>
#include <KTUtility/NSException>

#include "CollectionSupport.h"
#include "support/TestField.h"
#include "support/TestSupport.h"

#include <ranges>
#include <vector>

using namespace Qt::StringLiterals;

using KTViewsTests = CollectionTest;

namespace {
template<typename Range>
auto listed(Range &&range)
{
    QList<std::ranges::range_value_t<Range>> list;
    for (auto &&element : range)
        list.append(element);
    return list;
}
} // namespace

TEST_F(KTViewsTests, WhereAKeyIsTrueOrAValue)
{
    EXPECT_EQ(listed(abc | KT::whereKey("size")), Fields({abc[1], abc[2]}));
    EXPECT_EQ(listed(abc | KT::whereKey("name", u"b")), Fields{abc[1]});
    EXPECT_EQ(listed(abc | KT::whereKey("size", 2.0)), Fields{abc[2]});
    EXPECT_EQ(listed(abc | KT::whereKey(u"name.length"_s, 1)), Fields({abc[0], abc[1]}));
    EXPECT_TRUE(listed(abc | KT::whereKey("name", u"c")).isEmpty());
    EXPECT_TRUE(listed(Fields() | KT::whereKey(Unknown)).isEmpty());
}

TEST_F(KTViewsTests, ValuesAsTheyAreOrConverted)
{
    EXPECT_EQ(listed(abc | KT::valuesForKey("size")), QVariantList({0, 1, 2}));
    const auto names = abc | KT::valuesForKey<QString>("name");
    EXPECT_EQ(listed(names), QList<QString>({u"a"_s, u"b"_s, QString()}));
    EXPECT_EQ(names[1], u"b"_s);
}

TEST_F(KTViewsTests, StandBeforeAndBehindOthers)
{
    const std::vector<TestField *> fields(abc.rbegin(), abc.rend());
    EXPECT_EQ(listed(fields | KT::whereKey("size") | std::views::take(1)), Fields{abc[2]});
    EXPECT_EQ(listed(fields | std::views::drop(1) | KT::whereKey("size") |
                     KT::valuesForKey<QString>("name")),
              QList<QString>{u"b"_s});
    EXPECT_EQ(KTAdditions::sortByKey(fields | KT::whereKey("size"), u"size"),
              Fields({abc[1], abc[2]}));
}

TEST_F(KTViewsTests, AskOnlyWhatIsWalked)
{
    TestField odd;
    const QVariantList mixed{QVariant::fromValue(abc[1]), QVariantMap{}, 7};
    auto found = mixed | KT::whereKey("size");
    EXPECT_EQ((*found.begin()).value<TestField *>(), abc[1]);
    EXPECT_THROW(listed(abc | KT::whereKey(Unknown)), NSException);
    const auto late = abc | KT::valuesForKey<int>("size");
    abc[0]->setProperty("size", 41);
    EXPECT_EQ(late[0], 41);
}

TEST_F(KTViewsTests, DoNotCopyAListThatIsShared)
{
    Fields shared = abc;
    EXPECT_EQ(listed(shared | KT::whereKey("size")).size(), 2);
    EXPECT_TRUE(shared.isSharedWith(abc));
}

TEST_F(KTViewsTests, KeepWhatIsMovedIntoThem)
{
    auto numbers = Fields(abc) | KT::valuesForKey<int>("size");
    EXPECT_EQ(listed(numbers), QList<int>({0, 1, 2}));
}
