#include "StandardDate_p.h"

#include "ISODate_p.h"
#include "MailDate_p.h"
#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qint64 SecondOfDay = 1000;
constexpr int HoursPerDay = 24;
constexpr int SixtyOf = 60;

std::optional<qint64> refused(StandardDate *date, const QString &reason)
{
    date->answer = StandardDate::Answer::Refused;
    date->reason = reason;
    return std::nullopt;
}

/// Leap seconds are the last of June or December in UTC.
bool mayBeLeapSecond(qint64 instant)
{
    const qint64 next = instant / SecondOfDay * SecondOfDay + SecondOfDay;
    const CivilDate date = Civil::dateOf(Civil::daysOfTime(next));
    return next % Civil::MillisecondsPerDay == 0 && date.day == 1 &&
           (date.month == 1 || date.month == 7);
}

std::optional<qint64> instantWhen(const StandardDate &date, qint64 localTime,
                                  const TimeZoneRules &rules)
{
    if (date.zone.length > 0)
        return date.zone.instantOf(localTime);
    return date.place.length > 0 ? date.place.instantOf(localTime) : rules.instantOf(localTime);
}

/// A time of day in another zone is one of the day that it is in the field's.
std::optional<qint64> instantToday(const StandardDate &date, const StandardDateContext &context)
{
    const qint64 time = date.time->milliseconds();
    const auto first =
        instantWhen(date, context.today * Civil::MillisecondsPerDay + time, context.rules);
    if (!first || date.zone.length == 0)
        return first;
    const qint64 day = Civil::daysOfTime(context.rules.localTimeOf(*first));
    return instantWhen(date, (2 * context.today - day) * Civil::MillisecondsPerDay + time,
                       context.rules);
}

std::optional<qint64> plainInstantOf(const StandardDate &date, const StandardDateContext &context)
{
    if (!date.day)
        return instantToday(date, context);
    const qint64 time = date.time ? date.time->milliseconds() : context.timeOfDays;
    return instantWhen(date, *date.day * Civil::MillisecondsPerDay + time, context.rules);
}

/// RFC 9557: an offset and a place have to agree, unless the offset is "Z".
bool contradictsPlace(const StandardDate &date, qint64 instant)
{
    if (date.place.length == 0 || date.zone.length == 0 || date.zone.offset == 0)
        return false;
    const qint64 localTime = instant + date.zone.offsetWhen(instant).value_or(0);
    return date.place.instantOf(localTime) != instant &&
           date.place.offsetWhen(localTime) != date.zone.offset;
}
} // namespace

bool StandardTime::exists() const
{
    if (hour == HoursPerDay)
        return minute == 0 && second == 0 && millisecond == 0;
    return hour < HoursPerDay && minute < SixtyOf && second <= SixtyOf;
}

qint64 StandardTime::milliseconds() const
{
    const int seconds = isLeapSecond() ? SixtyOf - 1 : second;
    return (qint64(hour) * SixtyOf + minute) * SixtyOf * SecondOfDay + seconds * SecondOfDay +
           millisecond;
}

StandardDate KTPrivate::readStandardDate(const FoldedText &text, const NSLocale &locale)
{
    StandardDate date = readISODate(text, locale);
    return date.answer == StandardDate::Answer::OtherForm && !date.beginsWithDate
               ? readMailDate(text, locale)
               : date;
}

std::optional<qint64> KTPrivate::instantOf(StandardDate *date, const StandardDateContext &context)
{
    const auto instant = plainInstantOf(*date, context);
    if (!instant)
        return refused(date, u"There is no summer time in this zone then."_s);
    if (date->time && date->time->isLeapSecond() && !mayBeLeapSecond(*instant))
        return refused(date, u"There is no leap second then."_s);
    if (contradictsPlace(*date, *instant))
        return refused(date, u"The place has another time than the offset says."_s);
    return instant;
}
