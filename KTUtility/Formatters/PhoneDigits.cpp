#include "PhoneDigits_p.h"

#include <KTUtility/Platform/Text/NSCharacterSet.h>

using namespace Qt::StringLiterals;
using namespace KTPrivate;

namespace {
/// A switch, since every unit of every number is asked.
bool isPhoneSeparator(QChar unit)
{
    switch (unit.unicode()) {
    case u' ':
    case u'-':
    case u',':
    case u'.':
    case u'/':
    case u'(':
    case u')':
    case u'[':
    case u']':
    case u'{':
    case u'}':
        return true;
    default:
        return false;
    }
}
} // namespace

QString PhoneDigits::withoutSeparators(const QString &text)
{
    QString result = text;
    return result.removeIf(isPhoneSeparator);
}

QString PhoneDigits::literalsOf(const QString &pattern)
{
    return withoutSeparators(pattern).remove(Placeholder);
}

std::optional<QList<int>> PhoneDigits::valuesOf(QStringView text)
{
    QList<int> values;
    values.reserve(text.size());
    for (qsizetype index = 0; index < text.size();) {
        if (const char16_t unit = text[index].unicode(); unit >= u'0' && unit <= u'9') {
            values.append(unit - u'0');
            ++index;
            continue;
        }
        const NSCodePoint point = NSCodePointAt(text, index);
        if (!NSCharacterSet::decimalDigitCharacterSet().characterIsMember(point.character))
            return std::nullopt;
        values.append(QChar::digitValue(point.character));
        index += point.length;
    }
    return values;
}

bool PhoneDigits::isInternational(QStringView number)
{
    constexpr qsizetype MinimumDigits = 7;
    constexpr qsizetype MaximumDigits = 15;
    if (!number.startsWith(u'+'))
        return false;
    const std::optional<QList<int>> digits = valuesOf(number.sliced(1));
    return digits && digits->size() >= MinimumDigits && digits->size() <= MaximumDigits &&
           digits->front() != 0;
}
