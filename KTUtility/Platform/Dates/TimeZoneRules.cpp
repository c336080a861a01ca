#include "TimeZoneRules_p.h"

#include "NSCalendar.h"
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/simpletz.h>
#include <unicode/tztrans.h>

#include <QMutex>
#include <QMutexLocker>

#include <array>
#include <map>

using namespace KTPrivate;

namespace {
/// The length of a season is a power of two, about 99 days.
constexpr int SeasonBits = 33;
constexpr qint64 Hour = 3'600'000;
/// No clock is further from UTC, or changes by more, than this.
constexpr qint64 Margin = 27 * Hour;

/// Zones without rules in ICU, such as "UTC+05:30" of Qt, have one offset for ever.
std::unique_ptr<icu::BasicTimeZone> fixedZone(const QTimeZone &zone, const icu::UnicodeString &id)
{
    const int seconds = zone.standardTimeOffset(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
    return std::make_unique<icu::SimpleTimeZone>(seconds * 1000, id);
}

std::unique_ptr<icu::BasicTimeZone> zoneOf(const QTimeZone &zone)
{
    const QString id = QString::fromLatin1(zone.id());
    const icu::UnicodeString name = ICU::aliasOf(id);
    icu::TimeZone *const made = icu::TimeZone::createTimeZone(name);
    std::unique_ptr<icu::BasicTimeZone> basic(dynamic_cast<icu::BasicTimeZone *>(made));
    if (basic && *basic != icu::TimeZone::getUnknown())
        return basic;
    if (!basic)
        delete made;
    return fixedZone(zone, name);
}
} // namespace

TimeZoneRules::TimeZoneRules(const QTimeZone &zone) : _zone(zoneOf(zone)) {}

const TimeZoneRules &TimeZoneRules::rulesOf(const QTimeZone &zone)
{
    if (!zone.isValid())
        return rulesOf(NSCalendar::systemTimeZone());
    // Formatters are made by the dozen, all in one zone.
    struct Last
    {
        QByteArray id;
        const TimeZoneRules *rules = nullptr;
    };
    static thread_local Last last;
    const QByteArray id = zone.id();
    if (!last.rules || last.id != id)
        last = {id, &sharedRulesOf(zone, id)};
    return *last.rules;
}

const TimeZoneRules &TimeZoneRules::sharedRulesOf(const QTimeZone &zone, const QByteArray &id)
{
    static QMutex mutex;
    static std::map<QByteArray, std::unique_ptr<TimeZoneRules>> known;
    const QMutexLocker lock(&mutex);
    std::unique_ptr<TimeZoneRules> &rules = known[id];
    if (!rules)
        rules.reset(new TimeZoneRules(zone));
    return *rules;
}

/// The slot of a time in a small table; what else was there is filled in anew.
const TimeZoneRules::Season &TimeZoneRules::seasonAt(qint64 time) const
{
    static thread_local std::array<Season, 32> seasons;
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
    icu::TimeZoneTransition transition;
    qint64 time = start;
    while (_zone->getNextTransition(double(time), false, transition)) {
        time = qint64(transition.getTime());
        if (time >= end)
            return;
        if (season->count == season->stretches.size()) {
            season->count = 0;
            return;
        }
        season->stretches[season->count++] = {time, slowOffsetAt(time)};
    }
}

int TimeZoneRules::slowOffsetAt(qint64 instant) const
{
    int32_t standard = 0;
    int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    _zone->getOffset(double(instant), false, standard, saving, status);
    return standard + saving;
}

int TimeZoneRules::offsetAt(qint64 instant) const
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
/// was shown before, too; if no stretch shows it, the one before the gap tells.
qint64 TimeZoneRules::instantOf(qint64 localTime, const Season &season)
{
    size_t index = season.count - 1;
    while (index > 0 && localTime - season.stretches[index].offset < season.stretches[index].from)
        --index;
    return localTime - season.stretches[index].offset;
}

qint64 TimeZoneRules::slowInstantOf(qint64 localTime) const
{
    int32_t standard = 0;
    int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    _zone->getOffsetFromLocal(double(localTime), UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_LATTER,
                              standard, saving, status);
    return localTime - standard - saving;
}
