#include "ZoneChanges_p.h"

using namespace KTPrivate;

QTimeZone::OffsetData ZoneChanges::after(const QTimeZone &zone, const QDateTime &date)
{
    const QTimeZone::OffsetData change = zone.nextTransition(date);
    return change.atUtc.isValid() ? change : zone.nextTransition(date.addMSecs(1));
}

QTimeZone::OffsetDataList ZoneChanges::between(const QTimeZone &zone, const QDateTime &from,
                                               const QDateTime &to)
{
    QTimeZone::OffsetDataList changes;
    QTimeZone::OffsetData change = after(zone, from.addMSecs(-1));
    while (change.atUtc.isValid() && change.atUtc <= to) {
        changes += change;
        change = after(zone, change.atUtc);
    }
    return changes;
}
