#pragma once

// Private to the library. For what shows dates and reads what it showed.

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSCalendar.h>
#include <KTUtility/Platform/Dates/NSDateFormatter.h>

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

namespace KTPrivate {
class TimeZoneRules;

/// What a field that shows dates is asked for, and what it says itself of what it does not show.
struct ShownDateContext
{
    const NSDateFormatter &formatter;  ///< that shows
    const NSCalendar &calendar;        ///< in which it shows
    std::function<QDateTime()> today;  ///< at noon
    std::function<QDateTime()> noDate; ///< gives the time of a day without time; 0:00 if invalid

    /// The time of a day without time, in milliseconds.
    qint64 timeOfDays(const TimeZoneRules &rules) const;
};

/// Reads what a formatter has shown: the date whose text is exactly \a text.
///
/// The text is taken apart by the formatter's pattern, and what comes out counts only if the
/// formatter shows it as the same text; so nothing else is ever read. What the text does not say is
/// the latest at which the field would have shown it: a time is today's, a day of this year's; but
/// 29 February is that of the last leap year, and "14:30 EDT" in winter was on the last day of
/// summer time. Of an hour that exists twice, and shows no zone, it is the later.
/// \return milliseconds since 1970; nothing if the formatter shows no date so.
KTUTILITY_EXPORT std::optional<qint64> readShownDate(const QString &text,
                                                     const ShownDateContext &context);
} // namespace KTPrivate
