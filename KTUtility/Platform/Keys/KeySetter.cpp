#include "KeySetter_p.h"

#include "NSKeyValueCoding.h"
#include "NSKeyValueCodingObject.h"
#include "ObservedKey_p.h"
#include "SilentChange_p.h"
#include "ValueConversion_p.h"
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

using namespace KTPrivate;

namespace {
bool isScalar(QMetaType type)
{
    return NSObject::isNumber(QVariant(type)) || (type.flags() & QMetaType::IsEnumeration);
}

} // namespace

QVariant KeySetter::converted(const KeyValueTarget &receiver, const QVariant &value, QMetaType type,
                              const QString &key)
{
    if (type.id() == QMetaType::QVariant)
        return value;
    const bool isNil = NSObject::isNil(value) || isNSNull(value);
    if (isNil && isScalar(type))
        NSException::raise(
            NSInvalidArgumentException,
            NSString::stringWithFormat(
                u"[%@ setNilValueForKey]: could not set nil as the value for the key %@.",
                receiver.description(), key));
    const auto result = isNil ? QVariant(type) : convertedValue(value, type);
    if (!result)
        NSException::raise(
            NSInvalidArgumentException,
            NSString::stringWithFormat(u"[%@ setValue:forKey:]: a value of type %s for the key %@.",
                                       receiver.description(), value.typeName(), key));
    return *result;
}

bool KeySetter::setProperty(const KeyValueTarget &receiver, const QMetaProperty &property,
                            const QVariant &value, const QString &key)
{
    if (!property.isWritable())
        return false;
    const QVariant typed = converted(receiver, value, property.metaType(), key);
    if (receiver.kind != KeyValueTarget::Kind::Object)
        return property.writeOnGadget(const_cast<void *>(receiver.instance), typed);
    SilentChange change(receiver, property, key);
    if (change.isReceiverGone())
        return true;
    const bool isSet = property.write(receiver.object(), typed);
    if (isSet)
        change.happened();
    return isSet;
}

void KeySetter::set(QObject *object, const QVariant &value)
{
    if (object->metaObject() != _metaObject)
        resolve(object);
    if (_isQuick && value.metaType() == _type && !NSObject::isNil(value)) {
        write(object, value);
        return;
    }
    const KeyValueTarget receiver = KeyValueTarget::of(object);
    if (!_metaObject || !setProperty(receiver, _property, value, _key))
        NSKeyValueCoding::setValueOfTarget(receiver, value, _key);
}

/// What setProperty() does with a value that need not be converted, if a signal tells of the change
/// or nobody observes the key. The arguments are what QMetaProperty passes.
void KeySetter::write(QObject *object, const QVariant &value)
{
    int status = -1;
    int flags = 0;
    void *arguments[] = {const_cast<void *>(value.constData()), const_cast<QVariant *>(&value),
                         &status, &flags};
    const KeyValueTarget receiver = KeyValueTarget::of(object);
    if (_property.hasNotifySignal() || !ObservedKey::existing(object, _key))
        _declaringClass->d.static_metacall(object, QMetaObject::WriteProperty, _index, arguments);
    else
        setProperty(receiver, _property, value, _key);
}

/// Remembers the class of an object, if a property is what the key is in all of its objects.
void KeySetter::resolve(QObject *object)
{
    const QMetaObject *const type = object->metaObject();
    const bool isKey = !_key.isEmpty() && !_key.contains(QChar::Null);
    const bool mayBeProperty = isKey && !qobject_cast<NSKeyValueCodingObject *>(object);
    _property = mayBeProperty ? type->property(type->indexOfProperty(_key.toUtf8().constData()))
                              : QMetaProperty();
    _metaObject = _property.isWritable() ? type : nullptr;
    _type = _property.metaType();
    _index = _property.relativePropertyIndex();
    _declaringClass = _property.enclosingMetaObject();
    _isQuick = _metaObject && _declaringClass->d.static_metacall && !_property.isEnumType() &&
               _type.id() != QMetaType::QVariant;
}
