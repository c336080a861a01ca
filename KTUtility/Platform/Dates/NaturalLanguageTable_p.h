#pragma once

// Private to the library. The words for dates that CLDR lacks, for whatever reads typed ones.

#include <QtGlobal>

#include <vector>

namespace KTPrivate {
/// What a word, or several, means in a date.
struct NaturalLanguageMeaning
{
    enum class Kind : quint8 {
        Filler, ///< "at", "on"
        Now,
        Day,             ///< value: days from today
        Weekday,         ///< value: 0 for Sunday
        RelativeWeekday, ///< value: 0 for Sunday; sign: the next or the last one, 0 this week's
        Month,           ///< value: from 1
        Unit,            ///< value: an NSCalendarUnits
        RelativeUnit,    ///< "next week"; value: an NSCalendarUnits; sign: how many
        Amount,          ///< "in 3 days", the number in the text; value: an NSCalendarUnits; sign
        FixedAmount,     ///< the same in words; amount: the number
        Direction,       ///< "next", "last"; sign
        InFuture,        ///< "in", before an amount
        Suffix,          ///< "ago", "from now", behind an amount; sign
        Number,          ///< "a", before a unit; value
        HourName,        ///< "noon"; value: the hour
        HalfOfDay,       ///< value: 0 AM, 1 PM
        HourMark,        ///< "o'clock", "Uhr"
        MinuteMark,
        SecondMark,
        YearMark, ///< behind the number of a year, as in Japanese
        MonthMark,
        DayMark
    };

    Kind kind = Kind::Filler;
    int value = 0;
    int sign = 0;
    int amount = 0;
};

/// A row of the tables: a language, words of it separated by "|", and what they mean.
struct NaturalLanguageRow
{
    const char *language;
    const char16_t *words;
    NaturalLanguageMeaning meaning;
};

/// The words that ICU's data do not have.
const std::vector<NaturalLanguageRow> &naturalLanguageTable();
} // namespace KTPrivate
