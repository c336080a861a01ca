#include "KeyAccessor.h"

#include "KeyValueOperators_p.h"
#include "NSKeyValueCodingObject.h"
#include "NSOptionalType.h"
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QMetaMethod>
#include <QMetaProperty>

using namespace KTPrivate;

namespace {
const QVariant Nil;

/// A null text is nil wherever it comes from.
const QVariant &boxedText(const QVariant &value)
{
    return value.typeId() == QMetaType::QString && NSObject::isNil(value) ? Nil : value;
}

QByteArray capitalised(const QByteArray &key)
{
    return key.isEmpty() ? key : key.left(1).toUpper() + key.mid(1);
}

/// The most derived invokable method of this name without parameters that returns something.
int indexOfGetter(const QMetaObject *metaObject, const QByteArray &name)
{
    const int index = metaObject->indexOfMethod(QByteArray(name + "()").constData());
    if (index < 0)
        return -1;
    const QMetaMethod method = metaObject->method(index);
    const bool isGetter = method.methodType() != QMetaMethod::Signal &&
                          method.returnMetaType().id() != QMetaType::Void &&
                          method.returnMetaType().isValid();
    return isGetter ? index : -1;
}

QVariant selfOf(const KeyValueTarget &target)
{
    if (target.kind == KeyValueTarget::Kind::Object)
        return QVariant::fromValue(target.object());
    return QVariant(target.metaObject->metaType(), target.instance);
}
} // namespace

KeyAccessor::KeyAccessor(const QString &key) : _key(key), _utf8Key(key.toUtf8()) {}

void KeyAccessor::raiseUndefinedKey(const KeyValueTarget &target) const
{
    NSException::raise(
        NSUndefinedKeyException,
        NSString::stringWithFormat(u"[%@ valueForUndefinedKey:]: this class is not key value "
                                   u"coding-compliant for the key %@.",
                                   target.description(), _key));
}

bool KeyAccessor::resolveProperty(const QMetaObject *metaObject)
{
    const int index = metaObject->indexOfProperty(_utf8Key.constData());
    if (index < 0 || !metaObject->property(index).isReadable())
        return false;
    const QMetaProperty property = metaObject->property(index);
    _source = Source::Property;
    _declaringClass = property.enclosingMetaObject();
    _index = property.relativePropertyIndex();
    _type = property.metaType();
    return true;
}

bool KeyAccessor::resolveMethod(const QMetaObject *metaObject)
{
    const QByteArray capitalisedKey = capitalised(_utf8Key);
    const QByteArray names[] = {"get" + capitalisedKey, _utf8Key, "is" + capitalisedKey,
                                "_" + _utf8Key};
    for (const QByteArray &name : names) {
        const int index = indexOfGetter(metaObject, name);
        if (index < 0)
            continue;
        const QMetaMethod method = metaObject->method(index);
        _source = Source::Method;
        _declaringClass = method.enclosingMetaObject();
        _index = method.relativeMethodIndex();
        _type = method.returnMetaType();
        return true;
    }
    return false;
}

bool KeyAccessor::resolveDynamic(const KeyValueTarget &target)
{
    if (target.kind != KeyValueTarget::Kind::Object ||
        !target.object()->dynamicPropertyNames().contains(_utf8Key))
        return false;
    _source = Source::Dynamic;
    return true;
}

bool KeyAccessor::resolveSelf()
{
    if (_key != u"self")
        return false;
    _source = Source::Self;
    return true;
}

/// Whether the object answers the key by itself; then the value is read.
bool KeyAccessor::readFromCodingObject(const KeyValueTarget &target)
{
    if (target.kind != KeyValueTarget::Kind::Object)
        return false;
    const auto *const object = qobject_cast<NSKeyValueCodingObject *>(target.object());
    std::optional<QVariant> value = object ? object->valueForKey(_key) : std::nullopt;
    if (value)
        _value = boxedText(*value);
    return value.has_value();
}

void KeyAccessor::resolveClass(const KeyValueTarget &target)
{
    _metaObject = nullptr;
    // Qt's look-ups end at a NUL.
    if (_key.isEmpty() || _key.contains(QChar::Null) ||
        (!resolveProperty(target.metaObject) && !resolveMethod(target.metaObject) &&
         !resolveDynamic(target) && !resolveSelf()))
        raiseUndefinedKey(target);
    // Dynamic properties belong to one object, not to its class.
    if (_source == Source::Dynamic || _source == Source::Self)
        return;
    _metaObject = target.metaObject;
    _isVariant = _type.id() == QMetaType::QVariant;
    _optional = NSOptionalType::of(_type);
    _isBoxed = _isVariant || _optional || _type.id() == QMetaType::QString;
    _value = _isVariant ? QVariant() : QVariant(_type);
    // Who asks for data that may be written makes the value one that is not null.
    if (!_isVariant)
        static_cast<void>(_value.data());
    _isInPlace = !_isVariant && holdsValueInPlace();
}

