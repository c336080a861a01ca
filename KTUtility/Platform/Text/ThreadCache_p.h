#pragma once

// Private to the library. For numbers and dates, whose ICU objects are kept for each thread.

#include <QHash>

#include <memory>
#include <unordered_map>

namespace KTPrivate {
/// What one thread keeps under a key; when it is full, it starts again.
///
/// Made for ICU's formatters and calendars, which are costly to make and not safe to share.
template<typename Key, typename Value, int Capacity = 32>
class ThreadCache
{
public:
    /// The value under \a key, made by \a make (returning std::unique_ptr<Value>) if it is missing.
    template<typename Make>
    Value &value(const Key &key, const Make &make)
    {
        const auto found = _values.find(key);
        if (found != _values.end())
            return *found->second;
        if (_values.size() >= Capacity)
            _values.clear();
        return *_values.emplace(key, make()).first->second;
    }

private:
    struct Hash
    {
        size_t operator()(const Key &key) const { return qHash(key); }
    };
    std::unordered_map<Key, std::unique_ptr<Value>, Hash> _values;
};
} // namespace KTPrivate
