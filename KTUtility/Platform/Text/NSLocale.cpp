#include "NSLocale.h"

#include "CommonCurrencies_p.h"
#include "EnvironmentLocale_p.h"

#include <unicode/ucal.h>
#include <unicode/ucurr.h>
#include <unicode/uenum.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <QHash>
#include <QLocale>
#include <QMutex>
#include <QMutexLocker>

#include <array>
#include <functional>
#include <optional>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

const QString NSLocaleIdentifier = u"identifier"_s;
const QString NSLocaleLanguageCode = u"languageCode"_s;
const QString NSLocaleScriptCode = u"scriptCode"_s;
const QString NSLocaleCountryCode = u"countryCode"_s;
const QString NSLocaleVariantCode = u"variantCode"_s;
const QString NSLocaleCalendar = u"calendar"_s;
const QString NSLocaleCurrencyCode = u"currency"_s;
const QString NSLocaleCurrencySymbol = u"currencySymbol"_s;
const QString NSLocaleDecimalSeparator = u"decimalSeparator"_s;
const QString NSLocaleGroupingSeparator = u"groupingSeparator"_s;
const QString NSGregorianCalendar = u"gregorian"_s;
const QString NSJapaneseCalendar = u"japanese"_s;

struct NSLocale::Data
{
    QString identifier;
    QString language;
    QString country;
    QString currencyCode;
    QString currencySymbol;
    QString calendar;
    QString decimalSeparator;
    QString groupingSeparator;
};

