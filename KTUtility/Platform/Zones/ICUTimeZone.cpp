#include "ICUTimeZone_p.h"

#include "TimeZoneRules_p.h"
#include "ZoneChanges_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Values/WallClock_p.h>

#include <unicode/gregocal.h>
#include <unicode/tzrule.h>
#include <unicode/tztrans.h>

#include <QDateTime>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The identifier by which ICU knows a zone: the system has the same zones in two more folders.
QString nameOfZone(const QTimeZone &zone)
{
    const QString id = QString::fromLatin1(zone.id());
    for (const QStringView folder : {u"posix/", u"right/"}) {
        if (id.startsWith(folder))
            return id.mid(folder.size());
    }
    return id;
}

QDateTime dateOf(UDate time)
{
    return QDateTime::fromMSecsSinceEpoch(qint64(time), UTC);
}

icu::InitialTimeZoneRule *ruleOf(const TimeZoneRules::Offset &offset, const icu::UnicodeString &id)
{
    return new icu::InitialTimeZoneRule(id, offset.total - offset.saving, offset.saving);
}

/// What leads from a local time to the instant that it means. In the gap of a change, that is the
/// offset from before, which holds no more at the instant.
TimeZoneRules::Offset offsetAtLocalTime(const TimeZoneRules &rules, qint64 localTime)
{
    const qint64 instant = rules.instantOf(localTime);
    const TimeZoneRules::Offset after = rules.fullOffsetAt(instant);
    const int total = int(localTime - instant);
    return {total, std::max(after.saving + total - after.total, 0)};
}
} // namespace

ICUTimeZone::ICUTimeZone(const TimeZoneRules &rules, const QTimeZone &zone)
    : BasicTimeZone(ICU::aliasOf(nameOfZone(zone))), _rules(&rules), _zone(zone)
{
}

UClassID ICUTimeZone::getDynamicClassID() const
{
    static char classID = 0;
    return &classID;
}

int32_t ICUTimeZone::getOffset(uint8_t era, int32_t year, int32_t month, int32_t day,
                               uint8_t dayOfWeek, int32_t milliseconds, UErrorCode &status) const
{
    return getOffset(era, year, month, day, dayOfWeek, milliseconds, 0, status);
}

/// The fields are those of a clock in standard time.
int32_t ICUTimeZone::getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t,
                               int32_t milliseconds, int32_t, UErrorCode &status) const
{
    const int qtYear = era == icu::GregorianCalendar::AD ? year : -year; // there is no year 0
    const QDateTime midnight(QDate(qtYear, month + 1, day), QTime(0, 0), UTC);
    int32_t standard = 0;
    int32_t saving = 0;
    getOffset(double(midnight.toMSecsSinceEpoch() + milliseconds), true, standard, saving, status);
    return standard + saving;
}

void ICUTimeZone::getOffset(UDate date, UBool isLocal, int32_t &standard, int32_t &saving,
                            UErrorCode &status) const
{
    if (U_FAILURE(status))
        return;
    const TimeZoneRules::Offset offset =
        isLocal ? offsetAtLocalTime(*_rules, qint64(date)) : _rules->fullOffsetAt(qint64(date));
    standard = offset.total - offset.saving;
    saving = offset.saving;
}

void ICUTimeZone::getOffsetFromLocal(UDate date, UTimeZoneLocalOption, UTimeZoneLocalOption,
                                     int32_t &standard, int32_t &saving, UErrorCode &status) const
{
    getOffset(date, true, standard, saving, status);
}

int32_t ICUTimeZone::getRawOffset() const
{
    const TimeZoneRules::Offset offset = _rules->fullOffsetAt(WallClock::milliseconds());
    return offset.total - offset.saving;
}

UBool ICUTimeZone::useDaylightTime() const
{
    return UBool(_zone.hasDaylightTime() ? 1 : 0);
}

UBool ICUTimeZone::inDaylightTime(UDate date, UErrorCode &) const
{
    return UBool(_rules->fullOffsetAt(qint64(date)).saving != 0 ? 1 : 0);
}

bool ICUTimeZone::take(const QTimeZone::OffsetData &change, icu::TimeZoneTransition *result) const
{
    if (!change.atUtc.isValid())
        return false;
    const qint64 time = change.atUtc.toMSecsSinceEpoch();
    icu::UnicodeString id;
    getID(id);
    result->setTime(double(time));
    result->adoptFrom(ruleOf(_rules->fullOffsetAt(time - 1), id));
    result->adoptTo(ruleOf(_rules->fullOffsetAt(time), id));
    return true;
}

UBool ICUTimeZone::getNextTransition(UDate base, UBool isInclusive,
                                     icu::TimeZoneTransition &result) const
{
    return UBool(take(ZoneChanges::after(_zone, dateOf(isInclusive ? base - 1 : base)), &result));
}

UBool ICUTimeZone::getPreviousTransition(UDate base, UBool isInclusive,
                                         icu::TimeZoneTransition &result) const
{
    return UBool(take(_zone.previousTransition(dateOf(isInclusive ? base + 1 : base)), &result));
}

int32_t ICUTimeZone::countTransitionRules(UErrorCode &) const
{
    return 0;
}

void ICUTimeZone::getTimeZoneRules(const icu::InitialTimeZoneRule *&initial,
                                   const icu::TimeZoneRule *[], int32_t &count,
                                   UErrorCode &status) const
{
    initial = nullptr;
    count = 0;
    if (U_SUCCESS(status))
        status = U_UNSUPPORTED_ERROR;
}
