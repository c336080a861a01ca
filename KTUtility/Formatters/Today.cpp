#include "Today_p.h"

#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Values/WallClock_p.h>

using namespace KTPrivate;

namespace {
constexpr int NoonHour = 12;

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
    const QDateTime now = QDateTime::fromMSecsSinceEpoch(time, UTC);
    NSDateComponents day = calendar.components(NSDateCalendarUnits, now);
    day.hour = day.minute = day.second = 0;
    const QDateTime begin = calendar.dateFromComponents(day);
    const QDateTime end = calendar.dateByAddingComponents({.day = 1}, begin);
    day.hour = NoonHour;
    return {calendar, zone, begin.toMSecsSinceEpoch(), end.toMSecsSinceEpoch(),
            calendar.dateFromComponents(day)};
}
} // namespace

QDateTime KTPrivate::todayAtNoon(const NSCalendar &calendar)
{
    thread_local KnownDay known;
    const qint64 now = WallClock::milliseconds();
    const QTimeZone zone = NSCalendar::systemTimeZone();
    if (now < known.begin || now >= known.end || known.zone != zone || known.calendar != calendar)
        known = dayOf(calendar, zone, now);
    return known.noon;
}
