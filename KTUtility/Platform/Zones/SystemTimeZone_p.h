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

/// What shows that the machine's zone is another one than before: changes with the link or file
/// that names it.
KTUTILITY_EXPORT QByteArray fingerprint();

/// The zone of the process, by the variable TZ as it is now. The machine's own is looked at again
/// once a minute.
QTimeZone current();
/// Looks it up again at its next use.
void reset();
} // namespace KTPrivate::SystemTimeZone
