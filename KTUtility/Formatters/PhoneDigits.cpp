#include "PhoneDigits_p.h"

#include <KTUtility/Platform/Text/NSCharacterSet.h>

using namespace Qt::StringLiterals;
using namespace KTPrivate;

QString PhoneDigits::withoutSeparators(const QString &text)
{
    constexpr QStringView separators = u" -,./()[]{}";
    QString result = text;
    return result.removeIf([&](QChar unit) { return separators.contains(unit); });
}

QString PhoneDigits::literalsOf(const QString &pattern)
{
    return withoutSeparators(pattern).remove(Placeholder);
}

std::optional<QList<int>> PhoneDigits::valuesOf(QStringView text)
{
    QList<int> values;
    for (qsizetype index = 0; index < text.size();) {
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
