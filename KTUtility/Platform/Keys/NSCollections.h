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
    using Storage = std::unordered_map<Key, Value, NSHash<Key>, NSIsEqual<Key>>;

    /// The value of \a key; nil (or nothing) if there is none.
    NSNullable<Value> objectForKey(const Key &key) const
    {
        const auto entry = _entries.find(key);
        return entry == _entries.end() ? NSNullable<Value>() : NSNullable<Value>(entry->second);
    }
    bool contains(const Key &key) const { return _entries.contains(key); }
    qsizetype count() const { return qsizetype(_entries.size()); }
    bool isEmpty() const { return _entries.empty(); }
    /// Stores \a value under \a key; the later value wins.
    void setObject(const Value &value, const Key &forKey)
    {
        _entries.insert_or_assign(forKey, value);
    }
    void reserve(qsizetype count) { _entries.reserve(size_t(count)); }

    typename Storage::const_iterator begin() const { return _entries.begin(); }
    typename Storage::const_iterator end() const { return _entries.end(); }

private:
    Storage _entries;
};

/// A set of values of any type, equal as NSObject::isEqual() says. For one type, use QSet<T>.
class NSSet
{
public:
    using value_type = QVariant;
    using Storage = std::unordered_set<QVariant, NSHash<QVariant>, NSIsEqual<QVariant>>;

    NSSet() = default;
    NSSet(std::initializer_list<QVariant> values) : _values(values.begin(), values.end()) {}
    explicit NSSet(const QVariantList &values) : _values(values.begin(), values.end()) {}

    bool contains(const QVariant &value) const { return _values.contains(value); }
    qsizetype size() const { return qsizetype(_values.size()); }
    bool isEmpty() const { return _values.empty(); }
    /// \return true if the set did not hold an equal value before.
    bool addObject(const QVariant &value) { return _values.insert(value).second; }
    void insert(const QVariant &value) { addObject(value); }
    void remove(const QVariant &value) { _values.erase(value); }

    Storage::const_iterator begin() const { return _values.begin(); }
    Storage::const_iterator end() const { return _values.end(); }

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
