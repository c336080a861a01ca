#include "NSDateEnvironment_p.h"

#include "NSCalendarEngine_p.h"
#include "NSDateSymbols_p.h"
#include "NSICU_p.h"

#include <unicode/calendar.h>
#include <unicode/smpdtfmt.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

namespace {
/// Newer locale data separate with special spaces, which nobody can type.
QString withPlainBlanks(QString pattern)
{
    for (const char16_t space : {u'\u202F', u'\u00A0', u'\u2009'})
        pattern.replace(space, u' ');
    return pattern;
}

icu::DateFormat::EStyle styleOf(size_t number)
{
    constexpr std::array Styles{icu::DateFormat::kNone, icu::DateFormat::kShort,
                                icu::DateFormat::kMedium, icu::DateFormat::kLong,
                                icu::DateFormat::kFull};
    return Styles[number];
}

QString patternOf(const std::unique_ptr<icu::DateFormat> &format)
{
    const auto *const simple = dynamic_cast<const icu::SimpleDateFormat *>(format.get());
    if (!simple)
        return {};
    icu::UnicodeString pattern;
    return withPlainBlanks(NSICU::stringOf(simple->toPattern(pattern)));
}

QString typeOfCalendar(const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
    return U_SUCCESS(status) && calendar ? QString::fromLatin1(calendar->getType())
                                         : NSGregorianCalendar;
}

std::unique_ptr<icu::DateFormatSymbols> symbolsFor(const icu::Locale &locale,
                                                   const NSDateCustoms &customs)
{
    UErrorCode status = U_ZERO_ERROR;
    auto symbols = std::make_unique<icu::DateFormatSymbols>(locale, status);
    for (size_t kind = 0; kind < customs.symbols.size(); ++kind) {
        if (customs.symbols[kind])
            NSDateSymbols::setNames(symbols.get(), NSDateFormatterSymbols(kind),
                                    *customs.symbols[kind]);
    }
    return symbols;
}
} // namespace

NSDateEnvironment::NSDateEnvironment(const NSLocale &nsLocale, const QString &calendar,
                                     const NSDateCustoms &own)
    : locale(NSICU::localeOf(nsLocale, calendar))
    , customs(own)
    , calendarType(typeOfCalendar(locale))
    , isGregorian(calendarType == NSGregorianCalendar)
    , isEnglish(nsLocale.languageCode() == u"en")
    , _symbols(symbolsFor(locale, own))
{
    using icu::DateFormat;
    for (size_t style = 1; style < _datePatterns.size(); ++style) {
        _datePatterns[style] = patternOf(
            std::unique_ptr<DateFormat>(DateFormat::createDateInstance(styleOf(style), locale)));
        _timePatterns[style] = patternOf(
            std::unique_ptr<DateFormat>(DateFormat::createTimeInstance(styleOf(style), locale)));
    }
}

std::shared_ptr<const NSDateEnvironment> NSDateEnvironment::environmentOf(const NSLocale &locale,
                                                                          const QString &calendar)
{
    static QMutex mutex;
    static QHash<std::pair<QString, QString>, std::shared_ptr<const NSDateEnvironment>> known;
    const QMutexLocker lock(&mutex);
    std::shared_ptr<const NSDateEnvironment> &environment =
        known[{locale.localeIdentifier(), calendar}];
    if (!environment)
        environment = std::make_shared<const NSDateEnvironment>(locale, calendar, NSDateCustoms());
    return environment;
}

std::shared_ptr<const NSDateEnvironment>
NSDateEnvironment::environmentOf(const NSLocale &locale, const QString &calendar,
                                 const NSDateCustoms &customs)
{
    if (customs == NSDateCustoms())
        return environmentOf(locale, calendar);
    return std::make_shared<const NSDateEnvironment>(locale, calendar, customs);
}

QString NSDateEnvironment::patternOfStyles(unsigned date, unsigned time) const
{
    const QString &datePattern = _datePatterns[date];
    const QString &timePattern = _timePatterns[time];
    if (datePattern.isEmpty() && timePattern.isEmpty())
        return QStringLiteral("");
    if (datePattern.isEmpty() || timePattern.isEmpty())
        return datePattern + timePattern;
    return datePattern + u' ' + timePattern;
}

QStringList NSDateEnvironment::symbolsOf(NSDateFormatterSymbols kind) const
{
    return NSDateSymbols::names(*_symbols, kind);
}
