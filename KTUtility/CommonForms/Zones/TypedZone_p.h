#pragma once

// Private to the library. For whatever reads times with a zone behind them.

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>

namespace KTPrivate {
/// The zone that stands behind a time in a typed text: "Z", "+01:00", "GMT+2", "Europe/Berlin",
/// "PST", "Mitteleuropäische Sommerzeit".
struct KTUTILITY_EXPORT TypedZone
{
    /// Of a name that says in which half of the year it is used.
    enum class Season : quint8 { AsThen, Winter, Summer };

    /// In the folded text; 0 if no zone stands there.
    qsizetype length = 0;
    /// Whether several zones have this name, so that it means none.
    bool isAmbiguous = false;
    /// From UTC, in milliseconds; none where a zone's rules decide.
    std::optional<int> offset;
    /// The identifier of the zone whose rules decide.
    QByteArray zone;
    Season season = Season::AsThen;

    /// Whether a zone stands there, and one only.
    bool isRead() const { return length > 0 && !isAmbiguous; }
    /// The instant at which clocks in the zone show a time, both in milliseconds since 1970;
    /// nothing if they never do: summer time where there is none.
    std::optional<qint64> instantOf(qint64 localTime) const;
    /// How far from UTC the zone's clocks are when they show a time, in milliseconds.
    std::optional<int> offsetWhen(qint64 localTime) const;
    /// "UTC", "UTC+01:00" or "Europe/Berlin".
    QString identifier(qint64 localTime) const;

    friend bool operator==(const TypedZone &, const TypedZone &) = default;
};

/// No zone is further from UTC than these many minutes, west and east.
inline constexpr int FurthestWest = -12 * 60;
inline constexpr int FurthestEast = 14 * 60;

/// The offset in the form of ISO 8601 and RFC 5322 at a position: "z", "+01", "+0100", "+01:00".
KTUTILITY_EXPORT TypedZone offsetAt(QStringView folded, qsizetype position);

/// The zone at a position of a folded text: an offset, "UTC", "GMT+2" (also in the locale's words),
/// an identifier with a slash, or a name that has one meaning in the locale. What stands there has to
/// end as a word does.
///
/// An ambiguous name is found, and marked so. The first letters of a text that names no zone cost
/// next to nothing; the names of a locale are made when the first such name is looked for.
KTUTILITY_EXPORT TypedZone zoneAt(QStringView folded, qsizetype position, const NSLocale &locale);

/// The same, but that the names of RFC 5322 mean what they mean there: "EST", "CST", "PDT".
KTUTILITY_EXPORT TypedZone mailZoneAt(QStringView folded, qsizetype position,
                                      const NSLocale &locale);
} // namespace KTPrivate
