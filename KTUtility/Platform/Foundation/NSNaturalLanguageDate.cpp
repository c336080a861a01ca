#include "NSNaturalLanguageDate_p.h"

#include "NSCivilDate_p.h"

#include <QDateTime>

namespace {
/// A bare hour of the day: "5" or "5:".
std::optional<int> hourOf(QStringView text)
{
    QStringView hour = text.trimmed();
    if (hour.endsWith(u':'))
        hour.chop(1);
    bool isNumber = false;
    const uint value = hour.toUInt(&isNumber);
    const bool isHour = isNumber && hour.size() <= 2 && value <= 23;
    return isHour ? std::optional(int(value)) : std::nullopt;
}
} // namespace

bool NSNaturalLanguageDate::parse(QStringView text, const QString &, const NSDateReading &reading,
                                  NSDateMatch *match)
{
    const std::optional<int> hour = hourOf(text);
    if (!hour)
        return false;
    const qint64 today =
        reading.defaultTime ? *reading.defaultTime : QDateTime::currentMSecsSinceEpoch();
    const qint64 day = NSCivil::daysOfTime(reading.rules->localTimeOf(today));
    match->time = reading.rules->instantOf(day * NSCivil::MillisecondsPerDay + *hour * 3'600'000);
    match->length = text.size();
    return true;
}
