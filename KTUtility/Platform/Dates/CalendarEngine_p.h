#pragma once

#include "NSCalendar.h"

#include <unicode/calendar.h>

namespace KTPrivate {
/// ICU's calendar for an NSCalendar, one per thread, ready to be set.
///
/// \code
/// const CalendarEngine engine(calendar);
/// engine->setTime(milliseconds, status);
/// \endcode
class CalendarEngine
{
public:
    explicit CalendarEngine(const NSCalendar &calendar);

    icu::Calendar *operator->() const { return _calendar; }

private:
    icu::Calendar *_calendar;
};

namespace ICU {
/// Has the Gregorian calendar, and those that count its days, in use for all times: ICU's are
/// Julian before 15 October 1582.
void setGregorianForever(icu::Calendar *calendar);

/// The locale with the keyword that makes ICU use a calendar.
icu::Locale localeOf(const NSLocale &locale, const QString &calendarIdentifier);
} // namespace ICU
} // namespace KTPrivate
