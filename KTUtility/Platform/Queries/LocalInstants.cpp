#include "LocalInstants_p.h"

using namespace KTPrivate;

namespace {
constexpr int DaysOfWeek = 7;
constexpr qint64 MillisecondsOfDay = 24 * 60 * 60 * 1000;
constexpr qint64 MillisecondsOfWeek = DaysOfWeek * MillisecondsOfDay;

/// A reading of a clock as if it were in UTC, since noon of the first Julian day: zones do not
/// change at noon, where weeks begin.
qint64 readingOf(const QDateTime &date)
{
    return date.date().toJulianDay() * MillisecondsOfDay + date.time().msecsSinceStartOfDay() -
           MillisecondsOfDay / 2;
}
} // namespace

qint64 LocalInstants::of(const QDateTime &date)
{
    if (date.timeSpec() != Qt::LocalTime || !date.isValid())
        return date.toMSecsSinceEpoch();
    const qint64 reading = readingOf(date);
    // Before the first of the days, weeks would begin late.
    const std::optional<qint64> distance =
        reading < MillisecondsOfWeek ? std::nullopt : distanceIn(reading / MillisecondsOfWeek);
    return distance ? reading - *distance : date.toMSecsSinceEpoch();
}

/// The distance in a week; none if it changes meanwhile. No zone changes it twice in a week.
std::optional<qint64> LocalInstants::distanceIn(qint64 week)
{
    const qint64 distance = distanceAt(week);
    return distance == distanceAt(week + 1) ? std::optional(distance) : std::nullopt;
}

qint64 LocalInstants::distanceAt(qint64 week)
{
    const auto known = _distances.constFind(week);
    if (known != _distances.constEnd())
        return *known;
    const QDateTime start(QDate::fromJulianDay(week * DaysOfWeek), QTime(12, 0));
    return *_distances.insert(week, readingOf(start) - start.toMSecsSinceEpoch());
}
