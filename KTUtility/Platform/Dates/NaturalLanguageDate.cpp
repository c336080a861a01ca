#include "NaturalLanguageDate_p.h"

#include "DateFields_p.h"
#include "DateText_p.h"
#include "NaturalLanguageReader_p.h"
#include <KTUtility/Platform/Values/WallClock_p.h>

#include <QDateTime>

#include <atomic>

using namespace KTPrivate;

namespace {
using Said = NaturalLanguageSaid;

std::atomic<NaturalLanguageDate::Clock> chosenClock = nullptr;

/// More than this from today is no date that people talk about.
constexpr int MaximalMove = 100'000;

/// The years that people talk about have four digits.
constexpr qint64 FirstYear = 1000;

qint64 now()
{
    const NaturalLanguageDate::Clock clock = chosenClock.load();
    return clock ? clock() : WallClock::milliseconds();
}

/// The letters d, m and y in the order of a pattern for strftime, else of the locale.
QString orderOf(const QString &pattern, const DateEnvironment &environment)
{
    const bool isOfDates = pattern.contains(u"%d") || pattern.contains(u"%e");
    const QString source = isOfDates ? pattern : environment.patternOfStyles(1, 0);
    QString order;
    for (QChar unit : source) {
        if (unit == u'e')
            unit = u'd';
        const bool isMonth = unit == u'b' || unit == u'B' || (unit == u'M' && !isOfDates);
        const QChar letter = isMonth ? QChar(u'm') : unit.toLower();
        if (QStringView(u"dmy").contains(letter) && !order.contains(letter))
            order += letter;
    }
    return order;
}

void moveMonths(qint64 amount, DateFields *fields)
{
    const qint64 months = fields->year * 12 + fields->month - 1 + amount;
    fields->year = months / 12;
    fields->month = int(months % 12) + 1;
    if (fields->year >= 1)
        fields->day = qMin(fields->day, Civil::daysInMonth(fields->year, fields->month));
}

qint64 daysOf(const DateFields &fields)
{
    return Civil::daysOf(fields.year, fields.month, fields.day);
}

void setDays(qint64 days, DateFields *fields)
{
    const CivilDate date = Civil::dateOf(days);
    fields->year = date.year;
    fields->month = date.month;
    fields->day = date.day;
}

bool isOfClock(NSCalendarUnits unit)
{
    return unit & NSTimeCalendarUnits;
}

qint64 millisecondsOf(NSCalendarUnits unit)
{
    switch (unit) {
    case NSHourCalendarUnit:
        return 3'600'000;
    case NSMinuteCalendarUnit:
        return 60'000;
    default:
        return 1000;
    }
}

/// The date of what was said, from today on.
class Resolver
{
public:
    Resolver(const Said &said, const DateReading &reading) : _said(said), _reading(reading)
    {
        const qint64 today = reading.defaultTime.value_or(now());
        _fields = DateFields::fieldsOf(reading.rules->localTimeOf(today));
    }

    std::optional<qint64> time()
    {
        if (isFromNow())
            return timeFromNow();
        if (_said.isNow || !applyMoves() || !applyDate() || !applyWeekday() || !applyTime())
            return {};
        return _reading.rules->instantOf(_fields.localTime());
    }

    /// What a clock shows at time(), or would have shown if summer time did not skip it.
    qint64 localTimeOf(qint64 time) const
    {
        return isFromNow() ? _reading.rules->localTimeOf(time) : _fields.localTime();
    }

private:
    bool isFromNow() const
    {
        if (_said.hour)
            return false;
        if (_said.isNow && !_said.hasDate())
            return true;
        return _said.moves.size() == 1 && isOfClock(_said.moves[0].unit) && !hasDay();
    }

    bool hasDay() const
    {
        return _said.daysFromToday || _said.weekday || _said.month || _said.day || _said.year;
    }

    std::optional<qint64> timeFromNow() const
    {
        qint64 time = now();
        for (const Said::Move &move : _said.moves)
            time += move.amount * millisecondsOf(move.unit);
        return time;
    }