namespace {
struct EnumerationCloser
{
    void operator()(UEnumeration *enumeration) const { uenum_close(enumeration); }
};
using Enumeration = std::unique_ptr<UEnumeration, EnumerationCloser>;

struct NumberFormatCloser
{
    void operator()(UNumberFormat *format) const { unum_close(format); }
};
using NumberFormat = std::unique_ptr<UNumberFormat, NumberFormatCloser>;

struct CalendarCloser
{
    void operator()(UCalendar *calendar) const { ucal_close(calendar); }
};
using Calendar = std::unique_ptr<UCalendar, CalendarCloser>;

/// Identifiers and codes are ASCII; what is longer than any of them is cut by ICU.
using AsciiPart = std::function<int32_t(const char *, char *, int32_t, UErrorCode *)>;

/// One part of an identifier; nil if it is missing.
QString partOfIdentifier(const QByteArray &identifier, const AsciiPart &part)
{
    std::array<char, ULOC_FULLNAME_CAPACITY + ULOC_KEYWORD_AND_VALUES_CAPACITY> buffer{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        part(identifier.constData(), buffer.data(), int32_t(buffer.size()), &status);
    if (U_FAILURE(status) || length <= 0)
        return {};
    return QString::fromLatin1(buffer.data(), length);
}

/// Texts that ICU writes into a buffer of UTF-16.
QString textOf(const std::function<int32_t(UChar *, int32_t, UErrorCode *)> &write)
{
    std::array<UChar, 256> buffer{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = write(buffer.data(), int32_t(buffer.size()), &status);
    if (U_FAILURE(status) || length > int32_t(buffer.size()))
        return {};
    return QString(reinterpret_cast<const QChar *>(buffer.data()), length);
}

QByteArray asciiOf(const QString &identifier)
{
    return identifier.toLatin1();
}

/// The identifier in ICU's spelling; root is the empty one.
QString canonicalIdentifier(const QString &identifier)
{
    const QString known = partOfIdentifier(asciiOf(identifier), uloc_getName);
    return known == u"root" ? QString() : known;
}

QString symbolOf(const UNumberFormat *format, UNumberFormatSymbol symbol)
{
    return textOf([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return unum_getSymbol(format, symbol, buffer, capacity, status);
    });
}

QString currencyCodeOf(const UNumberFormat *format)
{
    return textOf([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return unum_getTextAttribute(format, UNUM_CURRENCY_CODE, buffer, capacity, status);
    });
}

QString calendarOf(const QByteArray &identifier)
{
    UErrorCode status = U_ZERO_ERROR;
    const Calendar calendar(ucal_open(nullptr, 0, identifier.constData(), UCAL_DEFAULT, &status));
    const char *const type = calendar ? ucal_getType(calendar.get(), &status) : nullptr;
    return U_SUCCESS(status) && type ? QString::fromLatin1(type) : NSGregorianCalendar;
}

NumberFormat currencyFormatOf(const QByteArray &identifier)
{
    UErrorCode status = U_ZERO_ERROR;
    NumberFormat format(
        unum_open(UNUM_CURRENCY, nullptr, 0, identifier.constData(), nullptr, &status));
    return U_SUCCESS(status) ? std::move(format) : nullptr;
}

/// The locale that the application chose, if it did.
struct ChosenLocale
{
    QMutex mutex;
    std::optional<NSLocale> locale;
};

ChosenLocale &chosenLocale()
{
    static ChosenLocale chosen;
    return chosen;
}

/// Qt's locale as an identifier; the script only where the region does not imply it.
QString identifierOf(const QLocale &locale)
{
    if (locale.language() == QLocale::C)
        return u"en_US"_s;
    const QString name = locale.name();
    const QString script = QLocale::scriptToCode(locale.script());
    if (script.isEmpty() || QLocale(name).script() == locale.script())
        return name;
    return QString(name).replace(u'_', u'_' + script + u'_');
}

/// Qt's locale; each new formatter asks.
NSLocale qtLocale(const QLocale &locale)
{
    thread_local QLocale known;
    thread_local NSLocale same(identifierOf(known));
    if (locale != known) {
        known = locale;
        same = NSLocale(identifierOf(locale));
    }
    return same;
}

QByteArray environmentName(NSLocale::Category category)
{
    switch (category) {
    case NSLocale::Category::Numbers:
        return EnvironmentLocale::nameFor("LC_NUMERIC");
    case NSLocale::Category::Money:
        return EnvironmentLocale::nameFor("LC_MONETARY");
    case NSLocale::Category::Dates:
        return EnvironmentLocale::nameFor("LC_TIME");
    case NSLocale::Category::Texts:
        break;
    }
    return EnvironmentLocale::nameForTexts();
}

/// The environment's locale; names are few, and each is read once.
NSLocale environmentLocale(NSLocale::Category category)
{
    thread_local QHash<QByteArray, NSLocale> known;
    const QByteArray name = environmentName(category);
    const auto found = known.constFind(name);
    return found != known.cend()
               ? *found
               : *known.insert(name, NSLocale(EnvironmentLocale::identifierOf(name)));
}

QString currencyName(const QByteArray &identifier, const QString &code, UCurrNameStyle style)
{
    if (code.size() != 3)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar *const name =
        ucurr_getName(reinterpret_cast<const UChar *>(QStringView(code.toUpper()).utf16()),
                      identifier.constData(), style, nullptr, &length, &status);
    if (U_FAILURE(status) || !name)
        return code;
    return QString(reinterpret_cast<const QChar *>(name), length);
}

using DisplayName = int32_t (*)(const char *, const char *, UChar *, int32_t, UErrorCode *);

/// ICU names the parts of whole identifiers; \a prefix makes one of a bare code.
QString displayName(const QByteArray &identifier, const QByteArray &prefix, const QString &value,
                    DisplayName function)
{
    const QByteArray named = prefix + asciiOf(value);
    return textOf([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return function(named.constData(), identifier.constData(), buffer, capacity, status);
    });
}

QString calendarName(const QByteArray &identifier, const QString &calendar)
{
    const QByteArray named = "@calendar=" + asciiOf(calendar);
    return textOf([&](UChar *buffer, int32_t capacity, UErrorCode *status) {
        return uloc_getDisplayKeywordValue(named.constData(), "calendar", identifier.constData(),
                                           buffer, capacity, status);
    });
}

QStringList commonCodes()
{
    return QString::fromLatin1(CommonCurrencies.data(), qsizetype(CommonCurrencies.size()))
        .split(u' ');
}

QStringList readAvailableIdentifiers()
{
    QStringList result;
    for (int32_t index = 0; index < uloc_countAvailable(); ++index)
        result.append(QString::fromLatin1(uloc_getAvailable(index)));
    result.sort();
    return result;
}

/// The keywords of an identifier with their values.
QVariantMap keywordsOf(const QByteArray &identifier)
{
    UErrorCode status = U_ZERO_ERROR;
    const Enumeration names(uloc_openKeywords(identifier.constData(), &status));
    QVariantMap keywords;
    while (const char *name = names ? uenum_next(names.get(), nullptr, &status) : nullptr) {
        const auto value = [name](const char *locale, char *buffer, int32_t size, UErrorCode *e) {
            return uloc_getKeywordValue(locale, name, buffer, size, e);
        };
        keywords.insert(QString::fromLatin1(name), partOfIdentifier(identifier, value));
    }
    return keywords;
}

struct NamedPart
{
    const QString &key;
    int32_t (*function)(const char *, char *, int32_t, UErrorCode *);
};

/// The parts before the keywords, in the order in which they stand.
const std::array<NamedPart, 4> &namedParts()
{
    static const std::array<NamedPart, 4> parts{{{NSLocaleLanguageCode, uloc_getLanguage},
                                                 {NSLocaleScriptCode, uloc_getScript},
                                                 {NSLocaleCountryCode, uloc_getCountry},
                                                 {NSLocaleVariantCode, uloc_getVariant}}};
    return parts;
}
} // namespace

std::shared_ptr<const NSLocale::Data> NSLocale::dataFor(const QString &identifier)
{
    static QMutex mutex;
    static QHash<QString, std::shared_ptr<const Data>> known;
    const QMutexLocker lock(&mutex);
    std::shared_ptr<const Data> &entry = known[identifier];
    if (entry)
        return entry;
    const QString name = canonicalIdentifier(identifier);
    const QByteArray ascii = asciiOf(name);
    Data data{name,
              partOfIdentifier(ascii, uloc_getLanguage),
              partOfIdentifier(ascii, uloc_getCountry),
              {},
              {},
              calendarOf(ascii),
              {},
              {}};
    if (const NumberFormat format = currencyFormatOf(ascii)) {
        data.currencyCode = currencyCodeOf(format.get());
        data.currencySymbol = symbolOf(format.get(), UNUM_CURRENCY_SYMBOL);
        data.decimalSeparator = symbolOf(format.get(), UNUM_DECIMAL_SEPARATOR_SYMBOL);
        data.groupingSeparator = symbolOf(format.get(), UNUM_GROUPING_SEPARATOR_SYMBOL);
    }
    entry = std::make_shared<const Data>(std::move(data));
    return entry;
}

NSLocale::NSLocale(const QString &localeIdentifier) : _data(dataFor(localeIdentifier)) {}

NSLocale NSLocale::currentLocale(Category category)
{
    ChosenLocale &chosen = chosenLocale();
    {
        const QMutexLocker lock(&chosen.mutex);
        if (chosen.locale)
            return *chosen.locale;
    }
    const QLocale locale;
    return locale == QLocale::system() ? environmentLocale(category) : qtLocale(locale);
}

void NSLocale::setCurrentLocale(const NSLocale &locale)
{
    ChosenLocale &chosen = chosenLocale();
    const QMutexLocker lock(&chosen.mutex);
    chosen.locale = locale;
}

void NSLocale::resetCurrentLocale()
{
    ChosenLocale &chosen = chosenLocale();
    const QMutexLocker lock(&chosen.mutex);
    chosen.locale.reset();
}

const QString &NSLocale::localeIdentifier() const
{
    return _data->identifier;
}

const QString &NSLocale::languageCode() const
{
    return _data->language;
}

const QString &NSLocale::countryCode() const
{
    return _data->country;
}

const QString &NSLocale::currencyCode() const
{
    return _data->currencyCode;
}

const QString &NSLocale::currencySymbol() const
{
    return _data->currencySymbol;
}

const QString &NSLocale::calendarIdentifier() const
{
    return _data->calendar;
}

const QString &NSLocale::decimalSeparator() const
{
    return _data->decimalSeparator;
}

const QString &NSLocale::groupingSeparator() const
{
    return _data->groupingSeparator;
}

QVariant NSLocale::objectForKey(const QString &key) const
{
    if (key == NSLocaleIdentifier)
        return _data->identifier;
    if (key == NSLocaleCalendar)
        return _data->calendar;
    if (key == NSLocaleCurrencyCode)
        return _data->currencyCode;
    if (key == NSLocaleCurrencySymbol)
        return _data->currencySymbol;
    if (key == NSLocaleDecimalSeparator)
        return _data->decimalSeparator;
    if (key == NSLocaleGroupingSeparator)
        return _data->groupingSeparator;
    return componentsFromLocaleIdentifier(_data->identifier).value(key);
}

QString NSLocale::displayNameForKey(const QString &key, const QString &value) const
{
    const QByteArray identifier = asciiOf(_data->identifier);
    if (key == NSLocaleCurrencySymbol)
        return currencyName(identifier, value, UCURR_SYMBOL_NAME);
    if (key == NSLocaleCurrencyCode)
        return currencyName(identifier, value, UCURR_LONG_NAME);
    if (key == NSLocaleIdentifier)
        return displayName(identifier, {}, value, uloc_getDisplayName);
    if (key == NSLocaleLanguageCode)
        return displayName(identifier, {}, value, uloc_getDisplayLanguage);
    if (key == NSLocaleScriptCode)
        return displayName(identifier, "und_", value, uloc_getDisplayScript);
    if (key == NSLocaleCountryCode)
        return displayName(identifier, "und_", value, uloc_getDisplayCountry);
    if (key == NSLocaleVariantCode)
        return displayName(identifier, "und__", value, uloc_getDisplayVariant);
    return key == NSLocaleCalendar ? calendarName(identifier, value) : QString();
}

const QStringList &NSLocale::commonISOCurrencyCodes()
{
    static const QStringList codes = commonCodes();
    return codes;
}

const QStringList &NSLocale::availableLocaleIdentifiers()
{
    static const QStringList identifiers = readAvailableIdentifiers();
    return identifiers;
}

QVariantMap NSLocale::componentsFromLocaleIdentifier(const QString &identifier)
{
    const QByteArray ascii = asciiOf(identifier);
    QVariantMap components = keywordsOf(ascii);
    for (const NamedPart &part : namedParts()) {
        const QString value = partOfIdentifier(ascii, part.function);
        if (!value.isNull())
            components.insert(part.key, value);
    }
    return components;
}

QString NSLocale::localeIdentifierFromComponents(const QVariantMap &components)
{
    QStringList parts;
    for (const NamedPart &part : namedParts()) {
        const QString value = components.value(part.key).toString();
        if (!value.isEmpty() || part.key == NSLocaleLanguageCode)
            parts.append(value);
    }
    const bool isVariantAlone =
        components.contains(NSLocaleVariantCode) && !components.contains(NSLocaleCountryCode);
    if (isVariantAlone)
        parts.insert(parts.size() - 1, QString());
    QVariantMap keywords = components;
    for (const NamedPart &part : namedParts())
        keywords.remove(part.key);
    QStringList assignments;
    for (auto keyword = keywords.cbegin(); keyword != keywords.cend(); ++keyword)
        assignments.append(keyword.key() + u'=' + keyword.value().toString());
    const QString name = parts.join(u'_');
    return assignments.isEmpty() ? name : QString(name + u'@' + assignments.join(u';'));
}
