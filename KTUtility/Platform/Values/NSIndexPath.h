#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QList>

#include <compare>
#include <initializer_list>

/// No position.
inline constexpr unsigned NSNotFound = 0x7fffffff;

/// The way to a node of a tree of lists: the position at each level, from the root on.
///
/// \code
/// const NSIndexPath path{2, 0, 5};    // the third entry's first entry's sixth entry
/// path.indexAtPosition(1);            // 0
/// \endcode
class KTUTILITY_EXPORT NSIndexPath
{
public:
    /// The empty path, which leads to the root.
    NSIndexPath() = default;
    /// The path of these indexes, from the root down.
    NSIndexPath(std::initializer_list<unsigned> indexes) : _indexes(indexes) {}
    /// The path of a list of indexes, from the root down.
    explicit NSIndexPath(const QList<unsigned> &indexes) : _indexes(indexes) {}

    /// How many levels it goes down.
    qsizetype length() const { return _indexes.size(); }
    /// The indexes, from the root down.
    const QList<unsigned> &indexes() const { return _indexes; }
    /// The position at a level, counted from 0; NSNotFound if the path does not go so deep.
    unsigned indexAtPosition(qsizetype position) const;

    /// The path that goes one level deeper.
    NSIndexPath indexPathByAddingIndex(unsigned index) const;
    /// The path to the parent; the empty path for the empty one.
    NSIndexPath indexPathByRemovingLastIndex() const;

    friend bool operator==(const NSIndexPath &, const NSIndexPath &) = default;
    /// The order of an outline that is all open: parents come before their children.
    friend KTUTILITY_EXPORT std::strong_ordering operator<=>(const NSIndexPath &left,
                                                             const NSIndexPath &right);

private:
    QList<unsigned> _indexes;
};
