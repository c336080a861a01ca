#pragma once

#include "KTText.h"
#include "KTValue.h"
#include "KeyPath.h"
#include "KeyValueTarget.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSError.h>

/// Reading and writing objects by the names of their properties.
///
/// Use it where the key is known only at run time. To read one key of many objects, make an
/// KeyAccessor instead.
///
/// \code
/// NSKeyValueCoding::valueForKey(field, u"name");
/// NSKeyValueCoding::valueForKeyPath(field, u"library.name");
/// NSKeyValueCoding::setValue(field, 3, u"order");
/// NSKeyValueCoding::setValue(field, library, u"library");
/// \endcode
namespace NSKeyValueCoding {
/// The value of \a key; see KeyAccessor for where it is looked for.
/// \throws NSException NSUndefinedKeyException if the receiver has no such key.
template<KTPrivate::KeyValueCodable T>
QVariant valueForKey(const T &receiver, const KTText &key)
{
    return KTPrivate::KeyAccessor(key).read(KTPrivate::KeyValueTargets::target(receiver));
}

/// The value at the end of \a path; see KeyPath.
/// \throws NSException NSUndefinedKeyException if an object on the way has no such key.
template<KTPrivate::KeyValueCodable T>
QVariant valueForKeyPath(const T &receiver, const KTText &path)
{
    return KTPrivate::KeyPath(path).read(KTPrivate::KeyValueTargets::target(receiver));
}

/// Sets a property of an object or gadget, or calls its invokable set<Key> or _set<Key>, or sets a
/// dynamic property that the object already has. Values are converted to the property's type,
/// numbers as the platform converts them: NSDecimalNumber and all others into each other, into
/// integers without their fraction, into truth values as "is not 0". Texts are true as
/// NSString::boolValue() says. nil receivers ignore it.
///
/// Observers are notified once, also of what has no NOTIFY signal; then with a notice before.
/// \throws NSException NSUndefinedKeyException if there is no such key or it cannot be written;
/// NSInvalidArgumentException if \a value is nil and the property is a number, or if the value
/// cannot be converted.
KTUTILITY_EXPORT void setValueOfTarget(const KTPrivate::KeyValueTarget &receiver,
                                       const QVariant &value, const QString &forKey);

/// Sets an entry of a map; nil removes it.
KTUTILITY_EXPORT void setValue(QVariantMap &receiver, const KTValue &value, const KTText &forKey);
/// Sets a key of what the variant holds: an object, a map or hash, or every element of a list.
KTUTILITY_EXPORT void setValue(QVariant &receiver, const KTValue &value, const KTText &forKey);

/// Sets a key of an object or gadget; see setValueOfTarget().
template<KTPrivate::KeyValueCodable T>
    requires(!std::same_as<T, QVariant> && !std::same_as<T, QVariantMap> &&
             !std::same_as<T, QVariantHash>)
void setValue(const T &receiver, const KTValue &value, const KTText &forKey)
{
    setValueOfTarget(KTPrivate::KeyValueTargets::target(receiver), value, forKey);
}

/// Sets the key at the end of a path. Maps and gadgets on the way are copies that are put back. A
/// nil on the way ignores it; a list there has the rest set on every element.
/// \throws NSException as setValueOfTarget().
KTUTILITY_EXPORT void setValueForKeyPath(QObject *receiver, const KTValue &value,
                                         const KTText &path);
/// The same for what the variant holds.
KTUTILITY_EXPORT void setValueForKeyPath(QVariant &receiver, const KTValue &value,
                                         const KTText &path);

/// Asks the object at the end of a path whether a value may be set there. It says so in an
/// invokable method, and every value is good where there is none:
///
/// \code
/// Q_INVOKABLE bool validateValue(QVariant *value, const QString &key, NSError *error);
/// \endcode
///
/// The method may put another value in place of the one that it is asked about.
/// \param error receives why not; may be null.
/// \throws NSException NSUndefinedKeyException if an object on the way lacks its key.
KTUTILITY_EXPORT bool validateValue(const QVariant &receiver, QVariant *value,
                                    const KTText &forKeyPath, NSError *error = nullptr);
} // namespace NSKeyValueCoding
