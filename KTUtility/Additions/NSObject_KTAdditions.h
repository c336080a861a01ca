#pragma once

#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QStringList>
#include <QVariantMap>

namespace KTAdditions {
/// The receiver's values for several key paths, by path; nil values are left out.
/// \throws NSException NSUndefinedKeyException if an object on a path does not have its key.
///
/// \code
/// KTAdditions::dictionaryWithValuesForKeyPaths(field, {u"name"_s, u"library.name"_s});
/// \endcode
template<KTPrivate::KeyValueCodable T>
QVariantMap dictionaryWithValuesForKeyPaths(const T &receiver, const QStringList &paths)
{
    QVariantMap values;
    for (const QString &path : paths) {
        const QVariant value = NSKeyValueCoding::valueForKeyPath(receiver, path);
        if (!NSObject::isNil(value))
            values.insert(path, value);
    }
    return values;
}
} // namespace KTAdditions
