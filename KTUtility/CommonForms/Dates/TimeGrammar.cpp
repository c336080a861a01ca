#include "TimeGrammar_p.h"

#include <algorithm>
#include <cstdlib>

using namespace KTPrivate;

namespace {
constexpr int HoursOfDay = 24;
constexpr int NoonHour = 12;
/// An hour may be this far from a part of the day: "3 in the morning", though mornings begin at 6.
constexpr int FarthestHour = 4;
/// People call the hours since midnight morning, too.
constexpr int FarthestHourOfMorning = 5;
constexpr int HoursUntilMidnight = 0xFC0000; // from 18
constexpr int EveningHours = 0x1C0000;       // from 18 to 20
constexpr int LastHourOfNight = 4;
constexpr qsizetype MaximumPeriods = 3;
constexpr qsizetype MaximumFillers = 2;

/// How far an hour is from the nearest of a mask, around the clock.
int distanceOf(int hour, int mask)
{
    for (int distance = 0; distance <= NoonHour; ++distance) {
        const int later = 1 << ((hour + distance) % HoursOfDay);
        const int earlier = 1 << ((hour + HoursOfDay - distance) % HoursOfDay);
        if ((mask & (later | earlier)) != 0)
            return distance;
    }
    return HoursOfDay;
}

std::optional<int> hourOfHalf(int hour, int mask)
{
    if (mask == MorningHours)
        return hour > NoonHour ? std::nullopt : std::optional(hour % NoonHour);
    if (hour == 0)
        return std::nullopt;
    return hour < NoonHour ? hour + NoonHour : hour;
}

/// The hour of a morning. Twelve is midnight if the mornings begin there; else it could be noon.
std::optional<int> hourOfMorning(int hour, int mask, bool isKnown)
{
    if (!isKnown && hour == NoonHour)
        return (mask & 1) != 0 ? std::optional(0) : std::nullopt;
    const bool isOfIt = hour < NoonHour && distanceOf(hour, mask) <= FarthestHourOfMorning;
    return isOfIt ? std::optional(hour) : std::nullopt;
}

std::optional<int> hourOfAfternoon(int hour, int mask, bool isKnown)
{
    const bool isOpen = !isKnown && hour > 0 && hour < NoonHour;
    const int later = isOpen ? hour + NoonHour : hour;
    const bool isOfIt = later >= NoonHour && distanceOf(later, mask) <= FarthestHour;
    return isOfIt ? std::optional(later) : std::nullopt;
}

/// The hour that is meant beside a part of the day, before or after noon if that is not known. A
/// part that is all before noon, or all after it, leaves no hour on the other side.
std::optional<int> hourOfPeriod(int hour, int mask, bool isKnown)
{
    if ((mask & AfternoonHours) == 0)
        return hourOfMorning(hour, mask, isKnown);
    if ((mask & MorningHours) == 0)
        return hourOfAfternoon(hour, mask, isKnown);
    const bool isOpen = !isKnown && hour >= 1 && hour <= NoonHour;
    const int other = isOpen ? (hour + NoonHour) % HoursOfDay : hour;
    const int own = distanceOf(hour, mask);
    const int others = distanceOf(other, mask);
    if (std::min(own, others) > FarthestHour || (own == others && hour != other))
        return std::nullopt;
    return own <= others ? hour : other;
}

int fractionOf(const DateToken &token)
{
    int milliseconds = token.value;
    for (int digits = token.digits; digits < 3; ++digits)
        milliseconds *= 10;
    for (int digits = token.digits; digits > 3; --digits)
        milliseconds /= 10;
    return milliseconds;
}
} // namespace

bool TimeGrammar::read(qsizetype *at, DateSaid *said)
{
    _at = *at;
    _hasTimeMark = false;
    _hasClockMark = false;
    _named.reset();
    _clock = {};
    _periods.clear();
    readLead();
    if (!readName() && !readClock())
        return false;
    if (!_periods.isEmpty() || !_named)
        readPeriodsBehind();
    if (!isTime())
        return false;
    say(said);
    *at = _at;
    return true;
}

