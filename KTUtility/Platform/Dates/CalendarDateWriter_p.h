#pragma once

#include "DateEnvironment_p.h"
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <QString>

// Writes dates with the patterns of the behaviour 10.0: "%m/%d/%y %I:%M:%S %p". They are about the
// Gregorian calendar only. A directive that does not exist stands for itself.

namespace KTPrivate::CalendarDateWriter {
/// The text of an instant.
QString stringOf(const QString &pattern, qint64 time, const DateEnvironment &environment,
                 const TimeZoneRules &rules);
} // namespace KTPrivate::CalendarDateWriter
