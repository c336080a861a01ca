#pragma once

#include "KTDateFormatterList.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSCalendar.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QDateTime>
#include <QString>
#include <QTimeZone>

#include <memory>

namespace KTPrivate {
/// What the formatters of a field are made of.
struct DateFormatterSettings
{
    NSLocale locale;
    NSCalendar calendar;
    QDateTime defaultDate; ///< of what texts do not say; may be nil
    QDateTime today;       ///< the same in Japan's own patterns
    QTimeZone zone = {};   ///< the machine's, for whoever knows it
    bool isSilent = false; ///< what is made is not logged

    bool isJapaneseCalendar() const { return calendar.calendarIdentifier() == NSJapaneseCalendar; }
};

/// The formatters that typed dates are tried with.
///
/// Fields with the same settings share their lists, so that a form of a hundred date fields makes
/// them once, and what no text needs is not made at all. While formatters are logged, each list is
/// made anew and at once, and so is its log.
namespace DateFormatterLists {
using Shared = std::shared_ptr<const KTDateFormatterList>;

KTUTILITY_EXPORT std::shared_ptr<NSDateFormatter>
formatterWithPattern(const DateFormatterSettings &settings, const QString &pattern, bool isLenient);
KTUTILITY_EXPORT std::shared_ptr<NSDateFormatter>
formatterWithStyles(const DateFormatterSettings &settings, uint dateStyle, uint timeStyle,
                    bool isLenient);

/// New formatters for the locale's own four styles, and for Japan's "3月5日".
KTUTILITY_EXPORT KTDateFormatterList datesOfLocale(const DateFormatterSettings &settings);
KTUTILITY_EXPORT KTDateFormatterList timesOfLocale(const DateFormatterSettings &settings);

/// The patterns of an order, then the locale's own.
KTUTILITY_EXPORT Shared dates(const DateFormatterSettings &settings, int order);
KTUTILITY_EXPORT Shared times(const DateFormatterSettings &settings);
/// ISO 8601 in the Gregorian calendar, whatever the locale's is.
KTUTILITY_EXPORT Shared iso(const DateFormatterSettings &settings);
/// The patterns of \a times behind one for dates.
KTUTILITY_EXPORT Shared datesWithTimes(const DateFormatterSettings &settings,
                                       const QString &datePattern, const Shared &times);
} // namespace DateFormatterLists
} // namespace KTPrivate
