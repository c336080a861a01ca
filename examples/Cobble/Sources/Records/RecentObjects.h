#pragma once

#include <QHash>

#include <list>
#include <memory>

/// Objects by their numbers: those that somebody else has, too, and some more that were asked for
/// last.
///
/// \code
/// RecentObjects<StoredRecord> records(1000);
/// records.add(record->id(), record);
/// records.find(7); // null if nobody has it any more
/// \endcode
template<typename Object>
class RecentObjects
{
public:
    using Pointer = std::shared_ptr<Object>;

    /// \param limit how many of those stay that nobody else has.
    explicit RecentObjects(size_t limit) : _limit(limit) {}

    Pointer find(qint64 id)
    {
        const auto found = _places.constFind(id);
        if (found == _places.constEnd())
            return nullptr;
        _recent.splice(_recent.begin(), _recent, *found);
        return (*found)->second;
    }
    void add(qint64 id, const Pointer &object)
    {
        remove(id);
        _recent.emplace_front(id, object);
        _places.insert(id, _recent.begin());
        dropOld();
    }
    void remove(qint64 id)
    {
        const auto found = _places.constFind(id);
        if (found == _places.constEnd())
            return;
        _recent.erase(*found);
        _places.erase(found);
    }
    template<typename Use>
    void forEach(const Use &use) const
    {
        for (const auto &[id, object] : _recent)
            use(object);
    }
    qsizetype count() const { return _places.size(); }

private:
    using Entry = std::pair<qint64, Pointer>;

    /// Looks at some of the oldest ones; those that somebody has become new.
    void dropOld()
    {
        for (int tries = 0; _recent.size() > _limit && tries < 8; ++tries) {
            if (_recent.back().second.use_count() == 1)
                remove(qint64(_recent.back().first));
            else
                _recent.splice(_recent.begin(), _recent, std::prev(_recent.end()));
        }
    }

    size_t _limit;
    std::list<Entry> _recent;
    QHash<qint64, typename std::list<Entry>::iterator> _places;
};
