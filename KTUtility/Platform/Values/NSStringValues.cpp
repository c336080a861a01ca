#include "NSStringValues.h"

#include "NSScanner.h"

namespace {
bool isOneOf(QStringView set, QStringView text, qsizetype index)
{
    return index < text.size() && set.contains(text[index]);
}
} // namespace

qint64 NSString::integerValue(QStringView text)
{
    qint64 value = 0;
    // The scanner takes whitespace between a sign and the digits; the value of a text does not.
    const qsizetype start =
        NSSkipCharacters(text, 0, NSCharacterSet::whitespaceAndNewlineCharacterSet());
    const qsizetype digits = start + isOneOf(u"+-", text, start);
    if (isOneOf(u"0123456789", text, digits))
        NSScanner(text.sliced(start)).scanLongLong(&value);
    return value;
}

double NSString::doubleValue(QStringView text)
{
    double value = 0;
    NSScanner(text).scanDouble(&value);
    return value;
}

bool NSString::boolValue(QStringView text)
{
    qsizetype index = NSSkipCharacters(text, 0, NSCharacterSet::whitespaceAndNewlineCharacterSet());
    if (isOneOf(u"YyTt", text, index))
        return true;
    index += isOneOf(u"+-", text, index);
    while (isOneOf(u"0", text, index))
        ++index;
    return isOneOf(u"123456789", text, index);
}
