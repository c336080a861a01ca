#pragma once

#include "NSArray_KTSelectors.h"
#include "NSArray_KTUniqueNames.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KeyAccessor.h>
#include <KTUtility/Platform/Keys/KeyPath.h>
#include <KTUtility/Platform/Keys/NSCollections.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSSortDescriptor.h>
#include <KTUtility/Platform/Keys/ValueMatcher.h>
#include <KTUtility/Platform/Text/NSStringCompare.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <algorithm>

/// What the functions below share with those of sets.
namespace KTAdditions_Private {
/// The descriptors by which sortByKey() sorts: one, ascending.
inline QList<NSSortDescriptor> makeSortDescriptorForKey(const QString &key)
{
    return {NSSortDescriptor{key, true}};
}
} // namespace KTAdditions_Private

/// Questions asked of lists of objects everywhere: find by key, sort, index, renumber, compare.
///
/// Lists may be typed (QList<Field *> in, QList<Field *> out) or dynamic (QVariantList); elements
/// answer keys as KeyValueCodable says. A list is a value: a function works on the list as it was
/// when it was called, whatever is changed meanwhile. Keys that an element does not have raise
/// NSUndefinedKeyException.
///
/// Where a value "equals" another here, numbers are equal by value and nil equals nothing, not even
/// nil (NSObject::isEqualTo()).
///
/// \code
/// Field *price = KTAdditions::objectWithValue(fields, u"Price"_s, u"name"_s);
/// QList<Field *> mine = KTAdditions::objectsWithValue(fields, 7, u"library.number"_s);
/// QList<Field *> inOrder = KTAdditions::sortByOrder(fields);
/// KTAdditions::adjustOrder(inOrder);    // 1, 2, 3 …
/// \endcode
namespace KTAdditions {
// --- Elements -----------------------------------------------------------------------------------

/// Element 0; nil for an empty list.
template<typename T>
NSNullable<T> firstObject(const QList<T> &list)
{
    return list.isEmpty() ? NSNullable<T>() : NSNullable<T>(list.first());
}

/// The element of a list that holds exactly one; else nil.
template<typename T>
NSNullable<T> singularObject(const QList<T> &list)
{
    return list.size() == 1 ? NSNullable<T>(list.first()) : NSNullable<T>();
}

// --- Sorting ------------------------------------------------------------------------------------

/// A new list in ascending order of the values for \a key. Equal elements keep their order.
template<KTPrivate::KeyValueCodable T>
QList<T> sortByKey(const QList<T> &list, const QString &key)
{
    return NSSortDescriptor::sorted(list, KTAdditions_Private::makeSortDescriptorForKey(key));
}

/// A new list in ascending order of "order".
template<KTPrivate::KeyValueCodable T>
QList<T> sortByOrder(const QList<T> &list)
{
    return sortByKey(list, QStringLiteral("order"));
}

/// A new list of texts in the order in which people expect them; see NSString::localizedCompare().
KTUTILITY_EXPORT QStringList sortInUserFieldOrder(const QStringList &list);
KTUTILITY_EXPORT QVariantList sortInUserFieldOrder(const QVariantList &list);

// --- Finding ------------------------------------------------------------------------------------

/// Whether one of the texts in the list is \a name, case-sensitive; false for nil.
KTUTILITY_EXPORT bool containsName(const QStringList &list, const QString &name);
KTUTILITY_EXPORT bool containsName(const QVariantList &list, const QString &name);

/// Whether an element has \a value for \a forKey; with a nil key, whether the list itself holds
/// the value. NSNull() as the value finds elements whose value is nil. All elements must have the
/// key, also those behind the one that is found.
template<KTPrivate::KeyValueCodable T>
bool containsObjectWithValue(const QList<T> &list, const QVariant &value, const QString &forKey)
{
    if (forKey.isNull())
        return std::any_of(list.begin(), list.end(), [&](const T &element) {
            return NSObject::isEqualTo(NSBoxed(element), value);
        });
    KTPrivate::KeyAccessor accessor(forKey);
    const KTPrivate::ValueMatcher matcher(value);
    bool isFound = false;
    for (const T &element : list) {
        if (isFound) {
            accessor.resolve(KTPrivate::KeyValueTargets::target(element));
        } else {
            const QVariant &found = accessor.read(KTPrivate::KeyValueTargets::target(element));
            isFound = matcher.matches(found) || (isNSNull(value) && NSObject::isNil(found));
        }
    }
    return isFound;
}

/// The first element whose value for \a forKey equals \a value; else nil.
template<KTPrivate::KeyValueCodable T>
NSNullable<T> objectWithValue(const QList<T> &list, const QVariant &value, const QString &forKey)
{
    KTPrivate::KeyAccessor accessor(forKey);
    const KTPrivate::ValueMatcher matcher(value);
    for (const T &element : list) {
        if (matcher.matches(accessor.read(KTPrivate::KeyValueTargets::target(element))))
            return element;
    }
    return {};
}

/// The first element whose value for the key path "usingKeyPath.forKey" equals \a value; else nil.
template<KTPrivate::KeyValueCodable T>
NSNullable<T> objectWithValue(const QList<T> &list, const QVariant &value, const QString &forKey,
                              const QString &usingKeyPath)
{
    KTPrivate::KeyPath path(NSString::stringWithFormat(u"%@.%@", usingKeyPath, forKey));
    const KTPrivate::ValueMatcher matcher(value);
    for (const T &element : list) {
        if (matcher.matches(path.read(KTPrivate::KeyValueTargets::target(element))))
            return element;
    }
    return {};
}

/// All elements whose value for the key path equals \a value, in order.
template<KTPrivate::KeyValueCodable T>
QList<T> objectsWithValue(const QList<T> &list, const QVariant &value, const QString &forKeyPath)
{
    QList<T> result;
    KTPrivate::KeyPath path(forKeyPath);
    const KTPrivate::ValueMatcher matcher(value);
    for (const T &element : list) {
        if (matcher.matches(path.read(KTPrivate::KeyValueTargets::target(element))))
            result += element;
    }
    return result;
}

// --- Comparing lists ----------------------------------------------------------------------------

/// The elements, in order and with repeats, that \a other does not hold.
template<typename T>
QList<T> objectsNotInArray(const QList<T> &list, const QList<T> &other)
{
    QList<T> result;
    const auto keep = [&](const T &element, bool isInOther) {
        if (!isInOther)
            result += element;
    };
    if constexpr (NSHashable<T>) {
        const std::unordered_set<T, NSHash<T>, NSIsEqual<T>> known(other.begin(), other.end());
        for (const T &element : list)
            keep(element, known.contains(element));
    } else {
        for (const T &element : list)
            keep(element, other.contains(element));
    }
    return result;
}

/// The list without every element that equals one in \a other.
template<typename T>
QList<T> arrayByRemovingObjectsInArray(const QList<T> &list, const QList<T> &other)
{
    return objectsNotInArray(list, other);
}

/// For each of \a objects, the first position at which the list holds an equal element; objects
/// that are not found add nothing.
template<typename T>
NSIndexSet indexOfObjects(const QList<T> &list, const QList<T> &objects)
{
    NSIndexSet indexes;
    if constexpr (NSHashable<T>) {
        std::unordered_map<T, qsizetype, NSHash<T>, NSIsEqual<T>> firstIndexes;
        for (qsizetype index = 0; index < list.size(); ++index)
            firstIndexes.try_emplace(list.at(index), index);
        for (const T &object : objects) {
            const auto found = firstIndexes.find(object);
            if (found != firstIndexes.end())
                indexes.insert(found->second);
        }
    } else {
        for (const T &object : objects) {
            const qsizetype index = list.indexOf(object);
            if (index >= 0)
                indexes.insert(index);
        }
    }
    return indexes;
}

/// As indexOfObjects(), for the same objects instead of equal ones; see NSObject::isIdenticalTo().
template<typename T>
NSIndexSet indexesOfExactObjects(const QList<T> &list, const QList<T> &objects)
{
    if constexpr (std::is_pointer_v<T>) {
        return indexOfObjects(list, objects);
    } else {
        NSIndexSet indexes;
        for (const T &object : objects) {
            const auto found = std::find_if(list.begin(), list.end(), [&](const T &element) {
                return NSObject::isIdenticalTo(NSBoxed(element), NSBoxed(object));
            });
            if (found != list.end())
                indexes.insert(found - list.begin());
        }
        return indexes;
    }
}

// --- Indexes and texts --------------------------------------------------------------------------

/// A dictionary from each element's value for \a key to the element. Elements whose value is nil
/// are left out; for equal values the later element wins.
template<KTPrivate::KeyValueCodable T>
NSMapTable<QVariant, T> dictionaryIndexWithKey(const QList<T> &list, const QString &key)
{
    NSMapTable<QVariant, T> index;
    KTPrivate::KeyAccessor accessor(key);
    for (const T &element : list) {
        const QVariant &value = accessor.read(KTPrivate::KeyValueTargets::target(element));
        if (!NSObject::isNil(value))
            index.setObject(element, value);
    }
    return index;
}

/// A dictionary from each element to its position; for equal elements the later position wins.
template<NSHashable T>
NSMapTable<T, quint64> positionalDictionaryIndex(const QList<T> &list)
{
    NSMapTable<T, quint64> index;
    index.reserve(list.size());
    for (qsizetype position = 0; position < list.size(); ++position)
        index.setObject(quint64(position), list.at(position));
    return index;
}

/// A text of "prefix value postfix" for each element, without spaces between; the value is that
/// for \a key, nil being "(null)". With a condition key, only elements whose value for it is true.
template<KTPrivate::KeyValueCodable T>
QString listWithKey(const QList<T> &list, const QString &key, const QString &prefix,
                    const QString &postfix, const QString &condition)
{
    QString result = QStringLiteral("");
    KTPrivate::KeyAccessor valueAccessor(key);
    KTPrivate::KeyAccessor conditionAccessor(condition);
    for (const T &element : list) {
        const KTPrivate::KeyValueTarget target = KTPrivate::KeyValueTargets::target(element);
        // Deliberate: the condition is read before the test, also when there is none; a nil key
        // has the value nil on every object.
        const bool isMet = NSObject::boolValue(conditionAccessor.read(target));
        if (condition.isNull() || isMet)
            result +=
                NSString::stringWithFormat(u"%@%@%@", prefix, valueAccessor.read(target), postfix);
    }
    return result;
}

// --- Renumbering --------------------------------------------------------------------------------

namespace Detail {
template<typename List>
void adjustOrder(List &list)
{
    const QString key = QStringLiteral("order");
    KTPrivate::KeyAccessor accessor(key);
    qint64 position = 0;
    for (auto &element : list) {
        ++position;
        if (NSObject::integerValue(accessor.read(KTPrivate::KeyValueTargets::target(element))) !=
            position)
            NSKeyValueCoding::setValue(element, QVariant(position), key);
    }
}
} // namespace Detail

/// Sets "order" of the elements to 1, 2, 3 and so on. Elements that have the right number already
/// are not touched, so that nobody is notified of them.
template<KTPrivate::KeyValueCodable T>
    requires(NSDetail::HasNil<T>::value && !std::same_as<T, QVariant>)
void adjustOrder(const QList<T> &list)
{
    Detail::adjustOrder(list);
}

/// The same for elements that are values (maps, gadgets) or may be.
template<KTPrivate::KeyValueCodable T>
void adjustOrder(QList<T> &list)
{
    Detail::adjustOrder(list);
}
} // namespace KTAdditions

#include "NSMutableArray_KTAdditions.h"
