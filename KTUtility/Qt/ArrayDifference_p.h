#pragma once

#include <QVariantList>

#include <vector>

namespace KTPrivate {
/// What has become of a list: where each of its elements is now, and which are new.
///
/// Objects are the same if their addresses are, other values if they are equal; of equal elements,
/// the first is the first afterwards. The objects themselves are not looked at: some may be
/// destroyed. Takes linear time, and that of sorting if elements have moved.
class ArrayDifference
{
public:
    /// Rows that follow each other.
    struct Range
    {
        int first = 0;
        int last = 0;

        int count() const { return last - first + 1; }
        friend bool operator==(const Range &, const Range &) = default;
    };
    /// Rows that are taken out and put in before another row; all as they are before that.
    struct Move
    {
        Range rows;
        int before = 0;

        friend bool operator==(const Move &, const Move &) = default;
    };

    ArrayDifference(const QVariantList &before, const QVariantList &now);

    bool isEmpty() const { return removed.empty() && inserted.empty() && !isReordered(); }
    /// Whether elements that stay are in another order.
    bool isReordered() const { return _descents > 0; }
    /// What brings those that stay into order, each as the rows are after the one before it.
    /// \param most with more moves, nothing.
    /// \return whether there are as few.
    bool findMoves(size_t most, std::vector<Move> *moves) const;

    /// Where each row is now; −1 if it is gone.
    std::vector<int> newRows;
    /// Where each row was; −1 if it is new.
    std::vector<int> oldRows;
    /// What is gone, as rows of the old list, ascending.
    std::vector<Range> removed;
    /// What is new, as rows of the new list, ascending.
    std::vector<Range> inserted;

private:
    void match(const QVariantList &before, const QVariantList &now, int from, int oldEnd,
               int newEnd);
    std::vector<int> ranksOfKept() const;

    size_t _descents = 0; ///< how often one that stays was before its predecessor
};

/// Whether two elements are the same; see ArrayDifference.
bool isSameElement(const QVariant &left, const QVariant &right);
} // namespace KTPrivate
