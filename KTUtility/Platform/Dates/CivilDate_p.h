#pragma once

// Private to the library. For what counts days without ICU.

#include <QtGlobal>

namespace KTPrivate {
// The Gregorian calendar as arithmetic, for all times. Days are counted from 1 January 1970; years
// before Christ belong to ICU.

struct CivilDate
{
    qint64 year = 1970;
    int month = 1; ///< from 1
    int day = 1;
};

namespace Civil {
inline constexpr qint64 MillisecondsPerDay = 86'400'000;
inline constexpr qint64 FirstSafeYear = 1;
inline constexpr qint64 LastSafeYear = 9999;
/// 2 January 1, 0:00: it is the first year in every zone.
inline constexpr qint64 FirstSafeTime = -62'135'510'400'000;
/// 31 December 9999, 0:00: years have four digits in every zone.
inline constexpr qint64 EndOfSafeTime = 253'402'214'400'000;

/// Whether an instant can be left to arithmetic.
inline constexpr bool isSafe(qint64 instant)
{
    return instant >= FirstSafeTime && instant < EndOfSafeTime;
}

inline constexpr bool isLeapYear(qint64 year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

inline constexpr int daysInMonth(qint64 year, int month)
{
    constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : Days[month - 1];
}

/// Years are counted from March here, so that 29 February is the last day.
inline constexpr qint64 daysOf(qint64 year, int month, int day)
{
    const qint64 shifted = year - (month <= 2 ? 1 : 0);
    const qint64 era = (shifted >= 0 ? shifted : shifted - 399) / 400;
    const qint64 yearOfEra = shifted - era * 400;
    const qint64 dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
    const qint64 dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146'097 + dayOfEra - 719'468;
}

inline constexpr CivilDate dateOf(qint64 days)
{
    const qint64 shifted = days + 719'468;
    const qint64 era = (shifted >= 0 ? shifted : shifted - 146'096) / 146'097;
    const qint64 dayOfEra = shifted - era * 146'097;
    const qint64 yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const qint64 dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int fromMarch = int((5 * dayOfYear + 2) / 153);
    const int month = fromMarch < 10 ? fromMarch + 3 : fromMarch - 9;
    const int day = int(dayOfYear) - (153 * fromMarch + 2) / 5 + 1;
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

/// 1 for Sunday.
inline constexpr int weekdayOf(qint64 days)
{
    return int((days % 7 + 11) % 7) + 1;
}

inline constexpr qint64 daysOfTime(qint64 time)
{
    return (time >= 0 ? time : time - (MillisecondsPerDay - 1)) / MillisecondsPerDay;
}
} // namespace Civil
} // namespace KTPrivate
