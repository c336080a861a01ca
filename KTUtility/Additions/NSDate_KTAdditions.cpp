#include "NSDate_KTAdditions.h"

#include <KTUtility/Platform/Dates/NSCalendar.h>

namespace {
constexpr int SecondsPerMinute = 60;
constexpr int SecondsPerHour = 3600;

/// The date and an amount of one unit.
QDateTime added(const QDateTime &date, int NSDateComponents::*unit, int amount)
{
    // The greatest integer marks a component as missing, but is an amount as good as others.
    if (amount == NSUndefinedDateComponent)
        return added(added(date, unit, amount - 1), unit, 1);
    NSDateComponents components;
    components.*unit = amount;
    return NSCalendar::currentCalendar().dateByAddingComponents(components, date);
}

int seconds(int hour, int minute, int second)
{
    return hour * SecondsPerHour + minute * SecondsPerMinute + second;
}
} // namespace

QDateTime KTAdditions::beginningOfDay(const QDateTime &receiver)
{
    return NSCalendar::currentCalendar().startOfDay(receiver);
}

// From the next day's beginning, deliberately: days have 23 to 25 hours.
QDateTime KTAdditions::endOfDay(const QDateTime &receiver)
{
    return dateByAddingSeconds(NSCalendar::currentCalendar().startOfNextDay(receiver), -1);
}

QDateTime KTAdditions::dateByAddingYears(const QDateTime &receiver, int years)
{
    return added(receiver, &NSDateComponents::year, years);
}

QDateTime KTAdditions::dateByAddingMonths(const QDateTime &receiver, int months)
{
    return added(receiver, &NSDateComponents::month, months);
}

QDateTime KTAdditions::dateByAddingDays(const QDateTime &receiver, int days)
{
    return added(receiver, &NSDateComponents::day, days);
}

QDateTime KTAdditions::dateByAddingHours(const QDateTime &receiver, int hours)
{
    return added(receiver, &NSDateComponents::hour, hours);
}

QDateTime KTAdditions::dateByAddingSeconds(const QDateTime &receiver, int seconds)
{
    return added(receiver, &NSDateComponents::second, seconds);
}

double KTAdditions::secondsSinceMidnight(const QDateTime &receiver)
{
    if (!receiver.isValid())
        return 0;
    const NSDateComponents time =
        NSCalendar::currentCalendar().components(NSTimeCalendarUnits, receiver);
    return seconds(time.hour, time.minute, time.second);
}

int KTAdditions::secondOfDay(const QDateTime &receiver)
{
    const QTime time = receiver.isValid() ? receiver.time() : QTime(0, 0);
    return seconds(time.hour(), time.minute(), time.second());
}
