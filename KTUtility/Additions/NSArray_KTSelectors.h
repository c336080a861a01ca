#pragma once

#include <KTUtility/Platform/Keys/Invoker.h>
#include <KTUtility/Platform/Keys/KTValue.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Keys/NSCollections.h>
#include <KTUtility/Platform/Keys/NSSelector.h>

#include <QList>
#include <QVariant>

#include <concepts>
#include <functional>
#include <type_traits>

/// Filters and maps over lists, by the name of a method or by a callable.
///
/// With a selector, the method is looked up once for each class and called directly. As conditions
/// only methods count that return a truth value or an integer of 8, 16 or 32 bits; elements without
/// such a method are left out. With a callable (a lambda, a function, a pointer to a member), the
/// compiler checks everything, and nothing is boxed.
///
/// \code
/// KTAdditions::objectsSatisfyingCondition(fields, "isVisible");
/// KTAdditions::objectsSatisfyingCondition(fields, "isBiggerThan:", 10);
/// KTAdditions::objectsSatisfyingCondition(fields, "accepts:in:", owner, record);    // owner decides
/// KTAdditions::objectsSatisfyingCondition(fields, [](const Field *f) { return f->size() > 10; });
/// KTAdditions::arrayByPerformingSelector(fields, &Field::name);    // QList<QString>
/// \endcode
namespace KTAdditions {
/// What may be passed where a condition over T is asked.
template<typename F, typename T>
concept ConditionOver = !std::convertible_to<F, NSSelector> && std::predicate<F, const T &>;

/// What may be passed where a function of T is asked.
template<typename F, typename T>
concept FunctionOver = !std::convertible_to<F, NSSelector> && std::invocable<F, const T &>;

/// The elements whose method \a selector, called with \a withObject, returns something other than
/// 0; in order.
/// \throws NSException NSInvalidArgumentException if two overloads of the method fit.
template<KTPrivate::KeyValueCodable T>
QList<T> objectsSatisfyingCondition(const QList<T> &list, const NSSelector &selector,
                                    const KTValue &withObject = {})
{
    QList<T> result;
    KTPrivate::Invoker condition(selector, {withObject.variant()});
    for (const T &element : list) {
        if (condition.isTrue(KTPrivate::KeyValueTargets::target(element)))
            result += element;
    }
    return result;
}

/// The elements for which \a onTarget's method \a selector, called with the element and
/// \a withContext, returns something other than 0; in order.
/// \throws NSException NSInvalidArgumentException if two overloads of the method fit.
template<typename T, KTPrivate::KeyValueCodable Target>
QList<T> objectsSatisfyingCondition(const QList<T> &list, const NSSelector &selector,
                                    const Target &onTarget, const KTValue &withContext)
{
    QList<T> result;
    KTPrivate::Invoker condition(selector, {QVariant(), withContext.variant()});
    const KTPrivate::KeyValueTarget target = KTPrivate::KeyValueTargets::target(onTarget);
    for (const T &element : list) {
        condition.setArgument(0, NSBoxed(element));
        if (condition.isTrue(target))
            result += element;
    }
    return result;
}

/// The elements for which \a condition is true; in order.
template<typename T, ConditionOver<T> F>
QList<T> objectsSatisfyingCondition(const QList<T> &list, F &&condition)
{
    QList<T> result;
    for (const T &element : list) {
        if (std::invoke(condition, element))
            result += element;
    }
    return result;
}

/// The results of each element's method \a selector, called with \a withObject; nil results are
/// left out.
/// \throws NSException NSInvalidArgumentException if an element has no such method, or two
/// overloads of it fit.
template<KTPrivate::KeyValueCodable T>
QVariantList arrayByPerformingSelector(const QList<T> &list, const NSSelector &selector,
                                       const KTValue &withObject = {})
{
    QVariantList results;
    KTPrivate::Invoker method(selector, {withObject.variant()});
    for (const T &element : list) {
        const QVariant result = method.perform(KTPrivate::KeyValueTargets::target(element));
        if (result.isValid())
            results += result;
    }
    return results;
}

/// The results of \a onTarget's method \a selector, called with each element and \a withObject;
/// nil results are left out.
/// \throws NSException NSInvalidArgumentException if the target has no such method, or two
/// overloads of it fit.
template<typename T, KTPrivate::KeyValueCodable Target>
QVariantList arrayByPerformingSelector(const QList<T> &list, const NSSelector &selector,
                                       const Target &onTarget, const KTValue &withObject)
{
    QVariantList results;
    KTPrivate::Invoker method(selector, {QVariant(), withObject.variant()});
    const KTPrivate::KeyValueTarget target = KTPrivate::KeyValueTargets::target(onTarget);
    for (const T &element : list) {
        method.setArgument(0, NSBoxed(element));
        const QVariant result = method.perform(target);
        if (result.isValid())
            results += result;
    }
    return results;
}

/// The results of \a function for each element, as a typed list. Results that are nil (null
/// pointers, null texts, invalid variants) are left out.
template<typename T, FunctionOver<T> F>
auto arrayByPerformingSelector(const QList<T> &list, F &&function)
{
    using Result = std::remove_cvref_t<std::invoke_result_t<F, const T &>>;
    QList<Result> results;
    results.reserve(list.size());
    for (const T &element : list) {
        Result result = std::invoke(function, element);
        if constexpr (NSDetail::HasNil<Result>::value) {
            if (NSObject::isNil(NSBoxed(result)))
                continue;
        }
        results.append(std::move(result));
    }
    return results;
}

/// Calls \a onTarget's method \a selector with each element and \a withObject; results are ignored.
/// \throws NSException NSInvalidArgumentException if the target has no such method, or two
/// overloads of it fit.
template<typename T, KTPrivate::KeyValueCodable Target>
void performSelector(const QList<T> &list, const NSSelector &selector, const Target &onTarget,
                     const KTValue &withObject)
{
    KTPrivate::Invoker method(selector, {QVariant(), withObject.variant()});
    const KTPrivate::KeyValueTarget target = KTPrivate::KeyValueTargets::target(onTarget);
    for (const T &element : list) {
        method.setArgument(0, NSBoxed(element));
        method.perform(target);
    }
}
} // namespace KTAdditions
