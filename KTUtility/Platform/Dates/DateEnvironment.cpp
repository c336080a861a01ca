#include "DateEnvironment_p.h"

#include "CalendarEngine_p.h"
#include "DateSymbols_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/calendar.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Newer locale data separate with special spaces, which nobody can type.
QString withPlainSpaces(QString pattern)
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

using Format = std::unique_ptr<icu::SimpleDateFormat>;

/// Every format that ICU makes for a style has a pattern.
Format patternFormat(icu::DateFormat *made)
{
    auto *const format = dynamic_cast<icu::SimpleDateFormat *>(made);
    if (!format)
        delete made;
    return Format(format);
}

QString patternOf(const Format &format)
{
    if (!format)
        return {};
    icu::UnicodeString pattern;
    return withPlainSpaces(ICU::stringOf(format->toPattern(pattern)));
}

QString datePatternOf(size_t style, const icu::Locale &locale)
{
    return patternOf(patternFormat(icu::DateFormat::createDateInstance(styleOf(style), locale)));
}

QString timePatternOf(size_t style, const icu::Locale &locale)
{
    return patternOf(patternFormat(icu::DateFormat::createTimeInstance(styleOf(style), locale)));
}

/// ICU has no list of them.
std::array<icu::UnicodeString, 2> narrowHalvesOfDay(icu::SimpleDateFormat *format)
{
    constexpr double Day = 86'400'000;
    format->setTimeZone(*icu::TimeZone::getGMT());
    format->applyPattern(icu::UnicodeString(u"aaaaa"));
    std::array<icu::UnicodeString, 2> halves;
    format->format(Day, halves[0]);
    format->format(Day * 1.5, halves[1]);
    return halves;
}

void setCustomSymbols(icu::DateFormatSymbols *symbols, const DateCustoms &customs)
{
    for (size_t kind = 0; kind < customs.symbols.size(); ++kind) {
        if (customs.symbols[kind])
            DateSymbols::setNames(symbols, NSDateFormatterSymbols(kind), *customs.symbols[kind]);
    }
}
} // namespace

DateEnvironment::DateEnvironment(const NSLocale &nsLocale, const QString &calendar,
                                 const DateCustoms &own)
    : locale(ICU::localeOf(nsLocale, calendar))
    , customs(own)
    , calendarType(NSGregorianCalendar)
    , isEnglish(nsLocale.languageCode() == u"en")
{
    readCalendar();
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(icu::UnicodeString(), locale, status);
    const bool isMade = U_SUCCESS(status);
    makeSymbols(isMade ? &format : nullptr, calendar);
    if (isMade)
        readFormat(&format);
}

/// The names are those of the Gregorian calendar in every calendar. Where the format has these, they
/// are copied, which takes a fraction of the time.
void DateEnvironment::makeSymbols(const icu::SimpleDateFormat *format, const QString &calendar)
{
    UErrorCode status = U_ZERO_ERROR;
    if (format && isGregorian && calendar == NSGregorianCalendar)
        _symbols = std::make_unique<icu::DateFormatSymbols>(*format->getDateFormatSymbols());
    else
        _symbols = std::make_unique<icu::DateFormatSymbols>(locale, status);
    setCustomSymbols(_symbols.get(), customs);
}

void DateEnvironment::readCalendar()
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
    if (U_SUCCESS(status) && calendar) {
        calendarType = QString::fromLatin1(calendar->getType());
        firstWeekday = calendar->getFirstDayOfWeek(status);
    }
    isGregorian = calendarType == NSGregorianCalendar;
}

const QString &DateEnvironment::StylePattern::value(Make make, size_t style,
                                                    const icu::Locale &locale) const
{
    std::call_once(_once, [&] { _pattern = style == 0 ? QString() : make(style, locale); });
    return _pattern;
}

bool DateEnvironment::hasShortEras() const
{
    return calendarType == NSJapaneseCalendar;
}

bool DateEnvironment::hasCenturies() const
{
    return !hasShortEras() && calendarType != u"chinese" && calendarType != u"dangi";
}

void DateEnvironment::readFormat(icu::SimpleDateFormat *format)
{
    const auto *const numbers = dynamic_cast<const icu::DecimalFormat *>(format->getNumberFormat());
    if (!numbers)
        return;
    using icu::DecimalFormatSymbols;
    const DecimalFormatSymbols *const numberSymbols = numbers->getDecimalFormatSymbols();
    hasASCIIDigits = numberSymbols->getConstSymbol(DecimalFormatSymbols::kZeroDigitSymbol) == u"0";
    startOfNaN = QChar(numberSymbols->getConstSymbol(DecimalFormatSymbols::kNaNSymbol).charAt(0))
                     .toLower()
                     .unicode();
    makeNames(format);
    makeShownNames();
}