/// Marks, articles and parts of the day before a time.
void TimeGrammar::readLead()
{
    qsizetype fillers = 0;
    for (;; ++_at) {
        if (token().is(Kind::TimeMark)) {
            _hasTimeMark = true;
            _hasClockMark = token().isOnlyBeforeClocks();
        } else if (token().is(Kind::Filler) && fillers < MaximumFillers)
            ++fillers;
        else if (!readPeriod(false))
            return;
        skipPointOfWord();
    }
}

/// German "am" is AM only at the end.
bool TimeGrammar::isHalfOfDay(const DateToken &token, qsizetype index) const
{
    return token.is(Kind::HalfOfDay) &&
           (!token.is(Kind::Filler) || index + 1 == _tokens.count() || _words.hasTwelveHours());
}

/// The point of an abbreviation: "kl. 14".
void TimeGrammar::skipPointOfWord()
{
    if (token(1).isSign(u'.') && !token(1).isSpaced && token(2).isSpaced)
        ++_at;
}

/// A part of the day; not "mañana" where it may be tomorrow.
bool TimeGrammar::readPeriod(bool isBehind)
{
    const DateWord *const half = token().word(Kind::HalfOfDay);
    const DateWord *const period = half ? half : token().word(Kind::DayPeriod);
    if (!period || token().is(Kind::RelativeDay) || (half && !isHalfOfDay(token(), _at)) ||
        _periods.size() >= MaximumPeriods)
        return false;
    // Arabic "م" behind a year is its era.
    if (!isBehind && token().is(Kind::Era) && _tokens.at(_at - 1).isNumber())
        return false;
    // A bare "a" or "p" is one only behind minutes: "3:18a".
    if (half && half->sign != 0 && (!isBehind || token().isSpaced || _clock.isPlain))
        return false;
    _periods.append({period->value, half != nullptr, !half && period->sign != 0, _at});
    return true;
}

void TimeGrammar::readPeriodsBehind()
{
    while (true) {
        const qsizetype begin = _at;
        const bool isBehindWord = !_tokens.at(_at - 1).isNumber();
        if (isBehindWord && token().isSign(u'.') && !token().isSpaced && token(1).isSpaced)
            ++_at;
        for (qsizetype fillers = 0; fillers < MaximumFillers && token().isSpaced &&
                                    (token().is(Kind::Filler) || token().is(Kind::TimeMark)) &&
                                    !token().is(Kind::DayPeriod) && !isHalfOfDay(token(), _at);
             ++fillers)
            ++_at;
        if (readPeriod(true)) {
            ++_at;
        } else if (!readName()) {
            _at = begin;
            return;
        }
    }
}

/// "noon", alone or beside an hour that it makes plain.
bool TimeGrammar::readName()
{
    const DateWord *const name = token().word(Kind::HourName);
    if (!name || _named)
        return false;
    _named = name->value;
    _nameToken = _at++;
    if (!_clock.hour && token().isNumber() && token().value % NoonHour == 0)
        readClock();
    return true;
}

bool TimeGrammar::readClock()
{
    if (!token().isNumber() || token().isOrdinal || token().digits > 2)
        return false;
    _clock.hour = token().value;
    _clock.hourToken = _at;
    _clock.isPlain = true;
    if (token(1).isSign(u':'))
        readColons();
    else if (token(1).is(Kind::HourMark))
        readMarked();
    else if (token(1).isSign(u'.') && isMinutes(_at + 2) && !token(1).isSpaced && !isOfNumbers())
        readDots();
    else
        ++_at;
    if (token().is(Kind::HourMark) && (!_clock.hasMark || _clock.minuteToken >= 0)) {
        _clock.hasMark = true;
        ++_at;
    }
    return true;
}

