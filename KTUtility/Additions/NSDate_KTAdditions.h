#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QDateTime>

/// Days for searches, and times of day as numbers.
///
/// Everything is computed with the components of the user's calendar
/// (NSCalendar::currentCalendar()) in its time zone, so that days of 23 and 25 hours come out
/// right. The receiver is an instant, whatever zone it carries; results are instants in UTC, and
/// invalid if the receiver is, or if they would be out of the calendar's range.
///
/// \code
/// const QDateTime now = QDateTime::currentDateTime();
/// const QDateTime from = KTAdditions::beginningOfDay(now);
/// const QDateTime to = KTAdditions::endOfDay(now);                   // 23:59:59
/// const QDateTime nextMonth = KTAdditions::dateByAddingMonths(now, 1);
/// KTAdditions::secondsSinceMidnight(now);                            // 49530 at 13:45:30.75
/// \endcode
namespace KTAdditions {
/// The first instant of the receiver's day: midnight, or what follows it in zones whose summer time
/// begins at midnight. Where it ends with a second midnight, it is the first one. The receiver is
/// never before it, and never after the last second of endOfDay(): where the clock is put back
/// behind midnight (0:01 to 23:01), what the old day has once more counts to the new one.
KTUTILITY_EXPORT QDateTime beginningOfDay(const QDateTime &receiver);
/// The last whole second of the receiver's day: a second before the next day begins.
KTUTILITY_EXPORT QDateTime endOfDay(const QDateTime &receiver);

// The receiver and a number of units, which may be negative. A day that the month reached does not
// have becomes its last: 31 January and one month is the last day of February.

/// The date that many years later, or earlier for a negative number, in the calendar of the user's
/// locale and the machine's zone. 29 February becomes the 28th in years that have none.
KTUTILITY_EXPORT QDateTime dateByAddingYears(const QDateTime &receiver, int years);
/// The date that many months later or earlier; a day that the month does not have becomes its last.
KTUTILITY_EXPORT QDateTime dateByAddingMonths(const QDateTime &receiver, int months);
/// The same time of the day that many days later or earlier.
KTUTILITY_EXPORT QDateTime dateByAddingDays(const QDateTime &receiver, int days);
/// The instant that many hours later or earlier.
KTUTILITY_EXPORT QDateTime dateByAddingHours(const QDateTime &receiver, int hours);
/// The instant that many seconds later or earlier.
KTUTILITY_EXPORT QDateTime dateByAddingSeconds(const QDateTime &receiver, int seconds);

/// The time that the user's clock shows, in whole seconds; 0 for an invalid date. On a day with a
/// change of summer time that is not the time that has passed.
KTUTILITY_EXPORT double secondsSinceMidnight(const QDateTime &receiver);

/// The time that a clock in the receiver's own time zone shows, in whole seconds; 0 for an invalid
/// date.
KTUTILITY_EXPORT int secondOfDay(const QDateTime &receiver);
} // namespace KTAdditions
