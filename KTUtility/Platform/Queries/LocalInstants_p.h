#pragma once

// Private to the library. For whoever needs the instants of many dates.

#include <KTUtility/KTUtilityExport.h>

#include <QDateTime>
#include <QHash>

#include <optional>

namespace KTPrivate {
/// Milliseconds since 1970 of many dates, as QDateTime::toMSecsSinceEpoch(), but without asking for
/// the local zone each time, which takes microseconds: it is asked once for each week that begins
/// and ends with the same distance to UTC.
class KTUTILITY_EXPORT LocalInstants
{
public:
    qint64 of(const QDateTime &date);

private:
    std::optional<qint64> distanceIn(qint64 week);
    qint64 distanceAt(qint64 week);

    /// By weeks since the first Julian day: milliseconds to UTC at their beginning.
    QHash<qint64, qint64> _distances;
};
} // namespace KTPrivate
