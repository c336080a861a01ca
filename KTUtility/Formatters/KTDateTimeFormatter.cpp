#include "KTDateTimeFormatter.h"

#include "DateFormatterLists_p.h"
#include "DatePatterns_p.h"
#include "DateReading_p.h"
#include "Today_p.h"
#include <KTUtility/CommonForms/Dates/CommonDates_p.h>
#include <KTUtility/CommonForms/Standards/FieldDate_p.h>
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>
#include <KTUtility/Platform/Dates/DatePattern_p.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Keys/NSKeyValueObserving.h>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Values/WallClock_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <QScopedValueRollback>

#include <algorithm>
#include <mutex>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

static_assert(int(KTDateTimeFormatter::YearDayMonth) == int(DatePatterns::YearDayMonth) &&
              int(KTDateTimeFormatter::YearMonthDay) == int(DatePatterns::YearMonthDay) &&
              int(KTDateTimeFormatter::DayMonthYear) == int(DatePatterns::DayMonthYear));

namespace {
/// Guards display and dropping of formatters in all instances.
std::recursive_mutex &classLock()
{
    static std::recursive_mutex lock;
    return lock;
}

/// Nobody types the day before the month behind a year.
DateOrder dateOrderOf(int inputOrder)
{
    switch (inputOrder) {
    case KTDateTimeFormatter::DayMonthYear:
        return DateOrder::DayMonthYear;
    case KTDateTimeFormatter::YearMonthDay:
    case KTDateTimeFormatter::YearDayMonth:
        return DateOrder::YearMonthDay;
    default:
        return DateOrder::MonthDayYear;
    }
}

/// Why a text was not read, in the user's language.
QString translated(const QString &reason)
{
    return NSBundle::mainBundle().localizedStringForKey(reason);
}

bool isDateOrTime(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return value.toDateTime().isValid();
    case QMetaType::QDate:
        return value.toDate().isValid();
    case QMetaType::QTime:
        return value.toTime().isValid();
    default:
        return false;
    }
}

bool hasHour(const NSDateFormatter &formatter)
{
    const auto pattern = DatePattern::patternOf(formatter.dateFormat());
    return std::any_of(pattern->elements().begin(), pattern->elements().end(),
                       [](const DateElement &element) {
                           return element.kind == DateElement::Kind::Number &&
                                  QStringView(u"hHkK").contains(element.letter);
                       });
}

/// What a clock in a zone shows at an instant.
QDateTime clockAt(qint64 instant, const QTimeZone &zone)
{
    return QDateTime::fromMSecsSinceEpoch(TimeZoneRules::rulesOf(zone).localTimeOf(instant), UTC);
}
} // namespace

KTDateTimeFormatter::KTDateTimeFormatter()
    : _locale(NSLocale::currentLocale(NSLocale::Category::Dates))
    , _calendar(NSCalendar::calendarOfLocale(_locale))
{
}

KTDateTimeFormatter::KTDateTimeFormatter(uint dateStyle, uint timeStyle, bool displayDate,
                                         bool displayTime)
    : _locale(NSLocale::currentLocale(NSLocale::Category::Dates))
    , _calendar(NSCalendar::calendarOfLocale(_locale))
    , _dateStyle(dateStyle)
    , _timeStyle(timeStyle)
    , _displayDate(displayDate)
    , _displayTime(displayTime)
{
}

KTDateTimeFormatter::~KTDateTimeFormatter()
{
    clearFormatters();
}

// --- Settings

void KTDateTimeFormatter::setLocale(const NSLocale &locale)
{
    clearFormatters();
    _locale = locale;
    _calendar = NSCalendar::calendarOfLocale(locale);
    Q_EMIT localeChanged();
}

void KTDateTimeFormatter::setDateStyle(uint dateStyle)
{
    clearFormatters();
    _dateStyle = dateStyle;
    _displayDate = dateStyle != NSDateFormatterNoStyle;
    Q_EMIT dateStyleChanged();
}

