#include "NSStringFormat.h"

#include "DoubleText_p.h"
#include "NSDecimalNumber.h"
#include "VariantKind_p.h"
#include <KTUtility/Platform/Text/UnitBuffer_p.h>
#include <KTUtility/Platform/Text/VisibleText_p.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cstdio>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

NSFormatArgument::NSFormatArgument(const char *utf8) noexcept
    : _kind(utf8 ? Kind::Utf8 : Kind::Nil)
    , _utf8(utf8 ? std::string_view(utf8) : std::string_view())
{
}

NSFormatArgument::NSFormatArgument(std::string_view utf8) noexcept : _kind(Kind::Utf8), _utf8(utf8)
{
}

NSFormatArgument::NSFormatArgument(const char8_t *utf8) noexcept
    : NSFormatArgument(reinterpret_cast<const char *>(utf8))
{
}

NSFormatArgument::NSFormatArgument(const wchar_t *text) : NSFormatArgument(variantOf(text)) {}

NSFormatArgument::NSFormatArgument(const char32_t *text) : NSFormatArgument(variantOf(text)) {}

NSFormatArgument::NSFormatArgument(const QByteArray &data) : _kind(Kind::Object), _object(data) {}

NSFormatArgument::NSFormatArgument(const QObject *object) : _kind(object ? Kind::Object : Kind::Nil)
{
    if (object)
        _object = QVariant::fromValue(const_cast<QObject *>(object));
}

NSFormatArgument::NSFormatArgument(const void *pointer) noexcept
    : _kind(pointer ? Kind::Pointer : Kind::Nil), _bits(reinterpret_cast<quintptr>(pointer))
{
}

NSFormatArgument::NSFormatArgument(const QVariant &value) : _kind(Kind::Object), _object(value)
{
    switch (kindOf(value)) {
    case VariantKind::Bool:
    case VariantKind::Signed:
        setInteger(Kind::Signed, quint64(value.toLongLong()), value.metaType().sizeOf());
        break;
    case VariantKind::Unsigned:
        setInteger(Kind::Unsigned, value.toULongLong(), value.metaType().sizeOf());
        break;
    case VariantKind::Double:
        _kind = Kind::Double;
        _bytes = value.typeId() == QMetaType::Float ? 4 : 8;
        _bits = std::bit_cast<quint64>(value.toDouble());
        break;
    case VariantKind::Text:
        _kind = NSObject::isNil(value) ? Kind::Nil : Kind::Text;
        _text = *static_cast<const QString *>(_object->constData());
        break;
    default:
        if (NSObject::isNil(value))
            _kind = Kind::Nil;
    }
}

void NSFormatArgument::setInteger(Kind kind, quint64 bits, qsizetype bytes)
{
    _kind = kind;
    _bits = bits;
    _bytes = int(bytes);
}

namespace {
using ArgumentKind = NSFormatArgument::Kind;

constexpr int MaximumWidth = 4096;

struct Conversion
{
    bool leftAligned = false;
    bool plus = false;
    bool space = false;
    bool alternate = false;
    bool zeroPadded = false;
    int width = 0;
    int precision = -1;
    int bytes = 4;
    char16_t letter = 0;
};

QString describeInteger(const NSFormatArgument &argument)
{
    return argument.kind() == ArgumentKind::Signed ? QString::number(argument.signedValue())
                                                   : QString::number(argument.unsignedValue());
}

/// What `%@` prints for any argument.
QString describeArgument(const NSFormatArgument &argument)
{
    switch (argument.kind()) {
    case ArgumentKind::Signed:
    case ArgumentKind::Unsigned:
        return describeInteger(argument);
    case ArgumentKind::Double:
        return textOfDouble(argument.doubleValue(),
                            argument.bytes() == 4 ? FloatDigits : DoubleDigits);
    case ArgumentKind::Character:
        return characterText(char32_t(argument.unsignedValue()));
    case ArgumentKind::Text:
        return argument.text().toString();
    case ArgumentKind::Utf8:
        return QString::fromUtf8(argument.utf8().data(), qsizetype(argument.utf8().size()));
    case ArgumentKind::Object:
        return NSObject::description(argument.object());
    case ArgumentKind::Pointer:
        return u"0x"_s + QString::number(argument.address(), 16);
    case ArgumentKind::Nil:
        break;
    }
    return u"(null)"_s;
}

/// The printf pattern for \a conversion, without its letter.
QByteArray nativeConversion(const Conversion &conversion)
{
    QByteArray text("%");
    if (conversion.leftAligned)
        text += '-';
    if (conversion.plus)
        text += '+';
    if (conversion.space)
        text += ' ';
    if (conversion.alternate)
        text += '#';
    if (conversion.zeroPadded)
        text += '0';
    if (conversion.width > 0)
        text += QByteArray::number(conversion.width);
    if (conversion.precision >= 0)
        text += '.' + QByteArray::number(conversion.precision);
    return text;
}

// The pattern is made of checked flags and numbers by nativeConversion(), and the value's
// type is fixed by the caller.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
template<typename Value>
QString printNative(const QByteArray &pattern, Value value)
{
    std::array<char, 512> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), pattern.constData(), value);
    if (length < int(buffer.size()))
        return QString::fromLatin1(buffer.data(), length);
    QByteArray large(length + 1, Qt::Uninitialized);
    std::snprintf(large.data(), size_t(large.size()), pattern.constData(), value);
    return QString::fromLatin1(large.constData(), length);
}
#pragma GCC diagnostic pop

