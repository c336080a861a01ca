#include "Text/Outcome.h"

#include "support/TestSupport.h"

#include <memory>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {
Outcome<int> halfOf(int number)
{
    if (number % 2 != 0)
        return Failure{u"%1 is odd"_s.arg(number)};
    return number / 2;
}

Outcome<int> quarterOf(int number)
{
    const Outcome<int> half = halfOf(number);
    if (!half)
        return half.failure();
    return halfOf(*half);
}
} // namespace

TEST(Outcome, HoldsAValueOrAReason)
{
    const Outcome<int> half = halfOf(6);
    ASSERT_TRUE(half);
    EXPECT_EQ(*half, 3);
    EXPECT_TRUE(half.reason().isNull());
    EXPECT_FALSE(half.isCancelled());
    const Outcome<int> none = halfOf(7);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.reason(), u"7 is odd"_s);
}

TEST(Outcome, FailuresAreHandedOnToOutcomesOfOtherValues)
{
    EXPECT_EQ(*quarterOf(12), 3);
    EXPECT_EQ(quarterOf(6).reason(), u"3 is odd"_s);
    const Outcome<QString> text = quarterOf(6).failure();
    EXPECT_EQ(text.reason(), u"3 is odd"_s);
    const Outcome<> done = quarterOf(5).failure();
    EXPECT_EQ(done.reason(), u"5 is odd"_s);
}

TEST(Outcome, AnotherValueStandsInForNone)
{
    EXPECT_EQ(halfOf(6).valueOr(-1), 3);
    const Outcome<int> none = halfOf(7);
    EXPECT_EQ(none.valueOr(-1), -1);
}

TEST(Outcome, ValuesThatCannotBeCopiedAreMovedOut)
{
    Outcome<std::unique_ptr<int>> made = std::make_unique<int>(5);
    ASSERT_TRUE(made);
    const std::unique_ptr<int> taken = std::move(*made);
    EXPECT_EQ(*taken, 5);
    Outcome<std::unique_ptr<int>> none = Failure{u"no"_s};
    EXPECT_EQ(std::move(none).valueOr(nullptr), nullptr);
}

TEST(Outcome, ValuesThatMeanNothingAreValues)
{
    EXPECT_TRUE(Outcome<QString>(QString()));
    EXPECT_TRUE(Outcome<bool>(false));
    EXPECT_TRUE(Outcome<QVariant>(QVariant()));
}

TEST(Outcome, ItsValueCanBeChangedAndAskedThings)
{
    Outcome<QString> text = u"a"_s;
    *text += u'b';
    text->append(u'c');
    EXPECT_EQ(*text, u"abc"_s);
    EXPECT_EQ(text->size(), 3);
}

TEST(Outcome, AFailureWithoutAReasonIsOne)
{
    EXPECT_FALSE(Outcome<>(Failure{}));
    EXPECT_FALSE(Outcome<int>(Failure{}));
}

TEST(Outcome, KnowsWhoEndedIt)
{
    const Outcome<> cancelled = Failure{u"it was cancelled"_s, true};
    EXPECT_TRUE(cancelled.isCancelled());
    const Outcome<int> same = cancelled.failure();
    EXPECT_TRUE(same.isCancelled());
    EXPECT_FALSE(Outcome<>(Failure{u"it broke"_s}).isCancelled());
    EXPECT_FALSE(Outcome<>().isCancelled());
}

TEST(Outcome, StepsFollowWhileAllIsWell)
{
    QStringList steps;
    const auto step = [&steps](const QString &name, const Outcome<> &outcome) {
        return [&steps, name, outcome] {
            steps += name;
            return outcome;
        };
    };
    const Outcome<> done = Outcome<>().andThen(step(u"a"_s, {})).andThen(step(u"b"_s, {}));
    EXPECT_TRUE(done);
    EXPECT_TRUE(done.reason().isNull());
    EXPECT_EQ(steps, QStringList({u"a"_s, u"b"_s}));
    steps.clear();
    const Outcome<> broken = Outcome<>()
                                 .andThen(step(u"a"_s, Failure{u"a broke"_s}))
                                 .andThen(step(u"b"_s, Failure{u"b broke"_s}));
    EXPECT_EQ(broken.reason(), u"a broke"_s);
    EXPECT_EQ(steps, QStringList(u"a"_s));
}

TEST(Outcome, AStepMayGiveAValue)
{
    EXPECT_EQ(*Outcome<>().andThen([] { return halfOf(4); }), 2);
    const Outcome<> broken = Failure{u"before"_s};
    EXPECT_EQ(broken.andThen([] { return halfOf(4); }).reason(), u"before"_s);
}

TEST(Outcome, IsNoNumberAndNoValueByItself)
{
    static_assert(!std::is_convertible_v<Outcome<int>, int>);
    static_assert(!std::is_convertible_v<Outcome<>, bool>);
    static_assert(std::is_constructible_v<bool, Outcome<>>);
    EXPECT_TRUE(bool(Outcome<>()));
}
