#include "ZoneDays.h"

#include "Text/ISODateParts.h"

#include <KTUtility/NSCalendar>

namespace {
constexpr qint64 DaysOfMonth = 32;
/// More are looked up anew.
constexpr qsizetype MostKnown = 50'000;
/// No clock is changed, and changed back, in less.
constexpr qint64 HalfADay = 12 * 3'600'000;
} // namespace

ZoneDays::ZoneDays() : _zone(NSCalendar::systemTimeZone()) {}

std::optional<int> ZoneDays::offsetOn(const QDate &day)
{
    const qint64 number = day.toJulianDay();
    const std::optional<int> ofMonth = offsetOf(number / DaysOfMonth * DaysOfMonth, DaysOfMonth);
    return ofMonth ? ofMonth : offsetOf(number, 1);
}

/// Of so many days.
std::optional<int> ZoneDays::offsetOf(qint64 first, qint64 count)
{
    const qint64 key = 2 * first + (count == 1);
    if (const auto known = _known.constFind(key); known != _known.constEnd())
        return *known;
    if (_known.size() >= MostKnown)
        _known.clear();
    return *_known.insert(key, readOffset(first, count));
}

/// Looks at the day before and the day after, too, since no clock is further
/// from UTC than that.
std::optional<int> ZoneDays::readOffset(qint64 first, qint64 count) const
{
    const QDate day = QDate::fromJulianDay(first - 1);
    const int offset = _zone.offsetFromUtc(ISODate::instantAt(day, 0));
    for (qint64 halves = 1; halves <= 2 * (count + 2); ++halves) {
        if (_zone.offsetFromUtc(ISODate::instantAt(day, halves * HalfADay)) != offset)
            return std::nullopt;
    }
    return offset % 60 == 0 ? std::optional(offset) : std::nullopt;
}
