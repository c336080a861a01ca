#pragma once

#include <KTUtility/NSCalendar>

#include <QDateTime>

/// A date as ISO 8601 has it, at the user's clock with its distance to UTC:
/// "2008-07-04T17:30:00-04:00". It is the same instant, to the millisecond.
inline QString isoDateText(const QDateTime &date)
{
    // Before there were time zones, clocks differed by seconds, too, for which there is no place.
    constexpr int Minute = 60;
    const QDateTime zoned = date.toTimeZone(NSCalendar::systemTimeZone());
    const QDateTime local = date.toOffsetFromUtc(zoned.offsetFromUtc() / Minute * Minute);
    const bool isWhole = local.time().msec() == 0;
    return local.toString(isWhole ? Qt::ISODate : Qt::ISODateWithMs);
}
