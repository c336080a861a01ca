#include "Today_p.h"

#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Values/WallClock_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>
#include <KTUtility/Platform/Zones/ZoneData_p.h>

using namespace KTPrivate;

namespace {
constexpr int NoonHour = 12;

/// A day of a calendar, by its number as clocks show it: where summer time begins or ends at
/// midnight, days do not follow from the instants at which they begin.
struct KnownDay
{
    NSCalendar calendar;
    QTimeZone zone;
    unsigned generation = 0; ///< of the zones' data
    qint64 number = 0;
    QDateTime noon;
};

QDateTime noonOf(const NSCalendar &calendar, qint64 time)
{
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(time, UTC);
    NSDateComponents day = calendar.components(NSDateCalendarUnits, now);
    day.hour = NoonHour;
    day.minute = day.second = 0;
    return calendar.dateFromComponents(day);
}
} // namespace

QDateTime KTPrivate::todayAtNoon(const NSCalendar &calendar)
{
    return todayAtNoon(calendar, WallClock::milliseconds());
}

QDateTime KTPrivate::todayAtNoon(const NSCalendar &calendar, qint64 now)
{
    return todayAtNoon(calendar, now, NSCalendar::systemTimeZone());
}

QDateTime KTPrivate::todayAtNoon(const NSCalendar &calendar, qint64 now, const QTimeZone &zone)
{
    thread_local KnownDay known;
    const qint64 number = Civil::daysOfTime(TimeZoneRules::rulesOf(zone).localTimeOf(now));
    const unsigned generation = ZoneData::generation();
    if (!known.noon.isValid() || known.number != number || known.zone != zone ||
        known.generation != generation || known.calendar != calendar)
        known = {calendar, zone, generation, number, noonOf(calendar, now)};
    return known.noon;
}
