#pragma once

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

/// What becomes a text by conversion: a concatenation, a QLatin1String.
template<typename T>
concept ConvertedToText =
    std::is_class_v<T> && std::convertible_to<T, QString> && !std::convertible_to<T, QStringView>;

/// What a QVariant holds and no other constructor takes.
template<typename T>
concept HeldByVariant = std::is_class_v<T> && !std::convertible_to<T, QString> &&
                        !std::convertible_to<T, QStringView> && !std::same_as<T, QVariant> &&
                        !std::convertible_to<T, const QObject *>;
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
        : _kind(Kind::Double), _bits(std::bit_cast<quint64>(double(value)))
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
    /// Data, which prints as its description.
    NSFormatArgument(const QByteArray &data);

    /// An object, which prints as its description; null is nil.
    NSFormatArgument(const QObject *object);
    /// A pointer, which prints as its address; null is nil.
    NSFormatArgument(const void *pointer) noexcept;
    /// A value, which prints as its description.
    NSFormatArgument(const QVariant &value);
    /// What becomes a text by conversion is one.
    template<KTPrivate::ConvertedToText T>
    NSFormatArgument(const T &value) : NSFormatArgument(QVariant(QString(value)))
    {
    }
    /// Any other value that a QVariant can hold prints as its description.
    template<KTPrivate::HeldByVariant T>
    NSFormatArgument(const T &value) : NSFormatArgument(QVariant::fromValue(value))
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
KTUTILITY_EXPORT void appendFormatArguments(KTPrivate::UnitBuffer &text, QStringView format,
                                            std::span<const NSFormatArgument> arguments);

/// The text made from an object-format string and its arguments.
///
/// Conversions are those of printf (`%d %i %u %o %x %X %c %s %f %e %g %a %p %%`, with flags,
/// width, precision, `*` and positions as in `%2$d`; length modifiers are read and not needed),
/// and those of the platform: `%@` prints any value as its description, `%C` a UTF-16 unit and
/// `%S` a UTF-16 text. Numbers never follow the locale.
///
/// A conversion without an argument prints "(null)" for `%@`, `%s`, `%S` and `%p`, 0 for numbers
/// and nothing for characters; it reads nothing. An argument that does not fit its conversion
/// prints as `%@` prints it. What is no conversion is copied as it stands.
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
