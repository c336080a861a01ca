#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSCalendar.h>

#include <QDateTime>
#include <QTimeZone>

namespace KTPrivate {
/// Today at noon in a calendar and the machine's zone. Fields ask for it with each text.
KTUTILITY_EXPORT QDateTime todayAtNoon(const NSCalendar &calendar);
/// The same if it were \a now, in milliseconds since 1970.
KTUTILITY_EXPORT QDateTime todayAtNoon(const NSCalendar &calendar, qint64 now);
/// The same in a zone, for those who know the machine's.
KTUTILITY_EXPORT QDateTime todayAtNoon(const NSCalendar &calendar, qint64 now,
                                       const QTimeZone &zone);
} // namespace KTPrivate
