#include "TimeZoneRules_p.h"

#include "ICUTimeZone_p.h"
#include "SystemTimeZone_p.h"
#include "ZoneChanges_p.h"
#include "ZoneData_p.h"
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

using namespace KTPrivate;

namespace {
/// The length of a season is a power of two, about 99 days.
constexpr int SeasonBits = 33;
constexpr qint64 Hour = 3'600'000;
/// No clock is further from UTC, or changes by more, than this.
constexpr qint64 Margin = 27 * Hour;

/// A year and a bit: where summer time comes every year, it is not further away than that.
constexpr qint64 Year = 400 * 24 * Hour;

QDateTime dateOf(qint64 instant)
{
    return QDateTime::fromMSecsSinceEpoch(instant, UTC);
}

/// How much earlier the clock is set in a winter that counts as a deviation from standard time, as
/// in Ireland; 0 if summers do, as nearly everywhere.
int winterTimeAround(const QTimeZone &zone, const QDateTime &date)
{
    for (const auto &change : {ZoneChanges::after(zone, date), zone.previousTransition(date)}) {
        const bool isNear = change.atUtc.isValid() && std::abs(change.atUtc.msecsTo(date)) < Year;
        if (isNear && change.daylightTimeOffset < 0)
            return -change.daylightTimeOffset;
    }
    return 0;
}

/// How much of an offset is daylight saving time. The names that ICU has are those of winters and
/// summers, whichever of them a country calls its standard time.
int savingAt(const QTimeZone &zone, const QDateTime &date)
{
    const int saving = zone.hasDaylightTime() ? zone.daylightTimeOffset(date) : 0;
    if (saving != 0 || !zone.hasDaylightTime())
        return std::max(saving, 0);
    return winterTimeAround(zone, date);
}

/// A zone that was made before the data changed has the old ones.
QTimeZone asItIsNow(const QTimeZone &zone, unsigned generation)
{
    if (generation == 0 || !QTimeZone::isTimeZoneIdAvailable(zone.id()))
        return zone;
    return QTimeZone(zone.id());
}
} // namespace

TimeZoneRules::TimeZoneRules(const QTimeZone &zone)
    : _source(zone), _zone(std::make_unique<ICUTimeZone>(*this, zone))
{
}

const TimeZoneRules &TimeZoneRules::rulesOf(const QTimeZone &zone)
{
    if (!zone.isValid())
        return rulesOf(SystemTimeZone::current());
    // Formatters are made by the dozen, all in one zone.
    struct Last
    {
        Key key;
        const TimeZoneRules *rules = nullptr;
    };
    static thread_local Last last;
    const Key key{zone.id(), ZoneData::generation()};
    if (!last.rules || last.key != key)
        last = {key, &sharedRulesOf(zone, key)};
    return *last.rules;
}

const TimeZoneRules &TimeZoneRules::sharedRulesOf(const QTimeZone &zone, const Key &key)
{
    static QMutex mutex;
    static std::map<Key, std::unique_ptr<TimeZoneRules>> known;
    const QMutexLocker lock(&mutex);
    std::unique_ptr<TimeZoneRules> &rules = known[key];
    if (!rules)
        rules.reset(new TimeZoneRules(asItIsNow(zone, key.second)));
    return *rules;
}

/// The slot of a time in a table of some seventy years; what else was there is filled in anew.
const TimeZoneRules::Season &TimeZoneRules::seasonAt(qint64 time) const
{
    static thread_local std::array<Season, 256> seasons;
    const qint64 number = time >> SeasonBits;
    Season &season = seasons[size_t(number) % seasons.size()];
    if (season.rules != this || season.number != number) {
        season.rules = this;
        season.number = number;
        fill(&season);
    }
    return season;
}

void TimeZoneRules::fill(Season *season) const
{
    const qint64 start = (season->number << SeasonBits) - Margin;
    const qint64 end = ((season->number + 1) << SeasonBits) + Margin;
    season->stretches[0] = {start, slowOffsetAt(start)};
    season->count = 1;
    for (const auto &change : ZoneChanges::between(_source, dateOf(start + 1), dateOf(end))) {
        if (season->count == season->stretches.size()) {
            season->count = 0;
            return;
        }
        const qint64 time = change.atUtc.toMSecsSinceEpoch();
        season->stretches[season->count++] = {time, slowOffsetAt(time)};
    }
}

TimeZoneRules::Offset TimeZoneRules::slowOffsetAt(qint64 instant) const
{
    const QDateTime date = dateOf(instant);
    return {_source.offsetFromUtc(date) * 1000, savingAt(_source, date) * 1000};
}

TimeZoneRules::Offset TimeZoneRules::fullOffsetAt(qint64 instant) const
{
    const Season &season = seasonAt(instant);
    for (size_t index = season.count; index > 0; --index) {
        if (instant >= season.stretches[index - 1].from)
            return season.stretches[index - 1].offset;
    }
    return slowOffsetAt(instant);
}

qint64 TimeZoneRules::instantOf(qint64 localTime) const
{
    const Season &season = seasonAt(localTime);
    return season.count > 0 ? instantOf(localTime, season) : slowInstantOf(localTime);
}

/// The last stretch that began before the clock showed the time is the one, be it that the time
/// was shown before, too; if no stretch shows it, the one before the gap decides.
qint64 TimeZoneRules::instantOf(qint64 localTime, const Season &season)
{
    size_t index = season.count - 1;
    const auto instantIn = [&] { return localTime - season.stretches[index].offset.total; };
    while (index > 0 && instantIn() < season.stretches[index].from)
        --index;
    return instantIn();
}

/// Beside more changes than a season holds, or where there is none: the offset of the day after
/// unless it was not yet that of the time, else the one of the day before.
qint64 TimeZoneRules::slowInstantOf(qint64 localTime) const
{
    const qint64 later = localTime - slowOffsetAt(localTime + Margin).total;
    if (slowOffsetAt(later).total == localTime - later)
        return later;
    return localTime - slowOffsetAt(localTime - Margin).total;
}

qint64 TimeZoneRules::lastingInstantFrom(qint64 localTime) const
{
    const Season &season = seasonAt(localTime);
    for (size_t index = season.count; index > 0; --index) {
        const Stretch &stretch = season.stretches[index - 1];
        const qint64 shown = localTime - stretch.offset.total;
        // The last stretch of which the beginning, at least, is earlier.
        if (index == 1 || shown > stretch.from)
            return index == season.count ? shown : std::min(shown, season.stretches[index].from);
    }
    return slowLastingInstantFrom(localTime);
}

/// The same beside more changes than a season holds.
qint64 TimeZoneRules::slowLastingInstantFrom(qint64 localTime) const
{
    qint64 from = localTime - Margin;
    qint64 shown = localTime - slowOffsetAt(from).total;
    qint64 found = shown;
    for (const auto &change :
         ZoneChanges::between(_source, dateOf(from + 1), dateOf(localTime + Margin))) {
        const qint64 end = change.atUtc.toMSecsSinceEpoch();
        found = shown > from ? std::min(shown, end) : found;
        from = end;
        shown = localTime - slowOffsetAt(from).total;
    }
    return shown > from ? shown : found;
}