void DateEnvironment::makeShownNames()
{
    using Kind = NSDateFormatterSymbols;
    _shownNames.months = {symbolsOf(Kind::ShortMonth), symbolsOf(Kind::Month)};
    _shownNames.standaloneMonths = {symbolsOf(Kind::ShortStandaloneMonth),
                                    symbolsOf(Kind::StandaloneMonth)};
    _shownNames.weekdays = {symbolsOf(Kind::ShortWeekday), symbolsOf(Kind::Weekday)};
    _shownNames.halvesOfDay = {symbolsOf(Kind::AMPM), symbolsOf(Kind::AMPM)};
}

namespace {
using icu::DateFormatSymbols;

DateNameList monthsOf(const DateFormatSymbols &symbols, DateFormatSymbols::DtContextType context,
                      DateFormatSymbols::DtWidthType width)
{
    int32_t count = 0;
    const icu::UnicodeString *const names = symbols.getMonths(count, context, width);
    return {names, count, 0};
}

/// ICU's weekdays begin with an empty name.
DateNameList weekdaysOf(const DateFormatSymbols &symbols, DateFormatSymbols::DtWidthType width)
{
    int32_t count = 0;
    const icu::UnicodeString *const names =
        symbols.getWeekdays(count, DateFormatSymbols::FORMAT, width);
    return {names, count, 1};
}

DateNameList halvesOf(const DateFormatSymbols &symbols)
{
    int32_t count = 0;
    const icu::UnicodeString *const names = symbols.getAmPmStrings(count);
    return {names, count, 0};
}
} // namespace

void DateEnvironment::makeNames(icu::SimpleDateFormat *format)
{
    constexpr std::array Widths{DateFormatSymbols::WIDE, DateFormatSymbols::ABBREVIATED,
                                DateFormatSymbols::SHORT, DateFormatSymbols::NARROW};
    for (size_t index = 0; index < _names.months.size(); ++index) {
        _names.months[index] = monthsOf(*_symbols, DateFormatSymbols::FORMAT, Widths[index]);
        _names.standaloneMonths[index] =
            monthsOf(*_symbols, DateFormatSymbols::STANDALONE, Widths[index]);
    }
    for (size_t index = 0; index < Widths.size(); ++index)
        _names.weekdays[index] = weekdaysOf(*_symbols, Widths[index]);
    const std::array narrow = narrowHalvesOfDay(format);
    _names.halvesOfDay = {halvesOf(*_symbols),
                          DateNameList(narrow.data(), int32_t(narrow.size()), 0)};
    _names.noteStarts();
}

using SharedEnvironment = std::shared_ptr<const DateEnvironment>;

SharedEnvironment DateEnvironment::environmentOf(const NSLocale &locale, const QString &calendar)
{
    // Formatters are made by the dozen, all of one locale.
    struct Last
    {
        NSLocale locale;
        QString calendar;
        SharedEnvironment environment;
    };
    static thread_local Last last;
    if (!last.environment || last.locale != locale || last.calendar != calendar)
        last = {locale, calendar, knownEnvironmentOf(locale, calendar)};
    return last.environment;
}

SharedEnvironment DateEnvironment::knownEnvironmentOf(const NSLocale &locale,
                                                      const QString &calendar)
{
    static QMutex mutex;
    static QHash<std::pair<QString, QString>, SharedEnvironment> known;
    const QMutexLocker lock(&mutex);
    SharedEnvironment &environment = known[{locale.localeIdentifier(), calendar}];
    if (!environment)
        environment = std::make_shared<const DateEnvironment>(locale, calendar, DateCustoms());
    return environment;
}

SharedEnvironment DateEnvironment::environmentOf(const NSLocale &locale, const QString &calendar,
                                                 const DateCustoms &customs)
{
    if (customs == DateCustoms())
        return environmentOf(locale, calendar);
    return std::make_shared<const DateEnvironment>(locale, calendar, customs);
}

QString DateEnvironment::patternOfStyles(unsigned date, unsigned time) const
{
    const QString &datePattern = _datePatterns[date].value(datePatternOf, date, locale);
    const QString &timePattern = _timePatterns[time].value(timePatternOf, time, locale);
    if (datePattern.isEmpty() && timePattern.isEmpty())
        return u""_s;
    if (datePattern.isEmpty() || timePattern.isEmpty())
        return datePattern + timePattern;
    return datePattern + u' ' + timePattern;
}

QStringList DateEnvironment::symbolsOf(NSDateFormatterSymbols kind) const
{
    return DateSymbols::names(*_symbols, kind);
}
