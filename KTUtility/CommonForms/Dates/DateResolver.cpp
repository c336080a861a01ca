#include "DateResolver_p.h"

#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <algorithm>
#include <cstdlib>

using namespace KTPrivate;

namespace {
constexpr qint64 MillisecondsPerSecond = 1000;
constexpr qint64 Noon = 12 * 3600 * MillisecondsPerSecond;
constexpr int DaysPerWeek = 7;
/// The first of the hundred years that two digits mean.
constexpr int FirstShortYear = 1950;

const TimeZoneRules &rules()
{
    return TimeZoneRules::rulesOf(NSCalendar::systemTimeZone());
}

qint64 startOf(qint64 day)
{
    return day * Civil::MillisecondsPerDay;
}

/// How long a unit of the clock is; 0 for those of the calendar.
qint64 lengthOf(int unit)
{
    switch (unit) {
    case NSSecondCalendarUnit:
        return MillisecondsPerSecond;
    case NSMinuteCalendarUnit:
        return 60 * MillisecondsPerSecond;
    case NSHourCalendarUnit:
        return 3600 * MillisecondsPerSecond;
    default:
        return 0;
    }
}

bool isGregorian(const NSCalendar &calendar)
{
    return calendar.calendarIdentifier() == NSGregorianCalendar;
}
} // namespace

DateResolver::DateResolver(const DateSaid &said, const CommonDateField &field,
                           char16_t dayMonthSign, const TypedZone &zone)
    : _said(said)
    , _field(field)
    , _dayMonthSign(dayMonthSign)
    , _zone(zone)
    , _localNow(rules().localTimeOf(field.now) / MillisecondsPerSecond * MillisecondsPerSecond)
    , _today(Civil::daysOfTime(_localNow))
{
}

bool DateResolver::refuse(const char16_t *reason)
{
    _reason = reason;
    return false;
}

qint64 DateResolver::instantOf(qint64 localTime) const
{
    return _said.hasZone ? _zone.instantOf(localTime).value_or(0) : rules().instantOf(localTime);
}

qint64 DateResolver::instant() const
{
    return instantOf(_localTime);
}

qint64 DateResolver::localTime() const
{
    return _said.hasZone ? rules().localTimeOf(instant()) : _localTime;
}

QString DateResolver::zoneIdentifier() const
{
    return _said.hasZone ? _zone.identifier(_localTime)
                         : QString::fromLatin1(NSCalendar::systemTimeZone().id());
}

std::optional<qint64> DateResolver::alternative() const
{
    return _alternative ? std::optional(instantOf(*_alternative)) : std::nullopt;
}

bool DateResolver::resolve()
{
    if (_said.contradiction)
        return refuse(_said.contradiction);
    if (!_field.showsDate && !_said.time && !isOfTimes())
        return refuse(u"The time of day is missing.");
    if (isOtherNight())
        return refuse(u"Which night is meant cannot be told.");
    return resolveDay() && hasZone();
}

/// "tonight at 1" is tomorrow to the calendar, and "tomorrow night at 1" can be either. "1 at night on
/// 5 March" is on that day.
bool DateResolver::isOtherNight() const
{
    const bool hasDay = _said.hasDate() || _said.isOfToday;
    const bool isOwnHour = _said.isWritten() && _said.isHourOfDate && !_said.isOfToday;
    return _said.time && _said.isHourOfNight && hasDay && !isOwnHour;
}

bool DateResolver::resolveDay()
{
    if (_said.isWritten())
        return _said.isRelative() ? refuse(u"There are two dates.") : resolveWritten();
    return _said.isRelative() ? resolveRelative() : resolveToday();
}

/// Whether clocks in the zone show the time at all.
bool DateResolver::hasZone()
{
    return !_said.hasZone || _zone.instantOf(_localTime) ||
           refuse(u"There is no such time in this zone.");
}

/// Whether what is moved is a clock, not a day.
bool DateResolver::isOfTimes() const
{
    return _said.isNow ||
           std::any_of(_said.moves.begin(), _said.moves.end(),
                       [](const DateSaid::Move &move) { return lengthOf(move.unit); });
}