/// At most so many units of a text, and no half of a pair.
QString firstUnits(const QString &text, qsizetype count)
{
    const bool cutsPair = count > 0 && count < text.size() && text.at(count).isLowSurrogate() &&
                          text.at(count - 1).isHighSurrogate();
    return text.left(cutsPair ? count - 1 : count);
}

QString pad(const QString &text, const Conversion &conversion)
{
    if (conversion.width == 0 && conversion.precision < 0)
        return text;
    const QString shown = conversion.precision >= 0 ? firstUnits(text, conversion.precision) : text;
    return conversion.leftAligned ? shown.leftJustified(conversion.width)
                                  : shown.rightJustified(conversion.width);
}

/// The value for %d: the whole one, or what "h" and "hh" leave of it.
qint64 signedBits(const NSFormatArgument &argument, int bytes)
{
    const qint64 value = argument.signedValue();
    return bytes == 1 ? qint8(value) : bytes == 2 ? qint16(value) : value;
}

/// The value for %u, %o and %x: a negative argument shows the bits of its own width.
quint64 unsignedBits(const NSFormatArgument &argument, int bytes)
{
    const int width = bytes < 4 ? bytes : std::max(4, argument.bytes());
    return argument.unsignedValue() & (~quint64(0) >> (64 - 8 * width));
}

bool isInteger(const NSFormatArgument &argument)
{
    return argument.kind() == ArgumentKind::Signed || argument.kind() == ArgumentKind::Unsigned ||
           argument.kind() == ArgumentKind::Character;
}

bool isDecimal(const NSFormatArgument &argument)
{
    return argument.kind() == ArgumentKind::Object &&
           kindOf(argument.object()) == VariantKind::Decimal;
}

/// Data, which is a text for "%s".
bool isData(const NSFormatArgument &argument)
{
    return argument.kind() == ArgumentKind::Object &&
           kindOf(argument.object()) == VariantKind::Data;
}

/// Whether a conversion is "%d", without anything that printf would be needed for.
bool isPlain(const Conversion &conversion)
{
    return conversion.letter == u'd' && conversion.bytes >= 4 && conversion.width == 0 &&
           conversion.precision < 0 && !conversion.plus && !conversion.space;
}

QString printInteger(const NSFormatArgument &argument, const Conversion &conversion)
{
    if (isPlain(conversion) && argument.kind() != ArgumentKind::Double)
        return describeInteger(argument);
    QByteArray pattern = nativeConversion(conversion) + "ll";
    const bool isSigned = conversion.letter == u'd';
    pattern += char(conversion.letter);
    if (argument.kind() == ArgumentKind::Double)
        return pad(describeArgument(argument), conversion);
    if (isSigned && argument.kind() == ArgumentKind::Unsigned &&
        argument.unsignedValue() > INT64_MAX)
        return printNative(pattern.replace("lld", "llu"), argument.unsignedValue());
    if (isSigned)
        return printNative<long long>(pattern, signedBits(argument, conversion.bytes));
    return printNative<unsigned long long>(pattern, unsignedBits(argument, conversion.bytes));
}

double realValue(const NSFormatArgument &argument)
{
    switch (argument.kind()) {
    case ArgumentKind::Double:
        return argument.doubleValue();
    case ArgumentKind::Unsigned:
        return double(argument.unsignedValue());
    case ArgumentKind::Object:
        return argument.object().value<NSDecimalNumber>().doubleValue();
    default:
        return double(argument.signedValue());
    }
}

/// While it lives, printf of this thread writes numbers with a point, whatever the locale of the
/// process is.
class PointLocale
{
public:
    PointLocale() : _before(::uselocale(pointLocale())) {}
    ~PointLocale() { ::uselocale(_before); }
    PointLocale(const PointLocale &) = delete;
    PointLocale &operator=(const PointLocale &) = delete;

private:
    static locale_t pointLocale()
    {
        static const locale_t locale = ::newlocale(LC_ALL_MASK, "C", locale_t(0));
        return locale;
    }

