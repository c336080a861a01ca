#include "NumberText_p.h"

#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSScanner.h>

#include <algorithm>

using namespace KTPrivate;

namespace {
bool areBoth(char32_t left, char32_t right, const NSCharacterSet &set)
{
    return set.characterIsMember(left) && set.characterIsMember(right);
}
} // namespace

bool NumberText::isWhitespace(QChar unit)
{
    return NSCharacterSet::whitespaceCharacterSet().characterIsMember(unit.unicode());
}

bool NumberText::isDirectionMark(QChar unit)
{
    return QStringView(u"\u061C\u200E\u200F").contains(unit) ||
           (unit >= u'\u202A' && unit <= u'\u202E') || (unit >= u'\u2066' && unit <= u'\u2069');
}

NumberText::NumberText(QStringView text)
{
    qsizetype index = 0;
    while (index < text.size() && isWhitespace(text[index]))
        ++index;
    _begin = index;
    _squeezed.reserve(text.size() - index);
    for (bool isBehindWhitespace = false; index < text.size(); ++index) {
        if (isWhitespace(text[index])) {
            isBehindWhitespace = true;
            continue;
        }
        if (isBehindWhitespace && keepsSpaceBefore(text, index))
            append(u' ', index - 1);
        append(text[index], index);
        isBehindWhitespace = false;
    }
}

bool NumberText::keepsSpaceBefore(QStringView text, qsizetype index) const
{
    const char32_t before = NSCodePointBefore(_squeezed, _squeezed.size()).character;
    const char32_t after = NSCodePointAt(text, index).character;
    return areBoth(before, after, NSCharacterSet::letterCharacterSet()) ||
           areBoth(before, after, NSCharacterSet::decimalDigitCharacterSet());
}

void NumberText::append(QChar unit, qsizetype index)
{
    _squeezed.append(unit);
    _ends.append(index + 1);
}

qsizetype NumberText::endOf(qsizetype length) const
{
    if (length <= 0 || _ends.isEmpty())
        return _begin;
    return _ends[std::min(length, _ends.size()) - 1];
}
