#include "NumberRanks_p.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

using namespace KTPrivate;

namespace {
using RankedList = std::vector<RankedPosition>;

constexpr int BitsOfByte = 8;
constexpr size_t ByteValues = 256;
constexpr quint64 SignBit = quint64(1) << 63;

/// Fewer are compared: dealing out counts all values of a byte, however few there are.
constexpr size_t FewestDealt = 512;

/// The range of some ranks.
struct Extremes
{
    quint64 least;
    quint64 greatest;
};

Extremes extremesOf(const RankedList &list)
{
    Extremes extremes{list.front().rank, list.front().rank};
    for (const RankedPosition &each : list) {
        extremes.least = std::min(extremes.least, each.rank);
        extremes.greatest = std::max(extremes.greatest, each.rank);
    }
    return extremes;
}

/// Moves all elements behind each other by one byte of their ranks above the least.
void dealOut(const RankedList &list, quint64 least, int shift, RankedList *dealt)
{
    const auto byteOf = [=](const RankedPosition &each) {
        return size_t((each.rank - least) >> shift) % ByteValues;
    };
    std::array<size_t, ByteValues> ends{};
    for (const RankedPosition &each : list)
        ++ends[byteOf(each)];
    size_t start = 0;
    for (size_t &end : ends) {
        start += end;
        end = start - end;
    }
    for (const RankedPosition &each : list)
        (*dealt)[ends[byteOf(each)]++] = each;
}
} // namespace

quint64 KTPrivate::rankOf(qint64 number)
{
    return quint64(number) ^ SignBit;
}

/// The bits of numbers above zero are in their order; of those below it, in the opposite one.
quint64 KTPrivate::rankOf(double number)
{
    if (std::isnan(number))
        return std::numeric_limits<quint64>::max();
    const auto bits = std::bit_cast<quint64>(number == 0 ? 0.0 : number);
    return bits & SignBit ? ~bits : bits | SignBit;
}

void KTPrivate::sortByRank(RankedList *list)
{
    const auto isLess = [](const RankedPosition &left, const RankedPosition &right) {
        return left.rank < right.rank;
    };
    if (list->size() < FewestDealt) {
        std::stable_sort(list->begin(), list->end(), isLess);
        return;
    }
    const Extremes extremes = extremesOf(*list);
    const auto bits = int(std::bit_width(extremes.greatest - extremes.least));
    RankedList dealt(list->size());
    for (int shift = 0; shift < bits; shift += BitsOfByte) {
        dealOut(*list, extremes.least, shift, &dealt);
        list->swap(dealt);
    }
}