    locale_t _before;
};

QString printReal(const NSFormatArgument &argument, const Conversion &conversion)
{
    const PointLocale guard;
    return printNative(nativeConversion(conversion) + char(conversion.letter), realValue(argument));
}

QString printCharacter(const NSFormatArgument &argument, const Conversion &conversion)
{
    const char32_t character = char32_t(argument.unsignedValue());
    Conversion whole = conversion;
    whole.precision = -1; // which means nothing for characters
    return pad(character < 0x110000 ? QString::fromUcs4(&character, 1) : QString(), whole);
}

enum class ConversionFamily { Integer, Real, Character, Text, None };

ConversionFamily familyOf(char16_t letter)
{
    switch (letter) {
    case u'd':
    case u'u':
    case u'o':
    case u'x':
    case u'X':
        return ConversionFamily::Integer;
    case u'f':
    case u'F':
    case u'e':
    case u'E':
    case u'g':
    case u'G':
    case u'a':
    case u'A':
        return ConversionFamily::Real;
    case u'c':
    case u'C':
        return ConversionFamily::Character;
    case u'@':
    case u's':
    case u'S':
    case u'p':
        return ConversionFamily::Text;
    default:
        return ConversionFamily::None;
    }
}

/// What a conversion prints when there is no argument for it.
QString printMissing(const Conversion &conversion)
{
    switch (familyOf(conversion.letter)) {
    case ConversionFamily::Integer:
        return printInteger(NSFormatArgument(0), conversion);
    case ConversionFamily::Real:
        return printReal(NSFormatArgument(0.0), conversion);
    case ConversionFamily::Character:
        return pad(QString(), conversion);
    default:
        return pad(u"(null)"_s, conversion);
    }
}

QString print(const NSFormatArgument &argument, const Conversion &conversion)
{
    const bool isNumber = isInteger(argument) || argument.kind() == ArgumentKind::Double;
    switch (familyOf(conversion.letter)) {
    case ConversionFamily::Integer:
        if (isNumber)
            return printInteger(argument, conversion);
        break;
    case ConversionFamily::Real:
        if (isNumber || isDecimal(argument))
            return printReal(argument, conversion);
        break;
    case ConversionFamily::Character:
        if (isInteger(argument))
            return printCharacter(argument, conversion);
        break;
    case ConversionFamily::Text:
        if (conversion.letter == u's' && isData(argument))
            return pad(QString::fromUtf8(argument.object().toByteArray()), conversion);
        break;
    default:
        break;
    }
    return pad(describeArgument(argument), conversion);
}

/// Reads a format string from left to right and writes the text.
class FormatReader
{
public:
    FormatReader(UnitBuffer &text, QStringView format, std::span<const NSFormatArgument> arguments,
                 ArgumentText argumentText)
        : _text(text), _format(format), _arguments(arguments), _argumentText(argumentText)
    {
    }

    void run()
    {
        while (_position < _format.size()) {
            const qsizetype start = _position;
            // Formats are short: looking for the sign unit by unit beats calling a vector routine.
            while (_position < _format.size() && _format[_position] != u'%')
                ++_position;
            if (_position > start)
                _text.append(_format.sliced(start, _position - start));
            if (_position < _format.size())
                readConversion();
        }
    }

private:
    char16_t peek() const
    {
        return _position < _format.size() ? _format[_position].unicode() : u'\0';
    }

    bool accept(char16_t unit)
    {
        if (_position >= _format.size() || _format[_position] != unit)
            return false;
        ++_position;
        return true;
    }

    /// A run of ASCII digits as a number, at most MaximumWidth; -1 if there is none.
    int readNumber()
    {
        int number = -1;
        for (; peek() >= u'0' && peek() <= u'9'; ++_position)
            number = std::min(std::max(number, 0) * 10 + (peek() - u'0'), MaximumWidth);
        return number;
    }

    /// "n$", the position of an argument counted from 1; 0 if there is none.
    int readPosition()
    {
        const qsizetype start = _position;
        const int number = readNumber();
        if (number > 0 && accept(u'$'))
            return number;
        _position = start;
        return 0;
    }

    const NSFormatArgument *argument(int position)
    {
        const size_t index = position > 0 ? size_t(position) - 1 : _next++;
        return index < _arguments.size() ? &_arguments[index] : nullptr;
    }

