#pragma once

#include <KTUtility/Platform/Values/NSObject.h>

#include <QVariant>

namespace KTPrivate {
// Private to key-value coding.

/// The entry of a map under \a key; "@count" is the number of entries. nil if there is none.
template<typename Map>
const QVariant &readEntry(const Map &map, const QString &key, QVariant &storage)
{
    static const QVariant nil;
    const auto entry = map.constFind(key);
    if (entry != map.constEnd())
        return NSObject::isNil(*entry) ? nil : *entry;
    return key == u"@count" ? storage = QVariant(qsizetype(map.size())) : nil;
}

/// What a collection answers: the values of its elements with NSNull() for nil. A set answers a set
/// of them without nil.
QVariant collected(const QVariant &collection, const QVariantList &values);

/// Whether \a key names an operator that takes the rest of a key path ("@sum").
bool isCollectionOperator(const QString &key);

/// Applies a collection operator to the values that a collection has for the operator's path.
/// \return the sum, average (NSDecimalNumber where a decimal is among the values, else double or
/// integer), smallest, largest or the distinct values; nil for "@min" and "@max" of nothing.
QVariant applyCollectionOperator(const QString &key, const QVariantList &values);
} // namespace KTPrivate
