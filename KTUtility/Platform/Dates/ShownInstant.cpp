#include "ShownInstant_p.h"

#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <QTimeZone>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The year on whose first day times without one are.
constexpr int ReferenceYear = 2001;

bool isLetter(QChar unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

/// Whether all letters of a pattern that are not quoted are hours, minutes, seconds, halves of the
/// day and zones.
bool hasTimeOnly(const QString &pattern)
{
    bool isQuoted = false;
    return std::ranges::all_of(pattern, [&isQuoted](QChar unit) {
        isQuoted ^= unit == u'\'';
        return isQuoted || !isLetter(unit) || u"abBhHkKjmsSAzZOvVXx"_s.contains(unit);
    });
}

/// From when on a clock in the zone shows that time or more.
QDateTime instantFrom(QDate day, QTime time, const QTimeZone &zone)
{
    const QDateTime local(day, time, QTimeZone::utc());
    const qint64 instant =
        TimeZoneRules::rulesOf(zone).lastingInstantFrom(local.toMSecsSinceEpoch());
    return QDateTime::fromMSecsSinceEpoch(instant, QTimeZone::utc());
}
} // namespace

QDateTime KTPrivate::shownInstant(const QVariant &value, const NSDateFormatter &formatter)
{
    if (value.metaType() == QMetaType::fromType<QDateTime>())
        return value.toDateTime();
    if (value.metaType() == QMetaType::fromType<QDate>() && value.toDate().isValid())
        return instantFrom(value.toDate(), QTime(0, 0), formatter.timeZone());
    if (value.metaType() == QMetaType::fromType<QTime>() && value.toTime().isValid() &&
        hasTimeOnly(formatter.dateFormat()))
        return instantFrom(QDate(ReferenceYear, 1, 1), value.toTime(), formatter.timeZone());
    return {};
}
