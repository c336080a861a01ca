#pragma once

#include "KeyValueTarget.h"
#include "NSBoxed.h"
#include "SharedFunction.h"

#include <functional>
#include <type_traits>

namespace KTPrivate {
template<typename T>
struct FirstArgument;
template<typename R, typename C, typename A>
struct FirstArgument<R (C::*)(A) const>
{
    using Type = A;
};
template<typename R, typename C, typename A>
struct FirstArgument<R (C::*)(A) const noexcept> : FirstArgument<R (C::*)(A) const>
{
};
template<typename R, typename A>
struct FirstArgument<R (*)(A)>
{
    using Type = A;
};

/// The class of the objects that a getter, a data member, or a function of one object is for.
template<typename T>
struct ReadClass
{
    using Type = std::remove_cvref_t<std::remove_pointer_t<
        std::remove_cvref_t<typename FirstArgument<decltype(&T::operator())>::Type>>>;
};
template<typename M, typename C>
struct ReadClass<M C::*>
{
    using Type = C;
};
template<typename R, typename A>
struct ReadClass<R (*)(A)>
{
    using Type = std::remove_cvref_t<std::remove_pointer_t<std::remove_cvref_t<A>>>;
};

/// What can be asked of an object without a key: a pointer to a getter or data member, or a function
/// of one object, as a reference or pointer.
template<typename T>
concept Readable = std::is_class_v<typename ReadClass<T>::Type> &&
    (std::is_invocable_v<const T &, typename ReadClass<T>::Type &> ||
     std::is_invocable_v<const T &, typename ReadClass<T>::Type *>);

template<Readable T>
decltype(auto) readFrom(const T &member, typename ReadClass<T>::Type &object)
{
    if constexpr (std::is_invocable_v<const T &, typename ReadClass<T>::Type &>)
        return std::invoke(member, object);
    else
        return std::invoke(member, &object);
}

/// What a member gives.
template<Readable T>
using ReadValue = std::remove_cvref_t<decltype(readFrom(
    std::declval<const T &>(), std::declval<typename ReadClass<T>::Type &>()))>;

/// What a target refers to as an object of a class; null if it is none.
template<typename C>
C *objectAs(const KeyValueTarget &target)
{
    if (target.kind == KeyValueTarget::Kind::Object)
        return dynamic_cast<C *>(target.object());
    if constexpr (Gadget<C>) {
        if (target.kind == KeyValueTarget::Kind::Gadget && target.metaObject &&
            target.metaObject->inherits(&C::staticMetaObject))
            return const_cast<C *>(static_cast<const C *>(target.instance));
    }
    return nullptr;
}

/// Reads something of objects, as a variant.
using MemberReader = SharedFunction<QVariant(const KeyValueTarget &target)>;

/// Reads a member; objects of other classes give nil.
template<Readable T>
MemberReader readerOf(T member)
{
    return [member](const KeyValueTarget &target) {
        auto *const object = objectAs<typename ReadClass<T>::Type>(target);
        return object ? NSBoxed(ReadValue<T>(readFrom(member, *object))) : QVariant();
    };
}
} // namespace KTPrivate
