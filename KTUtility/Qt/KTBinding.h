#pragma once

#include "KTArrayColumn.h"
#include "KTObservation.h"
#include "MemberProperty.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KTText.h>
#include <KTUtility/Platform/Keys/NSKeyValueObservation.h>

#include <QObject>
#include <QPointer>
#include <QProperty>
#include <QScopeGuard>

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

/// Owns a binding by KT::bind(): ends it when it goes.
class KTUTILITY_EXPORT KTBinding
{
public:
    /// What belongs to a binding, and whether it still works.
    class Parts;

    /// A binding of nothing.
    KTBinding();
    explicit KTBinding(std::shared_ptr<Parts> parts);
    ~KTBinding();
    /// Takes over the binding of \a other.
    KTBinding(KTBinding &&other) noexcept;
    /// Ends its own binding and takes over that of \a other.
    KTBinding &operator=(KTBinding &&other) noexcept;

    /// Whether something is bound: not after one of the objects was destroyed.
    bool isActive() const;
    /// Ends it; the values stay as they are.
    void invalidate();

private:
    std::shared_ptr<Parts> _parts;
};

/// What a kind of binding derives its machinery from.
class KTUTILITY_EXPORT KTBinding::Parts
{
public:
    virtual ~Parts();
    /// Whether both sides are there.
    virtual bool isActive() const = 0;
    /// Ends it; a change may be on its way.
    virtual void end() = 0;
};

namespace KTPrivate {
/// What can take a value of another type without loss: the same type, a QVariant, or what it
/// converts to. A QVariant is looked into when it is passed.
template<typename From, typename To>
concept Passable = std::same_as<From, To> || std::same_as<To, QVariant> ||
    std::same_as<From, QVariant> ||
    (std::is_arithmetic_v<From> &&std::is_arithmetic_v<To> ? requires(From value) { To{value}; }
                                                           : std::convertible_to<From, To>);

template<typename To, typename From>
To passed(const From &value)
{
    if constexpr (std::same_as<From, To>)
        return value;
    else if constexpr (std::same_as<To, QVariant>)
        return NSBoxed(value);
    else if constexpr (std::same_as<From, QVariant>)
        return unboxed<To>(value);
    else
        return static_cast<To>(value);
}

/// A member function that takes a value.
template<typename S, typename C, typename V>
concept SetterOf = std::invocable<S, C &, const V &> && std::is_member_function_pointer_v<S>;

/// Two values that follow each other.
template<typename A, typename B>
class TwoWays : public KTBinding::Parts, public std::enable_shared_from_this<TwoWays<A, B>>
{
public:
    using Parts = KTBinding::Parts;

    template<typename AObject, typename AGetter, typename BObject, typename BGetter>
    void begin(AObject *a, AGetter getA, std::function<void(const A &)> setA, BObject *b,
               BGetter getB, std::function<void(const B &)> setB)
    {
        _a = a;
        _b = b;
        _readA = [a, getA] { return A(readFrom(getA, *a)); };
        _setA = std::move(setA);
        _setB = std::move(setB);
        const std::weak_ptr<TwoWays> self = this->weak_from_this();
        _ofB = KT::observe(b, getB, [self](const B &, const B &now) {
            if (const auto binding = self.lock())
                binding->passToA(now);
        });
        passToA(readFrom(getB, *b));
        _ofA = KT::observe(a, getA, [self](const A &, const A &now) {
            if (const auto binding = self.lock())
                binding->passToB(now);
        });
    }
    bool isActive() const override { return _ofA.isActive() && _ofB.isActive(); }
    void end() override
    {
        _ofA.invalidate();
        _ofB.invalidate();
    }

private:
    /// What the object makes of the value is not passed back.
    void passToA(const B &value)
    {
        if (!_a)
            return;
        const A now = passed<A>(value);
        if (isSameValue(now, _readA()))
            return;
        const bool wasPassing = std::exchange(_isPassing, true);
        const auto leaving = qScopeGuard([&] { _isPassing = wasPassing; });
        _setA(now);
    }
    void passToB(const A &value)
    {
        if (!_isPassing && _b)
            _setB(passed<B>(value));
    }

