#pragma once

// Private to the library. For sorting by numbers.

#include <KTUtility/KTUtilityExport.h>

#include <QtGlobal>

#include <vector>

namespace KTPrivate {
/// A number of any type as a whole one of the same order, beside the position of what it belongs to.
struct RankedPosition
{
    quint64 rank;
    qsizetype position;
};

/// The rank of a number among those of its type.
KTUTILITY_EXPORT quint64 rankOf(qint64 number);
/// The same; NaN comes behind every number, and -0 is 0.
KTUTILITY_EXPORT quint64 rankOf(double number);

/// Sorts by rank; equal ones keep their order.
///
/// Many numbers are not compared: they are dealt out by one byte after the other, the lowest first,
/// which has no branches that a processor would have to guess. It takes as many passes as the
/// greatest difference has bytes.
KTUTILITY_EXPORT void sortByRank(std::vector<RankedPosition> *list);
} // namespace KTPrivate
