#pragma once

#include "DateEngine_p.h"

#include <QStringView>

/// Reads dates as people talk.
///
/// The words are those of the user's language (see NaturalLanguageWords), upper or lower case,
/// with spaces and commas between them; little words such as "at" and "on" do not matter. A text
/// says, in any order, a date, a time, or both:
///
///     date = today | tomorrow | yesterday | the day after tomorrow | …     relative to today
///          | [next | last | this] weekday        next: the first after today, last: the last before
///          | (next | last | this) (week | month | year)
///          | in number unit | number unit ago | number unit from now      "a" is a number
///          | month [day] [year] | day month [year]                a month alone is its first day
///          | numbers in the order of the formatter's pattern: 3/4, 3/4/08, 2008-3-4
///     time = h:mm[:ss] [AM | PM] | h (AM | PM) | h o'clock | noon | midnight | morning | …
///          | h | h:          the hour of a day, 0 to 23
///     text = date [time] | time | now
///
/// A weekday beside a date has to be that date's; beside a week it is that of the week; alone, of
/// this week. Today is the default date's day, else the clock's; amounts of hours, minutes and
/// seconds count from now. A date without a time is at 12:00. Years and months are Gregorian.
/// Whatever else the text holds, it is no date.
namespace KTPrivate::NaturalLanguageDate {
/// \param pattern the formatter's own pattern; its order of day, month and year is the user's.
bool parse(QStringView text, const QString &pattern, const DateReading &reading, DateMatch *match);

/// Milliseconds since 1970, now. Tests put a clock of their own here; null is the system's.
using Clock = qint64 (*)();
void setClock(Clock clock);
} // namespace KTPrivate::NaturalLanguageDate
