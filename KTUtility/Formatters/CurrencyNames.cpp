#include "CurrencyNames_p.h"

#include <KTUtility/Platform/Text/ASCII_p.h>
#include <KTUtility/Platform/Text/NSStringNormalization.h>

#include <unicode/ucurr.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QSet>

#include <algorithm>
#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype CodeLength = 3;

QString pluralName(const QByteArray &locale, const QString &code, const char *count)
{
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar *const name =
        ucurr_getPluralName(reinterpret_cast<const UChar *>(QStringView(code).utf16()),
                            locale.constData(), nullptr, count, &length, &status);
    return U_SUCCESS(status) ? QString(reinterpret_cast<const QChar *>(name), length) : QString();
}

/// The names for any number of units.
QStringList pluralNames(const NSLocale &locale, const QString &code)
{
    static constexpr std::array counts{"zero", "one", "two", "few", "many", "other"};
    const QByteArray identifier = locale.localeIdentifier().toLatin1();
    QStringList names;
    for (const char *count : counts)
        names.append(pluralName(identifier, code, count));
    return names;
}

/// Signs and names as the locale's data has them.
QStringList writtenNames(const NSLocale &locale, const QString &code)
{
    QStringList names{code, locale.displayNameForKey(NSLocaleCurrencySymbol, code),
                      locale.displayNameForKey(NSLocaleCurrencyCode, code)};
    if (locale.currencyCode() == code)
        names.append(locale.currencySymbol());
    return names + pluralNames(locale, code);
}

/// Whether a language says "US dollars" and not "dollars des États-Unis": the units, of which there
/// are few, are at the end of the names.
bool hasUnitsLast(const NSLocale &locale)
{
    QSet<QString> first;
    QSet<QString> last;
    for (const QString &code : NSLocale::commonISOCurrencyCodes()) {
        const QString name = locale.displayNameForKey(NSLocaleCurrencyCode, code);
        first.insert(name.section(u' ', 0, 0));
        last.insert(name.section(u' ', -1));
    }
    return last.size() < first.size();
}

/// At home the country is not named: "dollars" for "US dollars".
QStringList unitsIn(const QStringList &names, const NSLocale &locale)
{
    const qsizetype word = hasUnitsLast(locale) ? -1 : 0;
    QStringList units;
    for (const QString &name : names)
        units.append(name.section(u' ', word, word));
    return units;
}

QStringList readNames(const NSLocale &locale, const QString &code)
{
    QStringList names;
    QStringList written = writtenNames(locale, code);
    if (locale.currencyCode() == code)
        written += unitsIn(pluralNames(locale, code), locale);
    for (const QString &name : written) {
        names.append(CurrencyNames::folded(name).trimmed());
        if (names.last().endsWith(u'.'))
            names.append(names.last().chopped(1));
    }
    names.removeAll(QString());
    names.removeDuplicates();
    const auto isLonger = [](const QString &left, const QString &right) {
        return left.size() > right.size();
    };
    std::stable_sort(names.begin(), names.end(), isLonger);
    return names;
}

/// Whether no letter on either side of it makes a name a part of a longer word.
bool isWord(const QString &text, qsizetype index, qsizetype length)
{
    const auto joins = [&text](qsizetype left) {
        return left >= 0 && left + 1 < text.size() && text[left].isLetter() &&
               text[left + 1].isLetter();
    };
    return !joins(index - 1) && !joins(index + length - 1);
}

qsizetype indexOfWord(const QString &text, const QString &name)
{
    qsizetype index = text.indexOf(name);
    while (index >= 0 && !isWord(text, index, name.size()))
        index = text.indexOf(name, index + 1);
    return index;
}
} // namespace

QString CurrencyNames::folded(const QString &text)
{
    if (ASCII::isAllOf(text))
        return text.toLower();
    return NSString::foldedStringWithCompatibilityMapping(text)
        .replace(QChar(u'₤'), QChar(u'£'))
        .replace(QChar(u'₨'), u"rs"_s)
        .replace(QChar(u'₹'), u"rs"_s);
}

QStringList CurrencyNames::of(const NSLocale &locale, const QString &code)
{
    constexpr int MaximumKnown = 4096;
    static QMutex mutex;
    static QHash<QString, QStringList> known;
    if (code.size() != CodeLength)
        return {};
    const QString key = locale.localeIdentifier() + u' ' + code;
    const QMutexLocker lock(&mutex);
    if (const auto names = known.constFind(key); names != known.constEnd())
        return *names;
    if (known.size() >= MaximumKnown)
        known.clear();
    return *known.insert(key, readNames(locale, code));
}

QString CurrencyNames::replacedByCode(const QString &text, const NSLocale &locale,
                                      const QString &code)
{
    QString typed = folded(text.left(MaximumLength));
    const QStringList names = of(locale, code);
    for (const QString &name : names) {
        if (const qsizetype index = indexOfWord(typed, name); index >= 0)
            return typed.replace(index, name.size(), code);
    }
    return {};
}
