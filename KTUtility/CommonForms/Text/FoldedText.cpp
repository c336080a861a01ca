#include "FoldedText_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <iterator>

using namespace KTPrivate;

namespace {
bool isASCII(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
}

struct Normalizers
{
    Normalizers()
    {
        UErrorCode status = U_ZERO_ERROR;
        decomposition = icu::Normalizer2::getNFKDInstance(status);
        composition = icu::Normalizer2::getNFCInstance(status);
    }

    const icu::Normalizer2 *decomposition;
    const icu::Normalizer2 *composition;
};

const Normalizers &normalizers()
{
    static const Normalizers shared;
    return shared;
}

/// Whether a character is no more than another way to write what it decomposes to.
bool isPlain(UChar32 character)
{
    switch (u_getIntPropertyValue(character, UCHAR_DECOMPOSITION_TYPE)) {
    case U_DT_FRACTION:
    case U_DT_SUPER:
    case U_DT_SUB:
    case U_DT_CIRCLE:
    case U_DT_SQUARE:
        return false;
    default:
        return true;
    }
}

bool losesAccents(UChar32 character)
{
    UErrorCode status = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(character, &status);
    return script == USCRIPT_LATIN || script == USCRIPT_GREEK;
}

bool isInvisible(UChar32 character)
{
    return u_charType(character) == U_FORMAT_CHAR ||
           u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

bool isDash(UChar32 character)
{
    return character == 0x2212 || u_hasBinaryProperty(character, UCHAR_DASH);
}

bool isApostrophe(UChar32 character)
{
    constexpr UChar32 Apostrophes[] = {0x2018, 0x2019, 0x201B, 0x2032, 0x02BC, 0x0060, 0x00B4};
    return std::find(std::begin(Apostrophes), std::end(Apostrophes), character) !=
           std::end(Apostrophes);
}

/// One character for all that look and mean alike.
UChar32 plainCharacter(UChar32 character)
{
    constexpr UChar32 DotlessI = 0x131;
    if (u_isdigit(character))
        return '0' + u_charDigitValue(character);
    if (u_isUWhiteSpace(character))
        return ' ';
    if (isDash(character))
        return '-';
    if (isApostrophe(character))
        return '\'';
    return character == DotlessI ? 'i' : character;
}

icu::UnicodeString withoutAccents(const icu::UnicodeString &parts)
{
    if (!losesAccents(parts.char32At(0)))
        return parts;
    icu::UnicodeString bare;
    for (int32_t index = 0; index < parts.length(); index = parts.moveIndex32(index, 1)) {
        if (u_getCombiningClass(parts.char32At(index)) == 0)
            bare.append(parts.char32At(index));
    }
    return bare;
}

/// A character with its accents, as it is looked for.
icu::UnicodeString foldedCluster(const icu::UnicodeString &cluster)
{
    UErrorCode status = U_ZERO_ERROR;
    const UChar32 first = cluster.char32At(0);
    const icu::UnicodeString parts =
        isApostrophe(first) || !isPlain(first)
            ? cluster
            : withoutAccents(normalizers().decomposition->normalize(cluster, status));
    return normalizers().composition->normalize(icu::UnicodeString(parts).foldCase(), status);
}

/// Where the character ends that begins at a position, with what belongs to it.
int32_t endOfCluster(const icu::UnicodeString &text, int32_t begin)
{
    int32_t end = text.moveIndex32(begin, 1);
    while (end < text.length() && !normalizers().composition->hasBoundaryBefore(text.char32At(end)))
        end = text.moveIndex32(end, 1);
    return end;
}
} // namespace

FoldedText::FoldedText(QStringView text) : _isTooLong(text.size() > MaximumLength)
{
    if (_isTooLong)
        return;
    if (isASCII(text))
        foldASCII(text);
    else
        foldOthers(text);
    if (!_units.isEmpty() && _units.back() == u' ') {
        _end = _positions.back();
        _units.removeLast();
        _positions.removeLast();
    }
}

QString FoldedText::folded(QStringView text)
{
    return FoldedText(text).text().toString();
}

NSRange FoldedText::rangeInText(qsizetype begin, qsizetype length) const
{
    const auto positionOf = [this](qsizetype index) {
        return index < _positions.size() ? qsizetype(_positions[index]) : _end;
    };
    const qsizetype location = positionOf(begin);
    return {location, positionOf(begin + length) - location};
}

void FoldedText::foldASCII(QStringView text)
{
    _end = text.size();
    for (qsizetype index = 0; index < text.size(); ++index) {
        const char16_t unit = text[index].unicode();
        const bool isUpper = unit >= u'A' && unit <= u'Z';
        const bool isBlank = unit == u' ' || (unit >= u'\t' && unit <= u'\r');
        append(isUpper        ? unit + (u'a' - u'A')
               : isBlank      ? u' '
               : unit == u'`' ? u'\''
                              : unit,
               index);
    }
}

void FoldedText::foldOthers(QStringView text)
{
    _end = text.size();
    const icu::UnicodeString typed = ICU::aliasOf(text);
    for (int32_t begin = 0; begin < typed.length();) {
        const int32_t end = endOfCluster(typed, begin);
        const icu::UnicodeString folded = foldedCluster(typed.tempSubStringBetween(begin, end));
        for (int32_t index = 0; index < folded.length(); index = folded.moveIndex32(index, 1)) {
            if (!isInvisible(folded.char32At(index)))
                appendCharacter(char32_t(plainCharacter(folded.char32At(index))), begin);
        }
        begin = end;
    }
}

void FoldedText::appendCharacter(char32_t character, qsizetype position)
{
    for (const char16_t unit : QChar::fromUcs4(character))
        append(unit, position);
}

/// One blank for a run of them, none at the beginning.
void FoldedText::append(char16_t unit, qsizetype position)
{
    if (unit == u' ' && (_units.isEmpty() || _units.back() == u' '))
        return;
    _units.append(unit);
    _positions.append(quint16(position));
}
