#include "RankedSelection_p.h"

#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/ValueHash_p.h>

#include <algorithm>
#include <limits>

using namespace KTPrivate;

RankedSelection::RankedSelection(const QVariantList &values, const QList<qsizetype> &indexes)
{
    for (const qsizetype index : indexes)
        addGroup(values.at(index));
    const std::vector<QList<qsizetype>> places = placesIn(values);
    for (size_t group = 0; group < places.size(); ++group) {
        for (qsizetype rank = 0; rank < places[group].size(); ++rank) {
            if (std::binary_search(indexes.begin(), indexes.end(), places[group].at(rank)))
                _groups[group].ranks += rank;
        }
    }
}

RankedSelection RankedSelection::last(const QVariant &value)
{
    RankedSelection selection;
    selection.addGroup(value);
    selection._groups.front().ranks += std::numeric_limits<qsizetype>::max();
    return selection;
}

void RankedSelection::addGroup(const QVariant &value)
{
    if (groupOf(value) != None)
        return;
    _byHash[hashOf(value)] += _groups.size();
    _groups.push_back({value, {}});
}

size_t RankedSelection::groupOf(const QVariant &value) const
{
    const auto known = _byHash.constFind(hashOf(value));
    if (known == _byHash.constEnd())
        return None;
    const auto group = std::find_if(known->begin(), known->end(), [&](size_t each) {
        return NSObject::isEqual(_groups[each].value, value);
    });
    return group == known->end() ? None : *group;
}

/// Where the values of each group are in a list.
std::vector<QList<qsizetype>> RankedSelection::placesIn(const QVariantList &values) const
{
    std::vector<QList<qsizetype>> places(_groups.size());
    for (qsizetype index = 0; index < values.size() && !_groups.empty(); ++index) {
        const size_t group = groupOf(values.at(index));
        if (group != None)
            places[group] += index;
    }
    return places;
}

QList<qsizetype> RankedSelection::indexesIn(const QVariantList &values) const
{
    const std::vector<QList<qsizetype>> places = placesIn(values);
    QList<qsizetype> indexes;
    for (size_t group = 0; group < places.size(); ++group) {
        const QList<qsizetype> &ranks = _groups[group].ranks;
        qsizetype left = places[group].size();
        for (auto rank = ranks.rbegin(); rank != ranks.rend() && left > 0; ++rank) {
            left = std::min(*rank, left - 1);
            indexes += places[group].at(left);
        }
    }
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}
