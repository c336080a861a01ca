#pragma once

#include "NSArray_KTSelectors.h"
#include "NSArray_KTUniqueNames.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KTText.h>
#include <KTUtility/Platform/Keys/KTValue.h>
#include <KTUtility/Platform/Keys/KeyAccessor.h>
#include <KTUtility/Platform/Keys/KeyPath.h>
#include <KTUtility/Platform/Keys/NSCollections.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Queries/NSSortDescriptor.h>
#include <KTUtility/Platform/Queries/ValueMatcher.h>
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
/// The descriptors by which sortByKey() sorts: one, ascending unless said otherwise.
inline QList<NSSortDescriptor> makeSortDescriptorForKey(const KTText &key,
                                                        Qt::SortOrder order = Qt::AscendingOrder)
{
    return {NSSortDescriptor{key, order == Qt::AscendingOrder}};
}
} // namespace KTAdditions_Private

/// Questions asked of lists of objects everywhere: find by key, sort, index, renumber, compare.
///
/// Lists may be typed (QList<Field *> in, QList<Field *> out) or dynamic (QVariantList); elements
/// answer keys as KeyValueCodable says. A list is a value: a function works on the list as it was
/// when it was called, whatever is changed meanwhile. Keys that an element does not have raise
/// NSUndefinedKeyException. Values may be passed as what they are (numbers, texts, pointers,
/// enumerations, optional values; see KTValue), keys and names as any kind of text (KTText).
///
/// Where a value "equals" another here, numbers are equal by value and nil equals nothing, not even
/// nil (NSObject::isEqualTo()).
///
/// \code
/// Field *price = KTAdditions::objectWithValue(fields, u"Price", u"name");
/// QList<Field *> mine = KTAdditions::objectsWithValue(fields, library, u"library");
/// QList<Field *> inOrder = KTAdditions::sortByOrder(fields);
/// KTAdditions::adjustOrder(inOrder);    // 1, 2, 3 …
/// \endcode
namespace KTAdditions {
namespace Detail {
template<typename T>
QVariantList boxedElements(const QList<T> &list)
{
    QVariantList elements;
    elements.reserve(list.size());
    for (const T &element : list)
        elements += NSBoxed(element);
    return elements;
}

/// The type in which elements of two lists are compared.
template<typename T, typename Other>
using Common = std::common_type_t<T, Other>;
} // namespace Detail

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

/// A new list in the order of the values for \a key, which may be a key path; ascending unless
/// said otherwise. Equal elements keep their order.
template<KTPrivate::KeyValueCodable T>
QList<T> sortByKey(const QList<T> &list, const KTText &key,
                   Qt::SortOrder order = Qt::AscendingOrder)
{
    return NSSortDescriptor::sorted(list,
                                    KTAdditions_Private::makeSortDescriptorForKey(key, order));
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

/// Whether one of the texts in the list is \a name, case-sensitive; false for nil. Objects with an
/// invokable `compare` are asked instead: the name is theirs if that returns 0.
KTUTILITY_EXPORT bool containsName(const QStringList &list, const KTText &name);
KTUTILITY_EXPORT bool containsName(const QVariantList &list, const KTText &name);
template<KTPrivate::KeyValueCodable T>
bool containsName(const QList<T> &list, const KTText &name)
{
    return containsName(Detail::boxedElements(list), name);
}

/// Whether an element has \a value for \a forKey; with a nil key, whether the list itself holds
/// the value. NSNull() as the value finds elements whose value is nil. All elements must have the
/// key, also those behind the one that is found.
template<KTPrivate::KeyValueCodable T>
bool containsObjectWithValue(const QList<T> &list, const KTValue &value, const KTText &forKey)
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

/// The same for elements that answer no keys, such as numbers: of use with a nil key.
template<typename T>
bool containsObjectWithValue(const QList<T> &list, const KTValue &value, const KTText &forKey)
{
    return containsObjectWithValue(Detail::boxedElements(list), value, forKey);
}

/// The first element whose value for \a forKey equals \a value; else nil.
template<KTPrivate::KeyValueCodable T>
NSNullable<T> objectWithValue(const QList<T> &list, const KTValue &value, const KTText &forKey)
{
    KTPrivate::KeyAccessor accessor(forKey);
    const KTPrivate::ValueMatcher matcher(value);
    for (const T &element : list) {
        if (matcher.matches(accessor.read(KTPrivate::KeyValueTargets::target(element))))
            return element;
    }
    return {};
}

/// The first element whose value for the key path "usingKeyPath.forKey" equals \a value; else nil,
/// also for a nil key or path.
template<KTPrivate::KeyValueCodable T>
NSNullable<T> objectWithValue(const QList<T> &list, const KTValue &value, const KTText &forKey,
                              const KTText &usingKeyPath)
{
    if (forKey.isNull() || usingKeyPath.isNull())
        return {};
    KTPrivate::KeyPath path(usingKeyPath.string() + u'.' + forKey.string());
    const KTPrivate::ValueMatcher matcher(value);
    for (const T &element : list) {
        if (matcher.matches(path.read(KTPrivate::KeyValueTargets::target(element))))
            return element;
    }
    return {};
}

/// All elements whose value for the key path equals \a value, in order.
template<KTPrivate::KeyValueCodable T>
QList<T> objectsWithValue(const QList<T> &list, const KTValue &value, const KTText &forKeyPath)
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

/// The elements, in order and with repeats, that \a other does not hold. The lists may be of
/// different types that have one in common: pointers to a class and to one derived from it.
template<typename T, typename Other = T>
QList<T> objectsNotInArray(const QList<T> &list, const QList<Other> &other)
{
    using Common = Detail::Common<T, Other>;
    QList<T> result;
    const auto keep = [&](const T &element, bool isInOther) {
        if (!isInOther)
            result += element;
    };
    if constexpr (NSHashable<Common>) {
        const std::unordered_set<Common, NSHash<Common>, NSIsEqual<Common>> known(other.begin(),
                                                                                  other.end());
        for (const T &element : list)
            keep(element, known.contains(element));
    } else {
        for (const T &element : list)
            keep(element, other.contains(element));
    }
    return result;
}

/// The list without every element that equals one in \a other.
template<typename T, typename Other = T>
QList<T> arrayByRemovingObjectsInArray(const QList<T> &list, const QList<Other> &other)
{
    return objectsNotInArray(list, other);
}

namespace Detail {
/// Where each of \a objects is first in a list of elements that a table finds.
template<typename Table, typename Elements, typename Objects>
NSIndexSet firstIndexes(const Elements &list, const Objects &objects)
{
    Table table;
    for (qsizetype index = 0; index < list.size(); ++index)
        table.try_emplace(list.at(index), index);
    NSIndexSet indexes;
    for (const auto &object : objects) {
        const auto found = table.find(object);
        if (found != table.end())
            indexes.insert(found->second);
    }
    return indexes;
}
} // namespace Detail

/// For each of \a objects, the first position at which the list holds an equal element; objects
/// that are not found add nothing. The lists may differ in type as for objectsNotInArray().
template<typename T, typename Other = T>
NSIndexSet indexOfObjects(const QList<T> &list, const QList<Other> &objects)
{
    using Common = Detail::Common<T, Other>;
    if constexpr (NSHashable<Common>) {
        return Detail::firstIndexes<
            std::unordered_map<Common, qsizetype, NSHash<Common>, NSIsEqual<Common>>>(list,
                                                                                      objects);
    } else {
        NSIndexSet indexes;
        for (const Other &object : objects)
            indexes.insert(list.indexOf(object));
        indexes.erase(-1);
        return indexes;
    }
}

/// As indexOfObjects(), for the same objects instead of equal ones; see NSObject::isIdenticalTo().
template<typename T, typename Other = T>
NSIndexSet indexesOfExactObjects(const QList<T> &list, const QList<Other> &objects)
{
    if constexpr (std::is_pointer_v<T>) {
        return indexOfObjects(list, objects);
    } else {
        using Identity = KTPrivate::Identity;
        return Detail::firstIndexes<
            std::unordered_map<QVariant, qsizetype, Identity::Hash, Identity::IsSame>>(
            Detail::boxedElements(list), Detail::boxedElements(objects));
    }
}

// --- Indexes and texts --------------------------------------------------------------------------

/// A dictionary from each element's value for \a key to the element. Elements whose value is nil
/// are left out; for equal values the later element wins.
template<KTPrivate::KeyValueCodable T>
NSMapTable<QVariant, T> dictionaryIndexWithKey(const QList<T> &list, const KTText &key)
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
/// A prefix and postfix that are not given are empty.
template<KTPrivate::KeyValueCodable T>
QString listWithKey(const QList<T> &list, const KTText &key, const KTText &prefix = u"",
                    const KTText &postfix = u"", const KTText &condition = {})
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
            result += NSString::stringWithFormat(u"%@%@%@", prefix.string(),
                                                 valueAccessor.read(target), postfix.string());
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
    requires(NSDetail::HasNil<T>::value && !std::same_as<T, QVariant> && !std::same_as<T, QString>)
void adjustOrder(const QList<T> &list)
{
    Detail::adjustOrder(list);
}

/// The same for elements that are values (maps, gadgets) or may be.
template<KTPrivate::KeyValueCodable T>
    requires(!std::same_as<T, QString>)
void adjustOrder(QList<T> &list)
{
    Detail::adjustOrder(list);
}
} // namespace KTAdditions

#include "NSArray_KTRanges.h"
#include "NSMutableArray_KTAdditions.h"
