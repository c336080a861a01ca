#include "NSCalendar.h"

#include "CalendarEngine_p.h"
#include "DateFields_p.h"
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Zones/SystemTimeZone_p.h>

#include <QMutex>
#include <QMutexLocker>

#include <array>

using namespace KTPrivate;

namespace {
/// A component, its unit, ICU's field, and what ICU counts from if not from the same.
struct Component
{
    NSCalendarUnits unit;
    int NSDateComponents::*member;
    UCalendarDateFields field;
    int bias = 0;
};

/// From the largest to the smallest, the order in which lengths of time are added and measured.
constexpr std::array<Component, 10> Components{{
    {NSEraCalendarUnit, &NSDateComponents::era, UCAL_ERA},
    {NSYearCalendarUnit, &NSDateComponents::year, UCAL_YEAR},
    {NSMonthCalendarUnit, &NSDateComponents::month, UCAL_MONTH, 1},
    {NSWeekCalendarUnit, &NSDateComponents::week, UCAL_WEEK_OF_YEAR},
    {NSWeekdayOrdinalCalendarUnit, &NSDateComponents::weekdayOrdinal, UCAL_DAY_OF_WEEK_IN_MONTH},
    {NSDayCalendarUnit, &NSDateComponents::day, UCAL_DATE},
    {NSWeekdayCalendarUnit, &NSDateComponents::weekday, UCAL_DAY_OF_WEEK},
    {NSHourCalendarUnit, &NSDateComponents::hour, UCAL_HOUR_OF_DAY},
    {NSMinuteCalendarUnit, &NSDateComponents::minute, UCAL_MINUTE},
    {NSSecondCalendarUnit, &NSDateComponents::second, UCAL_SECOND},
}};

QDateTime dateOf(double milliseconds, UErrorCode status)
{
    if (U_FAILURE(status))
        return {};
    return QDateTime::fromMSecsSinceEpoch(qint64(milliseconds), UTC);
}

/// What is undefined while something else is defined.
void setStartOfEverything(icu::Calendar *calendar, UErrorCode *status)
{
    const int32_t era = calendar->get(UCAL_ERA, *status);
    calendar->clear();
    calendar->set(UCAL_ERA, era);
    calendar->set(UCAL_YEAR, 1);
    calendar->set(UCAL_MONTH, 0);
    calendar->set(UCAL_DATE, 1);
}
} // namespace

NSCalendar::NSCalendar(const QString &identifier)
    : NSCalendar(identifier, NSLocale::currentLocale(NSLocale::Category::Dates))
{
}

NSCalendar NSCalendar::currentCalendar()
{
    return calendarOfLocale(NSLocale::currentLocale(NSLocale::Category::Dates));
}

NSCalendar NSCalendar::calendarOfLocale(const NSLocale &locale)
{
    return {locale.calendarIdentifier(), locale};
}

QTimeZone NSCalendar::systemTimeZone()
{
    return SystemTimeZone::current();
}

void NSCalendar::resetSystemTimeZone()
{
    SystemTimeZone::reset();
}

int NSCalendar::firstWeekday() const
{
    return CalendarEngine(*this)->getFirstDayOfWeek();
}

int NSCalendar::minimumDaysInFirstWeek() const
{
    return CalendarEngine(*this)->getMinimalDaysInFirstWeek();
}

/// Dates of the Gregorian calendar without weeks need no ICU; that is an order of magnitude faster.
bool NSCalendar::setPlainComponents(NSCalendarUnits units, qint64 time,
                                    NSDateComponents *result) const
{
    constexpr NSCalendarUnits PlainUnits =
        NSDateCalendarUnits | NSTimeCalendarUnits | NSWeekdayCalendarUnit;
    if ((units & ~PlainUnits) != 0 || _identifier != NSGregorianCalendar || !Civil::isSafe(time))
        return false;
    const auto fields = DateFields::fieldsOf(TimeZoneRules::rulesOf(_timeZone).localTimeOf(time));
    const int weekday = Civil::weekdayOf(Civil::daysOf(fields.year, fields.month, fields.day));
    *result = {1,           int(fields.year), fields.month,  fields.day,
               fields.hour, fields.minute,    fields.second, NSUndefinedDateComponent,
               weekday};
    for (const Component &component : Components) {
        if ((units & component.unit) == 0)
            result->*component.member = NSUndefinedDateComponent;
    }
    return true;
}

std::optional<qint64> NSCalendar::timeOfPlainComponents(const NSDateComponents &components) const
{
    const auto valueOr = [](int value, int otherwise) {
        return value == NSUndefinedDateComponent ? otherwise : value;
    };
    const bool hasWeek = components.week != NSUndefinedDateComponent ||
                         components.weekday != NSUndefinedDateComponent ||
                         components.weekdayOrdinal != NSUndefinedDateComponent;
    const int year = valueOr(components.year, 1);
    if (hasWeek || _identifier != NSGregorianCalendar || valueOr(components.era, 1) != 1 ||
        year < Civil::FirstSafeYear || year >= Civil::LastSafeYear)
        return {};
    const DateFields fields{year,
                            valueOr(components.month, 1),
                            valueOr(components.day, 1),
                            valueOr(components.hour, 0),
                            valueOr(components.minute, 0),
                            valueOr(components.second, 0)};
    const bool isMonth = fields.month >= 1 && fields.month <= 12;
    if (!isMonth || !fields.isExistingDay() || !fields.isExistingTime())
        return {};
    return TimeZoneRules::rulesOf(_timeZone).instantOf(fields.localTime());
}

