#include "SortedOrder_p.h"

#include "SortKeys_p.h"

#include <algorithm>
#include <numeric>

using namespace KTPrivate;

namespace {
std::vector<KeyValueTarget> targetsOf(const QVariantList &list, const SortedOrder::Places &places)
{
    std::vector<KeyValueTarget> targets;
    targets.reserve(places.size());
    for (const qsizetype place : places)
        targets.push_back(KeyValueTarget::ofVariant(list.at(place)));
    return targets;
}

/// Sorts what begins with a part that probably is in order.
/// A comparator of the program may contradict itself, as one that answers "less" for equal values
/// does: std::sort() would leave the list then.
/// \return whether that part was.
template<typename IsBefore>
bool sortBehind(std::vector<size_t> *list, size_t known, const IsBefore &isBefore)
{
    const auto middle = list->begin() + qptrdiff(known);
    const bool wasSorted = std::is_sorted(list->begin(), middle, isBefore);
    if (!wasSorted)
        std::stable_sort(list->begin(), middle, isBefore);
    std::stable_sort(middle, list->end(), isBefore);
    std::inplace_merge(list->begin(), middle, list->end(), isBefore);
    return wasSorted;
}
} // namespace

void SortedOrder::removePlaces(const Places &places)
{
    std::erase_if(_order, [&](qsizetype place) {
        return std::binary_search(places.begin(), places.end(), place);
    });
    for (qsizetype &place : _order)
        place -= std::lower_bound(places.begin(), places.end(), place) - places.begin();
}

/// First those that were sorted before, then the others.
SortedOrder::Places SortedOrder::inKnownOrder(const Places &places, qsizetype size,
                                              size_t *known) const
{
    std::vector<bool> isWanted(size_t(size), false);
    for (const qsizetype place : places)
        isWanted[size_t(place)] = true;
    Places ordered;
    ordered.reserve(places.size());
    for (const qsizetype place : _order) {
        if (place < size && isWanted[size_t(place)]) {
            ordered.push_back(place);
            isWanted[size_t(place)] = false;
        }
    }
    *known = ordered.size();
    std::ranges::copy_if(places, std::back_inserter(ordered),
                         [&](qsizetype place) { return isWanted[size_t(place)]; });
    return ordered;
}

SortedOrder::Places SortedOrder::sort(const QVariantList &list, const Places &places,
                                      const QList<NSSortDescriptor> &descriptors)
{
    size_t known = 0;
    const Places ordered = inKnownOrder(places, list.size(), &known);
    const SortKeys keys(targetsOf(list, ordered), descriptors);
    std::vector<size_t> order(ordered.size());
    std::iota(order.begin(), order.end(), 0);
    const bool wasSorted = sortBehind(&order, known, [&](size_t left, size_t right) {
        const std::weak_ordering first = keys.compare(left, right);
        return first != 0 ? first < 0 : ordered[left] < ordered[right];
    });
    Places sorted;
    sorted.reserve(order.size());
    for (const size_t index : order)
        sorted.push_back(ordered[index]);
    if (!wasSorted || known < sorted.size())
        _order = sorted;
    return sorted;
}
