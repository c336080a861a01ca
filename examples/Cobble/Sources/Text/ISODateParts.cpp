#include "ISODateParts.h"

#include <array>
#include <utility>

namespace {
/// A day and a time of day.
using ClockParts = std::pair<QDate, QTime>;

/// A number of so many digits at a place of a text; nothing if there are others.
std::optional<int> numberAt(QStringView text, qsizetype place, qsizetype digits)
{
    int number = 0;
    for (const QChar unit : text.sliced(place, digits)) {
        if (unit < u'0' || unit > u'9')
            return std::nullopt;
        number = number * 10 + (unit.unicode() - u'0');
    }
    return number;
}

/// The distance to UTC in seconds at the end of a text; nothing if it is none, or 0 in another form
/// than "Z".
std::optional<int> offsetIn(QStringView end)
{
    if (end == u"Z")
        return 0;
    if (end.size() != 6 || (end[0] != u'+' && end[0] != u'-') || end[3] != u':')
        return std::nullopt;
    const std::optional<int> hours = numberAt(end, 1, 2);
    const std::optional<int> minutes = numberAt(end, 4, 2);
    if (!hours || !minutes || *hours > 14 || *minutes > 59 || *hours + *minutes == 0)
        return std::nullopt;
    const int offset = (*hours * 60 + *minutes) * 60;
    return end[0] == u'-' ? -offset : offset;
}

/// The day and the time of a text that begins as those that text() writes.
std::optional<ClockParts> clockIn(QStringView text)
{
    constexpr std::array<std::pair<qsizetype, qsizetype>, 6> Places{
        {{0, 4}, {5, 2}, {8, 2}, {11, 2}, {14, 2}, {17, 2}}};
    std::array<int, 6> numbers{};
    for (size_t index = 0; index < Places.size(); ++index) {
        const auto number = numberAt(text, Places[index].first, Places[index].second);
        if (!number)
            return std::nullopt;
        numbers[index] = *number;
    }
    const QDate day(numbers[0], numbers[1], numbers[2]);
    const QTime time(numbers[3], numbers[4], numbers[5]);
    return day.isValid() && time.isValid() ? std::optional(ClockParts(day, time)) : std::nullopt;
}
} // namespace

QDateTime ISODate::instantAt(const QDate &day, qint64 milliseconds)
{
    constexpr qint64 FirstDay = 2'440'588; // 1970-01-01
    constexpr qint64 Day = 86'400'000;
    static const QDateTime someInstant = QDateTime::currentDateTimeUtc();
    QDateTime date = someInstant;
    date.setMSecsSinceEpoch((day.toJulianDay() - FirstDay) * Day + milliseconds);
    return date;
}

std::optional<QDateTime> ISODate::dateIn(QStringView text)
{
    constexpr qsizetype Length = 19;
    const bool hasSigns = text.size() > Length && text[4] == u'-' && text[7] == u'-' &&
                          text[10] == u'T' && text[13] == u':' && text[16] == u':';
    const auto offset = hasSigns ? offsetIn(text.sliced(Length)) : std::nullopt;
    const auto clock = offset ? clockIn(text) : std::nullopt;
    if (!clock)
        return std::nullopt;
    const QDateTime date =
        instantAt(clock->first, clock->second.msecsSinceStartOfDay() - qint64(*offset) * 1000);
    return *offset == 0 ? date : date.toOffsetFromUtc(*offset);
}

std::optional<qint64> ISODate::timeIn(QStringView text)
{
    constexpr qsizetype TimeAt = 11;
    constexpr qsizetype TimeLength = 8;
    const QTime time = QTime::fromString(text.mid(TimeAt, TimeLength).toString(), Qt::ISODate);
    const bool isWhole = time.isValid() && text.mid(TimeAt + TimeLength, 1) != u".";
    return isWhole ? std::optional<qint64>(time.msecsSinceStartOfDay()) : std::nullopt;
}
