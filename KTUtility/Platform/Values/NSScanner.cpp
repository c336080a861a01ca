#include "NSScanner.h"

#include "NSException.h"
#include "NSStringFormat.h"
#include <KTUtility/Platform/Text/NSStringCompare.h>

#include <algorithm>
#include <limits>

namespace {
/// The value of a digit in \a base, or -1.
int digitValue(QStringView text, qsizetype index, int base)
{
    if (index >= text.size())
        return -1;
    const char16_t unit = text[index].unicode();
    const int value = unit >= u'0' && unit <= u'9'   ? unit - u'0'
                      : unit >= u'a' && unit <= u'f' ? unit - u'a' + 10
                      : unit >= u'A' && unit <= u'F' ? unit - u'A' + 10
                                                     : -1;
    return value < base ? value : -1;
}

bool isUnit(QStringView text, qsizetype index, QStringView units)
{
    return index < text.size() && units.contains(text[index]);
}

/// Reads digits from \a index on into \a value, stopping the growth at \a limit.
/// \return the index behind the last digit.
qsizetype readDigits(QStringView text, qsizetype index, int base, quint64 limit, quint64 *value)
{
    *value = 0;
    for (int digit; (digit = digitValue(text, index, base)) >= 0; ++index) {
        const bool fits = *value <= (limit - quint64(digit)) / quint64(base);
        *value = fits ? *value * quint64(base) + quint64(digit) : limit;
    }
    return index;
}

qsizetype skipDigits(QStringView text, qsizetype index)
{
    while (digitValue(text, index, 10) >= 0)
        ++index;
    return index;
}

/// The index behind an exponent at \a index; \a index itself if there is none.
qsizetype skipExponent(QStringView text, qsizetype index)
{
    if (!isUnit(text, index, u"eE"))
        return index;
    const qsizetype digits = index + 1 + isUnit(text, index + 1, u"+-");
    const qsizetype end = skipDigits(text, digits);
    return end > digits ? end : index;
}
} // namespace

NSScanner::NSScanner(const QString &text) : _text(text) {}

NSScanner::NSScanner(QStringView text) : NSScanner(text.toString()) {}

void NSScanner::setScanLocation(qsizetype location)
{
    if (location < 0 || location > _text.size())
        NSException::raise(NSRangeException,
                           NSString::stringWithFormat(
                               u"-[NSScanner setScanLocation:]: location %d beyond length %d",
                               location, _text.size()));
    _location = location;
}

void NSScanner::setCharactersToBeSkipped(const NSCharacterSet &set)
{
    _skipped = set;
}

qsizetype NSScanner::skipped() const
{
    return NSSkipCharacters(_text, _location, _skipped);
}

bool NSScanner::isAtEnd() const
{
    return skipped() == _text.size();
}

bool NSScanner::finish(qsizetype start, qsizetype end, QString *result)
{
    if (end <= start)
        return false;
    if (result)
        *result = _text.sliced(start, end - start);
    _location = end;
    return true;
}

bool NSScanner::scanCharactersFromSet(const NSCharacterSet &set, QString *intoString)
{
    const qsizetype start = skipped();
    return finish(start, NSSkipCharacters(_text, start, set), intoString);
}

bool NSScanner::scanUpToCharactersFromSet(const NSCharacterSet &set, QString *intoString)
{
    const qsizetype start = skipped();
    return finish(start, NSFindCharacter(_text, start, set), intoString);
}

qsizetype NSScanner::lengthOfMatch(QStringView string, qsizetype at) const
{
    const auto sensitivity = _caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    return NSString::lengthOfCanonicalPrefix(QStringView(_text).sliced(at), string, sensitivity);
}

bool NSScanner::scanString(QStringView string, QString *intoString)
{
    const qsizetype start = skipped();
    return finish(start, start + lengthOfMatch(string, start), intoString);
}

bool NSScanner::scanUpToString(QStringView string, QString *intoString)
{
    const qsizetype start = skipped();
    const auto sensitivity = _caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const qsizetype found = NSString::indexOfCanonical(_text, string, start, sensitivity);
    return finish(start, found < 0 ? _text.size() : found, intoString);
}

bool NSScanner::scanLongLong(qint64 *value)
{
    qsizetype index = skipped();
    const bool isNegative = isUnit(_text, index, u"-");
    index += isUnit(_text, index, u"+-");
    index = NSSkipCharacters(_text, index, _skipped);
    quint64 magnitude = 0;
    const quint64 limit = quint64(std::numeric_limits<qint64>::max()) + isNegative;
    const qsizetype end = readDigits(_text, index, 10, limit, &magnitude);
    if (end == index)
        return false;
    if (value)
        *value = qint64(isNegative ? 0 - magnitude : magnitude);
    _location = end;
    return true;
}

bool NSScanner::scanInt(qint32 *value)
{
    qint64 wide = 0;
    if (!scanLongLong(&wide))
        return false;
    if (value)
        *value = qint32(std::clamp<qint64>(wide, std::numeric_limits<qint32>::min(),
                                           std::numeric_limits<qint32>::max()));
    return true;
}

bool NSScanner::scanHexLongLong(quint64 *value)
{
    qsizetype index = skipped();
    if (isUnit(_text, index, u"0") && isUnit(_text, index + 1, u"xX") &&
        digitValue(_text, index + 2, 16) >= 0)
        index += 2;
    quint64 number = 0;
    const qsizetype end =
        readDigits(_text, index, 16, std::numeric_limits<quint64>::max(), &number);
    if (end == index)
        return false;
    if (value)
        *value = number;
    _location = end;
    return true;
}

bool NSScanner::scanHexInt(quint32 *value)
{
    quint64 wide = 0;
    if (!scanHexLongLong(&wide))
        return false;
    if (value)
        *value = quint32(std::min<quint64>(wide, std::numeric_limits<quint32>::max()));
    return true;
}

bool NSScanner::scanDouble(double *value)
{
    const qsizetype start = skipped();
    const qsizetype whole = start + isUnit(_text, start, u"+-");
    qsizetype end = skipDigits(_text, whole);
    qsizetype digits = end - whole;
    if (isUnit(_text, end, u".")) {
        const qsizetype fraction = skipDigits(_text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0)
        return false;
    end = skipExponent(_text, end);
    if (value)
        *value = QStringView(_text).sliced(start, end - start).toDouble();
    _location = end;
    return true;
}
