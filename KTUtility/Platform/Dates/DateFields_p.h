#pragma once

#include "CivilDate_p.h"
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <optional>

namespace KTPrivate {
/// A date and time as a clock and a calendar on the wall show them (Gregorian).
struct DateFields
{
    qint64 year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0; ///< of the day
    int minute = 0;
    int second = 0;
    int millisecond = 0;

    static DateFields fieldsOf(qint64 localTime);
    /// The fields of the default date; 1 January 2000, 0:00, if there is none.
    static DateFields defaultFields(std::optional<qint64> defaultTime, const TimeZoneRules &rules);

    /// Milliseconds since 1970 as if the clock were that of UTC.
    qint64 localTime() const;
    bool isExistingTime() const
    {
        return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
    }
    bool isExistingDay() const { return day >= 1 && day <= Civil::daysInMonth(year, month); }
};

inline DateFields DateFields::fieldsOf(qint64 localTime)
{
    const qint64 days = Civil::daysOfTime(localTime);
    const CivilDate date = Civil::dateOf(days);
    const auto time = int(localTime - days * Civil::MillisecondsPerDay);
    return {date.year,          date.month,       date.day,   time / 3'600'000,
            time / 60'000 % 60, time / 1000 % 60, time % 1000};
}

inline DateFields DateFields::defaultFields(std::optional<qint64> defaultTime,
                                            const TimeZoneRules &rules)
{
    return defaultTime ? fieldsOf(rules.localTimeOf(*defaultTime)) : DateFields();
}

inline qint64 DateFields::localTime() const
{
    const qint64 seconds = (hour * 60 + minute) * 60 + second;
    return Civil::daysOf(year, month, day) * Civil::MillisecondsPerDay + seconds * 1000 +
           millisecond;
}
} // namespace KTPrivate
