#include "Invoker.h"

#include "ValueConversion_p.h"
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QMetaProperty>

#include <algorithm>
#include <cstring>

using namespace KTPrivate;

namespace {
bool isCallable(const QMetaMethod &method, const QByteArray &name)
{
    return method.name() == name &&
           (method.methodType() == QMetaMethod::Method || method.methodType() == QMetaMethod::Slot);
}

[[noreturn]] void raiseAmbiguous(const QMetaObject *metaObject, const QMetaMethod &one,
                                 const QMetaMethod &other)
{
    NSException::raise(NSInvalidArgumentException,
                       NSString::stringWithFormat(
                           u"%s: the selector fits both %@ and %@", metaObject->className(),
                           one.methodSignature().constData(), other.methodSignature().constData()));
}

/// The callable method of this name and number of parameters in the most derived class that has
/// one; an invalid one if there is none.
QMetaMethod findMethod(const QMetaObject *metaObject, const QByteArray &name, int parameterCount)
{
    for (const QMetaObject *level = metaObject; level; level = level->superClass()) {
        QMetaMethod found;
        for (int index = level->methodOffset(); index < level->methodCount(); ++index) {
            const QMetaMethod method = level->method(index);
            if (!isCallable(method, name) || method.parameterCount() != parameterCount)
                continue;
            if (found.isValid())
                raiseAmbiguous(level, found, method);
            found = method;
        }
        if (found.isValid())
            return found;
    }
    return {};
}
} // namespace

Invoker::Invoker(const NSSelector &selector, std::initializer_list<QVariant> arguments)
    : _selector(selector), _argumentCount(std::min(int(arguments.size()), MaximumArguments))
{
    std::copy_n(arguments.begin(), _argumentCount, _arguments.begin());
}

bool Invoker::respondsTo(const KeyValueTarget &receiver, const NSSelector &selector)
{
    return respondsTo(receiver, selector, MaximumArguments);
}

bool Invoker::respondsTo(const KeyValueTarget &receiver, const NSSelector &selector, int arguments)
{
    Invoker invoker(selector, {QVariant(), QVariant(), QVariant()});
    invoker._argumentCount = std::min(arguments, MaximumArguments);
    return invoker.resolve(receiver);
}

void Invoker::setArgument(int index, const QVariant &value)
{
    _arguments[size_t(index)] = value;
    if (index < _parameterCount)
        prepareArgument(index);
}

/// Converts an argument once for all receivers of a class.
void Invoker::prepareArgument(int index)
{
    const QVariant &argument = _arguments[size_t(index)];
    const QMetaType type = _parameterTypes[size_t(index)];
    QVariant &converted = _converted[size_t(index)];
    converted = argument;
    if (type.id() == QMetaType::QVariant || argument.metaType() == type)
        return;
    converted = argument.isValid() ? convertedValue(argument, type).value_or(QVariant(type))
                                   : QVariant(type);
}

void Invoker::useMethod(const QMetaMethod &method)
{
    _call = QMetaObject::InvokeMetaMethod;
    _declaringClass = method.enclosingMetaObject();
    _index = method.relativeMethodIndex();
    _returnType = method.returnMetaType();
    _parameterCount = method.parameterCount();
    for (int index = 0; index < _parameterCount; ++index) {
        _parameterTypes[size_t(index)] = method.parameterMetaType(index);
        prepareArgument(index);
    }
}

void Invoker::resolveMethod(const QMetaObject *metaObject)
{
    if (_selector.colons() > _argumentCount)
        return;
    QMetaMethod method = findMethod(metaObject, _selector.name(), _selector.colons());
    for (int count = _argumentCount; !method.isValid() && _selector.colons() == 0 && count > 0;
         --count)
        method = findMethod(metaObject, _selector.name(), count);
    if (method.isValid())
        useMethod(method);
}

void Invoker::resolveProperty(const QMetaObject *metaObject)
{
    const int index = metaObject->indexOfProperty(_selector.name().constData());
    if (_selector.colons() > 0 || index < 0 || !metaObject->property(index).isReadable())
        return;
    const QMetaProperty property = metaObject->property(index);
    _call = QMetaObject::ReadProperty;
    _declaringClass = property.enclosingMetaObject();
    _index = property.relativePropertyIndex();
    _returnType = property.metaType();
    _parameterCount = 0;
}

