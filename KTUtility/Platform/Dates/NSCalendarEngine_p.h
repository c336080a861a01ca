#pragma once

#include "NSCalendar.h"

#include <unicode/calendar.h>

/// ICU's calendar for an NSCalendar, one per thread, ready to be set.
///
/// \code
/// const NSCalendarEngine engine(calendar);
/// engine->setTime(milliseconds, status);
/// \endcode
class NSCalendarEngine
{
public:
    explicit NSCalendarEngine(const NSCalendar &calendar);

    icu::Calendar *operator->() const { return _calendar; }

private:
    icu::Calendar *_calendar;
};

namespace NSICU {
/// The locale with the keyword that makes ICU use a calendar.
icu::Locale localeOf(const NSLocale &locale, const QString &calendarIdentifier);
} // namespace NSICU
