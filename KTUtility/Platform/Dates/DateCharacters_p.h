#pragma once

#include <QtGlobal>

// The characters that matter in dates, as ICU classes them.

namespace KTPrivate::DateCharacters {
/// Whitespace of a pattern (Pattern_White_Space): matches any run of whitespace of a text.
inline constexpr bool isWhitespaceOfPatterns(char16_t unit)
{
    return (unit >= 9 && unit <= 13) || unit == 32 || unit == 0x85 || unit == 0x200E ||
           unit == 0x200F || unit == 0x2028 || unit == 0x2029;
}

/// Whitespace of a text.
inline constexpr bool isWhitespaceOfTexts(char16_t unit)
{
    if (unit < 0x80)
        return unit == 32 || (unit >= 9 && unit <= 13);
    return isWhitespaceOfPatterns(unit) || unit == 0xA0 || unit == 0x1680 ||
           (unit >= 0x2000 && unit <= 0x200A) || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

inline constexpr bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

inline constexpr char16_t lowered(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? char16_t(unit + 0x20) : unit;
}

inline constexpr bool isASCIILetter(char16_t unit)
{
    return lowered(unit) >= u'a' && lowered(unit) <= u'z';
}

/// Characters of scripts that ICU's reader of numbers has no use for: kana, ideographs, Hangul.
inline constexpr bool isEastAsian(char16_t unit)
{
    return unit >= 0x3001 && unit <= 0xD7A3;
}
} // namespace KTPrivate::DateCharacters
