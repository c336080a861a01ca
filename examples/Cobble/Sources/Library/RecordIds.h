#pragma once

#include <QtGlobal>

#include <memory>
#include <vector>

/// The numbers by which the database knows records.
using RecordIds = std::vector<qint64>;
/// The same where several have them. A million are eight megabytes.
using SharedRecordIds = std::shared_ptr<const RecordIds>;

/// Answers quickly whether a record is one of many.
///
/// \code
/// const RecordIdSet selected(ids);
/// selected.contains(7);
/// \endcode
class RecordIdSet
{
public:
    RecordIdSet() = default;
    /// \param ids in any order.
    explicit RecordIdSet(const RecordIds &ids);

    bool contains(qint64 id) const;
    bool isEmpty() const { return _bits.empty() && _sorted.empty(); }

private:
    quint64 placeOf(qint64 id) const { return quint64(id) - quint64(_first); }

    qint64 _first = 0;
    /// A bit for each number behind the first one, if they lie close together.
    std::vector<bool> _bits;
    /// Else the numbers.
    RecordIds _sorted;
};
