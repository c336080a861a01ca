#pragma once

#include "KeyAccessor.h"
#include "KeyValueTarget.h"
#include <KTUtility/KTUtilityExport.h>

#include <QString>

#include <vector>

namespace KTPrivate {
/// Reads one key path of many objects: keys joined by ".", from left to right.
///
/// A nil on the way gives nil. On a collection the rest of the path is applied to each element (an
/// NSSet gives the set of the values, everything else a list), or to an operator: "@count",
/// "@sum.path", "@avg.path", "@min.path", "@max.path", "@distinctUnionOfObjects.path",
/// "@unionOfObjects.path"; and of the elements' collections "@distinctUnionOfArrays.path",
/// "@unionOfArrays.path", "@distinctUnionOfSets.path". An object on the way that answers key paths
/// by itself (NSKeyValueCodingObject) is asked for the rest.
class KTUTILITY_EXPORT KeyPath
{
public:
    explicit KeyPath(const QString &path);

    /// The value at the end of the path. The reference holds until the next read.
    /// \throws NSException NSUndefinedKeyException if an object on the way has no such key.
    const QVariant &read(const KeyValueTarget &target);

private:
    const QVariant &readCollection(const QVariant &collection, size_t step);
    bool isOneKeyFor(const KeyValueTarget &target, size_t step) const;
    QString remainder(size_t step) const;

    std::vector<KeyAccessor> _steps;
    QVariant _collected;
};
} // namespace KTPrivate
