#include "NSKeyValueCoding.h"

#include "NSKeyValueCodingObject.h"
#include "NSSelectionMarker.h"
#include "ObservedKey_p.h"
#include "ValueConversion_p.h"
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QMetaMethod>
#include <QMetaProperty>

#include <algorithm>
#include <utility>

using namespace KTPrivate;

namespace {
[[noreturn]] void raiseUndefinedKey(const KeyValueTarget &receiver, const QString &key)
{
    NSException::raise(
        NSUndefinedKeyException,
        NSString::stringWithFormat(u"[%@ setValue:forUndefinedKey:]: this class is not key value "
                                   u"coding-compliant for the key %@.",
                                   receiver.description(), key));
}

bool isScalar(QMetaType type)
{
    return NSObject::isNumber(QVariant(type)) || (type.flags() & QMetaType::IsEnumeration);
}

/// The value as the type that a setter takes.
QVariant converted(const KeyValueTarget &receiver, const QVariant &value, QMetaType type,
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

/// Notifies observers of a key that is set and that no signal reports.
class SilentChange
{
public:
    /// \param property the key's property, if it has one.
    SilentChange(const KeyValueTarget &receiver, const QMetaProperty &property, const QString &key)
    {
        if (receiver.kind == KeyValueTarget::Kind::Object && !property.hasNotifySignal())
            _key = ObservedKey::existing(receiver.object(), key);
        if (!_key)
            return;
        const QPointer<QObject> object = receiver.object();
        _key->willChange(NSKeyValueChangeSetting, {});
        _isReceiverGone = !object;
    }
    ~SilentChange()
    {
        if (_key)
            _key->cancelChange();
    }
    SilentChange(const SilentChange &) = delete;
    SilentChange &operator=(const SilentChange &) = delete;

    /// Whether somebody who was told before has destroyed the object.
    bool isReceiverGone() const { return _isReceiverGone; }

    /// The value was set. A setter that reported it itself has ended the change.
    void happened()
    {
        const QPointer<ObservedKey> key = std::exchange(_key, nullptr);
        if (key && key->isChanging())
            key->didChange(NSKeyValueChangeSetting, {});
    }

private:
    QPointer<ObservedKey> _key;
    bool _isReceiverGone = false;
};

QMetaProperty propertyOfKey(const QMetaObject *metaObject, const QString &key)
{
    return metaObject->property(metaObject->indexOfProperty(key.toUtf8().constData()));
}

bool setProperty(const KeyValueTarget &receiver, const QVariant &value, const QString &key)
{
    const QMetaProperty property = propertyOfKey(receiver.metaObject, key);
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

/// An invokable method of this name with one parameter, or an invalid one.
QMetaMethod setterNamed(const QMetaObject *metaObject, const QByteArray &name)
{
    for (int index = metaObject->methodCount() - 1; index >= 0; --index) {
        const QMetaMethod method = metaObject->method(index);
        if (method.name() == name && method.parameterCount() == 1 &&
            method.methodType() != QMetaMethod::Signal)
            return method;
    }
    return {};
}

QMetaMethod setterOfKey(const QMetaObject *metaObject, const QString &key)
{
    const QByteArray utf8 = key.toUtf8();
    const QByteArray capitalised = utf8.left(1).toUpper() + utf8.mid(1);
    const QMetaMethod method = setterNamed(metaObject, "set" + capitalised);
    return method.isValid() ? method : setterNamed(metaObject, "_set" + capitalised);
}

bool invokeSetter(const KeyValueTarget &receiver, const QVariant &value, const QString &key)
{
    const QMetaMethod method = setterOfKey(receiver.metaObject, key);
    if (!method.isValid())
        return false;
    const QMetaType type = method.parameterMetaType(0);
    QVariant typed = converted(receiver, value, type, key);
    const bool isVariant = type.id() == QMetaType::QVariant;
    const QGenericArgument argument(type.name(), isVariant ? &typed : typed.constData());
    if (receiver.kind != KeyValueTarget::Kind::Object)
        return method.invokeOnGadget(const_cast<void *>(receiver.instance), argument);
    SilentChange change(receiver, propertyOfKey(receiver.metaObject, key), key);
    if (change.isReceiverGone())
        return true;
    const bool isSet = method.invoke(receiver.object(), Qt::DirectConnection, argument);
    if (isSet)
        change.happened();
    return isSet;
}

bool setDynamicProperty(const KeyValueTarget &receiver, const QVariant &value, const QString &key)
{
    const QByteArray name = key.toUtf8();
    if (receiver.kind != KeyValueTarget::Kind::Object ||
        !receiver.object()->dynamicPropertyNames().contains(name))
        return false;
    SilentChange change(receiver, QMetaProperty(), key);
    if (change.isReceiverGone())
        return true;
    receiver.object()->setProperty(name.constData(), value);
    change.happened();
    return true;
}

void setValueOfElements(QVariant &receiver, const QVariant &value, const QString &key)
{
    QVariantList elements = receiver.value<QVariantList>();
    for (QVariant &element : elements)
        NSKeyValueCoding::setValue(element, value, key);
    if (receiver.typeId() == QMetaType::QVariantList)
        receiver = elements;
}
} // namespace

namespace {
/// Of a map or a hash.
template<typename Dictionary>
void setEntry(Dictionary &dictionary, const QVariant &value, const QString &key)
{
    if (NSObject::isNil(value))
        dictionary.remove(key);
    else
        dictionary.insert(key, value);
}

bool setInCodingObject(const KeyValueTarget &receiver, const QVariant &value, const QString &key)
{
    if (receiver.kind != KeyValueTarget::Kind::Object)
        return false;
    auto *const object = qobject_cast<NSKeyValueCodingObject *>(receiver.object());
    return object && object->setValueForKey(value, key);
}
} // namespace

void NSKeyValueCoding::setValueOfTarget(const KeyValueTarget &receiver, const QVariant &value,
                                        const QString &forKey)
{
    if (receiver.kind == KeyValueTarget::Kind::Nil)
        return;
    const bool isKey = !forKey.isEmpty() && !forKey.contains(QChar::Null);
    if (!receiver.metaObject || !isKey ||
        (!setInCodingObject(receiver, value, forKey) && !setProperty(receiver, value, forKey) &&
         !invokeSetter(receiver, value, forKey) && !setDynamicProperty(receiver, value, forKey)))
        raiseUndefinedKey(receiver, forKey);
}

void NSKeyValueCoding::setValue(QVariantMap &receiver, const KTValue &value, const KTText &forKey)
{
    setEntry(receiver, value, forKey);
}

void NSKeyValueCoding::setValue(QVariant &receiver, const KTValue &value, const KTText &forKey)
{
    const KeyValueTarget target = KeyValueTarget::ofVariant(receiver);
    switch (target.kind) {
    case KeyValueTarget::Kind::Map:
        setEntry(*static_cast<QVariantMap *>(receiver.data()), value, forKey);
        break;
    case KeyValueTarget::Kind::Hash:
        setEntry(*static_cast<QVariantHash *>(receiver.data()), value, forKey);
        break;
    case KeyValueTarget::Kind::Collection:
        setValueOfElements(receiver, value, forKey);
        break;
    case KeyValueTarget::Kind::Gadget: {
        // A gadget inside of a variant: write to the variant's own copy.
        const bool isPointer = receiver.metaType().flags() & QMetaType::PointerToGadget;
        setValueOfTarget(isPointer ? target
                                   : KeyValueTarget::ofGadget(target.metaObject, receiver.data()),
                         value, forKey);
        break;
    }
    default:
        setValueOfTarget(target, value, forKey);
    }
}

namespace {
void setInVariant(QVariant &receiver, const QVariant &value, const QString &path);

/// Whether what a variant holds was changed in a copy, so that it must be put back.
bool isCopy(const QVariant &value)
{
    const KeyValueTarget::Kind kind = KeyValueTarget::ofVariant(value).kind;
    if (kind != KeyValueTarget::Kind::Collection)
        return kind == KeyValueTarget::Kind::Map || kind == KeyValueTarget::Kind::Hash ||
               kind == KeyValueTarget::Kind::Gadget;
    const QVariantList elements = value.value<QVariantList>();
    return std::any_of(elements.begin(), elements.end(), isCopy);
}

void setInElements(QVariant &receiver, const QVariant &value, const QString &path)
{
    QVariantList elements = receiver.value<QVariantList>();
    for (QVariant &element : elements)
        setInVariant(element, value, path);
    if (receiver.typeId() == QMetaType::QVariantList)
        receiver = elements;
}

/// Sets the end of a path in what a variant holds.
void setInVariant(QVariant &receiver, const QVariant &value, const QString &path)
{
    const bool isNothing = KeyValueTarget::ofVariant(receiver).kind == KeyValueTarget::Kind::Nil;
    if (isNothing || NSIsControllerMarker(receiver))
        return;
    const qsizetype dot = path.indexOf(u'.');
    if (dot < 0 || KeyValueTarget::ofVariant(receiver).answersKeyPaths()) {
        NSKeyValueCoding::setValue(receiver, value, path);
        return;
    }
    if (KeyValueTarget::ofVariant(receiver).kind == KeyValueTarget::Kind::Collection) {
        setInElements(receiver, value, path);
        return;
    }
    const QString first = path.left(dot);
    QVariant next = NSKeyValueCoding::valueForKey(receiver, first);
    setInVariant(next, value, path.mid(dot + 1));
    if (isCopy(next))
        NSKeyValueCoding::setValue(receiver, next, first);
}
} // namespace

void NSKeyValueCoding::setValueForKeyPath(QObject *receiver, const KTValue &value,
                                          const KTText &path)
{
    QVariant object = QVariant::fromValue(receiver);
    setInVariant(object, value, path);
}

void NSKeyValueCoding::setValueForKeyPath(QVariant &receiver, const KTValue &value,
                                          const KTText &path)
{
    setInVariant(receiver, value, path);
}

namespace {
/// Asks an object's validateValue(); what has none takes everything.
bool askForValidation(QObject *object, QVariant *value, const QString &key, NSError *error)
{
    const int index =
        object->metaObject()->indexOfMethod("validateValue(QVariant*,QString,NSError*)");
    const QMetaMethod method = object->metaObject()->method(index);
    bool isValid = true;
    if (method.isValid() && method.returnMetaType() == QMetaType::fromType<bool>())
        method.invoke(object, Qt::DirectConnection, Q_RETURN_ARG(bool, isValid),
                      Q_ARG(QVariant *, value), Q_ARG(QString, key), Q_ARG(NSError *, error));
    return isValid;
}
} // namespace

bool NSKeyValueCoding::validateValue(const QVariant &receiver, QVariant *value,
                                     const KTText &forKeyPath, NSError *error)
{
    QVariant here = receiver;
    QString path = forKeyPath;
    for (qsizetype dot = path.indexOf(u'.'); dot >= 0; dot = path.indexOf(u'.')) {
        if (KeyValueTarget::ofVariant(here).answersKeyPaths())
            break;
        here = valueForKey(here, path.left(dot));
        path = path.mid(dot + 1);
    }
    const KeyValueTarget target = KeyValueTarget::ofVariant(here);
    NSError ignored;
    return target.kind != KeyValueTarget::Kind::Object ||
           askForValidation(target.object(), value, path, error ? error : &ignored);
}
