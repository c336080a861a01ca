#pragma once

#include "KeyValueTarget.h"
#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <vector>

class NSOptionalType;

namespace KTPrivate {
/// Reads one key of many objects fast.
///
/// The class of the last object and where the key was found in it are remembered, so that a run of
/// objects of one class costs one look-up by name; the value is read into storage that is used
/// again. Make one for each pass over a collection and throw it away; it must not outlive the
/// classes that it has seen.
///
/// A key is found, in this order, by the object itself (NSKeyValueCodingObject); as a property; as
/// an invokable method without parameters named get<Key>, <key>, is<Key> or _<key>; as a dynamic
/// property. Maps answer their entries. Lists and Qt's sets answer a list of their elements' values
/// with NSNull() for nil; an NSSet answers the set of its elements' values, without nil. Texts
/// answer "length". "self" is the object itself, unless it has such a key; lists answer that of
/// their elements. A nil key has the value nil on every object.
///
/// \code
/// KeyAccessor name(u"name"_s);
/// for (const Field *field : fields)
///     names += name.read(KeyValueTarget::of(field)).toString();
/// \endcode
class KTUTILITY_EXPORT KeyAccessor
{
public:
    explicit KeyAccessor(const QString &key);

    const QString &key() const { return _key; }

    /// The value of the key; nil for nil. The reference holds until the next read.
    /// \throws NSException NSUndefinedKeyException if the object has no such key.
    const QVariant &read(const KeyValueTarget &target)
    {
        // The same class as last time is the rule; everything else is out of line.
        if (target.metaObject && target.metaObject == _metaObject)
            return readResolved(target);
        return readOther(target);
    }

    /// Whether the object is of the class that was read last and that is known to have the key.
    bool knowsClassOf(const KeyValueTarget &target) const
    {
        return target.metaObject && target.metaObject == _metaObject;
    }

    /// Checks that the object has the key, without reading it.
    /// \throws NSException NSUndefinedKeyException if it has not.
    void resolve(const KeyValueTarget &target);

private:
    enum class Source : quint8 { None, Property, Method, Dynamic, Self };

    const QVariant &readResolved(const KeyValueTarget &target);
    const QVariant &boxed(const QVariant &value);
    const QVariant &readOther(const KeyValueTarget &target);
    const QVariant &readMetaCall(const KeyValueTarget &target, int call);
    const QVariant &readCollection(const QVariant &collection);
    const QVariant &readText(const KeyValueTarget &target);
    const QVariant &readOpaque(const KeyValueTarget &target);
    const QVariant &readObject(const KeyValueTarget &target);
    bool readFromCodingObject(const KeyValueTarget &target);
    void resolveClass(const KeyValueTarget &target);
    bool holdsValueInPlace() const;
    void *storage();
    bool resolveProperty(const QMetaObject *metaObject);
    bool resolveMethod(const QMetaObject *metaObject);
    bool resolveDynamic(const KeyValueTarget &target);
    bool resolveSelf();
    [[noreturn]] void raiseUndefinedKey(const KeyValueTarget &target) const;

    QString _key;
    QByteArray _utf8Key;
    const QMetaObject *_metaObject = nullptr;
    const QMetaObject *_declaringClass = nullptr;
    Source _source = Source::None;
    bool _isVariant = false;
    bool _isBoxed = false;   ///< whether a value may be nil
    bool _isInPlace = false; ///< whether _value holds values of the type itself, not shared
    const NSOptionalType *_optional = nullptr;
    int _index = -1;
    QMetaType _type;
    QVariant _value;
    QVariant _held; ///< by an optional
};
} // namespace KTPrivate
