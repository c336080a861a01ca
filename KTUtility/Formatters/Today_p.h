#pragma once

#include <KTUtility/Platform/Dates/NSCalendar.h>

#include <QDateTime>

namespace KTPrivate {
/// Today at noon in a calendar and the machine's zone. Fields ask for it with each text.
QDateTime todayAtNoon(const NSCalendar &calendar);
} // namespace KTPrivate
