#pragma once

// Private to the library. For what asks a zone for the changes of its clocks.

#include <KTUtility/KTUtilityExport.h>

#include <QDateTime>
#include <QTimeZone>

namespace KTPrivate {
/// The changes of a zone's clocks, whatever form its data have.
///
/// Data that keep rules where others keep tables ("slim") end with a rule behind the last change that
/// is listed. QTimeZone finds no change after the last one of the list when it is asked for what
/// comes after exactly that one, though the rule has more.
///
/// \code
/// for (const QTimeZone::OffsetData &change : ZoneChanges::between(zone, from, to))
///     use(change.atUtc);
/// \endcode
struct KTUTILITY_EXPORT ZoneChanges
{
    /// The first change after a time; invalid if there is none.
    static QTimeZone::OffsetData after(const QTimeZone &zone, const QDateTime &date);
    /// All from one time to another, both included.
    static QTimeZone::OffsetDataList between(const QTimeZone &zone, const QDateTime &from,
                                             const QDateTime &to);
};
} // namespace KTPrivate