/// Whether a small value stands in the variant, where nobody else can share it.
bool KeyAccessor::holdsValueInPlace() const
{
    const auto start = quintptr(&_value);
    const auto at = quintptr(_value.constData());
    return at >= start && at < start + sizeof(_value);
}

/// Where the generated code writes. A variant that shares nothing need not be asked for its own
/// copy each time.
void *KeyAccessor::storage()
{
    if (_isInPlace)
        return const_cast<void *>(_value.constData());
    return _isVariant ? &_value : _value.data();
}

void KeyAccessor::resolve(const KeyValueTarget &target)
{
    using Kind = KeyValueTarget::Kind;
    const bool isSameClass = target.metaObject && target.metaObject == _metaObject;
    const bool mayLackKeys =
        target.metaObject || target.kind == Kind::Opaque || target.kind == Kind::Text;
    if (!isSameClass && mayLackKeys)
        readOther(target);
}

const QVariant &KeyAccessor::readResolved(const KeyValueTarget &target)
{
    return readMetaCall(target, _source == Source::Property ? QMetaObject::ReadProperty
                                                            : QMetaObject::InvokeMetaMethod);
}

/// Lets the generated code write into _value. The third argument is what QMetaProperty passes: a
/// status that some classes set.
const QVariant &KeyAccessor::readMetaCall(const KeyValueTarget &target, int call)
{
    int status = -1;
    void *const written = storage();
    void *arguments[] = {written, &_value, &status};
    const auto metaCall = QMetaObject::Call(call);
    if (_declaringClass->d.static_metacall) {
        _declaringClass->d.static_metacall(target.object(), metaCall, _index, arguments);
    } else {
        const int offset = metaCall == QMetaObject::ReadProperty ? _declaringClass->propertyOffset()
                                                                 : _declaringClass->methodOffset();
        QMetaObject::metacall(target.object(), metaCall, _index + offset, arguments);
    }
    // A getter that returns a pointer to its value hands out that pointer.
    if (arguments[0] != written)
        _value = QVariant(_type, arguments[0]);
    return _isBoxed ? boxed(_value) : _value;
}

/// What an optional holds; nil for null texts.
const QVariant &KeyAccessor::boxed(const QVariant &value)
{
    return _optional ? _held = _optional->value(value.constData()) : boxedText(value);
}

const QVariant &KeyAccessor::readCollection(const QVariant &collection)
{
    const QVariantList elements = collection.value<QVariantList>();
    if (_key == u"@count")
        return _value = QVariant(elements.size());
    QVariantList values;
    values.reserve(elements.size());
    KeyAccessor each(_key);
    for (const QVariant &element : elements) {
        const QVariant &value = each.read(KeyValueTarget::ofVariant(element));
        values += NSObject::isNil(value) ? NSNull() : value;
    }
    return _value = collected(collection, values);
}

const QVariant &KeyAccessor::readText(const KeyValueTarget &target)
{
    const QString &text = *static_cast<const QString *>(target.instance);
    if (_key == u"length")
        return _value = QVariant(text.size());
    if (_key == u"self")
        return _value = text;
    raiseUndefinedKey(target);
}

const QVariant &KeyAccessor::readOpaque(const KeyValueTarget &target)
{
    if (_key == u"self")
        return *static_cast<const QVariant *>(target.instance);
    raiseUndefinedKey(target);
}

const QVariant &KeyAccessor::readObject(const KeyValueTarget &target)
{
    if (readFromCodingObject(target)) {
        _metaObject = nullptr;
        return _value;
    }
    resolveClass(target);
    if (_source == Source::Dynamic)
        return boxedText(_value = target.object()->property(_utf8Key.constData()));
    if (_source == Source::Self)
        return _value = selfOf(target);
    return readResolved(target);
}

const QVariant &KeyAccessor::readOther(const KeyValueTarget &target)
{
    using Kind = KeyValueTarget::Kind;
    if (_key.isNull())
        return Nil;
    switch (target.kind) {
    case Kind::Nil:
        return Nil;
    case Kind::Null:
        return *static_cast<const QVariant *>(target.instance);
    case Kind::Map:
        return readEntry(*static_cast<const QVariantMap *>(target.instance), _key, _value);
    case Kind::Hash:
        return readEntry(*static_cast<const QVariantHash *>(target.instance), _key, _value);
    case Kind::Collection:
        _metaObject = nullptr;
        return readCollection(*static_cast<const QVariant *>(target.instance));
    case Kind::Text:
        _metaObject = nullptr;
        return readText(target);
    case Kind::Opaque:
        return readOpaque(target);
    default:
        return readObject(target);
    }
}