void KTDateTimeFormatter::setTimeStyle(uint timeStyle)
{
    clearFormatters();
    _timeStyle = timeStyle;
    if (timeStyle == NSDateFormatterNoStyle)
        _displayTime = false; // one-sided on purpose
    Q_EMIT timeStyleChanged();
}

/// Sets one style because of another setting, and notifies those who observe it, before and after.
void KTDateTimeFormatter::setShortStyle(uint &style, const QString &key,
                                        void (KTDateTimeFormatter::*changed)())
{
    NSKeyValueObserving::willChangeValueForKey(this, key);
    style = NSDateFormatterShortStyle;
    Q_EMIT(this->*changed)();
    NSKeyValueObserving::didChangeValueForKey(this, key);
}

void KTDateTimeFormatter::setDisplayDate(bool displayDate)
{
    _displayDate = displayDate;
    if (!displayDate) {
        _dateStyle = NSDateFormatterNoStyle;
        if (_timeStyle == NSDateFormatterNoStyle)
            setShortStyle(_timeStyle, kKTFieldOption_timeStyle,
                          &KTDateTimeFormatter::timeStyleChanged);
    }
    clearFormatters();
    Q_EMIT displayDateChanged();
}

void KTDateTimeFormatter::setDisplayTime(bool displayTime)
{
    _displayTime = displayTime;
    if (!displayTime) {
        _timeStyle = NSDateFormatterNoStyle;
        if (_dateStyle == NSDateFormatterNoStyle)
            setShortStyle(_dateStyle, kKTFieldOption_dateStyle,
                          &KTDateTimeFormatter::dateStyleChanged);
    } else if (_timeStyle == NSDateFormatterNoStyle) {
        setShortStyle(_timeStyle, kKTFieldOption_timeStyle, &KTDateTimeFormatter::timeStyleChanged);
    }
    clearFormatters();
    Q_EMIT displayTimeChanged();
}

void KTDateTimeFormatter::setDisplayYear(bool displayYear)
{
    _displayYear = displayYear;
    clearFormatters();
    Q_EMIT displayYearChanged();
}

void KTDateTimeFormatter::setInputOrder(int inputOrder)
{
    _inputOrder = inputOrder;
    clearFormatters();
    Q_EMIT inputOrderChanged();
}

std::optional<QStringList> KTDateTimeFormatter::optionsKeys() const
{
    return QStringList{kKTFieldOption_dateStyle, kKTFieldOption_timeStyle,
                       kKTFieldOption_displayYear};
}

void KTDateTimeFormatter::clearFormatters()
{
    const std::lock_guard lock(classLock());
    _lenientFormatter.reset();
    _displayFormatter.reset();
    _strictDateFormatters.reset();
    _strictTimeFormatters.reset();
    _strictIsoFormatters.reset();
    _strictFormatterMap.clear();
    _mostRecentFormatter = nullptr;
}

// --- Default date

QDateTime KTDateTimeFormatter::today() const
{
    return _noon ? *_noon : todayAtNoon(_calendar);
}

QDateTime KTDateTimeFormatter::defaultDate() const
{
    return _locale.countryCode() == u"JP" ? QDateTime() : today();
}

// --- The formatters that display

NSDateFormatter *KTDateTimeFormatter::displayFormatter() const
{
    if (!_displayFormatter)
        makeDisplayFormatter();
    return _displayFormatter.get();
}

int KTDateTimeFormatter::localeInputOrder() const
{
    if (!_displayFormatter)
        makeDisplayFormatter();
    return _inputOrder;
}

