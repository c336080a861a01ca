#pragma once

#include <QtGlobal>

namespace KTPrivate {
/// What a word, a sign or several mean in a typed date or time.
struct DateWord
{
    enum class Kind : quint8 {
        Filler,   ///< "the", "of"
        Joiner,   ///< "and", "more", in amounts
        TimeMark, ///< "at", before a time; sign: 1 if it stands before nothing else
        Now,
        Month,           ///< value: from 1
        Weekday,         ///< value: from 1 for Sunday
        Era,             ///< value: the number in its calendar; sign: 1 if it is Japan's
        RelativeDay,     ///< "tomorrow"; value: days from today
        RelativeWeekday, ///< "next Monday"; value: from 1 for Sunday; sign: how many ahead
        RelativeUnit,    ///< "next week"; value: an NSCalendarUnits; sign: how many ahead
        FixedAmount,     ///< "two days ago" as one word; value: an NSCalendarUnits; sign: how many
        Unit,            ///< value: an NSCalendarUnits
        OneUnit,         ///< the name of a unit beside 1 alone; value: the unit
        AmountPrefix,    ///< "in", before an amount; sign
        AmountSuffix,    ///< "ago", behind an amount; sign
        UnitWithSuffix,  ///< "days ago" that cannot be told apart; value: the unit; sign
        Number,          ///< "a", before a unit; value
        DayPeriod,       ///< value: a bit for each hour that it names; sign: 1 if it is today's
        HalfOfDay,       ///< the same for AM and PM; sign: 1 if it is one behind minutes only
        HourName,        ///< "noon"; value: the hour
        HourMark, ///< behind the number of an hour: "h", "Uhr"; sign: 1 if hours go to twelve
        MinuteMark,
        SecondMark,
        HalfHour, ///< in the place of minutes; value: how many
        YearMark, ///< behind the number of a year, as in Japanese
        MonthMark,
        DayMark
    };

    Kind kind = Kind::Filler;
    int value = 0;
    int sign = 0;

    friend bool operator==(const DateWord &, const DateWord &) = default;
};

/// The hours of the two halves of a day, as in DateWord::HalfOfDay.
inline constexpr int MorningHours = 0x000FFF;
inline constexpr int AfternoonHours = 0xFFF000;
} // namespace KTPrivate