/// Those of 64 bits are none that a condition can have.
Invoker::Returns Invoker::returnsOfEnumeration(QMetaType type)
{
    if (!(type.flags() & QMetaType::IsEnumeration))
        return Returns::Other;
    switch (type.sizeOf()) {
    case 1:
        return Returns::Bits8;
    case 2:
        return Returns::Bits16;
    case 4:
        return Returns::Bits32;
    default:
        return Returns::Other;
    }
}

/// Finds the method in the receiver's class, unless it is the class of the last receiver.
/// \return whether there is one.
bool Invoker::resolve(const KeyValueTarget &receiver)
{
    if (!receiver.metaObject || receiver.metaObject == _metaObject)
        return receiver.metaObject && _declaringClass;
    _metaObject = receiver.metaObject;
    _declaringClass = nullptr;
    _parameterCount = 0;
    resolveMethod(receiver.metaObject);
    if (!_declaringClass)
        resolveProperty(receiver.metaObject);
    switch (_returnType.id()) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        _returns = Returns::Bits8;
        break;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char16:
    case QMetaType::QChar:
        _returns = Returns::Bits16;
        break;
    case QMetaType::Int:
    case QMetaType::UInt:
        _returns = Returns::Bits32;
        break;
    default:
        _returns = returnsOfEnumeration(_returnType);
    }
    return _declaringClass;
}

/// Calls the resolved method with \a storage for its result.
/// \return where the result is: the storage, or elsewhere if a getter returns a pointer to it.
const void *Invoker::call(const KeyValueTarget &receiver, void *storage)
{
    // A property takes a status at the third place; a method its arguments from the second on.
    int status = -1;
    void *arguments[1 + MaximumArguments] = {storage, nullptr, &status};
    for (int index = 0; index < _parameterCount; ++index) {
        QVariant &converted = _converted[size_t(index)];
        const bool isVariant = _parameterTypes[size_t(index)].id() == QMetaType::QVariant;
        arguments[index + 1] = isVariant ? &converted : converted.data();
    }
    if (_declaringClass->d.static_metacall) {
        _declaringClass->d.static_metacall(receiver.object(), _call, _index, arguments);
    } else {
        const int offset = _call == QMetaObject::ReadProperty ? _declaringClass->propertyOffset()
                                                              : _declaringClass->methodOffset();
        QMetaObject::metacall(receiver.object(), _call, _index + offset, arguments);
    }
    return arguments[0];
}

bool Invoker::isTrue(const KeyValueTarget &receiver)
{
    if (!resolve(receiver) || _returns == Returns::Other)
        return false;
    alignas(quint32) std::array<char, 4> storage{};
    const void *result = call(receiver, storage.data());
    quint32 bits = 0;
    std::memcpy(&bits, result,
                _returns == Returns::Bits8    ? 1
                : _returns == Returns::Bits16 ? 2
                                              : 4);
    return bits != 0;
}

QVariant Invoker::perform(const KeyValueTarget &receiver)
{
    if (receiver.kind == KeyValueTarget::Kind::Nil)
        return {};
    if (!resolve(receiver))
        raiseUnrecognized(receiver);
    const bool isVoid = _returnType.id() == QMetaType::Void || !_returnType.isValid();
    const bool isVariant = _returnType.id() == QMetaType::QVariant;
    QVariant result = isVoid || isVariant ? QVariant() : QVariant(_returnType);
    void *const storage = isVoid ? nullptr : isVariant ? &result : result.data();
    const void *const place = call(receiver, storage);
    if (place != storage)
        result = QVariant(_returnType, place);
    return NSObject::isNil(result) ? QVariant() : result;
}

void Invoker::raiseUnrecognized(const KeyValueTarget &receiver) const
{
    NSException::raise(
        NSInvalidArgumentException,
        NSString::stringWithFormat(u"-[%@ %@]: unrecognized selector sent to instance",
                                   receiver.description(), _selector.text()));
}