void KTDateTimeFormatter::makeDisplayFormatter() const
{
    auto formatter = std::make_unique<NSDateFormatter>();
    formatter->setFormatterBehavior(NSDateFormatterBehavior10_4);
    formatter->setLocale(_locale);
    formatter->setGeneratesCalendarDates(false);
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter creating _displayFormatter, showDate:%d, showTime:%d", _displayDate,
          _displayTime);
    if (_dateStyle == NSDateFormatterNoStyle && _timeStyle == NSDateFormatterNoStyle)
        NSAssertionHandler::currentHandler()->handleFailureInMethod(
            u"displayFormatter"_s, this, u"Formatters/KTDateTimeFormatter"_s, __LINE__,
            u"date/time cannot both have NoStyle"_s);
    formatter->setDateStyle(_dateStyle);
    formatter->setTimeStyle(_timeStyle);
    const QString pattern = formatter->dateFormat();
    KTLog(kLog_FormattersDateTimes, 4, u"_displayFormatter, format=%@", pattern);
    _inputOrder = DatePatterns::orderOf(pattern);
    setDisplayPattern(*formatter, pattern);
    _displayFormatter = std::move(formatter);
}

/// Four digits of the year, or no year at all.
void KTDateTimeFormatter::setDisplayPattern(NSDateFormatter &formatter,
                                            const QString &ofStyles) const
{
    if (!_displayYear) {
        formatter.setDateStyle(NSDateFormatterNoStyle);
        formatter.setTimeStyle(_timeStyle);
        formatter.setDateFormat(monthAndDayPattern(_inputOrder));
    } else if (_calendar.calendarIdentifier() != NSJapaneseCalendar) {
        const QString pattern = DatePatterns::withFourDigitYear(ofStyles);
        if (!pattern.isNull())
            formatter.setDateFormat(pattern);
    }
}

/// The locale's pattern for the time alone; empty if no time is shown. The display formatter's own
/// has the day before it once it is made, and the year-less pattern would grow with every question.
QString KTDateTimeFormatter::timePattern() const
{
    NSDateFormatter formatter;
    formatter.setLocale(_locale);
    formatter.setTimeStyle(_timeStyle);
    return formatter.dateFormat();
}

QString KTDateTimeFormatter::monthAndDayPattern(int order) const
{
    const QString pattern = DatePatterns::monthAndDay(order, _locale.countryCode());
    if (_timeStyle == NSDateFormatterNoStyle)
        return pattern;
    return pattern + u' ' + timePattern();
}

QString KTDateTimeFormatter::getMonthAndDayFormat() const
{
    return _displayYear ? QString() : monthAndDayPattern(localeInputOrder());
}

NSDateFormatter *KTDateTimeFormatter::lenientFormatter() const
{
    if (_lenientFormatter)
        return _lenientFormatter.get();
    QString pattern = DatePatterns::numeric(localeInputOrder());
    if (_displayTime) {
        const QString time = DatePatterns::numericTime();
        pattern = _displayDate ? QString(pattern + u' ' + time) : time;
    }
    _lenientFormatter = std::make_unique<NSDateFormatter>(pattern, true);
    _lenientFormatter->setLocale(_locale);
    _lenientFormatter->setGeneratesCalendarDates(false);
    _lenientFormatter->setDefaultDate(defaultDate());
    KTLog(kLog_FormattersDateTimes, 4, u"KTDateTimeFormatter creating _lenientFormatter, format=%@",
          pattern);
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter _lenientFormatter: showDate=%d, showTime=%d", _displayDate,
          _displayTime);
    return _lenientFormatter.get();
}

// --- Display

QString KTDateTimeFormatter::stringForObjectValue(const QVariant &value) const
{
    // No display formatter is made for what it cannot show.
    if (!isDateOrTime(value))
        return {};
    const std::lock_guard lock(classLock());
    QString text = displayFormatter()->stringForObjectValue(value);
    if (text.isEmpty())
        text = QString();
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter stringForObjectValue returns:%@, value:%@", text, value);
    return text;
}

QString KTDateTimeFormatter::reasonForRejecting(const QString &,
                                                const QString &errorDescription) const
{
    return errorDescription.isEmpty() ? translated(u"The text cannot be read as a date."_s)
                                      : errorDescription;
}

