#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QStringView>

#include <bitset>
#include <functional>
#include <memory>

/// A set of Unicode code points, asked one at a time.
///
/// Membership follows the general categories of Unicode; the predefined sets are the platform's,
/// which differ from Qt's tests (U+200B is whitespace, marks are alphanumeric, title-case letters
/// are upper case). Lone surrogates belong to no predefined set. Copies are cheap.
///
/// \code
/// const auto digits = NSCharacterSet::decimalDigitCharacterSet();
/// digits.characterIsMember(U'7');                        // true
/// digits.invertedSet().characterIsMember(U'7');          // false
/// NSCharacterSet::characterSetWithCharactersInString(u"-/.").characterIsMember(U'/'); // true
/// \endcode
class KTUTILITY_EXPORT NSCharacterSet
{
public:
    /// The empty set.
    NSCharacterSet();
    /// The set of all code points for which \a isMember answers true.
    explicit NSCharacterSet(std::function<bool(char32_t)> isMember);

    /// The set of the code points in \a characters, surrogate pairs read as one.
    static NSCharacterSet characterSetWithCharactersInString(QStringView characters);

    /// Tab, space, U+00A0, U+1680, U+2000 to U+200B, U+202F, U+205F, U+3000.
    static const NSCharacterSet &whitespaceCharacterSet();
    /// U+000A to U+000D, U+0085, U+2028, U+2029.
    static const NSCharacterSet &newlineCharacterSet();
    /// Both of the above.
    static const NSCharacterSet &whitespaceAndNewlineCharacterSet();
    /// Letters, marks and numbers of all scripts (L*, M*, N*).
    static const NSCharacterSet &alphanumericCharacterSet();
    /// Letters and marks (L*, M*).
    static const NSCharacterSet &letterCharacterSet();
    /// Upper-case and title-case letters (Lu, Lt).
    static const NSCharacterSet &uppercaseLetterCharacterSet();
    /// Lower-case letters (Ll).
    static const NSCharacterSet &lowercaseLetterCharacterSet();
    /// Title-case letters (Lt).
    static const NSCharacterSet &capitalizedLetterCharacterSet();
    /// Decimal digits of all scripts (Nd).
    static const NSCharacterSet &decimalDigitCharacterSet();
    /// Marks (M*).
    static const NSCharacterSet &nonBaseCharacterSet();
    /// Punctuation (P*).
    static const NSCharacterSet &punctuationCharacterSet();
    /// Symbols (S*).
    static const NSCharacterSet &symbolCharacterSet();
    /// Control and format characters (Cc, Cf).
    static const NSCharacterSet &controlCharacterSet();

    /// Whether the set holds a character.
    bool characterIsMember(char32_t character) const
    {
        return character < Latin1Size ? _members->latin1[character] : _members->others(character);
    }

    /// All code points that this set does not hold.
    NSCharacterSet invertedSet() const;
    /// This set and \a other together.
    NSCharacterSet unionWithCharacterSet(const NSCharacterSet &other) const;

private:
    static constexpr size_t Latin1Size = 0x100;

    struct Members
    {
        std::bitset<Latin1Size> latin1;
        std::function<bool(char32_t)> others;
    };

    std::shared_ptr<const Members> _members;
};

/// A code point of a UTF-16 text and the number of units that it takes; a lone surrogate is itself.
struct NSCodePoint
{
    /// The code point.
    char32_t character = 0;
    /// How many units it takes: 1 or 2.
    qsizetype length = 1;
};

/// The code point of \a text that starts at \a index, which must be inside of the text.
inline NSCodePoint NSCodePointAt(QStringView text, qsizetype index)
{
    const char16_t unit = text[index].unicode();
    if (QChar::isHighSurrogate(unit) && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(unit, text[index + 1].unicode()), 2};
    return {unit, 1};
}

/// The code point of \a text that ends just before \a index, which must be above 0.
inline NSCodePoint NSCodePointBefore(QStringView text, qsizetype index)
{
    const char16_t unit = text[index - 1].unicode();
    if (QChar::isLowSurrogate(unit) && index > 1 && text[index - 2].isHighSurrogate())
        return {QChar::surrogateToUcs4(text[index - 2].unicode(), unit), 2};
    return {unit, 1};
}

/// The first index at or after \a index whose code point is not in \a set; the size at the end.
KTUTILITY_EXPORT qsizetype NSSkipCharacters(QStringView text, qsizetype index,
                                            const NSCharacterSet &set);
/// The first index at or after \a index whose code point is in \a set; the size if there is none.
KTUTILITY_EXPORT qsizetype NSFindCharacter(QStringView text, qsizetype index,
                                           const NSCharacterSet &set);