NSDateComponents NSCalendar::components(NSCalendarUnits units, const QDateTime &fromDate) const
{
    NSDateComponents result;
    if (!fromDate.isValid() || setPlainComponents(units, fromDate.toMSecsSinceEpoch(), &result))
        return result;
    const CalendarEngine calendar(*this);
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(double(fromDate.toMSecsSinceEpoch()), status);
    for (const Component &component : Components) {
        if (units & component.unit)
            result.*component.member = calendar->get(component.field, status) + component.bias;
    }
    if (units & NSMonthCalendarUnit)
        result.leapMonth = calendar->get(UCAL_IS_LEAP_MONTH, status) != 0;
    return U_SUCCESS(status) ? result : NSDateComponents();
}

NSDateComponents NSCalendar::components(NSCalendarUnits units, const QDateTime &fromDate,
                                        const QDateTime &toDate) const
{
    NSDateComponents result;
    if (!fromDate.isValid() || !toDate.isValid())
        return result;
    const CalendarEngine calendar(*this);
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(double(fromDate.toMSecsSinceEpoch()), status);
    const double end = double(toDate.toMSecsSinceEpoch());
    for (const Component &component : Components) {
        if (units & component.unit)
            result.*component.member = calendar->fieldDifference(end, component.field, status);
    }
    return U_SUCCESS(status) ? result : NSDateComponents();
}

QDateTime NSCalendar::dateFromComponents(const NSDateComponents &components) const
{
    if (components == NSDateComponents())
        return {};
    if (const std::optional<qint64> time = timeOfPlainComponents(components))
        return QDateTime::fromMSecsSinceEpoch(*time, UTC);
    const CalendarEngine calendar(*this);
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(icu::Calendar::getNow(), status);
    setStartOfEverything(calendar.operator->(), &status);
    for (const Component &component : Components) {
        const int value = components.*component.member;
        if (value != NSUndefinedDateComponent)
            calendar->set(component.field, value - component.bias);
    }
    if (components.leapMonth)
        calendar->set(UCAL_IS_LEAP_MONTH, 1);
    const double time = calendar->getTime(status);
    return dateOf(time, status);
}

namespace {
// The ends of ICU's calendars.
constexpr double EarliestTime = -184'303'902'528'000'000.0;
constexpr double LatestTime = 183'882'168'921'600'000.0;

/// Adds an amount of one unit.
/// \return false if that is beyond the calendar's end, where ICU goes on from the other one.
bool add(icu::Calendar &calendar, UCalendarDateFields field, int amount, UErrorCode *status)
{
    // Less than all the years of a calendar, so that going round shows as going the wrong way.
    constexpr int MostYears = 11'000'000;
    const int most = field == UCAL_YEAR ? MostYears : 12 * MostYears;
    const bool isCounted = field == UCAL_YEAR || field == UCAL_MONTH;
    if (isCounted && (amount > most || amount < -most))
        return false;
    const double before = calendar.getTime(*status);
    calendar.add(field, amount, *status);
    const double after = calendar.getTime(*status);
    // Days, hours and the like end there without a word.
    if (after <= EarliestTime || after >= LatestTime)
        return false;
    return amount >= 0 ? after >= before : after <= before;
}
} // namespace

QDateTime NSCalendar::dateByAddingComponents(const NSDateComponents &components,
                                             const QDateTime &toDate) const
{
    if (!toDate.isValid())
        return {};
    const CalendarEngine calendar(*this);
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(double(toDate.toMSecsSinceEpoch()), status);
    for (const Component &component : Components) {
        const int value = components.*component.member;
        if (value != NSUndefinedDateComponent &&
            !add(*calendar.operator->(), component.field, value, &status))
            return {};
    }
    const double time = calendar->getTime(status);
    return dateOf(time, status);
}

// --- Days ---------------------------------------------------------------------------------------

/// Days begin at midnight in all calendars, so that they are counted by the clock alone.
QDateTime NSCalendar::startOfDay(const QDateTime &forDate, int daysLater) const
{
    if (!forDate.isValid())
        return {};
    const qint64 time = forDate.toMSecsSinceEpoch();
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(_timeZone);
    qint64 midnight = Civil::daysOfTime(rules.localTimeOf(time)) * Civil::MillisecondsPerDay;
    // The clock may still be put back to the day before.
    while (rules.lastingInstantFrom(midnight) > time)
        midnight -= Civil::MillisecondsPerDay;
    const qint64 start = rules.lastingInstantFrom(midnight + daysLater * Civil::MillisecondsPerDay);
    const bool isInRange = double(start) > EarliestTime && double(start) < LatestTime;
    return isInRange ? QDateTime::fromMSecsSinceEpoch(start, UTC) : QDateTime();
}

QDateTime NSCalendar::startOfDay(const QDateTime &forDate) const
{
    return startOfDay(forDate, 0);
}

QDateTime NSCalendar::startOfNextDay(const QDateTime &forDate) const
{
    return startOfDay(forDate, 1);
}
