#pragma once

#include "KeyValueTarget.h"
#include "NSSelector.h"
#include <KTUtility/KTUtilityExport.h>

#include <QMetaMethod>
#include <QVariant>

#include <array>

namespace KTPrivate {
/// Calls one method, named by a selector, on many objects fast.
///
/// The method is looked up once for each class and then called directly. Methods are the invokable
/// methods and slots of QObjects and gadgets, and readable properties for selectors without
/// parameters. Arguments are converted to the parameters' types, numbers as the platform converts
/// them (without their fractions); nil and what has no such type become the type's default.
/// Make one for each pass over a collection and throw it away.
///
/// \code
/// Invoker isBiggerThan("isBiggerThan:", {QVariant(10)});
/// for (Field *field : fields) {
///     if (isBiggerThan.isTrue(KeyValueTarget::of(field)))
///         …
/// }
/// \endcode
class KTUTILITY_EXPORT Invoker
{
public:
    /// At most this many arguments are passed.
    static constexpr int MaximumArguments = 3;

    /// \param arguments what is passed to the method's parameters, from the first on; what it has
    /// no parameter for is not passed.
    Invoker(const NSSelector &selector, std::initializer_list<QVariant> arguments);

    /// Whether a receiver has the method of a selector; not for nil.
    /// \throws NSException NSInvalidArgumentException if two overloads fit.
    static bool respondsTo(const KeyValueTarget &receiver, const NSSelector &selector);

    /// The same for a method that will be called with so many arguments.
    static bool respondsTo(const KeyValueTarget &receiver, const NSSelector &selector,
                           int arguments);

    /// Whether a receiver has the method; not for nil.
    /// \throws NSException NSInvalidArgumentException if two overloads fit.
    bool respondsTo(const KeyValueTarget &receiver) { return resolve(receiver); }

    /// Replaces an argument.
    void setArgument(int index, const QVariant &value);

    /// Calls the method if it returns a truth value or an integer, and tests the result: as 8 bits
    /// for bool and char, 16 for short, 32 for int and enumerations. Methods that return anything
    /// else are not called.
    /// \return false also for nil and for objects that have no such method.
    /// \throws NSException NSInvalidArgumentException if two overloads fit.
    bool isTrue(const KeyValueTarget &receiver);

    /// Calls the method.
    /// \return its result; nil for nil, for methods that return nothing, and for null texts.
    /// \throws NSException NSInvalidArgumentException if the receiver has no such method or two
    /// overloads fit.
    QVariant perform(const KeyValueTarget &receiver);

private:
    enum class Returns : quint8 { Other, Bits8, Bits16, Bits32 };
    static Returns returnsOfEnumeration(QMetaType type);

    bool resolve(const KeyValueTarget &receiver);
    void resolveMethod(const QMetaObject *metaObject);
    void resolveProperty(const QMetaObject *metaObject);
    void useMethod(const QMetaMethod &method);
    void prepareArgument(int index);
    const void *call(const KeyValueTarget &receiver, void *storage);
    [[noreturn]] void raiseUnrecognized(const KeyValueTarget &receiver) const;

    NSSelector _selector;
    std::array<QVariant, MaximumArguments> _arguments;
    int _argumentCount = 0;

    // What is known of the class of the last receiver.
    const QMetaObject *_metaObject = nullptr;
    const QMetaObject *_declaringClass = nullptr;
    QMetaObject::Call _call = QMetaObject::InvokeMetaMethod;
    int _index = -1;
    Returns _returns = Returns::Other;
    QMetaType _returnType;
    int _parameterCount = 0;
    std::array<QMetaType, MaximumArguments> _parameterTypes;
    std::array<QVariant, MaximumArguments> _converted;
};
} // namespace KTPrivate
