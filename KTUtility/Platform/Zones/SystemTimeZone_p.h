#pragma once

// Private to the library. The zone of this machine and process (tzset(3)).

#include <KTUtility/KTUtilityExport.h>

#include <QTimeZone>

namespace KTPrivate::SystemTimeZone {
/// The zone that the environment and the machine name; UTC where they name none, as for the C
/// library. Besides what Qt knows, \a variable, the value of TZ, may be a path of a zone's file, or
/// a rule without the dates of its changes ("CET-1CEST"), which are then those of the C library,
/// the American ones.
KTUTILITY_EXPORT QTimeZone zoneOf(const QByteArray &variable);

/// The zone of the process, by the variable TZ as it is now, and by the data as ZoneData sees them.
QTimeZone current();
/// Looks at the data at once, and the zone up again at its next use.
void reset();
} // namespace KTPrivate::SystemTimeZone