    /// A number written in the format, or "*" with the argument that it takes.
    int readNumberOrArgument(int missing)
    {
        if (!accept(u'*'))
            return std::max(readNumber(), missing);
        const NSFormatArgument *value = argument(readPosition());
        if (!value || !isInteger(*value))
            return missing;
        return int(std::clamp<qint64>(value->signedValue(), -MaximumWidth, MaximumWidth));
    }

    void readFlags(Conversion &conversion)
    {
        for (;; ++_position) {
            switch (peek()) {
            case u'-':
                conversion.leftAligned = true;
                break;
            case u'+':
                conversion.plus = true;
                break;
            case u' ':
                conversion.space = true;
                break;
            case u'#':
                conversion.alternate = true;
                break;
            case u'0':
                conversion.zeroPadded = true;
                break;
            case u'\'':
                break; // grouping: numbers never follow the locale
            default:
                return;
            }
        }
    }

    void readWidthAndPrecision(Conversion &conversion)
    {
        conversion.width = readNumberOrArgument(0);
        if (conversion.width < 0) {
            conversion.leftAligned = true;
            conversion.width = -conversion.width;
        }
        if (accept(u'.'))
            conversion.precision = readNumberOrArgument(0);
    }

    void readLength(Conversion &conversion)
    {
        for (;; ++_position) {
            switch (peek()) {
            case u'h':
                conversion.bytes = conversion.bytes == 2 ? 1 : 2;
                break;
            case u'l':
            case u'q':
            case u'j':
            case u'z':
            case u't':
                conversion.bytes = 8;
                break;
            case u'L':
                break;
            default:
                return;
            }
        }
    }

    /// The letter of the conversion, with the spellings that mean the same made one.
    void readLetter(Conversion &conversion)
    {
        char16_t letter = peek();
        const bool isLong = letter == u'D' || letter == u'U' || letter == u'O';
        if (isLong)
            conversion.bytes = 8;
        if (letter == u'i' || letter == u'D')
            letter = u'd';
        else if (isLong)
            letter = char16_t(letter + (u'a' - u'A'));
        conversion.letter = letter;
    }

    void append(const NSFormatArgument *argument, const Conversion &conversion)
    {
        const qsizetype start = _text.size();
        appendAsItIs(argument, conversion);
        const QStringView added = _text.view().sliced(start);
        if (_argumentText == ArgumentText::AsItIs || !holdsControls(added))
            return;
        const QString visible = visibleText(added);
        _text.truncate(start);
        _text.append(visible);
    }

    void appendAsItIs(const NSFormatArgument *argument, const Conversion &conversion)
    {
        const bool isBare = conversion.width == 0 && conversion.precision < 0;
        if (argument && isBare && argument->kind() == ArgumentKind::Text)
            _text.append(argument->text());
        else if (argument && isPlain(conversion) && argument->kind() == ArgumentKind::Signed)
            appendDigits(argument->signedValue());
        else
            _text.append(argument ? print(*argument, conversion) : printMissing(conversion));
    }

    void appendDigits(qint64 number)
    {
        std::array<char, 20> digits{};
        const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
        _text.append(QLatin1String(digits.data(), end - digits.data()));
    }

    void readConversion()
    {
        const qsizetype start = _position++;
        if (accept(u'%')) {
            _text.append(u'%');
            return;
        }
        Conversion conversion;
        // Most conversions are one of these two, with nothing between.
        if (accept(u'@') || accept(u'd')) {
            conversion.letter = _format[_position - 1].unicode();
            append(argument(0), conversion);
            return;
        }
        const int position = readPosition();
        readFlags(conversion);
        readWidthAndPrecision(conversion);
        readLength(conversion);
        if (accept(u'%')) {
            _text.append(u'%');
            return;
        }
        readLetter(conversion);
        if (familyOf(conversion.letter) == ConversionFamily::None) {
            _position = start + 1;
            _text.append(u'%');
            return;
        }
        ++_position;
        append(argument(position), conversion);
    }

    UnitBuffer &_text;
    QStringView _format;
    std::span<const NSFormatArgument> _arguments;
    ArgumentText _argumentText;
    qsizetype _position = 0;
    size_t _next = 0;
};
} // namespace

void NSString::appendFormatArguments(UnitBuffer &text, QStringView format,
                                     std::span<const NSFormatArgument> arguments,
                                     ArgumentText argumentText)
{
    FormatReader(text, format, arguments, argumentText).run();
}

QString NSString::stringWithFormatArguments(QStringView format,
                                            std::span<const NSFormatArgument> arguments)
{
    UnitBuffer text;
    appendFormatArguments(text, format, arguments);
    // What is made from a format is empty at least, and never nil.
    return text.view().toString();
}
