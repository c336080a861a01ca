#include "Records/RecentObjects.h"

#include <gtest/gtest.h>

namespace {
using Numbers = RecentObjects<int>;

void addUpTo(Numbers *numbers, int last)
{
    for (int number = 1; number <= last; ++number)
        numbers->add(number, std::make_shared<int>(number));
}
} // namespace

TEST(RecentObjects, TheOldestGo)
{
    Numbers numbers(3);
    addUpTo(&numbers, 5);
    EXPECT_EQ(numbers.count(), 3);
    EXPECT_EQ(numbers.find(2), nullptr);
    ASSERT_NE(numbers.find(3), nullptr);
    EXPECT_EQ(*numbers.find(3), 3);
}

TEST(RecentObjects, WhatIsAskedForStays)
{
    Numbers numbers(3);
    addUpTo(&numbers, 3);
    EXPECT_NE(numbers.find(1), nullptr);
    numbers.add(4, std::make_shared<int>(4));
    EXPECT_NE(numbers.find(1), nullptr);
    EXPECT_EQ(numbers.find(2), nullptr);
}

TEST(RecentObjects, WhatSomebodyHoldsStays)
{
    Numbers numbers(3);
    const auto held = std::make_shared<int>(0);
    numbers.add(0, held);
    addUpTo(&numbers, 100);
    EXPECT_EQ(numbers.find(0), held);
    EXPECT_LE(numbers.count(), 4);
}

TEST(RecentObjects, AnObjectIsReplacedAndRemoved)
{
    Numbers numbers(3);
    numbers.add(1, std::make_shared<int>(10));
    numbers.add(1, std::make_shared<int>(11));
    EXPECT_EQ(numbers.count(), 1);
    EXPECT_EQ(*numbers.find(1), 11);
    numbers.remove(1);
    numbers.remove(2);
    EXPECT_EQ(numbers.find(1), nullptr);
    EXPECT_EQ(numbers.count(), 0);
}

TEST(RecentObjects, EachIsVisited)
{
    Numbers numbers(10);
    addUpTo(&numbers, 4);
    int sum = 0;
    numbers.forEach([&sum](const std::shared_ptr<int> &number) { sum += *number; });
    EXPECT_EQ(sum, 10);
}
