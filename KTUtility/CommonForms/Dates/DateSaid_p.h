#pragma once

#include <QString>
#include <QVarLengthArray>

#include <optional>

namespace KTPrivate {
/// What the words and numbers of a text say about a date and time, before it is known which day
/// that is.
struct DateSaid
{
    enum class Role : quint8 { Unknown, Year, Month, Day };

    struct Number
    {
        int value = 0;
        int digits = 0;
        Role role = Role::Unknown; ///< if a mark or the number of digits tells
        char16_t separator = 0;    ///< the sign before it; blank or 0 if there is none
        qsizetype token = 0;
        bool isMarked = false;       ///< as a day of a month, without which it is only a number
        bool isBehindTime = false;   ///< a time stands before it, perhaps with words between
        bool isBehindWord = false;   ///< a word that decides nothing stands before it
        bool isBehindMonth = false;  ///< the name of a month stands right before it
        bool isJoinedToTime = false; ///< a dash and a time stand behind it
        bool isNoYear = false;       ///< it may be minutes, or the end of a span of time
    };

    struct Move
    {
        int unit = 0; ///< an NSCalendarUnits
        int amount = 0;
    };

    struct Time
    {
        int hour = 0;
        int minute = 0;
        int second = 0;
        int millisecond = 0;
    };

    /// A part that decides something; see KTReadingPart.
    struct Part
    {
        qsizetype token = 0;
        const char16_t *role = nullptr;
        int value = 0;
    };

    /// Whether there is a day, or what it is counted from.
    bool hasDate() const
    {
        return !numbers.isEmpty() || month || weekdays != 0 || daysFromToday || nextWeekday ||
               isMoved();
    }
    bool isOnWeekday(int weekday) const
    {
        return weekdays == 0 || ((weekdays >> weekday) & 1) != 0;
    }
    bool isMoved() const { return !moves.isEmpty() || isNow; }
    bool isRelative() const { return daysFromToday || nextWeekday || isMoved(); }
    bool isWritten() const { return !numbers.isEmpty() || month; }

    QVarLengthArray<Number, 4> numbers;
    qsizetype numbersBeforeMonth = 0;
    std::optional<int> month;
    char16_t monthSeparator = 0; ///< the sign before the month
    int weekdays = 0;            ///< a bit for each that a word may mean; the second is Sunday's
    std::optional<int> era;
    bool isJapaneseEra = false;
    std::optional<int> daysFromToday;
    std::optional<int> nextWeekday;
    int weekdayDirection = 0;
    bool isNow = false;
    QVarLengthArray<Move, 4> moves;
    std::optional<Time> time;
    bool hasZone = false;       ///< behind the time
    bool isHourOfNight = false; ///< the time is after midnight, of a night that begins before it
    bool isHourOfDate = false;  ///< even so, beside a date it is that date's: "1 at night"
    bool isOfToday = false;     ///< "tonight"
    QVarLengthArray<Part, 16> parts;
    /// Why it cannot be; empty if it can.
    const char16_t *contradiction = nullptr;
};
} // namespace KTPrivate