/// Whether "h.mm" goes on as a date does: "22.12.2016".
bool TimeGrammar::isOfNumbers() const
{
    const DateToken &sign = token(3);
    const bool isJoined = sign.isSign(u'.') || sign.isSign(u'/') || sign.isSign(u'-');
    return isJoined && token(4).isNumber() && (token(4).digits != 2 || token(4).isSpaced);
}

bool TimeGrammar::isMinutes(qsizetype index) const
{
    const DateToken &token = _tokens.at(index);
    return token.isNumber() && token.digits == 2 && !token.isSpaced && !token.isOrdinal;
}

/// h:mm, h:mm:ss, h:mm:ss.fff
void TimeGrammar::readColons()
{
    if (!isMinutes(_at + 2))
        return;
    _clock.isPlain = false;
    _clock.minuteToken = _at + 2;
    _clock.minute = token(2).value;
    _at += 3;
    if (!token().isSign(u':') || !isMinutes(_at + 1))
        return;
    _clock.secondToken = _at + 1;
    _clock.second = token(1).value;
    _at += 2;
    const bool hasPoint = token().isSign(u'.') || token().isSign(u',');
    if (hasPoint && token(1).isNumber() && !token(1).isSpaced && !token().isSpaced) {
        _clock.millisecond = fractionOf(token(1));
        _at += 2;
    }
}

/// h.mm, h.mm.ss
void TimeGrammar::readDots()
{
    _clock.isPlain = false;
    _clock.isDotted = true;
    _clock.minuteToken = _at + 2;
    _clock.minute = token(2).value;
    _at += 3;
    if (!token().isSign(u'.') || !isMinutes(_at + 1))
        return;
    _clock.secondToken = _at + 1;
    _clock.second = token(1).value;
    _at += 2;
}

/// 17h, 17h30, 17h30min15s
void TimeGrammar::readMarked()
{
    _clock.hasMark = token(1).word(Kind::HourMark)->sign == 0; // not "o'clock"
    _clock.isPlain = !_clock.hasMark;
    _at += 2;
    if (token().isSign(u'.') && !token().isSpaced && token(1).isNumber() && token(1).isSpaced)
        ++_at;
    if (token().is(Kind::HalfHour)) {
        _clock.minute = token().word(Kind::HalfHour)->value;
        _clock.minuteToken = _at++;
    } else {
        readMinutesBehindMark();
    }
}

void TimeGrammar::readMinutesBehindMark()
{
    const DateToken &minutes = token();
    const bool hasMark = token(1).is(Kind::MinuteMark);
    if (!minutes.isNumber() || minutes.isOrdinal || minutes.digits > 2 ||
        (!hasMark && (minutes.digits != 2 || isOfADate(_at + 1))))
        return;
    _clock.minute = minutes.value;
    _clock.minuteToken = _at;
    _at += hasMark ? 2 : 1;
    const bool isSeconds = token().isNumber() && token().digits <= 2 && hasMark &&
                           (token(1).is(Kind::SecondMark) || !token().isSpaced);
    if (!isSeconds)
        return;
    _clock.second = token().value;
    _clock.secondToken = _at;
    _at += token(1).is(Kind::SecondMark) ? 2 : 1;
}

/// Whether what stands behind a number makes it part of a date.
bool TimeGrammar::isOfADate(qsizetype index) const
{
    const DateToken &token = _tokens.at(index);
    const bool isJoined = token.isSign(u'.') || token.isSign(u'/') || token.isSign(u'-');
    if (isJoined && !_tokens.at(index + 1).isNumber() && !_tokens.at(index + 1).is(Kind::Month))
        return false;
    if (token.is(Kind::Filler))
        return _tokens.at(index + 1).is(Kind::Month);
    return isJoined || token.is(Kind::Month) || token.is(Kind::MonthMark) ||
           token.is(Kind::DayMark) || token.is(Kind::YearMark);
}

/// Whether "h.mm" may as well be a day of a month.
bool TimeGrammar::isDayAndMonth() const
{
    return KTPrivate::isDayAndMonth(_tokens, _clock.hourToken);
}

