#pragma once

#include "NSCivilDate_p.h"
#include "NSTimeZoneRules_p.h"

#include <optional>

/// A date and time as a clock and a calendar on the wall show them (Gregorian).
struct NSDateFields
{
    qint64 year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0; ///< of the day
    int minute = 0;
    int second = 0;
    int millisecond = 0;

    static NSDateFields fieldsOf(qint64 localTime);
    /// The fields of the default date; 1 January 2000, 0:00, if there is none.
    static NSDateFields defaultFields(std::optional<qint64> defaultTime,
                                      const NSTimeZoneRules &rules);

    /// Milliseconds since 1970 as if the clock were that of UTC.
    qint64 localTime() const;
    bool isExistingTime() const
    {
        return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
    }
    bool isExistingDay() const { return day >= 1 && day <= NSCivil::daysInMonth(year, month); }
};

inline NSDateFields NSDateFields::fieldsOf(qint64 localTime)
{
    const qint64 days = NSCivil::daysOfTime(localTime);
    const NSCivilDate date = NSCivil::dateOf(days);
    const auto time = int(localTime - days * NSCivil::MillisecondsPerDay);
    return {date.year,          date.month,       date.day,   time / 3'600'000,
            time / 60'000 % 60, time / 1000 % 60, time % 1000};
}

inline NSDateFields NSDateFields::defaultFields(std::optional<qint64> defaultTime,
                                                const NSTimeZoneRules &rules)
{
    return defaultTime ? fieldsOf(rules.localTimeOf(*defaultTime)) : NSDateFields();
}

inline qint64 NSDateFields::localTime() const
{
    const qint64 seconds = (hour * 60 + minute) * 60 + second;
    return NSCivil::daysOf(year, month, day) * NSCivil::MillisecondsPerDay + seconds * 1000 +
           millisecond;
}
