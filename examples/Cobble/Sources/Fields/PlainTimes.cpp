#include "PlainTimes.h"

#include "PlainClock.h"
#include "Text/ISODateText.h"

PlainTimes::PlainTimes()
{
    const QDate today = QDate::currentDate();
    _isPlainDay = _days.offsetOn(today.addDays(-1)) && _days.offsetOn(today.addDays(1));
}

int PlainTimes::countFor(const PlainText &text) const
{
    const bool isTime = _isPlainDay && text.runCount() >= 2 && text.before().isEmpty();
    return isTime ? PlainClock::countFor(text, 0) : 0;
}

QVariant PlainTimes::valueOf(const PlainText &text, int way)
{
    const std::optional<qint64> time = PlainClock::timeOf(text, 0, way);
    if (!time || !_day.isValid())
        return {};
    const std::optional<int> offset = _days.offsetOn(_day);
    return offset ? QVariant(ISODate::text(_day, *time, *offset)) : QVariant();
}

void PlainTimes::note(const PlainText & /*text*/, const QVariant &stored)
{
    if (!_day.isValid())
        _day = QDate::fromString(stored.toString().left(10), Qt::ISODate);
}