/// The time that is said; else noon, or that of now.
qint64 DateResolver::timeOfDay(bool staysNow) const
{
    if (!_said.time)
        return staysNow ? _localNow - startOf(_today) : Noon;
    const DateSaid::Time &time = *_said.time;
    return ((time.hour * 60 + time.minute) * 60 + time.second) * MillisecondsPerSecond +
           time.millisecond;
}

/// A time alone. A weekday alone could be any day.
bool DateResolver::resolveToday()
{
    if (_said.weekdays != 0 && _field.showsDate)
        return refuse(u"Which day is meant cannot be told from the weekday alone.");
    if (!_said.time)
        return refuse(u"The text says neither a day nor a time.");
    _localTime = startOf(_today) + timeOfDay(false);
    return true;
}

/// The other orders count only where the locale's leaves no month. A weekday chooses between day and
/// month, not between years.
bool DateResolver::resolveWritten()
{
    std::optional<DateCandidate> onWrongWeekday;
    for (const DateCandidate &candidate : dateCandidatesOf(_said, _field.order, _dayMonthSign)) {
        const std::optional<qint64> day = dayOf(candidate);
        if (!day && !_chosen && hasMonth(candidate))
            break;
        if (!day || (onWrongWeekday && onWrongWeekday->yearNumber != candidate.yearNumber))
            continue;
        if (_said.isOnWeekday(Civil::weekdayOf(*day)))
            choose(candidate, *day);
        else if (!_chosen && !onWrongWeekday)
            onWrongWeekday = candidate;
    }
    return _chosen ||
           refuse(onWrongWeekday ? u"The date is on another weekday." : u"There is no such date.");
}

/// The first is meant, the second could be.
void DateResolver::choose(const DateCandidate &candidate, qint64 day)
{
    const qint64 time = startOf(day) + timeOfDay(false);
    if (!_chosen) {
        _chosen = candidate;
        _localTime = time;
    } else if (time != _localTime && !_alternative) {
        _alternative = time;
    }
}

/// Whether the calendar has the month in some year.
bool DateResolver::hasMonth(const DateCandidate &candidate) const
{
    const int months = isGregorian(_field.calendar) ? 12 : 13;
    return candidate.month && *candidate.month >= 1 && *candidate.month <= months;
}

/// Days of calendars are found in UTC, where each has all of its hours.
NSCalendar DateResolver::calendar() const
{
    NSCalendar calendar = _said.isJapaneseEra ? NSCalendar(NSJapaneseCalendar) : _field.calendar;
    calendar.setTimeZone(QTimeZone::utc());
    return calendar;
}

/// What the candidate says, with the year and era of today where it says none.
NSDateComponents DateResolver::componentsOf(const DateCandidate &candidate) const
{
    NSDateComponents components = calendar().components(
        NSEraCalendarUnit | NSYearCalendarUnit, QDateTime::fromMSecsSinceEpoch(_localNow, UTC));
    if (candidate.year)
        components.year = candidate.hasShortYear ? fullYearOf(*candidate.year) : *candidate.year;
    if (_said.era)
        components.era = *_said.era;
    components.month = candidate.month.value_or(NSUndefinedDateComponent);
    if (!candidate.month && !candidate.year) // the day of this month
        components.month =
            calendar()
                .components(NSMonthCalendarUnit, QDateTime::fromMSecsSinceEpoch(_localNow, UTC))
                .month;
    components.day = candidate.day.value_or(1);
    return components;
}

/// Whether a year is near today in the Gregorian calendar, but not in the field's, with a month that is
/// the same in both.
bool DateResolver::isOfGregorianYear(const DateCandidate &candidate) const
{
    constexpr int Near = 200;
    const QString calendarName = _field.calendar.calendarIdentifier();
    if (isGregorian(_field.calendar) || _said.era || !candidate.year || candidate.hasShortYear)
        return false;
    const bool hasSameMonths = calendarName == u"buddhist" || calendarName == NSJapaneseCalendar;
    if (_said.month && !hasSameMonths)
        return false;
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(_localNow, UTC);
    const int year = calendar().components(NSYearCalendarUnit, now).year;
    return std::abs(*candidate.year - year) > Near &&
           std::abs(*candidate.year - now.date().year()) <= Near;
}

