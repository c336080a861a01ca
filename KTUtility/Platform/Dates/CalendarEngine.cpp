#include "CalendarEngine_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Text/ThreadCache_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <unicode/gregocal.h>

#include <utility>

using namespace KTPrivate;

namespace {
struct CalendarKey
{
    QString locale;
    QString identifier;
    const TimeZoneRules *rules;

    friend bool operator==(const CalendarKey &, const CalendarKey &) = default;
    friend size_t qHash(const CalendarKey &key)
    {
        return qHashMulti(0, key.locale, key.identifier, key.rules);
    }
};

/// ICU's calendar, and what it says about weeks before a setting.
struct KnownCalendar
{
    std::unique_ptr<icu::Calendar> calendar;
    UCalendarDaysOfWeek firstWeekday;
    uint8_t minimumDays;
};

std::unique_ptr<icu::Calendar> newCalendar(const icu::Locale &locale, const icu::TimeZone &zone)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(zone, locale, status));
    if (U_SUCCESS(status) && calendar)
        return calendar;
    status = U_ZERO_ERROR;
    return std::make_unique<icu::GregorianCalendar>(zone, icu::Locale::getRoot(), status);
}

std::unique_ptr<KnownCalendar> make(const NSCalendar &calendar, const CalendarKey &key)
{
    const icu::Locale locale = ICU::localeOf(calendar.locale(), key.identifier);
    std::unique_ptr<icu::Calendar> made = newCalendar(locale, key.rules->zone());
    ICU::setGregorianForever(made.get());
    UErrorCode status = U_ZERO_ERROR;
    const UCalendarDaysOfWeek first = made->getFirstDayOfWeek(status);
    const uint8_t days = made->getMinimalDaysInFirstWeek();
    return std::make_unique<KnownCalendar>(KnownCalendar{std::move(made), first, days});
}
} // namespace

CalendarEngine::CalendarEngine(const NSCalendar &calendar)
{
    static thread_local ThreadCache<CalendarKey, KnownCalendar> calendars;
    const CalendarKey key{calendar._locale.localeIdentifier(), calendar._identifier,
                          &TimeZoneRules::rulesOf(calendar._timeZone)};
    const KnownCalendar &known = calendars.value(key, [&] { return make(calendar, key); });
    _calendar = known.calendar.get();
    const int first = calendar._firstWeekday;
    _calendar->setFirstDayOfWeek(first > 0 ? UCalendarDaysOfWeek(first) : known.firstWeekday);
    const int days = calendar._minimumDaysInFirstWeek;
    _calendar->setMinimalDaysInFirstWeek(days > 0 ? uint8_t(days) : known.minimumDays);
}

void ICU::setGregorianForever(icu::Calendar *calendar)
{
    // Where calendars of ICU begin.
    constexpr double Beginning = -184'303'902'528'000'000.0;
    UErrorCode status = U_ZERO_ERROR;
    if (auto *const gregorian = dynamic_cast<icu::GregorianCalendar *>(calendar))
        gregorian->setGregorianChange(Beginning, status);
}

icu::Locale ICU::localeOf(const NSLocale &locale, const QString &calendarIdentifier)
{
    icu::Locale result = localeOf(locale);
    if (calendarIdentifier == locale.calendarIdentifier())
        return result;
    UErrorCode status = U_ZERO_ERROR;
    result.setKeywordValue("calendar", calendarIdentifier.toLatin1().constData(), status);
    return result;
}
