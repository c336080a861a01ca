#include "RelativeDates_p.h"

#include <KTUtility/Platform/Dates/NSCalendar.h>

#include <algorithm>

using namespace KTPrivate;

namespace {
using Kind = DateWord::Kind;

/// More than this from now is no date that people talk about.
constexpr int MaximumAmount = 100'000;
constexpr qsizetype MaximumMoves = 4;

/// A day and another, or a day and an amount of time, are two dates.
void refuseSecond(DateSaid *said)
{
    if (said->isRelative())
        said->contradiction = u"There are two dates.";
}

/// Amounts of time with what tells their direction.
class Amounts
{
public:
    Amounts(const DateTokens &tokens, qsizetype at) : _tokens(tokens), _at(at), _begin(at) {}

    bool read()
    {
        const DateToken &first = token();
        const bool hasPrefix = first.is(Kind::AmountPrefix);
        if (hasPrefix)
            ++_at;
        while (readAmount(hasPrefix))
            skipAnd();
        if (_moves.isEmpty())
            return false;
        readSuffix();
        if (_sign == 0 && hasPrefix)
            _sign = signOf(first);
        return _sign != 0;
    }

    void say(qsizetype *at, DateSaid *said) const
    {
        refuseSecond(said);
        for (const DateSaid::Move &move : _moves)
            said->moves.append({move.unit, move.amount * _sign});
        for (qsizetype index = _begin; index < _at; ++index) {
            if (_tokens.at(index).isNumber())
                said->parts.append({index, u"amount", _tokens.at(index).value});
            else if (const int unit = unitOf(_tokens.at(index)))
                said->parts.append({index, u"unit", unit});
        }
        *at = _at;
    }

private:
    const DateToken &token(qsizetype ahead = 0) const { return _tokens.at(_at + ahead); }

    bool isJoiner() const { return token().is(Kind::Joiner) || token().is(Kind::Filler); }

    /// The direction, if there is one only.
    static int signOf(const DateToken &token)
    {
        int sign = 0;
        for (const DateWord &word : token.words) {
            if (word.kind != Kind::AmountPrefix && word.kind != Kind::AmountSuffix)
                continue;
            if (sign != 0 && sign != word.sign)
                return 0;
            sign = word.sign;
        }
        return sign;
    }

    /// Whether all meanings of a kind have one direction.
    static bool hasOneSign(const DateToken &token, Kind kind)
    {
        const DateWord *const first = token.word(kind);
        return std::all_of(token.words.begin(), token.words.end(), [&](const DateWord &word) {
            return word.kind != kind || word.sign == first->sign;
        });
    }

    /// The unit, if it is one only.
    static int unitOf(const DateToken &token, Kind kind)
    {
        int unit = 0;
        for (const DateWord &word : token.words) {
            if (word.kind != kind)
                continue;
            if (unit != 0 && unit != word.value)
                return 0;
            unit = word.value;
        }
        return unit;
    }

    static int unitOf(const DateToken &token)
    {
        const int unit = unitOf(token, Kind::Unit);
        return unit != 0 ? unit : unitOf(token, Kind::UnitWithSuffix);
    }

    bool readAmount(bool hasPrefix)
    {
        if (readOneUnit(hasPrefix))
            return true;
        const DateWord *const word = token().word(Kind::Number);
        const int number = token().isNumber() ? token().value : word ? word->value : -1;
        if (number < 0 || number > MaximumAmount || _moves.size() >= MaximumMoves || _sign != 0)
            return false;
        const qsizetype begin = _at++;
        if (readUnit(number, hasPrefix) || readFraction(number))
            return true;
        if (isJoiner()) // "2 more minutes"
            ++_at;
        if (readUnit(number, hasPrefix))
            return true;
        _at = begin;
        return false;
    }

    /// "час назад": one, without a number.
    bool readOneUnit(bool hasPrefix)
    {
        const int unit = unitOf(token(), Kind::OneUnit);
        const bool isCounted = hasPrefix || token(1).is(Kind::AmountSuffix);
        if (unit == 0 || !_moves.isEmpty() || !isCounted || token(1).isNumber())
            return false;
        _moves.append({unit, 1});
        ++_at;
        return true;
    }