/// In another calendar the years that are those from 1950 on.
int DateResolver::fullYearOf(int shortYear) const
{
    constexpr int Century = 100;
    int first = FirstShortYear;
    if (!isGregorian(_field.calendar)) {
        const qint64 start = startOf(Civil::daysOf(FirstShortYear, 1, 1));
        first = calendar()
                    .components(NSYearCalendarUnit, QDateTime::fromMSecsSinceEpoch(start, UTC))
                    .year;
    }
    return first + ((shortYear - first) % Century + Century) % Century;
}

std::optional<qint64> DateResolver::dayOf(const DateCandidate &candidate) const
{
    if (isOfGregorianYear(candidate))
        return dayOfGregorian({.era = 1,
                               .year = *candidate.year,
                               .month = candidate.month.value_or(0),
                               .day = candidate.day.value_or(1)});
    const NSDateComponents components = componentsOf(candidate);
    if (components.month == NSUndefinedDateComponent)
        return std::nullopt;
    return isGregorian(_field.calendar) && !_said.isJapaneseEra ? dayOfGregorian(components)
                                                                : dayOfCalendar(components);
}

std::optional<qint64> DateResolver::dayOfGregorian(const NSDateComponents &components) const
{
    constexpr int Months = 12;
    const bool isYear = components.era == 1 && components.year >= Civil::FirstSafeYear &&
                        components.year <= Civil::LastSafeYear;
    if (!isYear || components.month < 1 || components.month > Months || components.day < 1 ||
        components.day > Civil::daysInMonth(components.year, components.month))
        return std::nullopt;
    return Civil::daysOf(components.year, components.month, components.day);
}

/// A day exists if the calendar has it by the same name.
std::optional<qint64> DateResolver::dayOfCalendar(const NSDateComponents &components) const
{
    const QDateTime date = calendar().dateFromComponents(components);
    if (!date.isValid())
        return std::nullopt;
    const NSDateComponents found = calendar().components(NSDateCalendarUnits, date);
    if (found.era != components.era || found.year != components.year ||
        found.month != components.month || found.day != components.day)
        return std::nullopt;
    return Civil::daysOfTime(date.toMSecsSinceEpoch());
}

/// "next Monday" is the first after today, "last Monday" the last before, "this Monday" the first from
/// today on, whichever day weeks begin with.
qint64 DateResolver::dayOfWeekday() const
{
    const int weekday = *_said.nextWeekday;
    const auto daysFrom = [](int from, int to) { return (to - from + DaysPerWeek) % DaysPerWeek; };
    const int today = Civil::weekdayOf(_today);
    const int direction = _said.weekdayDirection;
    const int ahead = daysFrom(today, weekday);
    if (direction == 0)
        return _today + ahead;
    if (direction > 0)
        return _today + (ahead == 0 ? DaysPerWeek : ahead) + DaysPerWeek * (direction - 1);
    return _today + ahead - DaysPerWeek + DaysPerWeek * (direction + 1);
}

bool DateResolver::resolveRelative()
{
    if (_said.time && isOfTimes())
        return refuse(u"There are two times.");
    const bool isNow = isOfTimes() || (_said.isMoved() && _field.showsTime);
    qint64 day = _today + _said.daysFromToday.value_or(0);
    if (_said.nextWeekday)
        day = dayOfWeekday();
    _localTime = startOf(day) + timeOfDay(isNow);
    for (const DateSaid::Move &move : _said.moves) {
        if (!this->move(move))
            return refuse(u"There is no such date.");
    }
    if (!_said.isOnWeekday(Civil::weekdayOf(Civil::daysOfTime(_localTime))))
        return refuse(u"The date is on another weekday.");
    return true;
}

/// Hours are real ones, days those of the calendar.
bool DateResolver::move(const DateSaid::Move &move)
{
    if (const qint64 length = lengthOf(move.unit)) {
        _localTime = rules().localTimeOf(instant() + move.amount * length);
        return true;
    }
    NSDateComponents amount;
    (move.unit == NSYearCalendarUnit    ? amount.year
     : move.unit == NSMonthCalendarUnit ? amount.month
     : move.unit == NSWeekCalendarUnit  ? amount.week
                                        : amount.day) = move.amount;
    const QDateTime moved =
        calendar().dateByAddingComponents(amount, QDateTime::fromMSecsSinceEpoch(_localTime, UTC));
    if (!moved.isValid())
        return false;
    _localTime = moved.toMSecsSinceEpoch();
    return true;
}
