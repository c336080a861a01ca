#pragma once

// Private to the library. Whether the system's zone data are still those of before.

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>

/// The files below /usr/share/zoneinfo and /etc/localtime, which change while programs run: a
/// package brings new rules, a laptop travels.
namespace KTPrivate::ZoneData {
/// The link to the machine's zone.
inline constexpr char MachineZone[] = "/etc/localtime";
/// The folder with the files of all zones.
inline constexpr char Folder[] = "/usr/share/zoneinfo";

/// Counts the changes that were noticed. The files are looked at once a minute, so that a call costs
/// some nanoseconds; what was made of them holds as long as the number stays the same.
KTUTILITY_EXPORT unsigned generation();

/// Looks at the files at once.
KTUTILITY_EXPORT void look();

/// What is seen of them: changes when a file is replaced, or the link to the machine's zone.
KTUTILITY_EXPORT QByteArray fingerprint();
} // namespace KTPrivate::ZoneData