    bool applyMoves()
    {
        setDays(daysOf(_fields) + _said.daysFromToday.value_or(0), &_fields);
        for (const Said::Move &move : _said.moves) {
            if (isOfClock(move.unit) || qAbs(move.amount) > MaximalMove)
                return false;
            if (move.unit == NSDayCalendarUnit || move.unit == NSWeekCalendarUnit)
                setDays(daysOf(_fields) + move.amount * daysIn(move.unit), &_fields);
            else
                moveMonths(qint64(move.amount) * (move.unit == NSYearCalendarUnit ? 12 : 1),
                           &_fields);
            if (!isInRange())
                return false;
        }
        return true;
    }

    static qint64 daysIn(NSCalendarUnits unit) { return unit == NSWeekCalendarUnit ? 7 : 1; }

    bool isInRange() const
    {
        return _fields.year >= FirstYear && _fields.year < Civil::LastSafeYear;
    }

    bool applyDate()
    {
        const bool isNamed = _said.month || _said.day || _said.year;
        if (!isNamed)
            return true;
        if (_said.daysFromToday || !_said.moves.empty())
            return false;
        _fields.year = _said.year.value_or(int(_fields.year));
        _fields.month = _said.month.value_or(_said.day ? _fields.month : 1);
        _fields.day = _said.day.value_or(1);
        return isInRange() && _fields.month >= 1 && _fields.month <= 12 && _fields.isExistingDay();
    }

    bool applyWeekday()
    {
        if (!_said.weekday)
            return true;
        const qint64 days = daysOf(_fields);
        const int current = Civil::weekdayOf(days) - 1;
        if (_said.daysFromToday || _said.month || _said.day)
            return current == *_said.weekday;
        setDays(days + distanceTo(*_said.weekday, current), &_fields);
        return true;
    }

    /// From a weekday to another one of the week, or to the next or last one.
    int distanceTo(int weekday, int current) const
    {
        const int direction = _said.weekdayDirection;
        const int ahead = (weekday - current + 7) % 7;
        if (direction > 0)
            return (ahead == 0 ? 7 : ahead) + 7 * (direction - 1);
        if (direction < 0)
            return ahead - 7 + 7 * (direction + 1);
        const int first = firstWeekday();
        return (weekday - first + 7) % 7 - (current - first + 7) % 7;
    }

    /// 0 for Sunday.
    int firstWeekday() const
    {
        const int custom = _reading.environment->customs.firstWeekday;
        return (custom > 0 ? custom : _reading.environment->firstWeekday) - 1;
    }

    bool applyTime()
    {
        int hour = _said.hour.value_or(12);
        if (_said.half && (hour < 1 || hour > 12))
            return false;
        if (_said.half)
            hour = hour % 12 + 12 * *_said.half;
        _fields.hour = hour;
        _fields.minute = _said.minute;
        _fields.second = _said.second;
        _fields.millisecond = 0;
        return true;
    }

    const Said &_said;
    const DateReading &_reading;
    DateFields _fields;
};
} // namespace

void NaturalLanguageDate::setClock(Clock clock)
{
    chosenClock = clock;
}

namespace {
std::optional<Said> read(QStringView text, const QString &pattern,
                         const DateEnvironment &environment)
{
    // "5" or "5:" needs no words.
    if (const std::optional<int> hour = bareHourIn(text.trimmed()); hour && *hour <= 23) {
        Said said;
        said.hour = hour;
        return said;
    }
    const auto words = NaturalLanguageWords::wordsOf(environment);
    NaturalLanguageReader reader(*words, text, orderOf(pattern, environment),
                                 environment.customs.twoDigitStartYear);
    return reader.read();
}
} // namespace

bool NaturalLanguageDate::parse(QStringView text, const QString &pattern,
                                const DateReading &reading, DateMatch *match)
{
    const std::optional<Said> said = read(text, pattern, *reading.environment);
    if (!said)
        return false;
    Resolver resolver(*said, reading);
    const std::optional<qint64> time = resolver.time();
    if (!time)
        return false;
    *match = {*time, text.size(), resolver.localTimeOf(*time)};
    return true;
}
