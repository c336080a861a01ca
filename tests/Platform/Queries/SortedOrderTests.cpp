#include <KTUtility/Platform/Queries/SortedOrder_p.h>

#include <KTUtility/NSException>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <algorithm>
#include <memory>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Fields of several sizes, some equal, and what a sort of a part of them gives.
class SortedOrderTests : public testing::Test
{
protected:
    SortedOrderTests()
    {
        for (int index = 0; index < 200; ++index) {
            fields.push_back(std::make_unique<TestField>(QString::number(index), index * 37 % 50));
            list += QVariant::fromValue(fields.back().get());
        }
    }

    SortedOrder::Places every(int step, int from = 0) const
    {
        SortedOrder::Places places;
        for (qsizetype place = from; place < list.size(); place += step)
            places.push_back(place);
        return places;
    }
    QVariantList expected(const SortedOrder::Places &places) const
    {
        return NSSortDescriptor::sorted(elements(places), descriptors);
    }
    QVariantList elements(const SortedOrder::Places &places) const
    {
        QVariantList part;
        for (const qsizetype place : places)
            part += list.at(place);
        return part;
    }
    QVariantList sorted(const SortedOrder::Places &places)
    {
        return elements(order.sort(list, places, descriptors));
    }

    std::vector<std::unique_ptr<TestField>> fields;
    QVariantList list;
    QList<NSSortDescriptor> descriptors{{u"size"_s, false}};
    SortedOrder order;
};
} // namespace

TEST_F(SortedOrderTests, PartsAreInTheOrderOfTheWhole)
{
    EXPECT_EQ(sorted(every(1)), expected(every(1)));
    EXPECT_EQ(sorted(every(3)), expected(every(3)));
    EXPECT_EQ(sorted(every(2)), expected(every(2)));
    EXPECT_EQ(sorted({}), QVariantList());
    EXPECT_EQ(sorted(every(1)), expected(every(1)));
}

TEST_F(SortedOrderTests, WhatWasNotSortedBeforeIsMerged)
{
    EXPECT_EQ(sorted(every(2)), expected(every(2)));
    EXPECT_EQ(sorted(every(3)), expected(every(3)));
    EXPECT_EQ(sorted(every(1)), expected(every(1)));
}

TEST_F(SortedOrderTests, ChangedValuesAreSeen)
{
    QRandomGenerator random(7);
    sorted(every(1));
    for (int round = 0; round < 100; ++round) {
        fields[random.bounded(quint32(fields.size()))]->_size = random.bounded(60);
        const auto part = every(1 + round % 4, round % 3);
        EXPECT_EQ(sorted(part), expected(part)) << round;
    }
}

TEST_F(SortedOrderTests, RemovedElementsAreForgotten)
{
    sorted(every(1));
    const SortedOrder::Places removed{0, 5, 6, 199};
    for (auto place = removed.rbegin(); place != removed.rend(); ++place)
        list.removeAt(*place);
    order.removePlaces(removed);
    EXPECT_EQ(sorted(every(2)), expected(every(2)));
    EXPECT_EQ(sorted(every(1)), expected(every(1)));
}

TEST_F(SortedOrderTests, AMissingKeyLeavesItAsItWas)
{
    TestJudge judge;
    sorted(every(1));
    list.append(QVariant::fromValue(&judge));
    EXPECT_THROW(sorted(every(1)), NSException);
    list.removeLast();
    EXPECT_EQ(sorted(every(1)), expected(every(1)));
}

TEST_F(SortedOrderTests, AComparatorMayContradictItself)
{
    list.clear();
    for (int index = 0; index < 5000; ++index)
        list += index % 3;
    descriptors = {{.comparator = [](const QVariant &left, const QVariant &right) {
        return left.toInt() <= right.toInt() ? std::weak_ordering::less
                                             : std::weak_ordering::greater;
    }}};
    for (const int step : {7, 1}) {
        SortedOrder::Places places = order.sort(list, every(step), descriptors);
        std::sort(places.begin(), places.end());
        EXPECT_EQ(places, every(step));
    }
}
