#include "KeySetter_p.h"

#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSKeyValueCodingObject.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/VariantKind_p.h>

#include <QMetaProperty>

using namespace KTPrivate;

namespace {
/// Whether a property can be set without more ado: a signal tells of the change.
bool isQuickToSet(const QMetaProperty &property)
{
    return property.isWritable() && property.hasNotifySignal() && !property.isEnumType() &&
           property.typeId() != QMetaType::QVariant &&
           property.enclosingMetaObject()->d.static_metacall;
}
/// Whether some values of a type are nil.
bool hasNilValues(QMetaType type)
{
    switch (kindOf(QVariant(type))) {
    case VariantKind::Nil:
    case VariantKind::Text:
    case VariantKind::Object:
        return true;
    default:
        return false;
    }
}
} // namespace

void KeySetter::set(QObject *object, const QVariant &value)
{
    if (object->metaObject() != _metaObject)
        resolve(object);
    if (_isQuick && value.metaType() == _type && !(_mayBeNil && NSObject::isNil(value)))
        write(object, value);
    else
        NSKeyValueCoding::setValueOfTarget(KeyValueTarget::of(object), value, _key);
}

/// Remembers the class of an object, and the property if the key is one in all of its objects.
void KeySetter::resolve(QObject *object)
{
    _metaObject = object->metaObject();
    const bool isKey = !_key.isEmpty() && !_key.contains(QChar::Null);
    const int index = _metaObject->indexOfProperty(_key.toUtf8().constData());
    const QMetaProperty property = _metaObject->property(index);
    _isQuick = isKey && isQuickToSet(property) && !qobject_cast<NSKeyValueCodingObject *>(object);
    if (!_isQuick)
        return;
    _type = property.metaType();
    _mayBeNil = hasNilValues(_type);
    _index = property.relativePropertyIndex();
    _declaringClass = property.enclosingMetaObject();
}

/// The arguments are what QMetaProperty passes.
void KeySetter::write(QObject *object, const QVariant &value) const
{
    int status = -1;
    int flags = 0;
    void *arguments[] = {const_cast<void *>(value.constData()), const_cast<QVariant *>(&value),
                         &status, &flags};
    _declaringClass->d.static_metacall(object, QMetaObject::WriteProperty, _index, arguments);
}
