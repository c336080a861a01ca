#pragma once

/// How much of a date or time a locale's own format shows.
enum NSDateFormatterStyle : unsigned {
    NSDateFormatterNoStyle = 0,     ///< nothing is shown
    NSDateFormatterShortStyle = 1,  ///< "3/5/08", "5:30 PM"
    NSDateFormatterMediumStyle = 2, ///< "Mar 5, 2008", "5:30:15 PM"
    NSDateFormatterLongStyle = 3,   ///< "March 5, 2008", "5:30:15 PM EST"
    NSDateFormatterFullStyle = 4    ///< "Wednesday, March 5, 2008", with the zone's full name
};

/// Lists of names that a formatter of the behaviour 10.4 writes and reads; see
/// NSDateFormatter::symbols().
enum class NSDateFormatterSymbols {
    Era,             ///< "AD"
    LongEra,         ///< "Anno Domini"
    Month,           ///< "March"
    ShortMonth,      ///< "Mar"
    VeryShortMonth,  ///< "M"
    StandaloneMonth, ///< "March" without a day beside it, which is another word in some languages
    ShortStandaloneMonth,       ///< "Mar" without a day beside it
    VeryShortStandaloneMonth,   ///< "M" without a day beside it
    Weekday,                    ///< "Wednesday"
    ShortWeekday,               ///< "Wed"
    VeryShortWeekday,           ///< "W"
    StandaloneWeekday,          ///< "Wednesday" without a date beside it
    ShortStandaloneWeekday,     ///< "Wed" without a date beside it
    VeryShortStandaloneWeekday, ///< "W" without a date beside it
    Quarter,                    ///< "1st quarter"
    ShortQuarter,               ///< "Q1"
    StandaloneQuarter,          ///< "1st quarter" without a year beside it
    ShortStandaloneQuarter,     ///< "Q1" without a year beside it
    AMPM                        ///< "AM" and "PM"
};
