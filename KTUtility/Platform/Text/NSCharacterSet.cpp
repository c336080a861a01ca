#include "NSCharacterSet.h"

#include <unicode/uchar.h>

#include <unordered_set>

namespace {
/// The set of the code points whose general category is in \a mask (U_GC_…_MASK).
NSCharacterSet setOfCategories(uint32_t mask)
{
    return NSCharacterSet(
        [mask](char32_t character) { return (U_GET_GC_MASK(UChar32(character)) & mask) != 0; });
}

bool isWhitespace(char32_t character)
{
    switch (character) {
    case 0x0009:
    case 0x0020:
    case 0x00A0:
    case 0x1680:
    case 0x202F:
    case 0x205F:
    case 0x3000:
        return true;
    default:
        return character >= 0x2000 && character <= 0x200B;
    }
}

bool isNewline(char32_t character)
{
    return (character >= 0x000A && character <= 0x000D) || character == 0x0085 ||
           character == 0x2028 || character == 0x2029;
}
} // namespace

NSCharacterSet::NSCharacterSet() : NSCharacterSet([](char32_t) { return false; }) {}

NSCharacterSet::NSCharacterSet(std::function<bool(char32_t)> isMember)
{
    auto members = std::make_shared<Members>();
    for (char32_t character = 0; character < Latin1Size; ++character)
        members->latin1[character] = isMember(character);
    members->others = std::move(isMember);
    _members = std::move(members);
}

NSCharacterSet NSCharacterSet::characterSetWithCharactersInString(QStringView characters)
{
    auto members = std::make_shared<std::unordered_set<char32_t>>();
    for (qsizetype index = 0; index < characters.size();) {
        const NSCodePoint point = NSCodePointAt(characters, index);
        members->insert(point.character);
        index += point.length;
    }
    return NSCharacterSet([members](char32_t character) { return members->contains(character); });
}

const NSCharacterSet &NSCharacterSet::whitespaceCharacterSet()
{
    static const NSCharacterSet set(isWhitespace);
    return set;
}

const NSCharacterSet &NSCharacterSet::newlineCharacterSet()
{
    static const NSCharacterSet set(isNewline);
    return set;
}

const NSCharacterSet &NSCharacterSet::whitespaceAndNewlineCharacterSet()
{
    static const NSCharacterSet set(
        [](char32_t character) { return isWhitespace(character) || isNewline(character); });
    return set;
}

const NSCharacterSet &NSCharacterSet::alphanumericCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::letterCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_L_MASK | U_GC_M_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::uppercaseLetterCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_LU_MASK | U_GC_LT_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::lowercaseLetterCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_LL_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::capitalizedLetterCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_LT_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::decimalDigitCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_ND_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::nonBaseCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_M_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::punctuationCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_P_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::symbolCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_S_MASK);
    return set;
}

const NSCharacterSet &NSCharacterSet::controlCharacterSet()
{
    static const NSCharacterSet set = setOfCategories(U_GC_CC_MASK | U_GC_CF_MASK);
    return set;
}

NSCharacterSet NSCharacterSet::invertedSet() const
{
    return NSCharacterSet(
        [set = *this](char32_t character) { return !set.characterIsMember(character); });
}

NSCharacterSet NSCharacterSet::unionWithCharacterSet(const NSCharacterSet &other) const
{
    return NSCharacterSet([set = *this, other](char32_t character) {
        return set.characterIsMember(character) || other.characterIsMember(character);
    });
}

qsizetype NSSkipCharacters(QStringView text, qsizetype index, const NSCharacterSet &set)
{
    while (index < text.size()) {
        const NSCodePoint point = NSCodePointAt(text, index);
        if (!set.characterIsMember(point.character))
            break;
        index += point.length;
    }
    return index;
}

qsizetype NSFindCharacter(QStringView text, qsizetype index, const NSCharacterSet &set)
{
    while (index < text.size()) {
        const NSCodePoint point = NSCodePointAt(text, index);
        if (set.characterIsMember(point.character))
            break;
        index += point.length;
    }
    return index;
}
