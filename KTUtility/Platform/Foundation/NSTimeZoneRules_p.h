#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <unicode/basictz.h>

#include <QTimeZone>

#include <memory>

/// When a time zone is how far from UTC, as ICU's data say, remembered.
///
/// Zones are made once per process and never go away; there are only so many. Every thread keeps
/// the stretches of constant offset that it met last, so that an offset costs a few nanoseconds.
/// All times are milliseconds since 1970.
class KTUTILITY_EXPORT NSTimeZoneRules
{
public:
    /// The rules of \a zone; those of NSCalendar::systemTimeZone() if it is invalid.
    static const NSTimeZoneRules &rulesOf(const QTimeZone &zone);

    const icu::TimeZone &zone() const { return *_zone; }

    /// The time that a clock in the zone shows at \a instant, as if it were UTC.
    qint64 localTimeOf(qint64 instant) const { return instant + offsetAt(instant); }
    int offsetAt(qint64 instant) const;

    /// The instant at which a clock in the zone shows \a localTime. A time that exists twice is the
    /// later, one that is skipped is read with the offset before the change (2:30 is 3:30 in
    /// summer time).
    qint64 instantOf(qint64 localTime) const;

private:
    explicit NSTimeZoneRules(const QTimeZone &zone);

    struct Stretch
    {
        const NSTimeZoneRules *rules = nullptr;
        qint64 from = 0;
        qint64 to = 0;
        int offset = 0;
    };
    static Stretch &rememberedFor(qint64 time);
    const Stretch &stretchAt(qint64 instant) const;
    qint64 slowInstantOf(qint64 localTime) const;

    std::unique_ptr<icu::BasicTimeZone> _zone;
};