    QPointer<QObject> _a;
    QPointer<QObject> _b;
    std::function<A()> _readA;
    std::function<void(const A &)> _setA;
    std::function<void(const B &)> _setB;
    KTObservation _ofA;
    KTObservation _ofB;
    bool _isPassing = false;
};

/// A value that follows another.
class KTUTILITY_EXPORT OneWay : public KTBinding::Parts
{
public:
    OneWay(KTObservation observation, QObject *target);
    bool isActive() const override;
    void end() override;

private:
    KTObservation _observation;
    QPointer<QObject> _target;
};

/// The value of a key path, handed to a QProperty, and back. What is raised is logged.
class KTUTILITY_EXPORT PathLink : public KTBinding::Parts,
                                  public std::enable_shared_from_this<PathLink>
{
public:
    using Taken = std::function<void(const QVariant &value)>;

    /// \param taken is given the value now, and whenever it changes.
    void begin(QObject *object, const QString &keyPath, Taken taken);
    /// Sets the value of the key path, unless it comes from there.
    void set(const QVariant &value);
    bool isActive() const override;
    void end() override;

    QPropertyNotifier notifier;

private:
    void take(const QVariant &value);

    QPointer<QObject> _object;
    QString _keyPath;
    Taken _taken;
    NSKeyValueObservation _observation;
    bool _isPassing = false;
};

template<auto Getter, typename C>
std::function<void(const ValueOfMember<Getter> &)> setterOfProperty(C *object)
{
    using Value = ValueOfMember<Getter>;
    const QMetaProperty property =
        propertyOfGetter(object->metaObject(), memberName<Getter>(), QMetaType::fromType<Value>());
    return [object, property](const Value &value) {
        property.write(object, QVariant::fromValue(value));
    };
}

template<typename S, typename C>
auto setterOf(C *object, S setter)
{
    return [object, setter](const auto &value) { std::invoke(setter, *object, value); };
}
} // namespace KTPrivate

