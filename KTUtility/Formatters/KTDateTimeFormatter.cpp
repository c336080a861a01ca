#include "KTDateTimeFormatter.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Values/NSScanner.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <mutex>

using namespace Qt::StringLiterals;

// Settings, display and the formatters made for them. Reading is in KTDateTimeReading.cpp, the
// patterns are in KTDateTimePatterns.cpp.

namespace {
constexpr int NoonHour = 12;

/// Guards display and dropping of formatters in all instances.
std::recursive_mutex &classLock()
{
    static std::recursive_mutex lock;
    return lock;
}

const QString &lenientTimePattern()
{
    static const QString pattern = u"%I:%M:%S %p"_s;
    return pattern;
}

/// A pattern with four digits of the year; nil if it has no year or four digits already.
QString withFourDigitYear(const QString &pattern)
{
    const qsizetype first = pattern.indexOf(u'y');
    if (first < 0 || pattern.contains(u"yyyy"))
        return {};
    QString result = pattern;
    result.remove(u'y');
    return result.insert(first, u"yyyy");
}
} // namespace

KTDateTimeFormatter::KTDateTimeFormatter()
    : _locale(NSLocale::currentLocale()), _calendar(NSCalendar::calendarOfLocale(_locale))
{
}

KTDateTimeFormatter::KTDateTimeFormatter(uint dateStyle, uint timeStyle, bool displayDate,
                                         bool displayTime)
    : _locale(NSLocale::currentLocale())
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

/// Sets one style because of another setting, and tells those who observe it.
void KTDateTimeFormatter::setStyle(uint &style, uint value, void (KTDateTimeFormatter::*changed)())
{
    style = value;
    Q_EMIT(this->*changed)();
}

