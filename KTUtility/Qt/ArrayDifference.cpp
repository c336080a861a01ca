#include "ArrayDifference_p.h"

#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/ValueHash_p.h>

#include <QHash>

#include <algorithm>

using namespace KTPrivate;

namespace {
bool isObject(const QVariant &value)
{
    return value.metaType().flags().testFlag(QMetaType::PointerToQObject);
}

quintptr addressIn(const QVariant &value)
{
    return *static_cast<const quintptr *>(value.constData());
}

/// An element as what it is found by.
struct Key
{
    explicit Key(const QVariant &element) : value(&element) {}

    friend bool operator==(const Key &left, const Key &right)
    {
        return isSameElement(*left.value, *right.value);
    }
    friend size_t qHash(const Key &key, size_t seed = 0)
    {
        return isObject(*key.value) ? ::qHash(addressIn(*key.value), seed) : hashOf(*key.value);
    }

    const QVariant *value;
};

/// The rows of some elements; of equal ones, the first comes first.
class Rows
{
public:
    Rows(const QVariantList &elements, int from, int end) : _next(size_t(end - from)), _from(from)
    {
        _first.reserve(end - from);
        for (int row = end - 1; row >= from; --row) {
            const auto known = _first.find(Key(elements.at(row)));
            _next[size_t(row - from)] = known == _first.end() ? -1 : *known;
            if (known == _first.end())
                _first.insert(Key(elements.at(row)), row);
            else
                *known = row;
        }
    }

    /// The next row of an element; −1 if there is none left.
    int take(const QVariant &element)
    {
        const auto known = _first.find(Key(element));
        if (known == _first.end() || *known < 0)
            return -1;
        return std::exchange(*known, _next[size_t(*known - _from)]);
    }

private:
    QHash<Key, int> _first;
    std::vector<int> _next;
    int _from;
};

std::vector<ArrayDifference::Range> rowsWithout(const std::vector<int> &counterparts)
{
    std::vector<ArrayDifference::Range> ranges;
    for (int row = 0; row < int(counterparts.size()); ++row) {
        if (counterparts[size_t(row)] >= 0)
            continue;
        if (!ranges.empty() && ranges.back().last == row - 1)
            ranges.back().last = row;
        else
            ranges.push_back({row, row});
    }
    return ranges;
}

/// Which of some numbers stay if as few as possible are moved to sort them: one of their longest
/// ascending runs with gaps.
std::vector<bool> thoseThatStay(const std::vector<int> &numbers)
{
    std::vector<size_t> ends; // of the best run of each length
    std::vector<size_t> previous(numbers.size(), numbers.size());
    for (size_t index = 0; index < numbers.size(); ++index) {
        const auto place = std::ranges::lower_bound(ends, numbers[index], {},
                                                    [&](size_t end) { return numbers[end]; });
        if (place != ends.begin())
            previous[index] = *std::prev(place);
        if (place == ends.end())
            ends.push_back(index);
        else
            *place = index;
    }
    std::vector<bool> stays(numbers.size());
    for (size_t index = ends.empty() ? numbers.size() : ends.back(); index < numbers.size();
         index = previous[index])
        stays[index] = true;
    return stays;
}

/// Makes a move in the numbers themselves.
void performMove(const ArrayDifference::Move &move, std::vector<int> *numbers)
{
    const auto at = [&](int row) { return numbers->begin() + row; };
    if (move.before < move.rows.first)
        std::rotate(at(move.before), at(move.rows.first), at(move.rows.last + 1));
    else
        std::rotate(at(move.rows.first), at(move.rows.last + 1), at(move.before));
}
} // namespace

bool KTPrivate::isSameElement(const QVariant &left, const QVariant &right)
{
    if (isObject(left) || isObject(right))
        return isObject(left) && isObject(right) && addressIn(left) == addressIn(right);
    return NSObject::isEqual(left, right);
}

ArrayDifference::ArrayDifference(const QVariantList &before, const QVariantList &now)
    : newRows(size_t(before.size()), -1), oldRows(size_t(now.size()), -1)
{
    int from = 0;
    int oldEnd = int(before.size());
    int newEnd = int(now.size());
    while (from < std::min(oldEnd, newEnd) && isSameElement(before.at(from), now.at(from))) {
        newRows[size_t(from)] = oldRows[size_t(from)] = from;
        ++from;
    }
    while (std::min(oldEnd, newEnd) > from &&
           isSameElement(before.at(oldEnd - 1), now.at(newEnd - 1))) {
        newRows[size_t(--oldEnd)] = newEnd - 1;
        oldRows[size_t(--newEnd)] = oldEnd;
    }
    match(before, now, from, oldEnd, newEnd);
    removed = rowsWithout(newRows);
    inserted = rowsWithout(oldRows);
}

/// Finds the elements between the beginnings and the ends that are the same.
void ArrayDifference::match(const QVariantList &before, const QVariantList &now, int from,
                            int oldEnd, int newEnd)
{
    if (oldEnd == from || newEnd == from)
        return;
    Rows rows(before, from, oldEnd);
    int last = -1;
    for (int row = from; row < newEnd; ++row) {
        const int old = rows.take(now.at(row));
        oldRows[size_t(row)] = old;
        if (old < 0)
            continue;
        newRows[size_t(old)] = row;
        _descents += size_t(old < last);
        last = old;
    }
}

/// For each element that stays, in the old order, which of them it is now.
std::vector<int> ArrayDifference::ranksOfKept() const
{
    std::vector<int> rankOfNewRow(oldRows.size());
    int rank = 0;
    for (size_t row = 0; row < oldRows.size(); ++row)
        rankOfNewRow[row] = oldRows[row] < 0 ? -1 : rank++;
    std::vector<int> ranks;
    ranks.reserve(size_t(rank));
    for (const int row : newRows) {
        if (row >= 0)
            ranks.push_back(rankOfNewRow[size_t(row)]);
    }
    return ranks;
}

bool ArrayDifference::findMoves(size_t most, std::vector<Move> *moves) const
{
    moves->clear();
    // A move mends three neighbourhoods at most.
    if (_descents > 3 * most)
        return false;
    std::vector<int> ranks = isReordered() ? ranksOfKept() : std::vector<int>();
    std::vector<bool> isInPlace(ranks.size());
    const std::vector<bool> stays = thoseThatStay(ranks);
    for (size_t place = 0; place < ranks.size(); ++place)
        isInPlace[size_t(ranks[place])] = stays[place];
    for (int rank = 0; rank < int(ranks.size()); ++rank) {
        if (isInPlace[size_t(rank)])
            continue;
        if (moves->size() == most)
            return false;
        const auto placeOf = [&](int of) {
            return int(std::ranges::find(ranks, of) - ranks.begin());
        };
        Range rows{placeOf(rank), placeOf(rank)};
        while (rows.last + 1 < int(ranks.size()) &&
               ranks[size_t(rows.last) + 1] == rank + rows.count() &&
               !isInPlace[size_t(rank) + size_t(rows.count())])
            ++rows.last;
        const Move move{rows, rank == 0 ? 0 : placeOf(rank - 1) + 1};
        rank += rows.count() - 1;
        // It may have come to its place by what was moved before.
        if (move.before == rows.first)
            continue;
        moves->push_back(move);
        performMove(move, &ranks);
    }
    return true;
}
