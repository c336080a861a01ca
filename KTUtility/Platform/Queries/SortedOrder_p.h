#pragma once

// Private to the library. For controllers that arrange lists.

#include "NSSortDescriptor.h"
#include <KTUtility/KTUtilityExport.h>

#include <QList>
#include <QVariantList>

#include <vector>

namespace KTPrivate {
/// Sorts parts of a list again and again, as a search in it does, and remembers how it was sorted:
/// what still is in its order needs not be sorted anew. Values may have changed meanwhile, so that
/// they are read each time.
///
/// \code
/// SortedOrder order;
/// order.sort(content, shown, descriptors);    // sorts
/// order.sort(content, fewer, descriptors);    // looks whether they are in order
/// \endcode
class KTUTILITY_EXPORT SortedOrder
{
public:
    /// Positions in the list.
    using Places = std::vector<qsizetype>;

    /// Begins anew, for another list or other descriptors.
    void forget() { _order.clear(); }
    /// Elements have been taken out of the list.
    /// \param places ascending.
    void removePlaces(const Places &places);

    /// The given elements in their order; equal ones in that of the list.
    /// \param places ascending.
    /// \throws NSException NSUndefinedKeyException if one lacks a key; nothing is remembered then.
    Places sort(const QVariantList &list, const Places &places,
                const QList<NSSortDescriptor> &descriptors);

private:
    Places inKnownOrder(const Places &places, qsizetype size, size_t *known) const;

    /// In the order in which they were at last; perhaps not of all elements.
    Places _order;
};
} // namespace KTPrivate
