#include "NSIndexPath.h"

#include <algorithm>

unsigned NSIndexPath::indexAtPosition(qsizetype position) const
{
    return _indexes.value(position, NSNotFound);
}

NSIndexPath NSIndexPath::indexPathByAddingIndex(unsigned index) const
{
    return NSIndexPath(_indexes + QList<unsigned>{index});
}

NSIndexPath NSIndexPath::indexPathByRemovingLastIndex() const
{
    return NSIndexPath(_indexes.first(std::max<qsizetype>(length() - 1, 0)));
}

std::strong_ordering operator<=>(const NSIndexPath &left, const NSIndexPath &right)
{
    return std::lexicographical_compare_three_way(left._indexes.begin(), left._indexes.end(),
                                                  right._indexes.begin(), right._indexes.end());
}
