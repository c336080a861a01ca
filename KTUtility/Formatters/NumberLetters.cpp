#include "NumberLetters_p.h"

#include "CurrencyNames_p.h"
#include "KTCurrencyFormatter_p.h"
#include "KTNumberFormatter_p.h"
#include <KTUtility/Platform/Text/ASCII_p.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

using namespace KTPrivate;

namespace {
/// Letters of ASCII, each a bit, in either case.
using Letters = quint32;

Letters lettersOf(QStringView text)
{
    Letters letters = 0;
    for (const QChar unit : text) {
        if (ASCII::isLetter(unit.unicode()))
            letters |= Letters(1) << (unit.unicode() & 0x1F);
    }
    return letters;
}

/// What stands around, in or instead of the digits.
Letters lettersOf(const NSNumberFormatter &formatter)
{
    Letters letters = 0;
    for (const QString &text :
         {formatter.positivePrefix(), formatter.positiveSuffix(), formatter.negativePrefix(),
          formatter.negativeSuffix(), formatter.plusSign(), formatter.minusSign(),
          formatter.exponentSymbol(), formatter.notANumberSymbol(),
          formatter.positiveInfinitySymbol(), formatter.currencyDecimalSeparator(),
          formatter.currencyGroupingSeparator(), formatter.internationalCurrencySymbol(),
          formatter.currencySymbol()})
        letters |= lettersOf(text);
    return letters;
}

Letters lettersOfNumbers(const NSLocale &locale)
{
    return lettersOf(*KTNumberFormatter_Private::createInputFormatterWithLocale(locale)) |
           lettersOf(u"e");
}

Letters lettersOfAmounts(const NSLocale &locale, const QString &code, const QString &symbol)
{
    const auto formatter = KTCurrencyFormatter_Private::createCurrencyFormatterWithLocale(locale);
    formatter->setCurrencyCode(code);
    Letters letters = lettersOf(*formatter) | lettersOf(symbol) | lettersOf(u"e");
    for (const QString &name : CurrencyNames::of(locale, code))
        letters |= lettersOf(name);
    return letters;
}

/// Whether the letters are among those that \a read answers, which is asked once for each key.
template<typename Read>
bool areAmong(Letters letters, const QString &key, const Read &read)
{
    constexpr int MaximumKnown = 4096;
    static QMutex mutex;
    static QHash<QString, Letters> known;
    const QMutexLocker lock(&mutex);
    auto found = known.constFind(key);
    if (found == known.constEnd()) {
        if (known.size() >= MaximumKnown)
            known.clear();
        found = known.insert(key, read());
    }
    return (letters & ~*found) == 0;
}
} // namespace

bool NumberLetters::mayBeNumber(QStringView text, const NSLocale &locale)
{
    const Letters letters = lettersOf(text);
    return letters == 0 ||
           areAmong(letters, locale.localeIdentifier(), [&] { return lettersOfNumbers(locale); });
}

bool NumberLetters::mayBeAmount(QStringView text, const NSLocale &locale, const QString &code,
                                const QString &symbol)
{
    const Letters letters = lettersOf(text);
    return letters == 0 ||
           areAmong(letters, locale.localeIdentifier() + u' ' + code + u' ' + symbol,
                    [&] { return lettersOfAmounts(locale, code, symbol); });
}
