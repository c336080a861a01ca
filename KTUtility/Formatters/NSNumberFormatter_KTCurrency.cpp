#include "NSNumberFormatter_KTCurrency.h"

#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

namespace {
constexpr char16_t MinusSign = u'\u2212';

void openParentheses(QString &prefix, QString &suffix)
{
    const qsizetype sign = prefix.indexOf(u'-');
    if (sign < 0)
        return;
    prefix[sign] = u'(';
    if (!suffix.contains(u')'))
        suffix.prepend(u')');
}

void closeParentheses(QString &prefix, QString &suffix)
{
    const qsizetype opening = prefix.indexOf(u'(');
    if (opening < 0)
        return;
    prefix[opening] = u'-';
    if (const qsizetype closing = suffix.indexOf(u')'); closing >= 0)
        suffix.remove(closing, 1);
}
} // namespace

void KTCurrency::setFormatNegativeUsingParens(NSNumberFormatter &formatter, bool flag)
{
    QString prefix = formatter.negativePrefix();
    QString suffix = formatter.negativeSuffix();
    const bool hasOwnMinus = formatter.minusSign() == QString(QChar(MinusSign));
    prefix.replace(QChar(MinusSign), u'-');
    if (flag)
        openParentheses(prefix, suffix);
    else
        closeParentheses(prefix, suffix);
    if (hasOwnMinus)
        prefix.replace(u'-', QChar(MinusSign));
    formatter.setNegativePrefix(prefix);
    formatter.setNegativeSuffix(suffix);
}
