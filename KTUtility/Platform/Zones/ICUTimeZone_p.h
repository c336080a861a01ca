#pragma once

#include <unicode/basictz.h>

#include <QTimeZone>

namespace KTPrivate {
class TimeZoneRules;

/// A time zone for ICU whose rules are the system's; ICU's own tables are as old as its package.
/// ICU keeps the names, which it finds by the zone's identifier.
class ICUTimeZone : public icu::BasicTimeZone
{
public:
    /// \a rules are referred to, \a zone is copied.
    ICUTimeZone(const TimeZoneRules &rules, const QTimeZone &zone);

    int32_t getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t dayOfWeek,
                      int32_t milliseconds, UErrorCode &status) const override;
    int32_t getOffset(uint8_t era, int32_t year, int32_t month, int32_t day, uint8_t dayOfWeek,
                      int32_t milliseconds, int32_t monthLength, UErrorCode &status) const override;
    /// A local time that exists twice is the later, one that is skipped has the offset before.
    void getOffset(UDate date, UBool isLocal, int32_t &standard, int32_t &saving,
                   UErrorCode &status) const override;
    void getOffsetFromLocal(UDate date, UTimeZoneLocalOption skipped, UTimeZoneLocalOption doubled,
                            int32_t &standard, int32_t &saving, UErrorCode &status) const override;
    /// Without effect: the rules are the system's.
    void setRawOffset(int32_t) override {}
    int32_t getRawOffset() const override;
    UBool useDaylightTime() const override;
    UBool inDaylightTime(UDate date, UErrorCode &status) const override;
    ICUTimeZone *clone() const override { return new ICUTimeZone(*this); }
    UClassID getDynamicClassID() const override;

    UBool getNextTransition(UDate base, UBool isInclusive,
                            icu::TimeZoneTransition &result) const override;
    UBool getPreviousTransition(UDate base, UBool isInclusive,
                                icu::TimeZoneTransition &result) const override;
    /// There are no rules to give away, only what follows from them.
    int32_t countTransitionRules(UErrorCode &status) const override;
    void getTimeZoneRules(const icu::InitialTimeZoneRule *&initial,
                          const icu::TimeZoneRule *rules[], int32_t &count,
                          UErrorCode &status) const override;

private:
    bool take(const QTimeZone::OffsetData &change, icu::TimeZoneTransition *result) const;

    const TimeZoneRules *_rules;
    QTimeZone _zone;
};
} // namespace KTPrivate
