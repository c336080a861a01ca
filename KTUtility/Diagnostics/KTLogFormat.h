#pragma once

#include <QStringView>

#include <array>
#include <concepts>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace KTPrivate {
/// Counts the arguments that an object-format string takes, as NSString::stringWithFormat() reads
/// it, for the compiler.
class FormatCount
{
public:
    constexpr explicit FormatCount(std::u16string_view format) : _format(format)
    {
        while (_position < _format.size()) {
            if (_format[_position++] == u'%')
                readConversion();
        }
    }

    /// Whether all arguments of so many are printed, and no others are asked for.
    constexpr bool takes(std::size_t arguments) const
    {
        if (_end != arguments)
            return false;
        for (std::size_t index = 0; index < arguments; ++index) {
            if (!_isTaken[index])
                return false;
        }
        return true;
    }

private:
    static constexpr std::size_t MostArguments = 64;

    constexpr char16_t peek() const
    {
        return _position < _format.size() ? _format[_position] : u'\0';
    }
    constexpr bool accept(char16_t unit)
    {
        const bool isThere = _position < _format.size() && _format[_position] == unit;
        _position += isThere ? 1 : 0;
        return isThere;
    }
    constexpr void acceptAnyOf(std::u16string_view units)
    {
        while (_position < _format.size() && units.find(_format[_position]) != units.npos)
            ++_position;
    }
    constexpr std::size_t readNumber()
    {
        std::size_t number = 0;
        for (; peek() >= u'0' && peek() <= u'9'; ++_position)
            number = number < MostArguments ? number * 10 + std::size_t(peek() - u'0') : number;
        return number;
    }
    /// "n$", counted from 1; 0 if there is none.
    constexpr std::size_t readPosition()
    {
        const std::size_t start = _position;
        const std::size_t number = readNumber();
        if (number > 0 && accept(u'$'))
            return number;
        _position = start;
        return 0;
    }
    constexpr void take(std::size_t position)
    {
        const std::size_t index = position > 0 ? position - 1 : _next++;
        if (index < MostArguments)
            _isTaken[index] = true;
        _end = index + 1 > _end ? index + 1 : _end;
    }
    constexpr void readNumberOrArgument()
    {
        if (accept(u'*'))
            take(readPosition());
        else
            readNumber();
    }
    constexpr void readConversion()
    {
        const std::size_t start = _position;
        if (accept(u'%'))
            return;
        const std::size_t position = readPosition();
        acceptAnyOf(u"-+ #0'");
        readNumberOrArgument();
        if (accept(u'.'))
            readNumberOrArgument();
        acceptAnyOf(u"hlqjztL");
        if (accept(u'%'))
            return;
        constexpr std::u16string_view Letters = u"diDuUoOxXfFeEgGaAcC@sSp";
        if (Letters.find(peek()) == Letters.npos) {
            _position = start;
            return;
        }
        ++_position;
        take(position);
    }

    std::u16string_view _format;
    std::size_t _position = 0;
    std::size_t _next = 0;
    std::size_t _end = 0;
    std::array<bool, MostArguments> _isTaken{};
};

// Called by no one: the compiler names them where a literal does not fit its arguments.
void theFormatTakesMoreOrFewerArguments();
} // namespace KTPrivate

/// The format of a log call with so many arguments. A literal is checked by the compiler: it takes
/// each of the arguments, and no others. What is known at run time only (a QString, a QStringView,
/// a pointer) is not checked; a missing argument prints as NSString::stringWithFormat() says, one
/// too many does not show.
///
/// Callers do not name this type; KTLog() makes it of its format. An array that is no constant does
/// not compile: hand it over as a QStringView.
template<std::size_t Arguments>
class KTLogFormat
{
public:
    /// A literal, u"…".
    template<std::size_t Size>
    consteval KTLogFormat(const char16_t (&text)[Size]) : _text(text)
    {
        if (!KTPrivate::FormatCount(std::u16string_view(text)).takes(Arguments))
            KTPrivate::theFormatTakesMoreOrFewerArguments();
    }
    /// A format that is known at run time only.
    template<typename Text>
        requires(std::convertible_to<const Text &, QStringView> && !std::is_array_v<Text>)
    KTLogFormat(const Text &text) : _text(text) {}
    /// Does not compile, and says why.
    template<std::size_t Size>
    KTLogFormat(const char (&)[Size])
    {
        static_assert(Size == 0, "the format of KTLog() is a UTF-16 literal: write u\"…\"");
    }

    /// The text of it.
    QStringView text() const { return _text; }

private:
    QStringView _text;
};
