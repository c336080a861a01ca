#pragma once

#include "Describable.h"
#include "NSObject.h"
#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QVariant>

#include <bit>
#include <concepts>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace KTPrivate {
class UnitBuffer;

template<typename T>
concept Enumeration = std::is_enum_v<T>;

/// What no other constructor of an argument takes: containers, optional values, texts of other
/// libraries, everything that a QVariant holds.
template<typename T>
concept OtherClass =
    std::is_class_v<T> && !std::same_as<T, QVariant> && !std::convertible_to<T, QStringView> &&
    !std::convertible_to<T, const QObject *>;

/// An array that is no text.
template<typename T>
concept OtherArray = std::is_bounded_array_v<T> && shapeOf<T>()
== Shape::Range;

/// Whether a text from an argument stays as it is, or shows line breaks and control characters as
/// escapes, so that none can look like a line of its own in a log.
enum class ArgumentText { AsItIs, Visible };
} // namespace KTPrivate

/// One argument of a format string, with its type kept: the reason why a wrong conversion can
/// misprint but never read memory that is not there.
///
/// It refers to texts without copying them, so it must not outlive the full expression that made
/// it. Callers never name this type; they pass plain values to stringWithFormat().
class KTUTILITY_EXPORT NSFormatArgument
{
public:
    /// What an argument is.
    enum class Kind {
        Nil,       ///< nothing
        Signed,    ///< signedValue()
        Unsigned,  ///< unsignedValue()
        Double,    ///< doubleValue()
        Character, ///< unsignedValue(), a code point
        Text,      ///< text()
        Utf8,      ///< utf8()
        Object,    ///< object()
        Pointer    ///< address()
    };

    /// nil.
    NSFormatArgument(std::nullptr_t) noexcept : _kind(Kind::Nil) {}
    /// 1 or 0.
    NSFormatArgument(bool value) noexcept : _kind(Kind::Signed), _bits(value) {}
    /// A character.
    NSFormatArgument(char value) noexcept : NSFormatArgument(char32_t(static_cast<uchar>(value))) {}
    NSFormatArgument(QChar value) noexcept : NSFormatArgument(char32_t(value.unicode())) {}
    NSFormatArgument(char16_t value) noexcept : NSFormatArgument(char32_t(value)) {}
    NSFormatArgument(char32_t value) noexcept : _kind(Kind::Character), _bits(value) {}

    /// A signed integer.
    template<std::signed_integral T>
    NSFormatArgument(T value) noexcept
        : _kind(Kind::Signed), _bytes(sizeof(T)), _bits(quint64(qint64(value)))
    {
    }
    /// An unsigned integer.
    template<std::unsigned_integral T>
    NSFormatArgument(T value) noexcept : _kind(Kind::Unsigned), _bytes(sizeof(T)), _bits(value)
    {
    }
    /// A floating-point number.
    template<std::floating_point T>
    NSFormatArgument(T value) noexcept
        : _kind(Kind::Double)
        , _bytes(std::same_as<T, float> ? 4 : 8)
        , _bits(std::bit_cast<quint64>(double(value)))
    {
    }
    /// The number of an enumerator.
    template<KTPrivate::Enumeration T>
    NSFormatArgument(T value) noexcept : NSFormatArgument(std::underlying_type_t<T>(value))
    {
    }

    /// A null text is nil; an empty one is not.
    NSFormatArgument(QStringView text) noexcept
        : _kind(text.isNull() ? Kind::Nil : Kind::Text), _text(text)
    {
    }
    NSFormatArgument(const QString &text) noexcept : NSFormatArgument(QStringView(text)) {}
    NSFormatArgument(const char16_t *text) noexcept : NSFormatArgument(QStringView(text)) {}
    /// A text in UTF-8; a null pointer is nil.
    NSFormatArgument(const char *utf8) noexcept;
    NSFormatArgument(std::string_view utf8) noexcept;
    NSFormatArgument(const std::string &utf8) noexcept : NSFormatArgument(std::string_view(utf8)) {}
    /// UTF-8, and the wide texts of C.
    NSFormatArgument(const char8_t *utf8) noexcept;
    NSFormatArgument(const wchar_t *text);
    NSFormatArgument(const char32_t *text);
    /// Data, which prints as its description.
    NSFormatArgument(const QByteArray &data);

