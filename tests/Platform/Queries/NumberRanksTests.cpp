#include <KTUtility/Platform/Queries/NumberRanks_p.h>

#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <algorithm>
#include <bit>
#include <limits>
#include <vector>

using namespace KTPrivate;

namespace {
using RankedList = std::vector<RankedPosition>;

/// The positions of some ranks in their order.
std::vector<qsizetype> sortedPositions(const std::vector<quint64> &ranks)
{
    RankedList list;
    for (const quint64 rank : ranks)
        list.push_back({rank, qsizetype(list.size())});
    sortByRank(&list);
    std::vector<qsizetype> positions;
    for (const RankedPosition &each : list)
        positions.push_back(each.position);
    return positions;
}

/// The same by comparing.
std::vector<qsizetype> comparedPositions(const std::vector<quint64> &ranks)
{
    std::vector<qsizetype> positions;
    for (size_t index = 0; index < ranks.size(); ++index)
        positions.push_back(qsizetype(index));
    std::stable_sort(positions.begin(), positions.end(), [&](qsizetype left, qsizetype right) {
        return ranks[size_t(left)] < ranks[size_t(right)];
    });
    return positions;
}

/// Ranks of at most so many bits above a least one, every third of them twice.
std::vector<quint64> ranksOf(size_t count, int bits, quint64 least)
{
    QRandomGenerator random(29);
    std::vector<quint64> ranks;
    while (ranks.size() < count) {
        const quint64 above = bits == 0 ? 0 : random.generate64() >> (64 - bits);
        ranks.push_back(ranks.size() % 3 == 2 ? ranks[ranks.size() / 2] : least + above);
    }
    return ranks;
}
} // namespace

TEST(NumberRanks, AreInTheOrderOfWholeNumbers)
{
    using Limits = std::numeric_limits<qint64>;
    const qint64 ascending[] = {Limits::min(), -256, -1, 0, 1, 255, 256, Limits::max()};
    for (size_t index = 1; index < std::size(ascending); ++index)
        EXPECT_LT(rankOf(ascending[index - 1]), rankOf(ascending[index])) << ascending[index];
}

TEST(NumberRanks, AreInTheOrderOfFloatingPointNumbersWithNaNBehindThem)
{
    using Limits = std::numeric_limits<double>;
    const double ascending[] = {-Limits::infinity(),
                                Limits::lowest(),
                                -1.5,
                                -Limits::min(),
                                0.0,
                                Limits::denorm_min(),
                                1.5,
                                Limits::max(),
                                Limits::infinity(),
                                Limits::quiet_NaN()};
    for (size_t index = 1; index < std::size(ascending); ++index)
        EXPECT_LT(rankOf(ascending[index - 1]), rankOf(ascending[index])) << ascending[index];
    EXPECT_EQ(rankOf(-0.0), rankOf(0.0));
    EXPECT_EQ(rankOf(-Limits::quiet_NaN()), rankOf(Limits::quiet_NaN()));
}

TEST(NumberRanks, ManyAreInTheOrderOfComparing)
{
    for (const size_t count : {size_t(0), size_t(1), size_t(511), size_t(512), size_t(3000)}) {
        for (const int bits : {0, 1, 8, 9, 40, 63}) {
            const std::vector<quint64> ranks = ranksOf(count, bits, 1'000'003);
            EXPECT_EQ(sortedPositions(ranks), comparedPositions(ranks)) << count << ' ' << bits;
        }
        const std::vector<quint64> all = ranksOf(count, 64, 0);
        EXPECT_EQ(sortedPositions(all), comparedPositions(all)) << count;
    }
}
