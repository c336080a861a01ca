#pragma once

// Private to the library. For finding out what "1:30" is in a column of durations.

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// Durations as a clock shows them: "1:30", "-12:05", "2:04.5". With two parts they may be hours and
/// minutes or minutes and seconds; a fraction is one of seconds. Other texts are possible in no way.
namespace KTPrivate::ColumnClocks {
/// Of the conventions of KTColumnReading.
enum Units { HoursMinutes, MinutesSeconds };

/// A bit for each pair of units that a text is possible in.
KTUTILITY_EXPORT unsigned possibleUnits(QStringView text);
/// Minutes and seconds with the hours before them: "0:01:30" for "1:30".
KTUTILITY_EXPORT QString withHours(const QString &text);
} // namespace KTPrivate::ColumnClocks
