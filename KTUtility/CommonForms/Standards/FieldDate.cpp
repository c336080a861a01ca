#include "FieldDate_p.h"

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using FormAnswer = StandardDate::Answer;

/// The zone in which a date was read: the typed one, or the field's.
QString zoneOf(const StandardDate &date, qint64 instant, const NSDateFormatter &formatter)
{
    const TypedZone &zone = date.place.isRead() ? date.place : date.zone;
    return zone.isRead() ? zone.identifier(instant)
                         : QString::fromLatin1(formatter.timeZone().id());
}

FieldDate shownDate(qint64 instant, const NSDateFormatter &formatter)
{
    FieldDate result;
    result.answer = FormAnswer::Read;
    result.instant = instant;
    result.reading.form = u"display"_s;
    result.reading.zone = QString::fromLatin1(formatter.timeZone().id());
    return result;
}

FieldDate standardDate(StandardDate date, std::optional<qint64> instant,
                       const NSDateFormatter &formatter)
{
    FieldDate result;
    result.answer = date.answer;
    result.reason = date.reason;
    result.hasTime = date.time.has_value();
    if (!instant || !date.isRead())
        return result;
    result.instant = *instant;
    result.reading.zone = zoneOf(date, *instant, formatter);
    result.reading.form = std::move(date.form);
    result.reading.parts = std::move(date.parts);
    return result;
}

StandardDateContext contextOf(const ShownDateContext &shown, const TimeZoneRules &rules)
{
    const qint64 today = Civil::daysOfTime(rules.localTimeOf(shown.today().toMSecsSinceEpoch()));
    return {rules, today, shown.timeOfDays(rules)};
}
} // namespace

FieldDate KTPrivate::readFieldDate(const QString &text, const ShownDateContext &context,
                                   const NSLocale &locale)
{
    if (const auto instant = readShownDate(text, context))
        return shownDate(*instant, context.formatter);
    StandardDate date = readStandardDate(FoldedText(text), locale);
    if (date.answer == FormAnswer::OtherForm) {
        FieldDate other;
        other.beginsWithDate = date.beginsWithDate;
        return other;
    }
    const QTimeZone zone = context.formatter.timeZone();
    const TimeZoneRules &rules = TimeZoneRules::rulesOf(zone);
    const auto instant = date.isRead() ? instantOf(&date, contextOf(context, rules)) : std::nullopt;
    return standardDate(std::move(date), instant, context.formatter);
}