void KTDateTimeFormatter::setDisplayDate(bool displayDate)
{
    _displayDate = displayDate;
    if (!displayDate) {
        _dateStyle = NSDateFormatterNoStyle;
        if (_timeStyle == NSDateFormatterNoStyle)
            setStyle(_timeStyle, NSDateFormatterShortStyle, &KTDateTimeFormatter::timeStyleChanged);
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
            setStyle(_dateStyle, NSDateFormatterShortStyle, &KTDateTimeFormatter::dateStyleChanged);
    } else if (_timeStyle == NSDateFormatterNoStyle) {
        setStyle(_timeStyle, NSDateFormatterShortStyle, &KTDateTimeFormatter::timeStyleChanged);
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

namespace {
/// A day of a calendar, from its first instant to that of the next day.
struct KnownDay
{
    NSCalendar calendar;
    QTimeZone zone;
    qint64 begin = 0;
    qint64 end = 0;
    QDateTime noon;
};

KnownDay dayOf(const NSCalendar &calendar, const QTimeZone &zone, qint64 time)
{
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(time, Qt::UTC);
    NSDateComponents day = calendar.components(NSDateCalendarUnits, now);
    day.hour = day.minute = day.second = 0;
    const QDateTime begin = calendar.dateFromComponents(day);
    const QDateTime end = calendar.dateByAddingComponents({.day = 1}, begin);
    day.hour = NoonHour;
    return {calendar, zone, begin.toMSecsSinceEpoch(), end.toMSecsSinceEpoch(),
            calendar.dateFromComponents(day)};
}
} // namespace

QDateTime KTDateTimeFormatter::today() const
{
    thread_local KnownDay known;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const QTimeZone zone = NSCalendar::systemTimeZone();
    if (now < known.begin || now >= known.end || known.zone != zone || known.calendar != _calendar)
        known = dayOf(_calendar, zone, now);
    return known.noon;
}

QDateTime KTDateTimeFormatter::defaultDate() const
{
    return _locale.countryCode() == u"JP" ? QDateTime() : today();
}

bool KTDateTimeFormatter::isJapaneseCalendar() const
{
    return _calendar.calendarIdentifier() == NSJapaneseCalendar;
}

// --- Formatters

void KTDateTimeFormatter::prepare(NSDateFormatter &formatter, bool setsLenient) const
{
    formatter.setFormatterBehavior(NSDateFormatterBehavior10_4);
    formatter.setLocale(_locale);
    formatter.setGeneratesCalendarDates(false);
    formatter.setDefaultDate(defaultDate());
    formatter.setLenient(setsLenient);
}

std::shared_ptr<NSDateFormatter>
KTDateTimeFormatter::_formatterWithDateFormat(const QString &pattern, bool setsLenient) const
{
    auto formatter = std::make_shared<NSDateFormatter>();
    prepare(*formatter, setsLenient);
    KTLog(kLog_FormattersDateTimes, 4, u"KTDateTimeFormatter creating formatter, format=%@",
          pattern);
    formatter->setDateFormat(pattern);
    return formatter;
}

std::shared_ptr<NSDateFormatter> KTDateTimeFormatter::formatterWithDateStyle(uint dateStyle,
                                                                             uint andTimeStyle,
                                                                             bool setsLenient) const
{
    auto formatter = std::make_shared<NSDateFormatter>();
    prepare(*formatter, setsLenient);
    formatter->setDateStyle(dateStyle);
    formatter->setTimeStyle(andTimeStyle);
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter creating date/time formatter, format=%@", formatter->dateFormat());
    return formatter;
}

NSDateFormatter *KTDateTimeFormatter::displayFormatter() const
{
    if (_displayFormatter)
        return _displayFormatter.get();
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
    KTLog(kLog_FormattersDateTimes, 4, u"_displayFormatter, format=%@", formatter->dateFormat());
    _inputOrder = inputOrderForDateFormat(formatter->dateFormat());
    _displayFormatter = std::move(formatter);
    applyPatterns(*_displayFormatter);
    return _displayFormatter.get();
}

/// Four digits of the year, or no year at all.
void KTDateTimeFormatter::applyPatterns(NSDateFormatter &formatter) const
{
    QString pattern = isJapaneseCalendar() ? QString() : withFourDigitYear(formatter.dateFormat());
    if (!_displayYear) {
        formatter.setDateStyle(NSDateFormatterNoStyle);
        formatter.setTimeStyle(_timeStyle);
        pattern = getMonthAndDayFormat();
    }
    if (!pattern.isNull())
        formatter.setDateFormat(pattern);
}

/// The locale's pattern for the time alone; empty if no time is shown.
QString KTDateTimeFormatter::timePattern() const
{
    NSDateFormatter formatter;
    formatter.setLocale(_locale);
    formatter.setTimeStyle(_timeStyle);
    return formatter.dateFormat();
}

QString KTDateTimeFormatter::getMonthAndDayFormat() const
{
    if (_displayYear)
        return {};
    displayFormatter(); // knows the input order
    const QString &country = _locale.countryCode();
    const bool isMonthFirst = _inputOrder == MonthDayYear || _inputOrder == YearMonthDay;
    const QString separator = country == u"DE" ? u"."_s : u" "_s;
    QString pattern =
        isMonthFirst ? QString(u"MMMM" + separator + u'd') : QString(u'd' + separator + u"MMMM");
    if (country == u"JP")
        pattern = isMonthFirst ? u"M月d日"_s : u"d日M月"_s;
    if (_timeStyle == NSDateFormatterNoStyle)
        return pattern;
    return pattern + u' ' + timePattern();
}

NSDateFormatter *KTDateTimeFormatter::lenientFormatter() const
{
    if (_lenientFormatter)
        return _lenientFormatter.get();
    displayFormatter(); // knows the input order
    QString pattern = formatStringForInputOrder(_inputOrder);
    if (_displayTime)
        pattern =
            _displayDate ? QString(pattern + u' ' + lenientTimePattern()) : lenientTimePattern();
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
    if (value.metaType() != QMetaType::fromType<QDateTime>() || !value.toDateTime().isValid())
        return {};
    const std::lock_guard lock(classLock());
    QString text = displayFormatter()->stringFromDate(value.toDateTime());
    if (text.isEmpty())
        text = QString();
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter stringForObjectValue returns:%@, value:%@", text, value);
    return text;
}
