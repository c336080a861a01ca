#pragma once

// Private to the library. For whoever needs the instants of many dates.

#include <KTUtility/KTUtilityExport.h>

#include <QDateTime>
#include <QHash>

#include <optional>

namespace KTPrivate {
/// Milliseconds since 1970 of many dates, as QDateTime::toMSecsSinceEpoch(), but without asking for
/// the local zone each time, which takes microseconds: it is asked once for each of some weeks that
/// begin and end with the same distance to UTC.
class KTUTILITY_EXPORT LocalInstants
{
public:
    qint64 of(const QDateTime &date);

private:
    std::optional<qint64> distanceAround(qint64 reading);
    qint64 distanceAtNoon(qint64 julianDay);

    /// Milliseconds to UTC at noon of some Julian days.
    QHash<qint64, qint64> _distances;
};
} // namespace KTPrivate
