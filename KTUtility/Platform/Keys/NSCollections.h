#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QHashFunctions>
#include <QList>
#include <QPointer>
#include <QSet>
#include <QSharedPointer>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>
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

namespace NSDetail {
template<typename T>
struct HasNil : std::bool_constant<std::is_pointer_v<T>>
{
};
template<>
struct HasNil<QVariant> : std::true_type
{
};
template<>
struct HasNil<QString> : std::true_type
{
};
template<typename T>
struct HasNil<QPointer<T>> : std::true_type
{
};
template<typename T>
struct HasNil<QSharedPointer<T>> : std::true_type
{
};
template<typename T>
struct HasNil<std::shared_ptr<T>> : std::true_type
{
};
} // namespace NSDetail

/// An element or nil: T itself where it has a nil of its own (pointers, QVariant, QString), else
/// std::optional<T>.
template<typename T>
using NSNullable = std::conditional_t<NSDetail::HasNil<T>::value, T, std::optional<T>>;

/// An element as a variant; null texts and null pointers become nil.
template<typename T>
QVariant NSBoxed(const T &value)
{
    if constexpr (std::same_as<T, QVariant>) {
        return value;
    } else if constexpr (std::same_as<T, QString>) {
        return value.isNull() ? QVariant() : QVariant(value);
    } else if constexpr (requires { value.data(); } && NSDetail::HasNil<T>::value) {
        return NSBoxed(value.data());
    } else if constexpr (requires { value.get(); } && NSDetail::HasNil<T>::value) {
        return NSBoxed(value.get());
    } else if constexpr (std::is_pointer_v<T>) {
        using Pointer = std::remove_const_t<std::remove_pointer_t<T>> *;
        return value ? QVariant::fromValue(const_cast<Pointer>(value)) : QVariant();
    } else {
        return QVariant::fromValue(value);
    }
}

/// Positions in a list, in ascending order and each once.
using NSIndexSet = std::set<qsizetype>;

/// A dictionary whose keys may be of any type, such as numbers and objects.
///
/// \code
/// NSMapTable<QVariant, Field *> index = KTAdditions::dictionaryIndexWithKey(fields, u"order");
/// Field *third = index.objectForKey(3);    // null if there is none
/// \endcode
template<typename Key, typename Value>
class NSMapTable
{
public:
    /// What holds the entries.
    using Storage = std::unordered_map<Key, Value, NSHash<Key>, NSIsEqual<Key>>;

    /// The value of \a key; nil (or nothing) if there is none.
    NSNullable<Value> objectForKey(const Key &key) const
    {
        const auto entry = _entries.find(key);
        return entry == _entries.end() ? NSNullable<Value>() : NSNullable<Value>(entry->second);
    }
    /// Whether there is a value for \a key.
    bool contains(const Key &key) const { return _entries.contains(key); }
    /// How many keys have a value.
    qsizetype count() const { return qsizetype(_entries.size()); }
    /// Whether no key has a value.
    bool isEmpty() const { return _entries.empty(); }
    /// Stores \a value under \a key; the later value wins.
    void setObject(const Value &value, const Key &forKey)
    {
        _entries.insert_or_assign(forKey, value);
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
    bool contains(const QVariant &value) const { return _values.contains(value); }
    /// How many values it holds.
    qsizetype size() const { return qsizetype(_values.size()); }
    /// Whether it holds no value.
    bool isEmpty() const { return _values.empty(); }
    /// Adds a value unless the set holds an equal one.
    /// \return true if the set did not hold an equal value before.
    bool addObject(const QVariant &value) { return _values.insert(value).second; }
    /// The same as addObject(), without a result.
    void insert(const QVariant &value) { addObject(value); }
    /// Removes the value that is equal, if there is one.
    void remove(const QVariant &value) { _values.erase(value); }

    /// The first value, in no particular order.
    Storage::const_iterator begin() const { return _values.begin(); }
    /// The end of the values.
    Storage::const_iterator end() const { return _values.end(); }

    /// Whether both hold equal values.
    friend bool operator==(const NSSet &left, const NSSet &right)
    {
        return left._values == right._values;
    }

private:
    Storage _values;
};

/// Types that are sets here: QSet<T> and NSSet.
template<typename S>
concept NSSetOf = std::same_as<S, NSSet> || std::same_as<S, QSet<typename S::value_type>>;
