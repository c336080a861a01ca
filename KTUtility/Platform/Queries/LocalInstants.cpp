#include "LocalInstants_p.h"

using namespace KTPrivate;

namespace {
constexpr qint64 MillisecondsOfDay = 24 * 60 * 60 * 1000;

/// Where a zone is as far from UTC at the end of so many days as at their beginning, it is so all of
/// the time: no zone puts its clocks forward and back again as quickly. Within a week, one did.
constexpr int DaysOfPeriod = 3;

/// A reading of a clock as if it were in UTC, since noon of the first Julian day: zones do not
/// change at noon, where periods begin.
qint64 clockReading(const QDateTime &date)
{
    return date.date().toJulianDay() * MillisecondsOfDay + date.time().msecsSinceStartOfDay() -
           MillisecondsOfDay / 2;
}
} // namespace

qint64 LocalInstants::of(const QDateTime &date)
{
    if (date.timeSpec() != Qt::LocalTime || !date.isValid())
        return date.toMSecsSinceEpoch();
    const qint64 reading = clockReading(date);
    const std::optional<qint64> distance = distanceAround(reading);
    return distance ? reading - *distance : date.toMSecsSinceEpoch();
}

/// The distance at a reading; none if it changes too near to it.
std::optional<qint64> LocalInstants::distanceAround(qint64 reading)
{
    // Before the first of the days, periods would begin late.
    if (reading < 0)
        return std::nullopt;
    const qint64 first = reading / MillisecondsOfDay / DaysOfPeriod * DaysOfPeriod;
    const qint64 distance = distanceAtNoon(first);
    return distance == distanceAtNoon(first + DaysOfPeriod) ? std::optional(distance)
                                                            : std::nullopt;
}

qint64 LocalInstants::distanceAtNoon(qint64 julianDay)
{
    const auto known = _distances.constFind(julianDay);
    if (known != _distances.constEnd())
        return *known;
    const QDateTime noon(QDate::fromJulianDay(julianDay), QTime(12, 0));
    return *_distances.insert(julianDay, clockReading(noon) - noon.toMSecsSinceEpoch());
}
