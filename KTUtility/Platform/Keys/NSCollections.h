#pragma once

#include "KTValue.h"
#include "NSBoxed.h"
#include <KTUtility/Platform/Values/NSObject.h>

#include <QHashFunctions>
#include <QList>
#include <QSet>
#include <QVariant>

#include <algorithm>
#include <functional>
#include <set>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>

// Collections with the platform's equality, for elements of any type.

/// Equality of elements: the platform's for QVariant, operator== for everything else.
template<typename T>
struct NSIsEqual
{
    /// Whether both are equal.
    bool operator()(const T &left, const T &right) const
    {
        if constexpr (std::same_as<T, QVariant>)
            return NSObject::isEqual(left, right);
        else
            return left == right;
    }
};

/// Types whose elements can be found by hashing.
template<typename T>
concept NSHashable = std::same_as<T, QVariant> || requires(const T &value)
{
    qHash(value);
} || requires(const T &value)
{
    std::hash<T>()(value);
};

/// The hash that goes with NSIsEqual.
template<typename T>
struct NSHash
{
    /// The hash of a value; equal values have the same.
    size_t operator()(const T &value) const
    {
        if constexpr (std::same_as<T, QVariant>)
            return NSObject::hash(value);
        else if constexpr (requires { qHash(value); })
            return qHash(value);
        else
            return std::hash<T>()(value);
    }
};

namespace KTPrivate {
/// Finds values that are the same object, as NSObject::isIdenticalTo() says.
struct Identity
{
    struct Hash
    {
        size_t operator()(const QVariant &value) const
        {
            if (value.typeId() == QMetaType::QString)
                return qHash(static_cast<const QString *>(value.constData())->constData());
            if (value.typeId() == QMetaType::QByteArray)
                return qHash(static_cast<const QByteArray *>(value.constData())->constData());
            return NSObject::hash(value);
        }
    };
    struct IsSame
    {
        bool operator()(const QVariant &left, const QVariant &right) const
        {
            return NSObject::isIdenticalTo(left, right);
        }
    };
};
} // namespace KTPrivate

/// Positions in a list, in ascending order and each once.
using NSIndexSet = std::set<qsizetype>;

/// A dictionary whose keys may be of any type, such as numbers and objects.
///
/// \code
/// NSMapTable<QVariant, Field *> index = KTAdditions::dictionaryIndexWithKey(fields, u"order");
/// Field *third = index[3];    // null if there is none
/// \endcode
template<typename Key, typename Value>
class NSMapTable
{
public:
    /// What holds the entries.
    using Storage = std::unordered_map<Key, Value, NSHash<Key>, NSIsEqual<Key>>;
    /// Where keys may be of any type, a key is passed as a value of any type.
    using KeyArgument = std::conditional_t<std::same_as<Key, QVariant>, KTValue, Key>;

    /// The value of \a key; nil (or nothing) if there is none.
    NSNullable<Value> objectForKey(const KeyArgument &key) const
    {
        const auto entry = _entries.find(key);
        return entry == _entries.end() ? NSNullable<Value>() : NSNullable<Value>(entry->second);
    }
    /// The same.
    NSNullable<Value> operator[](const KeyArgument &key) const { return objectForKey(key); }
    /// Whether there is a value for \a key.
    bool contains(const KeyArgument &key) const { return _entries.contains(key); }
    /// How many keys have a value.
    qsizetype count() const { return qsizetype(_entries.size()); }
    /// Whether no key has a value.
    bool isEmpty() const { return _entries.empty(); }
    /// Stores \a value under \a key; the later value wins.
    void setObject(const Value &value, const KeyArgument &forKey)
    {
        _entries.insert_or_assign(static_cast<const Key &>(forKey), value);
    }
    /// Makes room for that many entries, which saves time if many follow.
    void reserve(qsizetype count) { _entries.reserve(size_t(count)); }

    /// The first pair of key and value, in no particular order.
    typename Storage::const_iterator begin() const { return _entries.begin(); }
    /// The end of the pairs.
    typename Storage::const_iterator end() const { return _entries.end(); }

private:
    Storage _entries;
};

/// A set of values of any type, equal as NSObject::isEqual() says. For one type, use QSet<T>.
///
/// As a variant it converts to a list of its values. Key-value coding takes it for a collection: it
/// answers a key with the set of its values' values.
///
/// \code
/// NSSet seen;
/// if (seen.addObject(field))    // for the first time
///     …
/// \endcode
class NSSet
{
public:
    /// What a set holds, by the name that containers of the standard library have for it.
    using value_type = QVariant;
    /// What holds the values.
    using Storage = std::unordered_set<QVariant, NSHash<QVariant>, NSIsEqual<QVariant>>;

    NSSet() = default;
    /// A set of these values, equal ones once.
    NSSet(std::initializer_list<QVariant> values) : _values(values.begin(), values.end()) {}
    /// A set of the values in a list, equal ones once.
    explicit NSSet(const QVariantList &values) : _values(values.begin(), values.end()) {}

    /// Whether the set holds an equal value.
    bool contains(const KTValue &value) const { return _values.contains(value); }
    /// How many values it holds.
    qsizetype size() const { return qsizetype(_values.size()); }
    /// Whether it holds no value.
    bool isEmpty() const { return _values.empty(); }
    /// Adds a value unless the set holds an equal one.
    /// \return true if the set did not hold an equal value before.
    bool addObject(const KTValue &value) { return _values.insert(value.variant()).second; }
    /// The same as addObject(), without a result.
    void insert(const KTValue &value) { addObject(value); }
    /// Removes the value that is equal, if there is one.
    void remove(const KTValue &value) { _values.erase(value.variant()); }
    /// The values, in no particular order.
    QVariantList allObjects() const { return QVariantList(begin(), end()); }

    /// The first value, in no particular order.
    Storage::const_iterator begin() const { return _values.begin(); }
    /// The end of the values.
    Storage::const_iterator end() const { return _values.end(); }

    /// Whether both hold equal values.
    friend bool operator==(const NSSet &left, const NSSet &right)
    {
        return left.size() == right.size() &&
               std::all_of(left.begin(), left.end(),
                           [&right](const QVariant &value) { return right.contains(value); });
    }

private:
    Storage _values;
};

/// Types that are sets here: QSet<T> and NSSet.
template<typename S>
concept NSSetOf = std::same_as<S, NSSet> || std::same_as<S, QSet<typename S::value_type>>;
