#include "PlainClock.h"

#include <algorithm>

namespace {
constexpr int ClockSixty = 60;
constexpr int HoursOfDay = 24;
constexpr int HoursOfHalf = 12;

bool isBlankSign(QChar unit)
{
    return unit == u' ' || unit == u'\u00A0' || unit == u'\u202F';
}

/// "AM", " pm": other words may be zones, which change with the day.
bool isHalfOfDay(QStringView word)
{
    if (!word.isEmpty() && isBlankSign(word.front()))
        word = word.sliced(1);
    return word.compare(u"AM", Qt::CaseInsensitive) == 0 ||
           word.compare(u"PM", Qt::CaseInsensitive) == 0;
}

bool isPartOfHour(const PlainText &text, qsizetype index)
{
    return text.between(index - 1) == u":" && text.run(index).length == 2;
}
} // namespace

int PlainClock::countFor(const PlainText &text, qsizetype first)
{
    const qsizetype count = text.runCount() - first;
    const bool isClock = (count == 2 || count == 3) && text.run(first).length <= 2 &&
                         isPartOfHour(text, first + 1) &&
                         (count == 2 || isPartOfHour(text, first + 2));
    if (!isClock)
        return 0;
    if (text.behind().isEmpty())
        return 1;
    return isHalfOfDay(text.behind()) ? 2 : 0;
}

std::optional<qint64> PlainClock::timeOf(const PlainText &text, qsizetype first, int way)
{
    constexpr qint64 Second = 1000;
    const bool hasHalf = !text.behind().isEmpty();
    const qint64 typed = text.run(first).value;
    const qint64 minute = text.run(first + 1).value;
    const qint64 second = text.runCount() - first == 3 ? text.run(first + 2).value : 0;
    const bool isHour = hasHalf ? typed >= 1 && typed <= HoursOfHalf : typed < HoursOfDay;
    if (!isHour || minute >= ClockSixty || second >= ClockSixty)
        return std::nullopt;
    const qint64 hour = hasHalf ? typed % HoursOfHalf + way * HoursOfHalf : typed;
    return ((hour * ClockSixty + minute) * ClockSixty + second) * Second;
}
