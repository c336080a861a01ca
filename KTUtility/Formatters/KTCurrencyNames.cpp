#include "KTCurrencyFormatter_p.h"

#include <unicode/ucurr.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <array>

// Which currencies a typed text can mean.

namespace {
/// A currency with everything that ICU reads as its name in one locale.
struct CurrencyNames
{
    QString code;
    QStringList names;
};

/// One form for what ICU's lenient parser takes for the same: case, compatibility characters and
/// the look-alikes of signs (CLDR's lenient sets for currencies).
QString folded(const QString &text)
{
    return text.normalized(QString::NormalizationForm_KC)
        .toCaseFolded()
        .replace(QChar(u'₤'), QChar(u'£'))
        .replace(QChar(u'₨'), QStringLiteral("rs"))
        .replace(QChar(u'₹'), QStringLiteral("rs"));
}

QString pluralName(const QByteArray &locale, const QString &code, const char *count)
{
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar *const name =
        ucurr_getPluralName(reinterpret_cast<const UChar *>(QStringView(code).utf16()),
                            locale.constData(), nullptr, count, &length, &status);
    return U_SUCCESS(status) ? QString(reinterpret_cast<const QChar *>(name), length) : QString();
}

CurrencyNames namesOf(const NSLocale &locale, const QByteArray &identifier, const QString &code)
{
    static constexpr std::array counts{"zero", "one", "two", "few", "many", "other"};
    QStringList names{code, locale.displayNameForKey(NSLocaleCurrencySymbol, code),
                      locale.displayNameForKey(NSLocaleCurrencyCode, code)};
    if (locale.currencyCode() == code)
        names.append(locale.currencySymbol());
    for (const char *count : counts)
        names.append(pluralName(identifier, code, count));
    for (QString &name : names)
        name = folded(name).trimmed();
    names.removeDuplicates();
    names.removeAll(QString());
    return {code, names};
}

QList<CurrencyNames> readNames(const NSLocale &locale)
{
    const QByteArray identifier = locale.localeIdentifier().toLatin1();
    QList<CurrencyNames> currencies;
    for (const QString &code : NSLocale::commonISOCurrencyCodes()) {
        if (!KTCurrencyFormatter_Private::isRefused(code))
            currencies.append(namesOf(locale, identifier, code));
    }
    return currencies;
}

/// The names of all currencies, read once for each locale.
QList<CurrencyNames> namesIn(const NSLocale &locale)
{
    static QMutex mutex;
    static QHash<QString, QList<CurrencyNames>> known;
    const QMutexLocker lock(&mutex);
    QList<CurrencyNames> &names = known[locale.localeIdentifier()];
    if (names.isEmpty())
        names = readNames(locale);
    return names;
}
} // namespace

QStringList KTCurrencyFormatter_Private::candidates(const NSLocale &locale, const QString &text)
{
    const QString typed = folded(text);
    const QList<CurrencyNames> currencies = namesIn(locale);
    QStringList codes;
    for (const CurrencyNames &currency : currencies) {
        const bool occurs = std::any_of(currency.names.begin(), currency.names.end(),
                                        [&](const QString &name) { return typed.contains(name); });
        if (occurs)
            codes.append(currency.code);
    }
    return codes;
}
