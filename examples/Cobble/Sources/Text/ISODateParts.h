#pragma once

#include <QDateTime>
#include <QStringView>

#include <optional>

// What dates in ISO 8601 say, as isoDateText() writes them.

namespace ISODate {
/// So many milliseconds after a day begins in UTC, or before.
QDateTime instantAt(const QDate &day, qint64 milliseconds);
/// What Qt reads in such a text, several times as fast; nothing for texts in any other form, and for
/// those with parts of a second.
std::optional<QDateTime> dateIn(QStringView text);
/// The time of day of such a text, in milliseconds; nothing if it has parts of a second, or is no such
/// text.
std::optional<qint64> timeIn(QStringView text);
} // namespace ISODate
