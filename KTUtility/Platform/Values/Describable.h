#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QDebug>
#include <QMetaObject>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <chrono>
#include <concepts>
#include <iterator>
#include <ratio>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

class NSDecimalNumber;
class QObject;

// How a C++ value of any type becomes one that NSObject::description() knows, for formats: at compile
// time, so that a type of which nothing could be said is an error there and no surprise in a log.
namespace KTPrivate {
/// What a type looks like to a format, the first that fits.
enum class Shape {
    Unknown,
    Variant,
    Character,
    Number,
    Enumeration,
    Null,
    Core,      ///< one that every QVariant knows: QUrl, QDate, QSize
    View,      ///< a view or container of UTF-16 units
    Text,      ///< what becomes a QString by conversion
    Writer,    ///< what has toString()
    Bytes,     ///< text in UTF-8
    Wide,      ///< text of wchar_t
    Points,    ///< text of char32_t
    Describer, ///< what has description()
    Object,    ///< a pointer of any kind to a QObject
    Pointer,
    Owner, ///< a smart pointer to something else
    Optional,
    Path, ///< std::filesystem::path, and what looks like it
    Map,
    Range,
    Tuple,
    Duration,
    Instant,
    ErrorCode,
    Debugged, ///< what can be written to a QDebug, or has a meta-object
};

template<typename T>
concept ConvertsToObject = std::convertible_to<const T &, const QObject *>;

template<typename T>
concept HoldsObject = requires(const T &value)
{
    {
        value.get()
        } -> std::convertible_to<const QObject *>;
}
|| requires(const T &value)
{
    {
        value.data()
        } -> std::convertible_to<const QObject *>;
};

template<typename T>
concept WritesItself = std::is_class_v<T> && requires(const T &value)
{
    {
        value.toString()
        } -> std::same_as<QString>;
};

template<typename T>
concept DescribesItself = std::is_class_v<T> && requires(const T &value)
{
    {
        value.description()
        } -> std::convertible_to<QString>;
};

template<typename T>
concept OwnsValue = requires(const T &value)
{
    value.get();
    *value;
    requires std::is_pointer_v<std::remove_cvref_t<decltype(value.get())>>;
};

template<typename T>
concept MayLackValue = requires(const T &value)
{
    {
        value.has_value()
        } -> std::same_as<bool>;
    *value;
};

template<typename T>
concept LooksLikePath = requires(const T &value)
{
    {
        value.u16string()
        } -> std::same_as<std::u16string>;
};

template<typename T>
concept LooksLikeRange = requires(const T &value)
{
    std::begin(value) != std::end(value);
    *std::begin(value);
};

template<typename T>
concept HasKeys = requires
{
    typename T::key_type;
    typename T::mapped_type;
};

/// One value a key.
template<typename T>
concept LooksLikeMap = LooksLikeRange<T> && requires(T &map, const typename T::key_type &key)
{
    typename T::mapped_type;
    map[key];
};

template<typename T>
concept LooksLikeTuple = requires
{
    std::tuple_size<T>::value;
};

template<typename T>
concept LooksLikeDuration = requires
{
    typename T::rep;
    typename T::period;
    requires std::same_as<T, std::chrono::duration<typename T::rep, typename T::period>>;
};

template<typename T>
concept LooksLikeInstant = requires
{
    requires std::same_as<typename T::clock, std::chrono::system_clock>;
    requires std::same_as<T, std::chrono::time_point<typename T::clock, typename T::duration>>;
};

template<typename T>
concept LooksLikeErrorCode = requires(const T &value)
{
    {
        value.message()
        } -> std::same_as<std::string>;
    {
        value.category().name()
        } -> std::convertible_to<const char *>;
};

template<typename T>
concept WrittenToDebug = QTypeTraits::has_ostream_operator_v<QDebug, T>;

template<typename T>
concept HasMetaObject = std::copy_constructible<T> && requires
{
    {
        &T::staticMetaObject
        } -> std::convertible_to<const QMetaObject *>;
};

/// The shape of what is no class: numbers, characters, pointers.
template<typename T>
constexpr Shape shapeOfScalar()
{
    using Pointee = std::remove_cv_t<std::remove_pointer_t<T>>;
    if constexpr (std::same_as<T, std::nullptr_t>)
        return Shape::Null;
    else if constexpr (std::same_as<T, char> || std::same_as<T, char8_t> ||
                       std::same_as<T, wchar_t>)
        return Shape::Character;
    else if constexpr (std::is_arithmetic_v<T>)
        return Shape::Number;
    else if constexpr (std::is_enum_v<T>)
        return Shape::Enumeration;
    else if constexpr (!std::is_pointer_v<T> || std::is_function_v<Pointee>)
        return Shape::Unknown;
    else if constexpr (std::same_as<Pointee, char> || std::same_as<Pointee, char8_t>)
        return Shape::Bytes;
    else if constexpr (std::same_as<Pointee, char16_t>)
        return Shape::View;
    else if constexpr (std::same_as<Pointee, wchar_t>)
        return Shape::Wide;
    else if constexpr (std::same_as<Pointee, char32_t>)
        return Shape::Points;
    else
        return ConvertsToObject<T> ? Shape::Object : Shape::Pointer;
}

/// The shape of a class that is a text in one way or another.
template<typename T>
constexpr Shape shapeOfText()
{
    if constexpr (std::convertible_to<const T &, QStringView>)
        return Shape::View;
    else if constexpr (WritesItself<T>)
        return Shape::Writer;
    else if constexpr (std::convertible_to<const T &, std::string_view> ||
                       std::convertible_to<const T &, std::u8string_view>)
        return Shape::Bytes;
    else if constexpr (std::convertible_to<const T &, QString>)
        return Shape::Text;
    else if constexpr (std::convertible_to<const T &, std::wstring_view>)
        return Shape::Wide;
    else if constexpr (std::convertible_to<const T &, std::u32string_view>)
        return Shape::Points;
    else
        return Shape::Unknown;
}

/// The shape of a class that holds other values.
template<typename T>
constexpr Shape shapeOfHolder()
{
    if constexpr (ConvertsToObject<T> || HoldsObject<T>)
        return Shape::Object;
    else if constexpr (OwnsValue<T>)
        return Shape::Owner;
    else if constexpr (MayLackValue<T>)
        return Shape::Optional;
    else if constexpr (LooksLikePath<T>)
        return Shape::Path;
    else if constexpr (LooksLikeMap<T>)
        return Shape::Map;
    else if constexpr (LooksLikeRange<T> && !HasKeys<T>)
        return Shape::Range;
    else if constexpr (LooksLikeTuple<T>)
        return Shape::Tuple;
    else
        return Shape::Unknown;
}

template<typename T>
constexpr Shape shapeOfOtherClass()
{
    if constexpr (LooksLikeDuration<T>)
        return Shape::Duration;
    else if constexpr (LooksLikeInstant<T>)
        return Shape::Instant;
    else if constexpr (LooksLikeErrorCode<T>)
        return Shape::ErrorCode;
    else
        return WrittenToDebug<T> || HasMetaObject<T> ? Shape::Debugged : Shape::Unknown;
}

template<typename T>
constexpr Shape shapeOfClass()
{
    if constexpr (std::same_as<T, QVariant>)
        return Shape::Variant;
    else if constexpr (QMetaTypeId2<T>::IsBuiltIn || std::same_as<T, NSDecimalNumber>)
        return Shape::Core;
    else if constexpr (shapeOfText<T>() != Shape::Unknown)
        return shapeOfText<T>();
    else if constexpr (DescribesItself<T>)
        return Shape::Describer;
    else if constexpr (shapeOfHolder<T>() != Shape::Unknown)
        return shapeOfHolder<T>();
    else
        return shapeOfOtherClass<T>();
}

template<typename T>
constexpr Shape shapeOf()
{
    if constexpr (std::is_array_v<T>)
        return shapeOf<std::decay_t<T>>() == Shape::Pointer ? Shape::Range
                                                            : shapeOf<std::decay_t<T>>();
    else if constexpr (std::is_class_v<T> || std::is_union_v<T>)
        return shapeOfClass<T>();
    else
        return shapeOfScalar<T>();
}

template<typename T>
using ElementOf = std::remove_cvref_t<decltype(*std::begin(std::declval<const T &>()))>;

template<typename T>
using ValueIn = std::remove_cvref_t<decltype(*std::declval<const T &>())>;

template<typename T>
constexpr bool isDescribable();

template<typename T, size_t... Indices>
constexpr bool isTupleDescribable(std::index_sequence<Indices...>)
{
    return (isDescribable<std::remove_cvref_t<std::tuple_element_t<Indices, T>>>() && ...);
}

/// Whether a type has a shape, and all that it holds.
template<typename T>
constexpr bool isDescribable()
{
    constexpr Shape shape = shapeOf<T>();
    if constexpr (shape == Shape::Range)
        return isDescribable<ElementOf<T>>();
    else if constexpr (shape == Shape::Map)
        return isDescribable<typename T::key_type>() && isDescribable<typename T::mapped_type>();
    else if constexpr (shape == Shape::Optional)
        return isDescribable<ValueIn<T>>();
    else if constexpr (shape == Shape::Tuple)
        return isTupleDescribable<T>(std::make_index_sequence<std::tuple_size_v<T>>());
    else
        return shape != Shape::Unknown;
}

/// What a format can print.
template<typename T>
concept Describable = isDescribable<T>();

/// "15ms": a count and the unit that stands for numerator / denominator of a second.
KTUTILITY_EXPORT QString durationText(const QVariant &count, qint64 numerator, qint64 denominator);
/// A date, in the local zone.
KTUTILITY_EXPORT QVariant localDateOf(std::chrono::milliseconds sinceEpoch);
/// The object or address that a pointer holds; nothing for null.
KTUTILITY_EXPORT QVariant objectAt(const QObject *object);
KTUTILITY_EXPORT QVariant addressOf(const void *address);

/// A value as NSObject::description() knows it.
template<Describable T>
QVariant variantOf(const T &value);

template<typename T>
QVariant variantOfBytes(const T &value)
{
    if constexpr (std::is_pointer_v<T>) {
        return value ? QVariant(QString::fromUtf8(reinterpret_cast<const char *>(value)))
                     : QVariant();
    } else if constexpr (std::convertible_to<const T &, std::string_view>) {
        const std::string_view text = value;
        return QString::fromUtf8(text.data(), qsizetype(text.size()));
    } else {
        const std::u8string_view text = value;
        return QString::fromUtf8(text.data(), qsizetype(text.size()));
    }
}

template<typename Unit>
QVariant variantOfUnits(const Unit *units, QString (*text)(const Unit *, qsizetype))
{
    return units ? QVariant(text(units, -1)) : QVariant();
}

template<typename Unit>
QVariant variantOfUnits(std::basic_string_view<Unit> units,
                        QString (*text)(const Unit *, qsizetype))
{
    return text(units.data(), qsizetype(units.size()));
}

template<typename T>
QVariant variantOfObject(const T &value)
{
    if constexpr (ConvertsToObject<T>)
        return objectAt(value);
    else if constexpr (requires { value.get(); })
        return objectAt(value.get());
    else
        return objectAt(value.data());
}

/// The entries of a map: those of Qt are walked by values, those of the standard by pairs.
template<typename T>
auto beginOfEntries(const T &map)
{
    if constexpr (requires { map.constKeyValueBegin(); })
        return std::pair(map.constKeyValueBegin(), map.constKeyValueEnd());
    else
        return std::pair(map.begin(), map.end());
}

/// A character by its code point.
KTUTILITY_EXPORT QString characterText(char32_t character);
/// The same for a text of them, which a NUL ends if \a count is negative.
KTUTILITY_EXPORT QString textOfPoints(const char32_t *points, qsizetype count);

/// The text that a key of a map is described by.
KTUTILITY_EXPORT QString keyText(const QVariant &key);

template<typename T>
QVariant variantOfMap(const T &map)
{
    QVariantMap entries;
    auto [entry, end] = beginOfEntries(map);
    for (; entry != end; ++entry)
        entries.insert(keyText(variantOf((*entry).first)), variantOf((*entry).second));
    return entries;
}

template<typename T>
QVariant variantOfRange(const T &range)
{
    QVariantList elements;
    for (const auto &element : range)
        elements.append(variantOf<ElementOf<T>>(element));
    return elements;
}

template<typename T>
QVariant variantOfTuple(const T &tuple)
{
    return std::apply([](const auto &...elements) { return QVariantList{variantOf(elements)...}; },
                      tuple);
}

/// Numbers, characters and texts.
template<Shape shape, typename T>
QVariant variantOfSimple(const T &value)
{
    if constexpr (shape == Shape::Variant)
        return value;
    else if constexpr (shape == Shape::Character)
        return characterText(char32_t(std::make_unsigned_t<T>(value)));
    else if constexpr (shape == Shape::Number && std::same_as<T, long double>)
        return double(value);
    else if constexpr (shape == Shape::Number || shape == Shape::Core || shape == Shape::Debugged)
        return QVariant::fromValue(value);
    else if constexpr (shape == Shape::Enumeration)
        return QVariant::fromValue(std::underlying_type_t<T>(value));
    else if constexpr (shape == Shape::View)
        return QStringView(value).toString();
    else if constexpr (shape == Shape::Text)
        return QString(value);
    else if constexpr (shape == Shape::Writer)
        return value.toString();
    else if constexpr (shape == Shape::Describer)
        return QString(value.description());
    else
        return variantOfBytes(value);
}

/// Texts of the standard library, and what holds other values.
template<Shape shape, typename T>
QVariant variantOfHolder(const T &value)
{
    if constexpr (shape == Shape::Wide && std::is_pointer_v<T>)
        return variantOfUnits<wchar_t>(value, QString::fromWCharArray);
    else if constexpr (shape == Shape::Wide)
        return variantOfUnits(std::wstring_view(value), QString::fromWCharArray);
    else if constexpr (shape == Shape::Points && std::is_pointer_v<T>)
        return variantOfUnits<char32_t>(value, textOfPoints);
    else if constexpr (shape == Shape::Points)
        return variantOfUnits(std::u32string_view(value), textOfPoints);
    else if constexpr (shape == Shape::Object)
        return variantOfObject(value);
    else if constexpr (shape == Shape::Pointer)
        return addressOf(value);
    else if constexpr (shape == Shape::Owner)
        return variantOf(value.get());
    else if constexpr (shape == Shape::Optional)
        return value.has_value() ? variantOf<ValueIn<T>>(*value) : QVariant();
    else if constexpr (shape == Shape::Path)
        return QString::fromStdU16String(value.u16string());
    else if constexpr (shape == Shape::Map)
        return variantOfMap(value);
    else if constexpr (shape == Shape::Range)
        return variantOfRange(value);
    else
        return variantOfTuple(value);
}

template<Describable T>
QVariant variantOf(const T &value)
{
    constexpr Shape shape = shapeOf<T>();
    if constexpr (shape == Shape::Null)
        return {};
    else if constexpr (std::is_array_v<T> && shape != Shape::Range)
        return variantOf<std::decay_t<T>>(value);
    else if constexpr (shape == Shape::Duration)
        return durationText(variantOf(value.count()), T::period::num, T::period::den);
    else if constexpr (shape == Shape::Instant)
        return localDateOf(std::chrono::floor<std::chrono::milliseconds>(value.time_since_epoch()));
    else if constexpr (shape == Shape::ErrorCode)
        return QString::fromUtf8(std::string(value.category().name()) + ": " + value.message());
    else if constexpr (shape <= Shape::Bytes || shape == Shape::Describer ||
                       shape == Shape::Debugged)
        return variantOfSimple<shape>(value);
    else
        return variantOfHolder<shape>(value);
}
} // namespace KTPrivate