// --- The formatters that read

DateFormatterSettings KTDateTimeFormatter::formatterSettings() const
{
    const QTimeZone zone = NSCalendar::systemTimeZone();
    const QDateTime noon = todayAtNoon(_calendar, WallClock::milliseconds(), zone);
    // Mostly the same, for which nobody needs to be asked again.
    const QScopedValueRollback<const QDateTime *> known(_noon, &noon);
    return {_locale, _calendar, defaultDate(), noon, zone, false};
}

std::shared_ptr<NSDateFormatter>
KTDateTimeFormatter::_formatterWithDateFormat(const QString &pattern, bool setsLenient) const
{
    return DateFormatterLists::formatterWithPattern(formatterSettings(), pattern, setsLenient);
}

std::shared_ptr<NSDateFormatter> KTDateTimeFormatter::formatterWithDateStyle(uint dateStyle,
                                                                             uint andTimeStyle,
                                                                             bool setsLenient) const
{
    return DateFormatterLists::formatterWithStyles(formatterSettings(), dateStyle, andTimeStyle,
                                                   setsLenient);
}

const QStringList &KTDateTimeFormatter::dateFormatsForMonthDayYear()
{
    return DatePatterns::dates(MonthDayYear);
}

const QStringList &KTDateTimeFormatter::dateFormatsForDayMonthYear()
{
    return DatePatterns::dates(DayMonthYear);
}

const QStringList &KTDateTimeFormatter::dateFormatsForYearMonthDay()
{
    return DatePatterns::dates(YearMonthDay);
}

const QStringList &KTDateTimeFormatter::dateFormatsForYearDayMonth()
{
    return DatePatterns::dates(YearDayMonth);
}

const QStringList &KTDateTimeFormatter::timeFormats()
{
    return DatePatterns::times();
}

QStringList KTDateTimeFormatter::dateFormats() const
{
    return DatePatterns::dates(localeInputOrder());
}

QString KTDateTimeFormatter::formatStringForInputOrder(int inputOrder) const
{
    return DatePatterns::numeric(inputOrder);
}

int KTDateTimeFormatter::inputOrderForDateFormat(const QString &pattern)
{
    return DatePatterns::orderOf(pattern);
}

KTDateFormatterList KTDateTimeFormatter::localeStrictDateFormatters() const
{
    return DateFormatterLists::datesOfLocale(formatterSettings());
}

KTDateFormatterList KTDateTimeFormatter::localeStrictTimeFormatters() const
{
    return DateFormatterLists::timesOfLocale(formatterSettings());
}

const KTDateFormatterList &KTDateTimeFormatter::strictDateFormatters() const
{
    if (!_strictDateFormatters) {
        const int order = localeInputOrder();
        _strictDateFormatters = DateFormatterLists::dates(formatterSettings(), order);
    }
    return *_strictDateFormatters;
}

const KTDateTimeFormatter::SharedList &KTDateTimeFormatter::sharedTimeFormatters() const
{
    if (!_strictTimeFormatters)
        _strictTimeFormatters = DateFormatterLists::times(formatterSettings());
    return _strictTimeFormatters;
}

const KTDateFormatterList &KTDateTimeFormatter::strictTimeFormatters() const
{
    return *sharedTimeFormatters();
}

const KTDateFormatterList &KTDateTimeFormatter::strictIsoFormatters() const
{
    if (!_strictIsoFormatters)
        _strictIsoFormatters = DateFormatterLists::iso(formatterSettings());
    return *_strictIsoFormatters;
}

const KTDateFormatterList &
KTDateTimeFormatter::strictFormattersForDateFormat(const QString &datePattern) const
{
    SharedList &formatters = _strictFormatterMap[datePattern];
    if (!formatters)
        formatters = DateFormatterLists::datesWithTimes(formatterSettings(), datePattern,
                                                        sharedTimeFormatters());
    return *formatters;
}