namespace KT {
/// Binds two values to each other, for as long as the result lives and both objects do: the first
/// has the value of the second at once, then each follows the other. A misspelt name, or types that
/// do not fit, do not compile.
///
/// Changes are seen as observe() sees them. What the first object makes of a value that it is given,
/// such as rounding it, is not passed back. A QVariant takes each type; if it holds what the other
/// side does not take, that is logged, and the other side stays as it is. For the main thread.
///
/// \code
/// _binding = KT::bind(amountBox, &QDoubleSpinBox::value, &QDoubleSpinBox::setValue,
///                     record, &Record::amount, &Record::setAmount);
/// \endcode
/// \throws NSException if the first value cannot be passed.
template<std::derived_from<QObject> A, KTPrivate::ReadableOf<A> AGetter, typename ASetter,
         std::derived_from<QObject> B, KTPrivate::ReadableOf<B> BGetter, typename BSetter>
    requires KTPrivate::SetterOf<ASetter, A, KTPrivate::ReadValue<AGetter>> &&
        KTPrivate::SetterOf<BSetter, B, KTPrivate::ReadValue<BGetter>> &&
        KTPrivate::Passable<KTPrivate::ReadValue<AGetter>, KTPrivate::ReadValue<BGetter>> &&
        KTPrivate::Passable<KTPrivate::ReadValue<BGetter>, KTPrivate::ReadValue<AGetter>>
[[nodiscard]] KTBinding bind(A *first, AGetter getter, ASetter setter, B *second,
                             BGetter secondGetter, BSetter secondSetter)
{
    const auto parts = std::make_shared<
        KTPrivate::TwoWays<KTPrivate::ReadValue<AGetter>, KTPrivate::ReadValue<BGetter>>>();
    if (first && second)
        parts->begin(first, getter, KTPrivate::setterOf(first, setter), second, secondGetter,
                     KTPrivate::setterOf(second, secondSetter));
    return KTBinding(parts);
}

/// The same for properties, which know their setters: by their getters, whose names are those of the
/// properties, also behind "is" or "get".
/// \code
/// _binding = KT::bind<&KTFormatterEdit::value, &Record::amount>(edit, record);
/// \endcode
/// \throws NSException NSUndefinedKeyException if a class has no such property, or it cannot be set.
template<auto First, auto Second, std::derived_from<KTPrivate::ClassOfMember<First>> A,
         std::derived_from<KTPrivate::ClassOfMember<Second>> B>
    requires KTPrivate::Passable<KTPrivate::ValueOfMember<First>,
                                 KTPrivate::ValueOfMember<Second>> &&
        KTPrivate::Passable<KTPrivate::ValueOfMember<Second>, KTPrivate::ValueOfMember<First>>
[[nodiscard]] KTBinding bind(A *first, B *second)
{
    const auto parts = std::make_shared<
        KTPrivate::TwoWays<KTPrivate::ValueOfMember<First>, KTPrivate::ValueOfMember<Second>>>();
    if (first && second)
        parts->begin(first, First, KTPrivate::setterOfProperty<First>(first), second, Second,
                     KTPrivate::setterOfProperty<Second>(second));
    return KTBinding(parts);
}

/// Has a setter called with what a getter, a data member or a lambda gives of another object, now
/// and whenever that has changed.
/// \code
/// _shown = KT::bind(label, &QLabel::setText, record, &Record::title);
/// \endcode
template<std::derived_from<QObject> A, typename ASetter, std::derived_from<QObject> B,
         KTPrivate::ReadableOf<B> BGetter>
    requires KTPrivate::SetterOf<ASetter, A, KTPrivate::ReadValue<BGetter>>
[[nodiscard]] KTBinding bind(A *target, ASetter setter, B *source, BGetter getter)
{
    using Value = KTPrivate::ReadValue<BGetter>;
    if (!target || !source)
        return {};
    std::invoke(setter, *target, Value(KTPrivate::readFrom(getter, *source)));
    return KTBinding(std::make_shared<KTPrivate::OneWay>(
        observe(source, getter,
                [guarded = QPointer<A>(target), setter](const Value &, const Value &now) {
                    if (guarded)
                        std::invoke(setter, *guarded, now);
                }),
        target));
}

/// A getter does not say how the value is set: give the setters, too, or bind properties by
/// bind<&Edit::value, &Record::amount>(edit, record).
template<std::derived_from<QObject> A, KTPrivate::ReadableOf<A> AGetter,
         std::derived_from<QObject> B, KTPrivate::ReadableOf<B> BGetter>
KTBinding bind(A *first, AGetter getter, B *second, BGetter secondGetter) = delete;

/// Binds a QProperty to a key path of an object, for as long as the result lives and the object
/// does: it has the value of the key path at once, then each follows the other. Where the key path
/// has a value that the type cannot hold, such as a marker while nothing is selected, the property
/// stays as it is, and the log tells it.
/// \code
/// QProperty<int> count;
/// const KTBinding binding = KT::bind(&count, &controller, u"selection.count");
/// \endcode
/// \param property lives longer than the result.
/// \throws NSException NSUndefinedKeyException if an object on the path lacks its key.
template<typename T>
[[nodiscard]] KTBinding bind(QProperty<T> *property, QObject *object, const KTText &keyPath)
{
    const auto link = std::make_shared<KTPrivate::PathLink>();
    link->begin(object, keyPath, [property](const QVariant &value) {
        // A value that is set ends what the property is bound to by itself.
        if (const T now = KTPrivate::unboxed<T>(value);
            !KTPrivate::isSameValue(now, property->value()))
            property->setValue(now);
    });
    link->notifier = property->addNotifier([property, weak = std::weak_ptr(link)] {
        if (const auto kept = weak.lock())
            kept->set(NSBoxed(property->value()));
    });
    return KTBinding(link);
}
} // namespace KT
