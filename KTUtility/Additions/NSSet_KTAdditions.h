#pragma once

#include "NSArray_KTAdditions.h"
#include <KTUtility/Platform/Keys/NSCollections.h>

#include <QList>
#include <QSet>

/// The questions of NSArray_KTAdditions.h, asked of sets: QSet<Field *> and the like, or NSSet for
/// values of any type. What comes out in an order comes in no particular one.
///
/// \code
/// QSet<Field *> visible = KTAdditions::objectsSatisfyingCondition(fields, "isVisible");
/// QList<Field *> inOrder = KTAdditions::sortedArrayUsingKey(fields, u"order");
/// \endcode
namespace KTAdditions {
namespace Detail {
template<NSSetOf S>
QList<typename S::value_type> allObjects(const S &set)
{
    return QList<typename S::value_type>(set.begin(), set.end());
}

template<NSSetOf S>
S setOf(const QList<typename S::value_type> &list)
{
    S set;
    for (const auto &element : list)
        set.insert(element);
    return set;
}

/// NSSet for lists of variants, QSet<T> for lists of T.
template<typename T>
using SetFor = std::conditional_t<std::same_as<T, QVariant>, NSSet, QSet<T>>;
} // namespace Detail

/// The element of a set that holds exactly one; else nil.
template<NSSetOf S>
NSNullable<typename S::value_type> singularObject(const S &set)
{
    using Element = NSNullable<typename S::value_type>;
    return set.size() == 1 ? Element(*set.begin()) : Element();
}

/// The descriptors by which sortedArrayUsingKey() sorts: one, ascending unless said otherwise.
inline QList<NSSortDescriptor> _makeSortDescriptorForKey(const KTText &key,
                                                         Qt::SortOrder order = Qt::AscendingOrder)
{
    return KTAdditions_Private::makeSortDescriptorForKey(key, order);
}

/// The elements in the order of their values for \a key, which may be a key path; ascending unless
/// said otherwise.
template<NSSetOf S>
QList<typename S::value_type> sortedArrayUsingKey(const S &set, const KTText &key,
                                                  Qt::SortOrder order = Qt::AscendingOrder)
{
    return NSSortDescriptor::sorted(Detail::allObjects(set), _makeSortDescriptorForKey(key, order));
}

/// Whether an element has \a value for \a forKey.
template<NSSetOf S>
bool containsObjectWithValue(const S &set, const KTValue &value, const KTText &forKey)
{
    // A set of values holds no nil, and a nil key has the value nil on every element.
    return !forKey.isNull() && !isNSNull(value) &&
           containsObjectWithValue(Detail::allObjects(set), value, forKey);
}

/// An element whose value for \a forKey equals \a value; nil if there is none.
template<NSSetOf S>
NSNullable<typename S::value_type> objectWithValue(const S &set, const KTValue &value,
                                                   const KTText &forKey)
{
    return objectWithValue(Detail::allObjects(set), value, forKey);
}

/// The elements that the list version keeps; see NSArray_KTSelectors.h.
template<NSSetOf S>
S objectsSatisfyingCondition(const S &set, const NSSelector &selector,
                             const KTValue &withObject = {})
{
    return Detail::setOf<S>(
        objectsSatisfyingCondition(Detail::allObjects(set), selector, withObject));
}

/// The elements for which a method of \a onTarget, given the element and \a withContext, is true.
template<NSSetOf S, KTPrivate::KeyValueCodable Target>
S objectsSatisfyingCondition(const S &set, const NSSelector &selector, const Target &onTarget,
                             const KTValue &withContext)
{
    return Detail::setOf<S>(
        objectsSatisfyingCondition(Detail::allObjects(set), selector, onTarget, withContext));
}

/// The elements for which a function is true.
template<NSSetOf S, ConditionOver<typename S::value_type> F>
S objectsSatisfyingCondition(const S &set, F &&condition)
{
    return Detail::setOf<S>(
        objectsSatisfyingCondition(Detail::allObjects(set), std::forward<F>(condition)));
}

/// The results that the list version gives, each once; see NSArray_KTSelectors.h.
template<NSSetOf S>
NSSet setByPerformingSelector(const S &set, const NSSelector &selector,
                              const KTValue &withObject = {})
{
    return NSSet(arrayByPerformingSelector(Detail::allObjects(set), selector, withObject));
}

/// The results of a function, each once: a set of the function's type.
template<NSSetOf S, FunctionOver<typename S::value_type> F>
auto setByPerformingSelector(const S &set, F &&function)
{
    const auto results =
        arrayByPerformingSelector(Detail::allObjects(set), std::forward<F>(function));
    using Result = typename std::remove_cvref_t<decltype(results)>::value_type;
    return Detail::setOf<Detail::SetFor<Result>>(results);
}

/// The set without the objects of a list.
template<NSSetOf S>
S setByRemovingObjectsInArray(const S &set, const QList<typename S::value_type> &list)
{
    S result = set;
    for (const auto &object : list)
        result.remove(object);
    return result;
}

/// The set without the objects of another.
template<NSSetOf S>
S setByRemovingObjectsInSet(const S &set, const S &other)
{
    return setByRemovingObjectsInArray(set, Detail::allObjects(other));
}

/// Adds the objects of a list to the set.
template<NSSetOf S>
void addObjectsFromArrayOptimized(S &set, const QList<typename S::value_type> &list)
{
    for (const auto &object : list)
        set.insert(object);
}

/// Removes the objects of a list from the set.
template<NSSetOf S>
void removeObjectsInArray(S &set, const QList<typename S::value_type> &list)
{
    for (const auto &object : list)
        set.remove(object);
}
} // namespace KTAdditions