// --- Reading

bool KTDateTimeFormatter::readInAnyForm(DateReading &reading) const
{
    if (reading.hasOnlyWhitespace())
        return false;
    if (reading.readWithRecent(_mostRecentFormatter))
        return true;
    if (reading.hasIsoShape() && reading.readIso(strictIsoFormatters()))
        return true;
    return readDate(reading) || reading.readTime(strictTimeFormatters());
}

/// Reads a date, or a date and a time.
bool KTDateTimeFormatter::readDate(DateReading &reading) const
{
    const KTDateFormatterList &dates = strictDateFormatters();
    for (size_t at = 0; (at = reading.nextDate(dates, at)) < dates.size(); ++at) {
        if (reading.chosen() ||
            reading.readDateAndTime(strictFormattersForDateFormat(dates[at]->dateFormat())))
            return true;
    }
    return false;
}

bool KTDateTimeFormatter::getObjectValue(QVariant *value, const QString &forString,
                                         QString *errorDescription) const
{
    return readTyped(value, nullptr, forString, errorDescription);
}

bool KTDateTimeFormatter::readTyped(QVariant *value, QDateTime *clock, const QString &text,
                                    QString *errorDescription) const
{
    return readsCommonForms() ? readForms(value, clock, text, errorDescription)
                              : readByPatterns(value, clock, text, errorDescription);
}

/// Reads in one kind of forms after the other. Common ones come before the patterns, which take
/// some of them in a way that nobody means.
bool KTDateTimeFormatter::readForms(QVariant *value, QDateTime *clock, const QString &text,
                                    QString *errorDescription) const
{
    if (errorDescription)
        *errorDescription = QString();
    bool hasForeignOrder = false;
    if (const auto isRead = readStandard(value, clock, text, errorDescription, &hasForeignOrder))
        return *isRead;
    if (const auto isRead = readCommon(value, clock, text, errorDescription))
        return *isRead;
    // What begins as ISO 8601 is in no locale's order.
    const bool isRead = !hasForeignOrder && readByPatterns(value, clock, text, errorDescription);
    setReading(isRead ? KTReading{u"pattern"_s, {}, zoneOfField(), {}, {}} : KTReading());
    if (!isRead && value)
        *value = QVariant();
    if (!isRead && errorDescription && errorDescription->isNull())
        *errorDescription =
            translated(u"The text is in no form of dates and times that is known."_s);
    return isRead;
}

QString KTDateTimeFormatter::zoneOfField() const
{
    return QString::fromLatin1(NSCalendar::systemTimeZone().id());
}

/// Reads what people commonly type; nothing if the text is none of it.
std::optional<bool> KTDateTimeFormatter::readCommon(QVariant *value, QDateTime *clock,
                                                    const QString &text,
                                                    QString *errorDescription) const
{
    const DateOrder order = dateOrderOf(localeInputOrder());
    const CommonDate date = readCommonDate(
        text, {_locale, _calendar, order, displayDate(), displayTime(), WallClock::milliseconds()});
    if (date.outcome == CommonDate::Outcome::Unknown)
        return std::nullopt;
    const bool isRead = date.outcome == CommonDate::Outcome::Read;
    setReading(date.reading);
    if (value)
        *value = isRead ? QVariant(date.date) : QVariant();
    if (clock && isRead)
        *clock = date.clock;
    if (!isRead && errorDescription)
        *errorDescription = translated(QString::fromUtf16(date.reason));
    return isRead;
}

