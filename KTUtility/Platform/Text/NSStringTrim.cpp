#include "NSStringTrim.h"

QString NSString::stringByTrimmingCharactersInSet(const QString &text, const NSCharacterSet &set)
{
    const qsizetype start = NSSkipCharacters(text, 0, set);
    qsizetype end = text.size();
    while (end > start) {
        const NSCodePoint point = NSCodePointBefore(text, end);
        if (!set.characterIsMember(point.character))
            break;
        end -= point.length;
    }
    return end - start == text.size() ? text : text.sliced(start, end - start);
}

QString NSString::stringByTrimmingWhitespaceAndNewlines(const QString &text)
{
    return stringByTrimmingCharactersInSet(text,
                                           NSCharacterSet::whitespaceAndNewlineCharacterSet());
}
