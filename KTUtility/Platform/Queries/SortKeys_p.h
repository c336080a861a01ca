#pragma once

// Private to the library. For sorting, and for whoever checks that something still is sorted.

#include "NSSortDescriptor.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>

#include <QList>

#include <compare>
#include <memory>
#include <vector>

namespace KTPrivate {
/// The values by which some elements are sorted, each read once and made ready to be compared many
/// times: dates as instants, without asking for their zone at each step; texts for people as
/// collation keys; numbers of one kind as such.
///
/// \code
/// const SortKeys keys(elements, descriptors);
/// if (keys.compare(4, 5) > 0)
///     …                              // the sixth element comes before the fifth
/// \endcode
class KTUTILITY_EXPORT SortKeys
{
public:
    /// \throws NSException NSUndefinedKeyException if an element lacks a key.
    SortKeys(const std::vector<KeyValueTarget> &elements,
             const QList<NSSortDescriptor> &descriptors);
    ~SortKeys();
    SortKeys(const SortKeys &) = delete;
    SortKeys &operator=(const SortKeys &) = delete;

    /// Which of two elements comes first, by their positions among the elements.
    std::weak_ordering compare(size_t left, size_t right) const;
    /// The positions of all elements in their order; equal ones keep theirs.
    std::vector<qsizetype> order() const;

    /// What one descriptor reads of all elements.
    class Level;

private:
    size_t _count;
    std::vector<std::unique_ptr<Level>> _levels;
};
} // namespace KTPrivate