/// Reads what the field shows, and the standards' forms; nothing if the text is none of these.
std::optional<bool> KTDateTimeFormatter::readStandard(QVariant *value, QDateTime *clock,
                                                      const QString &text,
                                                      QString *errorDescription,
                                                      bool *hasForeignOrder) const
{
    const NSDateFormatter &formatter = *displayFormatter();
    const ShownDateContext context{formatter, _calendar, [this] { return today(); },
                                   [this] { return defaultDate(); }};
    FieldDate date = readFieldDate(text, context, _locale);
    *hasForeignOrder = date.beginsWithDate;
    if (date.answer == StandardDate::Answer::OtherForm)
        return std::nullopt;
    const bool isRead =
        date.answer == StandardDate::Answer::Read && (date.hasTime || displayDate());
    if (!isRead && date.reason.isNull())
        date.reason = u"The text says no time of day."_s;
    setReading(isRead ? date.reading : KTReading());
    if (value)
        *value =
            isRead ? QVariant(DateFormatterAccess::dateOf(formatter, date.instant)) : QVariant();
    if (clock && isRead)
        *clock = clockAt(date.instant, formatter.timeZone());
    if (!isRead && errorDescription)
        *errorDescription = translated(date.reason);
    return isRead;
}

/// Whether nothing of a text is left over, nor has to be made up: a time where no date is shown.
bool KTDateTimeFormatter::isMeant(const DateReading &reading) const
{
    return reading.chosen() && (displayDate() || hasHour(*reading.chosen()));
}

bool KTDateTimeFormatter::readByPatterns(QVariant *value, QDateTime *clock, const QString &text,
                                         QString *errorDescription) const
{
    DateReading reading(text);
    bool isRead = readInAnyForm(reading) && (!readsCommonForms() || isMeant(reading));
    const bool isBareHour = reading.isBareHour() && !(readsCommonForms() && !displayTime());
    isRead = isRead && isBareHour == reading.isBareHour();
    if (value)
        *value = isRead ? QVariant(reading.date()) : QVariant();
    if (isBareHour)
        isRead = getLenientDateValue(value, text, errorDescription);
    if (clock && isRead)
        *clock = isBareHour ? lenientClockOf(text) : reading.clock();
    if (!isRead && errorDescription && !errorDescription->isNull())
        KTLog(kLog_FormattersDateTimes, 4, u"KTDateTimeFormatter getObjectValue error: %@",
              *errorDescription);
    if (isRead)
        _mostRecentFormatter = reading.chosen();
    return isRead;
}

bool KTDateTimeFormatter::getLenientDateValue(QVariant *value, const QString &forString,
                                              QString *errorDescription) const
{
    QVariant date;
    const bool isRead = lenientFormatter()->getObjectValue(&date, forString, errorDescription);
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter getObjectValue(lenient) forString:%@ returns %d", forString,
          isRead);
    if (!isRead)
        return false;
    KTLog(kLog_FormattersDateTimes, 4, u"KTDateTimeFormatter getObjectValue forString:%@ value:%@",
          forString, date);
    if (lenientFormatter()->generatesCalendarDates())
        date = plainDateOf(date.toDateTime());
    if (value)
        *value = date;
    return true;
}

/// What a clock shows at the date that the lenient formatter reads.
QDateTime KTDateTimeFormatter::lenientClockOf(const QString &text) const
{
    DateMatch match;
    DateFormatterAccess::parse(*lenientFormatter(), DateText(text), &match);
    return QDateTime::fromMSecsSinceEpoch(match.localTime, UTC);
}

/// A date as its own zone's clock shows it, in the years of the formatter's calendar.
QDateTime KTDateTimeFormatter::plainDateOf(const QDateTime &calendarDate) const
{
    const QDate day = calendarDate.date();
    const QTime time = calendarDate.time();
    const QDateTime date = _calendar.dateFromComponents({.year = day.year(),
                                                         .month = day.month(),
                                                         .day = day.day(),
                                                         .hour = time.hour(),
                                                         .minute = time.minute(),
                                                         .second = time.second()});
    KTLog(kLog_FormattersDateTimes, 4, u"after NSCalendar conversion, value:%@",
          displayFormatter()->stringFromDate(date));
    return date;
}

KT_REGISTER_CLASS(KTDateTimeFormatter)