bool TimeGrammar::isTime() const
{
    if (!_clock.hour)
        return _named.has_value();
    return isConvincing();
}

bool TimeGrammar::isConvincing() const
{
    const bool isSaid = !_periods.isEmpty() || _clock.hasMark || _named;
    if (_clock.isDotted)
        return isSaid || isConvincingWithDots();
    if (!_clock.isPlain)
        return true;
    if (isOfADate(_clock.hourToken + 1))
        return false;
    return isSaid || (_hasTimeMark && (!_words.hasTwelveHours() || *_clock.hour > NoonHour));
}

/// A date may have a point behind its month, and marks may stand before dates, too.
bool TimeGrammar::isConvincingWithDots() const
{
    if (_isTimeField)
        return true;
    return !token().isSign(u'.') && (_hasClockMark || (_hasTimeMark && !isDayAndMonth()));
}

/// Whether AM and PM are both said.
bool TimeGrammar::hasTwoHalves() const
{
    int hours = MorningHours | AfternoonHours;
    for (const Period &period : _periods)
        hours &= period.isExact ? period.hours : hours;
    return hours == 0;
}

/// Whether an hour may belong to the night before or behind a day that is said: "5 March, at 1 at
/// night".
bool TimeGrammar::isBehindMidnight(int hour) const
{
    return hour <= LastHourOfNight &&
           std::any_of(_periods.begin(), _periods.end(), [](const Period &period) {
               return !period.isExact && (period.hours & HoursUntilMidnight) != 0;
           });
}

/// Whether it is still the hour of a date that is written out: 1 to 4, of a night that is no evening.
bool TimeGrammar::isOfNamedDate(int hour) const
{
    return hour > 0 && std::none_of(_periods.begin(), _periods.end(), [](const Period &period) {
               return !period.isExact && (period.hours & EveningHours) != 0;
           });
}

/// The hour by all that is said about it; nothing if that cannot be.
std::optional<int> TimeGrammar::hourOfDay() const
{
    if (!_clock.hour)
        return _named;
    if (hasTwoHalves())
        return std::nullopt;
    std::optional<int> hour = _clock.hour;
    if (*hour == 0 && !_periods.isEmpty() && _words.hasHourZero())
        hour = NoonHour; // "午後0時"
    bool isKnown = false;
    for (const bool isExact : {true, false}) {
        for (const Period &period : _periods) {
            if (!hour || period.isExact != isExact)
                continue;
            hour = isExact ? hourOfHalf(*hour, period.hours)
                           : hourOfPeriod(*hour, period.hours, isKnown);
            isKnown = true;
        }
    }
    if (hour && _named)
        return *hour % NoonHour == 0 ? _named : std::nullopt;
    return hour;
}

void TimeGrammar::say(DateSaid *said) const
{
    const std::optional<int> hour = hourOfDay();
    const bool exists = hour && *hour < HoursOfDay && _clock.minute < 60 && _clock.second < 60;
    if (!exists || said->time) {
        said->contradiction = exists ? u"There are two times." : u"There is no such time.";
        return;
    }
    said->time = {*hour, _clock.minute, _clock.second, _clock.millisecond};
    said->isHourOfNight = isBehindMidnight(*hour);
    said->isHourOfDate = isOfNamedDate(*hour);
    for (const Period &period : _periods)
        said->isOfToday = said->isOfToday || period.isOfToday;
    sayParts(*hour, said);
}

void TimeGrammar::sayParts(int hour, DateSaid *said) const
{
    if (_clock.hour)
        said->parts.append({_clock.hourToken, u"hour", hour});
    if (_clock.minuteToken >= 0)
        said->parts.append({_clock.minuteToken, u"minute", _clock.minute});
    if (_clock.secondToken >= 0)
        said->parts.append({_clock.secondToken, u"second", _clock.second});
    for (const Period &period : _periods)
        said->parts.append({period.token, u"dayPeriod", hour});
    if (_named)
        said->parts.append({_nameToken, u"dayPeriod", hour});
}
