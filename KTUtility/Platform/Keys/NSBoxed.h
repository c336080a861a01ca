#pragma once

#include <QAnyStringView>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

#include <concepts>
#include <memory>
#include <optional>
#include <type_traits>

namespace NSDetail {
template<typename T>
struct HasNil : std::bool_constant<std::is_pointer_v<T>>
{
};
template<>
struct HasNil<QVariant> : std::true_type
{
};
template<>
struct HasNil<QString> : std::true_type
{
};
template<typename T>
struct HasNil<QPointer<T>> : std::true_type
{
};
template<typename T>
struct HasNil<QSharedPointer<T>> : std::true_type
{
};
template<typename T>
struct HasNil<std::shared_ptr<T>> : std::true_type
{
};

template<typename T>
struct IsOptional : std::false_type
{
};
template<typename T>
struct IsOptional<std::optional<T>> : std::true_type
{
};

/// Numbers, characters and enumerators. Some of them could become texts or wider numbers; they keep
/// their type.
template<typename T>
concept Scalar = std::is_enum_v<T> || std::is_arithmetic_v<T>;

/// Texts of other types than QString: literals, views, standard strings.
template<typename T>
concept ForeignText = !Scalar<T> && !std::convertible_to<const T &, QVariant> &&
                      std::convertible_to<const T &, QAnyStringView>;

/// What becomes a QString only: a concatenation that is still to be made.
template<typename T>
concept UnfinishedText = !Scalar<T> && !std::convertible_to<const T &, QVariant> &&
                         std::convertible_to<const T &, QString>;

inline QVariant boxedText(QAnyStringView text)
{
    return text.isNull() ? QVariant() : QVariant(text.toString());
}

template<typename T>
QVariant boxedPointer(T *pointer)
{
    using Pointer = std::remove_const_t<T> *;
    return pointer ? QVariant::fromValue(const_cast<Pointer>(pointer)) : QVariant();
}
} // namespace NSDetail

/// An element or nil: T itself where it has a nil of its own (pointers, QVariant, QString), else
/// std::optional<T>.
template<typename T>
using NSNullable = std::conditional_t<NSDetail::HasNil<T>::value, T, std::optional<T>>;

/// Anything as a variant: numbers, texts and views of texts, pointers (plain, smart and guarded),
/// enumerations, gadgets, optional values. Null texts, null pointers and empty optionals become
/// nil.
///
/// \code
/// NSBoxed(field)                      // a Field *, or nil
/// NSBoxed(u"Price")                   // a QString
/// NSBoxed(std::optional<int>())       // nil
/// \endcode
template<typename T>
QVariant NSBoxed(const T &value)
{
    if constexpr (std::same_as<T, QVariant>)
        return value;
    else if constexpr (std::same_as<T, QString>)
        return value.isNull() ? QVariant() : QVariant(value);
    else if constexpr (NSDetail::IsOptional<T>::value)
        return value ? NSBoxed(*value) : QVariant();
    else if constexpr (NSDetail::ForeignText<T>)
        return NSDetail::boxedText(value);
    else if constexpr (requires { value.data(); } && NSDetail::HasNil<T>::value)
        return NSDetail::boxedPointer(value.data());
    else if constexpr (requires { value.get(); } && NSDetail::HasNil<T>::value)
        return NSDetail::boxedPointer(value.get());
    else if constexpr (std::is_pointer_v<T> && !std::convertible_to<const T &, QVariant>)
        return NSDetail::boxedPointer(value);
    else if constexpr (!NSDetail::Scalar<T> && std::convertible_to<const T &, QVariant>)
        return QVariant(value);
    else if constexpr (NSDetail::UnfinishedText<T>)
        return NSBoxed(QString(value));
    else
        return QVariant::fromValue(value);
}
