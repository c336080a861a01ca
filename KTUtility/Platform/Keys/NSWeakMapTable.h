#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

#include <algorithm>

/// Objects by object, both held weakly: an entry is removed when either is destroyed.
///
/// \code
/// NSWeakMapTable<Field, RowView> rows;
/// rows.setObject(row, field);
/// rows.objectForKey(field);    // null once the row or the field is deleted
/// \endcode
template<typename Key, typename Object>
class NSWeakMapTable
{
public:
    /// The object for a key; null if there is none.
    Object *objectForKey(const Key *key) const
    {
        const auto entry = _entries.constFind(key);
        return entry != _entries.constEnd() && entry->key ? entry->object.data() : nullptr;
    }
    /// The object for a key that may be destroyed; its address is looked at only.
    Object *objectForAddress(const Key *address) const
    {
        const auto entry = _entries.constFind(address);
        return entry != _entries.constEnd() ? entry->object.data() : nullptr;
    }
    /// Sets the object for a key; null removes it.
    void setObject(Object *object, Key *forKey)
    {
        if (object && forKey)
            _entries.insert(forKey, {forKey, object});
        else
            removeObjectForKey(forKey);
    }
    /// Forgets the object of a key.
    void removeObjectForKey(const Key *key) { _entries.remove(key); }
    /// Forgets all objects.
    void removeAllObjects() { _entries.clear(); }

    /// How many entries there are.
    qsizetype count() const
    {
        return std::count_if(_entries.begin(), _entries.end(),
                             [](const Entry &entry) { return entry.key && entry.object; });
    }

private:
    struct Entry
    {
        QPointer<Key> key;
        QPointer<Object> object;
    };

    QHash<const Key *, Entry> _entries;
};
