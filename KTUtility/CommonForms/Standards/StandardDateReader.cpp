#include "StandardDateReader_p.h"

#include <KTUtility/Platform/Dates/CivilDate_p.h>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int MonthsPerYear = 12;
constexpr int MillisecondsOfSecond = 1000;
constexpr int SixtyOfTime = 60;
} // namespace

void StandardDateReader::addPart(qsizetype begin, QStringView role, const QString &meaning)
{
    _date.parts.append(
        {_text.rangeInText(begin, _cursor.position() - begin), role.toString(), meaning});
}

std::optional<int> StandardDateReader::takePart(qsizetype count, QStringView role)
{
    const qsizetype begin = _cursor.position();
    const auto number = _cursor.takeDigits(count);
    if (number)
        addPart(begin, role, QString::number(*number));
    return number;
}

std::optional<int> StandardDateReader::takeShortPart(QStringView role)
{
    const qsizetype count = _cursor.digits();
    return count == 1 || count == 2 ? takePart(count, role) : std::nullopt;
}

bool StandardDateReader::takeClock()
{
    if (!isClockHere())
        return false;
    StandardTime time;
    time.hour = takeShortPart(u"hour").value_or(0);
    _cursor.take(u':');
    time.minute = takePart(2, u"minute").value_or(0);
    const bool hasSecond = _cursor.unit() == u':' && _cursor.isDigit(1) && _cursor.isDigit(2);
    if (hasSecond && _cursor.take(u':'))
        time.second = takePart(2, u"second").value_or(0);
    _date.time = time;
    return true;
}

bool StandardDateReader::isClockHere() const
{
    const qsizetype hours = _cursor.digits();
    if (hours < 1 || hours > 2 || _cursor.unit(hours) != u':')
        return false;
    return TextCursor(_cursor.text(), _cursor.position() + hours + 1).digits() == 2;
}

bool StandardDateReader::takeSecondsFraction()
{
    return takeFractionOf(MillisecondsOfSecond);
}

/// What is less than a millisecond is dropped: times have no more digits.
bool StandardDateReader::takeFractionOf(qint64 milliseconds)
{
    const bool hasFraction =
        (_cursor.unit() == u'.' || _cursor.unit() == u',') && _cursor.isDigit(1);
    if (!hasFraction)
        return false;
    _cursor.moveTo(_cursor.position() + 1);
    const qsizetype begin = _cursor.position();
    qint64 result = 0;
    for (qint64 rest = milliseconds * 1'000'000, digit = 0; _cursor.isDigit(); ++digit) {
        rest /= 10;
        result += rest * (_cursor.unit() - u'0');
        _cursor.moveTo(_cursor.position() + 1);
    }
    addPart(begin, u"fraction",
            u"0."_s + _text.text().sliced(begin, _cursor.position() - begin).toString());
    setFraction(result / 1'000'000);
    return true;
}

void StandardDateReader::setFraction(qint64 milliseconds)
{
    _date.time->millisecond = int(milliseconds % MillisecondsOfSecond);
    const auto seconds = int(milliseconds / MillisecondsOfSecond);
    _date.time->second += seconds % SixtyOfTime;
    _date.time->minute += seconds / SixtyOfTime;
}

bool StandardDateReader::takeZone(const TypedZone &zone)
{
    if (zone.length == 0)
        return false;
    const qsizetype begin = _cursor.position();
    _cursor.moveTo(begin + zone.length);
    _date.zone = zone;
    if (zone.isAmbiguous)
        refuse(u"There are several zones of this name."_s);
    const qint64 localTime = _date.day.value_or(0) * Civil::MillisecondsPerDay;
    addPart(begin, u"zone", zone.isAmbiguous ? QString() : zone.identifier(localTime));
    return true;
}

void StandardDateReader::refuse(const QString &reason)
{
    if (_date.reason.isNull())
        _date.reason = reason;
}

void StandardDateReader::setDay(int year, int month, int day)
{
    if (year < 1)
        return refuse(u"There is no year 0."_s);
    if (month < 1 || month > MonthsPerYear)
        return refuse(u"There is no such month."_s);
    if (day < 1 || day > Civil::daysInMonth(year, month))
        return refuse(u"The month has no such day."_s);
    _date.day = Civil::daysOf(year, month, day);
}

StandardDate StandardDateReader::result(const QString &form)
{
    if (_date.time && !_date.time->exists())
        refuse(u"There is no such time of day."_s);
    const bool isRead = _date.reason.isNull();
    _date.answer = isRead ? StandardDate::Answer::Read : StandardDate::Answer::Refused;
    _date.form = form;
    return std::move(_date);
}
