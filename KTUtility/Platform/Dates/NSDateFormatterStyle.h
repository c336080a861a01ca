#pragma once

/// How much of a date or time a locale's own format shows.
enum NSDateFormatterStyle : unsigned {
    NSDateFormatterNoStyle = 0,
    NSDateFormatterShortStyle = 1,  ///< "3/5/08", "5:30 PM"
    NSDateFormatterMediumStyle = 2, ///< "Mar 5, 2008", "5:30:15 PM"
    NSDateFormatterLongStyle = 3,   ///< "March 5, 2008", "5:30:15 PM EST"
    NSDateFormatterFullStyle = 4    ///< "Wednesday, March 5, 2008", with the zone's full name
};

/// Lists of names that a formatter of the behaviour 10.4 writes and reads; see
/// NSDateFormatter::symbols().
enum class NSDateFormatterSymbols {
    Era,
    LongEra,
    Month,
    ShortMonth,
    VeryShortMonth,
    StandaloneMonth,
    ShortStandaloneMonth,
    VeryShortStandaloneMonth,
    Weekday,
    ShortWeekday,
    VeryShortWeekday,
    StandaloneWeekday,
    ShortStandaloneWeekday,
    VeryShortStandaloneWeekday,
    Quarter,
    ShortQuarter,
    StandaloneQuarter,
    ShortStandaloneQuarter,
    AMPM
};
