#include "PhraseTable_p.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <iterator>

using namespace KTPrivate;

namespace {
bool isOfAWord(char16_t unit)
{
    return QChar(unit).isLetter() || QChar(unit).isMark();
}

/// Words of these scripts stand without blanks between them, or with endings that are words.
bool isWithoutBlanks(char16_t unit)
{
    constexpr UScriptCode Scripts[] = {USCRIPT_HAN,    USCRIPT_HIRAGANA, USCRIPT_KATAKANA,
                                       USCRIPT_HANGUL, USCRIPT_THAI,     USCRIPT_LAO,
                                       USCRIPT_KHMER,  USCRIPT_MYANMAR,  USCRIPT_TIBETAN};
    UErrorCode status = U_ZERO_ERROR;
    const UScriptCode script = uscript_getScript(unit, &status);
    return std::find(std::begin(Scripts), std::end(Scripts), script) != std::end(Scripts);
}
} // namespace

bool KTPrivate::isWordEnd(QStringView folded, qsizetype position)
{
    if (position <= 0 || position >= folded.size())
        return true;
    const char16_t before = folded[position - 1].unicode();
    const char16_t behind = folded[position].unicode();
    if (!isOfAWord(before) || !isOfAWord(behind))
        return true;
    return behind >= 0x0E00 && (isWithoutBlanks(before) || isWithoutBlanks(behind)) &&
           !QChar(behind).isMark();
}
