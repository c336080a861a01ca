#include "NSSortDescriptor.h"

#include "SortKeys_p.h"

#include <algorithm>
#include <numeric>

using namespace KTPrivate;

NSSortDescriptor NSSortDescriptor::inLocalizedOrder(bool isLocalized) const
{
    NSSortDescriptor descriptor = *this;
    descriptor.localized = isLocalized;
    return descriptor;
}

/// The elements' positions in their order.
std::vector<qsizetype> NSSortDescriptor::orderOf(const std::vector<KeyValueTarget> &elements,
                                                 const QList<NSSortDescriptor> &descriptors)
{
    const SortKeys keys(elements, descriptors);
    std::vector<qsizetype> order(elements.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](qsizetype left, qsizetype right) {
        return keys.compare(size_t(left), size_t(right)) < 0;
    });
    return order;
}
