#pragma once

#include <QDate>
#include <QHash>
#include <QTimeZone>

#include <optional>

/// How far the user's clock is from UTC on whole days.
///
/// \code
/// ZoneDays days;
/// days.offsetOn(QDate(2008, 7, 4));    // -14400 in New York
/// days.offsetOn(QDate(2008, 3, 9));    // nothing: the clock is changed
/// \endcode
class ZoneDays
{
public:
    ZoneDays();

    /// In seconds; nothing where the clock is changed on that day or within a day
    /// of it, or is off by a part of a minute.
    std::optional<int> offsetOn(const QDate &day);

private:
    std::optional<int> offsetOf(qint64 first, qint64 count);
    std::optional<int> readOffset(qint64 first, qint64 count) const;

    QTimeZone _zone;
    /// Of months, and of the days of those in which the clock is changed.
    QHash<qint64, std::optional<int>> _known;
};
