#include "PlainDates.h"

#include "PlainClock.h"
#include "Text/ISODateParts.h"
#include "Text/ISODateText.h"

namespace {
constexpr qsizetype RunsOfDate = 3;
/// Before, there were other calendars.
constexpr qint64 FirstYear = 1600;

/// Whether two runs are the day and the month, and the third one is the year.
bool isWholeDate(const PlainText &text)
{
    const QStringView sign = text.between(0);
    const bool isYearFirst = text.run(0).length == 4;
    const PlainText::Run &other = text.run(isYearFirst ? 2 : 0);
    const PlainText::Run &year = text.run(isYearFirst ? 0 : 2);
    return text.before().isEmpty() && (sign == u"/" || sign == u"." || sign == u"-") &&
           text.between(1) == sign && year.length == 4 && other.length <= 2 &&
           text.run(1).length <= 2;
}

bool isBeforeTime(QStringView sign)
{
    return sign == u" " || sign == u", " || sign == u"T";
}

QDate dayOf(const PlainText &text, bool isDayFirst)
{
    const bool isYearFirst = text.run(0).length == 4;
    const qint64 year = text.run(isYearFirst ? 0 : 2).value;
    const qint64 first = text.run(isYearFirst ? 1 : 0).value;
    const qint64 second = text.run(isYearFirst ? 2 : 1).value;
    if (year < FirstYear)
        return {};
    return isDayFirst ? QDate(int(year), int(second), int(first))
                      : QDate(int(year), int(first), int(second));
}
} // namespace

int PlainDates::countFor(const PlainText &text) const
{
    constexpr int Orders = 2;
    if (text.runCount() < RunsOfDate || !isWholeDate(text))
        return 0;
    if (text.runCount() == RunsOfDate)
        return text.behind().isEmpty() ? Orders : 0;
    return isBeforeTime(text.between(2)) ? Orders * PlainClock::countFor(text, RunsOfDate) : 0;
}

/// Whether the numbers may be months.
size_t PlainDates::kindOf(const PlainText &text) const
{
    constexpr qint64 MostMonths = 12;
    const qsizetype first = text.run(0).length == 4 ? 1 : 0;
    return (text.run(first).value <= MostMonths ? 1U : 0U) +
           (text.run(first + 1).value <= MostMonths ? 2U : 0U);
}

bool PlainDates::isPossible(const PlainText &text, int way) const
{
    const bool isDayFirst = way % 2 == 0;
    return (kindOf(text) & (isDayFirst ? 2U : 1U)) != 0;
}

std::optional<qint64> PlainDates::timeOf(const PlainText &text, int way) const
{
    return text.runCount() == RunsOfDate ? _usualTime : PlainClock::timeOf(text, RunsOfDate, way);
}

QVariant PlainDates::valueOf(const PlainText &text, int way)
{
    const QDate day = dayOf(text, way % 2 == 0);
    const std::optional<qint64> time = timeOf(text, way / 2);
    if (!day.isValid() || !time)
        return {};
    const std::optional<int> offset = _days.offsetOn(day);
    return offset ? QVariant(ISODate::text(day, *time, *offset)) : QVariant();
}

void PlainDates::note(const PlainText &text, const QVariant &stored)
{
    if (!_usualTime && text.runCount() == RunsOfDate)
        _usualTime = ISODate::timeIn(stored.toString());
}
