#pragma once

#include <KTUtility/NSCalendar>

#include <QDateTime>

#include <array>
#include <cstdlib>

namespace ISODate {
/// Writes a number with so many digits, and returns where the next one goes.
inline char16_t *written(char16_t *to, qint64 number, int digits)
{
    for (int place = digits - 1; place >= 0; --place, number /= 10)
        to[place] = char16_t(u'0' + number % 10);
    return to + digits;
}

/// The same behind a mark.
inline char16_t *written(char16_t *to, char16_t mark, qint64 number, int digits)
{
    *to = mark;
    return written(to + 1, number, digits);
}

/// "Z" or "-04:00".
inline char16_t *writtenOffset(char16_t *to, int offset)
{
    if (offset == 0) {
        *to = u'Z';
        return to + 1;
    }
    to = written(to, offset < 0 ? u'-' : u'+', std::abs(offset) / 3600, 2);
    return written(to, u':', std::abs(offset) / 60 % 60, 2);
}

/// What Qt writes for a date and time in one of the years 0 to 9999, several times as fast.
/// \param milliseconds at a clock with that distance to UTC, since midnight.
/// \param offset the distance in seconds, of whole minutes.
inline QString text(const QDate &day, qint64 milliseconds, int offset)
{
    constexpr qint64 Second = 1000;
    std::array<char16_t, 32> units;
    char16_t *to = written(units.data(), day.year(), 4);
    to = written(to, u'-', day.month(), 2);
    to = written(to, u'-', day.day(), 2);
    to = written(to, u'T', milliseconds / Second / 3600, 2);
    to = written(to, u':', milliseconds / Second / 60 % 60, 2);
    to = written(to, u':', milliseconds / Second % 60, 2);
    if (milliseconds % Second != 0)
        to = written(to, u'.', milliseconds % Second, 3);
    to = writtenOffset(to, offset);
    return QString(reinterpret_cast<const QChar *>(units.data()), to - units.data());
}
} // namespace ISODate

/// A date as ISO 8601 has it, at the user's clock with its distance to UTC:
/// "2008-07-04T17:30:00-04:00". It is the same instant, to the millisecond.
inline QString isoDateText(const QDateTime &date)
{
    // Before there were time zones, clocks differed by seconds, too, for which there is no place.
    constexpr int Minute = 60;
    constexpr qint64 Day = 86'400'000;
    constexpr qint64 FirstDay = 2'440'588; // 1970-01-01
    const int offset = NSCalendar::systemTimeZone().offsetFromUtc(date) / Minute * Minute;
    const qint64 local = date.toMSecsSinceEpoch() + qint64(offset) * 1000;
    const qint64 inDay = (local % Day + Day) % Day;
    const QDate day = QDate::fromJulianDay(FirstDay + (local - inDay) / Day);
    if (date.isValid() && day.year() >= 0 && day.year() <= 9999)
        return ISODate::text(day, inDay, offset);
    const QDateTime other = date.toOffsetFromUtc(offset);
    return other.toString(inDay % 1000 == 0 ? Qt::ISODate : Qt::ISODateWithMs);
}