    /// "2.5 hours"; parts of what is longer are no time.
    bool readFraction(int whole)
    {
        constexpr int SecondsPerHour = 3600;
        constexpr int SecondsPerMinute = 60;
        const bool isFraction = (token().isSign(u'.') || token().isSign(u',')) &&
                                token(1).isNumber() && !token().isSpaced && !token(1).isSpaced &&
                                token(1).digits <= 2;
        const int unit = isFraction ? unitOf(token(2), Kind::Unit) : 0;
        const int length = unit == int(NSHourCalendarUnit)     ? SecondsPerHour
                           : unit == int(NSMinuteCalendarUnit) ? SecondsPerMinute
                                                               : 0;
        if (length == 0)
            return false;
        const int parts = token(1).digits == 1 ? 10 : 100;
        _moves.append(
            {int(NSSecondCalendarUnit), whole * length + token(1).value * length / parts});
        _at += 3;
        return true;
    }

    bool readUnit(int number, bool hasPrefix)
    {
        int unit = unitOf(token(), Kind::Unit);
        const DateWord *ending = token().word(Kind::UnitWithSuffix);
        if (!ending) // "last week" is also "weeks ago"
            ending = token().word(Kind::RelativeUnit);
        if (hasPrefix && token().isSign(u'\'') && !token().isSpaced)
            unit = int(NSMinuteCalendarUnit);
        if (unit == 0 && ending) {
            unit = ending->value;
            _sign = hasOneSign(token(), ending->kind) ? (ending->sign > 0) - (ending->sign < 0) : 0;
        }
        if (unit == 0)
            return false;
        _moves.append({unit, number});
        ++_at;
        return true;
    }

    void skipAnd()
    {
        const qsizetype ahead = isJoiner() || token().isSign(u',') ? 1 : 0;
        if (ahead > 0 && token(ahead).isNumber() && token(ahead + 1).is(Kind::Unit))
            _at += ahead;
    }

    void readSuffix()
    {
        const qsizetype ahead = token().isSign(u'.') ? 1 : 0; // "5 min. ago"
        if (!token(ahead).is(Kind::AmountSuffix))
            return;
        _sign = signOf(token(ahead));
        _at += ahead + 1;
    }

    const DateTokens &_tokens;
    qsizetype _at;
    const qsizetype _begin;
    int _sign = 0;
    QVarLengthArray<DateSaid::Move, 4> _moves;
};

bool readFixedAmount(const DateToken &token, qsizetype at, DateSaid *said)
{
    const DateWord *const word = token.word(Kind::FixedAmount);
    if (!word)
        return false;
    refuseSecond(said);
    said->moves.append({word->value, word->sign});
    said->parts.append({at, u"amount", word->sign});
    return true;
}

bool readDay(const DateToken &token, qsizetype at, DateSaid *said)
{
    const DateWord *const word = token.word(Kind::RelativeDay);
    if (!word)
        return false;
    for (const DateWord &other : token.words) {
        if (other.kind == Kind::RelativeDay && other.value != word->value)
            said->contradiction = u"The word means several days.";
    }
    refuseSecond(said);
    said->daysFromToday = word->value;
    said->parts.append({at, u"relative", word->value});
    return true;
}

bool readWeekday(const DateToken &token, qsizetype at, DateSaid *said)
{
    const DateWord *const word = token.word(Kind::RelativeWeekday);
    if (!word || token.is(Kind::Weekday)) // "Monday" is this week's in some languages
        return false;
    refuseSecond(said);
    said->nextWeekday = word->value;
    said->weekdayDirection = word->sign;
    said->parts.append({at, u"weekday", word->value});
    return true;
}

bool readUnit(const DateToken &token, qsizetype at, DateSaid *said)
{
    const DateWord *const word = token.word(Kind::RelativeUnit);
    if (!word)
        return false;
    refuseSecond(said);
    said->moves.append({word->value, word->sign});
    said->parts.append({at, u"relative", word->sign});
    return true;
}

bool readNow(const DateToken &token, qsizetype at, DateSaid *said)
{
    if (!token.is(Kind::Now))
        return false;
    refuseSecond(said);
    said->isNow = true;
    said->parts.append({at, u"relative", 0});
    return true;
}
} // namespace

bool RelativeDates::read(const DateTokens &tokens, qsizetype *at, DateSaid *said)
{
    Amounts amounts(tokens, *at);
    if (amounts.read()) {
        amounts.say(at, said);
        return true;
    }
    const DateToken &token = tokens.at(*at);
    const bool isRead = readDay(token, *at, said) || readFixedAmount(token, *at, said) ||
                        readWeekday(token, *at, said) || readUnit(token, *at, said) ||
                        readNow(token, *at, said);
    if (isRead)
        ++*at;
    return isRead;
}
