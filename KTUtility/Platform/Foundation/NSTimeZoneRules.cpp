#include "NSTimeZoneRules_p.h"

#include "NSCalendar.h"
#include "NSICU_p.h"

#include <unicode/simpletz.h>
#include <unicode/tztrans.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <array>

namespace {
constexpr qint64 Hour = 3'600'000;
/// No zone is further from another than the change of the date in Samoa, 24 hours.
constexpr qint64 SafeDistance = 26 * Hour;
/// Beyond this, zones have no transitions that ICU would find.
constexpr qint64 EndOfTime = std::numeric_limits<qint64>::max() / 4;

/// Zones without rules in ICU, such as "UTC+05:30" of Qt, have one offset for ever.
std::unique_ptr<icu::BasicTimeZone> fixedZone(const QTimeZone &zone, const icu::UnicodeString &id)
{
    const int seconds = zone.standardTimeOffset(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
    return std::make_unique<icu::SimpleTimeZone>(seconds * 1000, id);
}

std::unique_ptr<icu::BasicTimeZone> zoneOf(const QTimeZone &zone)
{
    const QString id = QString::fromLatin1(zone.id());
    const icu::UnicodeString name = NSICU::aliasOf(id);
    std::unique_ptr<icu::TimeZone> made(icu::TimeZone::createTimeZone(name));
    const bool isKnown = *made != icu::TimeZone::getUnknown();
    auto *const basic = dynamic_cast<icu::BasicTimeZone *>(made.get());
    if (!isKnown || !basic)
        return fixedZone(zone, name);
    made.release();
    return std::unique_ptr<icu::BasicTimeZone>(basic);
}
} // namespace

NSTimeZoneRules::NSTimeZoneRules(const QTimeZone &zone) : _zone(zoneOf(zone)) {}

const NSTimeZoneRules &NSTimeZoneRules::rulesOf(const QTimeZone &zone)
{
    if (!zone.isValid())
        return rulesOf(NSCalendar::systemTimeZone());
    static QMutex mutex;
    static QHash<QByteArray, NSTimeZoneRules *> known;
    const QMutexLocker lock(&mutex);
    NSTimeZoneRules *&rules = known[zone.id()];
    if (!rules)
        rules = new NSTimeZoneRules(zone);
    return *rules;
}

/// A small table by time: stretches are about half a year long, the slots a season.
NSTimeZoneRules::Stretch &NSTimeZoneRules::rememberedFor(qint64 time)
{
    static thread_local std::array<Stretch, 32> stretches;
    return stretches[size_t(time >> 33) % stretches.size()];
}

const NSTimeZoneRules::Stretch &NSTimeZoneRules::stretchAt(qint64 instant) const
{
    Stretch &stretch = rememberedFor(instant);
    if (stretch.rules == this && instant >= stretch.from && instant < stretch.to)
        return stretch;
    icu::TimeZoneTransition transition;
    const bool hasPrevious = _zone->getPreviousTransition(double(instant), true, transition);
    const qint64 from = hasPrevious ? qint64(transition.getTime()) : -EndOfTime;
    const bool hasNext = _zone->getNextTransition(double(instant), false, transition);
    const qint64 to = hasNext ? qint64(transition.getTime()) : EndOfTime;
    int32_t standard = 0;
    int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    _zone->getOffset(double(instant), false, standard, saving, status);
    stretch = {this, from, to, standard + saving};
    return stretch;
}

int NSTimeZoneRules::offsetAt(qint64 instant) const
{
    return stretchAt(instant).offset;
}

qint64 NSTimeZoneRules::instantOf(qint64 localTime) const
{
    const Stretch &stretch = stretchAt(localTime);
    if (localTime - SafeDistance > stretch.from && localTime + SafeDistance < stretch.to)
        return localTime - stretch.offset;
    return slowInstantOf(localTime);
}

qint64 NSTimeZoneRules::slowInstantOf(qint64 localTime) const
{
    int32_t standard = 0;
    int32_t saving = 0;
    UErrorCode status = U_ZERO_ERROR;
    _zone->getOffsetFromLocal(double(localTime), UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_LATTER,
                              standard, saving, status);
    return localTime - standard - saving;
}
