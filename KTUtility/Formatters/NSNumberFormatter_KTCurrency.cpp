#include "NSNumberFormatter_KTCurrency.h"

#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

#include <algorithm>

namespace {
constexpr char16_t MinusSign = u'\u2212';

/// Where a prefix has its minus sign, in ASCII or of its own; -1 if it has none.
qsizetype indexOfMinus(const QString &prefix)
{
    const auto isMinus = [](QChar unit) { return unit == u'-' || unit == MinusSign; };
    const auto found = std::find_if(prefix.begin(), prefix.end(), isMinus);
    return found == prefix.end() ? -1 : found - prefix.begin();
}

void openParentheses(QString &prefix, QString &suffix)
{
    const qsizetype sign = indexOfMinus(prefix);
    if (sign < 0)
        return;
    prefix[sign] = u'(';
    if (!suffix.contains(u')'))
        suffix.prepend(u')');
}

void closeParentheses(QString &prefix, QString &suffix, QChar minus)
{
    const qsizetype opening = prefix.indexOf(u'(');
    if (opening < 0)
        return;
    prefix[opening] = minus;
    if (const qsizetype closing = suffix.indexOf(u')'); closing >= 0)
        suffix.remove(closing, 1);
}
} // namespace

void KTCurrency::setFormatNegativeUsingParens(NSNumberFormatter &formatter, bool flag)
{
    QString prefix = formatter.negativePrefix();
    QString suffix = formatter.negativeSuffix();
    // Marks of direction may stand beside the sign ("\u200E\u2212" in Persian).
    const bool hasOwnMinus = formatter.minusSign().contains(QChar(MinusSign));
    if (flag)
        openParentheses(prefix, suffix);
    else
        closeParentheses(prefix, suffix, hasOwnMinus ? QChar(MinusSign) : QChar(u'-'));
    formatter.setNegativePrefix(prefix);
    formatter.setNegativeSuffix(suffix);
}
