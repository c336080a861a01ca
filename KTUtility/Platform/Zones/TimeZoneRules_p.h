#pragma once

// Private to the library. The rules of zones, for calendars and for what reads and writes dates.

#include <KTUtility/KTUtilityExport.h>

#include <unicode/timezone.h>

#include <QTimeZone>

#include <array>
#include <memory>

namespace KTPrivate {
/// When a time zone is how far from UTC, as the system's data say, remembered.
///
/// Zones are made once per process, and again when the system's data change (ZoneData); they are
/// never destroyed, as there are only so many. Every thread
/// keeps the offsets of the seasons that it met last, so that an offset costs a few nanoseconds.
/// All times are milliseconds since 1970.
class KTUTILITY_EXPORT TimeZoneRules
{
public:
    /// The rules of \a zone; those of SystemTimeZone::current() if it is invalid.
    static const TimeZoneRules &rulesOf(const QTimeZone &zone);

    /// How far a zone is from UTC, and how much of that is daylight saving time, in milliseconds.
    struct Offset
    {
        int total = 0;
        int saving = 0;
    };

    /// The same rules for ICU.
    const icu::TimeZone &zone() const { return *_zone; }

    /// The time that a clock in the zone shows at \a instant, as if it were UTC.
    qint64 localTimeOf(qint64 instant) const { return instant + offsetAt(instant); }
    int offsetAt(qint64 instant) const { return fullOffsetAt(instant).total; }
    Offset fullOffsetAt(qint64 instant) const;

    /// The instant at which a clock in the zone shows \a localTime. A time that exists twice is the
    /// later, one that is skipped is read with the offset before the change (2:30 is 3:30 in
    /// summer time).
    qint64 instantOf(qint64 localTime) const;

    /// The instant from which on a clock in the zone never shows less than \a localTime any more.
    qint64 lastingInstantFrom(qint64 localTime) const;

private:
    explicit TimeZoneRules(const QTimeZone &zone);
    /// The identifier of a zone, and the generation of its data.
    using Key = std::pair<QByteArray, unsigned>;
    static const TimeZoneRules &sharedRulesOf(const QTimeZone &zone, const Key &key);

    /// A time from which on an offset holds, until the next such time.
    struct Stretch
    {
        qint64 from = 0;
        Offset offset;
    };

    /// The stretches of about three months and two days on both sides.
    struct Season
    {
        const TimeZoneRules *rules = nullptr;
        qint64 number = 0;
        size_t count = 0; ///< 0: more changes than fit
        std::array<Stretch, 5> stretches;
    };

    const Season &seasonAt(qint64 time) const;
    void fill(Season *season) const;
    Offset slowOffsetAt(qint64 instant) const;
    qint64 slowInstantOf(qint64 localTime) const;
    qint64 slowLastingInstantFrom(qint64 localTime) const;
    static qint64 instantOf(qint64 localTime, const Season &season);

    QTimeZone _source;
    std::unique_ptr<icu::TimeZone> _zone;
};
} // namespace KTPrivate
