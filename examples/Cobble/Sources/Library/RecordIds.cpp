#include "RecordIds.h"

#include <algorithm>

namespace {
/// So many bits take the place of a number.
constexpr quint64 BitsOfNumber = 64;

RecordIds ascending(RecordIds ids)
{
    std::sort(ids.begin(), ids.end());
    return ids;
}
} // namespace

RecordIdSet::RecordIdSet(const RecordIds &ids)
{
    if (ids.empty())
        return;
    const auto [first, last] = std::minmax_element(ids.begin(), ids.end());
    _first = *first;
    const quint64 distance = placeOf(*last);
    if (distance / BitsOfNumber > ids.size()) {
        _sorted = ascending(ids);
    } else {
        _bits.resize(size_t(distance) + 1);
        for (const qint64 id : ids)
            _bits[size_t(placeOf(id))] = true;
    }
}

bool RecordIdSet::contains(qint64 id) const
{
    if (_bits.empty())
        return std::binary_search(_sorted.begin(), _sorted.end(), id);
    return id >= _first && placeOf(id) < _bits.size() && _bits[size_t(placeOf(id))];
}