    /// An object, which prints as its description; null is nil.
    NSFormatArgument(const QObject *object);
    /// A pointer, which prints as its address; null is nil.
    NSFormatArgument(const void *pointer) noexcept;
    /// A value, which prints as its description.
    NSFormatArgument(const QVariant &value);
    /// Any other value that can be described prints as its description: containers, views, optional
    /// values and smart pointers as what they hold, paths and texts of other libraries as texts,
    /// durations with their unit. What nothing could be said of does not compile.
    template<KTPrivate::OtherClass T>
    NSFormatArgument(const T &value) : NSFormatArgument(describable(value))
    {
    }
    /// An array, which prints as what it holds.
    template<KTPrivate::OtherArray T>
    NSFormatArgument(const T &values) : NSFormatArgument(describable(values))
    {
    }

    /// Which of the values below it has.
    Kind kind() const noexcept { return _kind; }
    /// The size of an integer.
    int bytes() const noexcept { return _bytes; }
    /// The value of a signed integer.
    qint64 signedValue() const noexcept { return qint64(_bits); }
    /// The value of an unsigned integer or a character.
    quint64 unsignedValue() const noexcept { return _bits; }
    /// The value of a floating-point number.
    double doubleValue() const noexcept { return std::bit_cast<double>(_bits); }
    /// The value of a pointer.
    quint64 address() const noexcept { return _bits; }
    /// The text of a text in UTF-16.
    QStringView text() const noexcept { return _text; }
    /// The text of a text in UTF-8.
    std::string_view utf8() const noexcept { return _utf8; }
    /// The value of an object.
    const QVariant &object() const noexcept { return *_object; }

private:
    template<typename T>
    static QVariant describable(const T &value)
    {
        static_assert(KTPrivate::Describable<T>,
                      "a format cannot print this type: pass a text, or give it description()");
        if constexpr (KTPrivate::Describable<T>)
            return KTPrivate::variantOf(value);
    }

    void setInteger(Kind kind, quint64 bits, qsizetype bytes);

    Kind _kind;
    int _bytes = 8;
    quint64 _bits = 0;
    QStringView _text;
    std::string_view _utf8;
    /// Most arguments are none, and cost no call to be destroyed.
    std::optional<QVariant> _object;
};

namespace NSString {
/// The text made from a format string and already collected arguments.
/// \see stringWithFormat
KTUTILITY_EXPORT QString stringWithFormatArguments(QStringView format,
                                                   std::span<const NSFormatArgument> arguments);

/// Appends that text to a buffer that is used again. For use within the framework.
KTUTILITY_EXPORT void
appendFormatArguments(KTPrivate::UnitBuffer &text, QStringView format,
                      std::span<const NSFormatArgument> arguments,
                      KTPrivate::ArgumentText argumentText = KTPrivate::ArgumentText::AsItIs);

/// The text made from an object-format string and its arguments.
///
/// Conversions are those of printf (`%d %i %u %o %x %X %c %s %f %e %g %a %p %%`, with flags,
/// width, precision, `*` and positions as in `%2$d`; length modifiers are read and not needed),
/// and those of the platform: `%@` prints any value as its description, `%C` a UTF-16 unit and
/// `%S` a UTF-16 text. Numbers never follow the locale.
///
/// A conversion without an argument prints "(null)" for `%@`, `%s`, `%S` and `%p`, 0 for numbers
/// and nothing for characters; it reads nothing. An argument that does not fit its conversion
/// prints as `%@` prints it; `%s` prints data as text in UTF-8. What is no conversion is copied as
/// it stands. An argument that cannot be described at all does not compile.
///
/// \code
/// NSString::stringWithFormat(u"%@ has %d fields", libraryName, 12); // "Contacts has 12 fields"
/// NSString::stringWithFormat(u"%2$@, %1$@", u"Ada", u"Lovelace");   // "Lovelace, Ada"
/// NSString::stringWithFormat(u"%d of %d", 3);                       // "3 of 0"
/// \endcode
template<typename... Arguments>
QString stringWithFormat(QStringView format, const Arguments &...arguments)
{
    if constexpr (sizeof...(Arguments) == 0) {
        return stringWithFormatArguments(format, {});
    } else {
        const NSFormatArgument collected[] = {NSFormatArgument(arguments)...};
        return stringWithFormatArguments(format, collected);
    }
}
} // namespace NSString
