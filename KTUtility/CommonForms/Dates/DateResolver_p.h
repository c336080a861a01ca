#pragma once

#include "CommonDates_p.h"
#include "DateSaid_p.h"
#include <KTUtility/CommonForms/Zones/TypedZone_p.h>
#include <KTUtility/KTUtilityExport.h>

#include <optional>

namespace KTPrivate {
/// Finds the instant that is meant by what a text says.
class KTUTILITY_EXPORT DateResolver
{
public:
    /// \param zone of the time, if one is said.
    DateResolver(const DateSaid &said, const CommonDateField &field, char16_t dayMonthSign,
                 const TypedZone &zone);

    /// Whether there is one; else reason() tells why not.
    bool resolve();

    const char16_t *reason() const { return _reason; }
    /// The time that a clock shows then, in milliseconds since 1970.
    qint64 localTime() const;
    qint64 instant() const;
    /// The identifier of the zone in which it was typed.
    QString zoneIdentifier() const;
    /// The other reading; only with a date in numbers.
    std::optional<qint64> alternative() const;
    /// Which of the numbers is what; null if none is.
    const DateCandidate *candidate() const { return _chosen ? &*_chosen : nullptr; }

private:
    qint64 instantOf(qint64 localTime) const;
    bool refuse(const char16_t *reason);
    bool resolveDay();
    bool hasZone();
    bool resolveWritten();
    void choose(const DateCandidate &candidate, qint64 day);
    bool hasMonth(const DateCandidate &candidate) const;
    bool isOtherNight() const;
    bool resolveRelative();
    bool resolveToday();
    bool move(const DateSaid::Move &move);
    bool isOfTimes() const;
    qint64 timeOfDay(bool staysNow) const;
    std::optional<qint64> dayOf(const DateCandidate &candidate) const;
    std::optional<qint64> dayOfGregorian(const NSDateComponents &components) const;
    std::optional<qint64> dayOfCalendar(const NSDateComponents &components) const;
    bool isOfGregorianYear(const DateCandidate &candidate) const;
    NSDateComponents componentsOf(const DateCandidate &candidate) const;
    int fullYearOf(int shortYear) const;
    qint64 dayOfWeekday() const;
    NSCalendar calendar() const;

    const DateSaid &_said;
    const CommonDateField &_field;
    const char16_t _dayMonthSign;
    const TypedZone &_zone;
    const qint64 _localNow;
    const qint64 _today;
    qint64 _localTime = 0;
    std::optional<qint64> _alternative;
    std::optional<DateCandidate> _chosen;
    const char16_t *_reason = nullptr;
};
} // namespace KTPrivate
