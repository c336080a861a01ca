#include "DateGrammar_p.h"

#include "RelativeDates_p.h"
#include "TimeGrammar_p.h"

#include <algorithm>

using namespace KTPrivate;

namespace {
constexpr int LongestMonth = 31;
constexpr qsizetype MaximumNumbers = 3;

/// What a number can only be by itself.
DateSaid::Role roleOf(const DateToken &token)
{
    if (token.isOrdinal)
        return DateSaid::Role::Day;
    const bool isYear = token.digits > 2 || token.value > LongestMonth;
    return isYear ? DateSaid::Role::Year : DateSaid::Role::Unknown;
}
} // namespace

std::optional<DateSaid> DateGrammar::read()
{
    while (_at < _tokens.count()) {
        if (!readSeparator() && !readPart())
            return std::nullopt;
    }
    return isEnd() ? std::optional(_said) : std::nullopt;
}

/// A point or comma may end a text.
bool DateGrammar::isEnd() const
{
    return _separator == 0 || _separator == u'.' || _separator == u',';
}

/// One sign, or a point and another.
bool DateGrammar::readSeparator()
{
    const char16_t sign = token().sign;
    if (sign != u'.' && sign != u',' && sign != u'/' && sign != u'-')
        return false;
    if (_at == 0 || (_separator != 0 && _separator != u'.'))
        return false;
    _separator = sign;
    ++_at;
    return true;
}

bool DateGrammar::readPart()
{
    if (RelativeDates::read(_tokens, &_at, &_said)) {
        _isBehindTime = false;
        _isBehindWord = false;
        _separator = 0;
        return true;
    }
    const bool isTime = readTime();
    const bool isOther = !isTime && (readZone() || readNumber() || readApostropheYear() ||
                                     readMonth() || readWeekday() || readEra());
    const bool isFiller = !isTime && !isOther && readFiller();
    _isBehindTime = isTime || (isFiller && _isBehindTime);
    _isBehindWord = isFiller;
    _separator = 0;
    return isTime || isOther || isFiller;
}

bool DateGrammar::readTime()
{
    if (_separator == u'/')
        return false;
    const bool isOfSpan = _separator == u'-' && isDayAndMonth(_tokens, _at);
    const bool couldBeDotted =
        _isTimeField || (_said.numbers.size() > 1 && _separator != u'.' && !isOfSpan);
    const bool isJoined = isSpanOfHours();
    if (!TimeGrammar(_tokens, _words, couldBeDotted).read(&_at, &_said))
        return false;
    if (isJoined)
        joinToTime(&_said.numbers.back());
    return true;
}

/// Whether a number stands here behind another and a dash: "10-11pm".
bool DateGrammar::isSpanOfHours() const
{
    return _separator == u'-' && token().isNumber() && token(-2).isNumber() &&
           !_said.numbers.isEmpty() && _said.numbers.back().token == _at - 2;
}

/// The zone has to stand behind the time.
bool DateGrammar::readZone()
{
    if (token().type != DateToken::Type::Zone || !_said.time || _separator != 0)
        return false;
    _said.hasZone = true;
    _said.parts.append({_at++, u"zone", 0});
    return true;
}

bool DateGrammar::readNumber()
{
    if (!token().isNumber() || _said.numbers.size() >= MaximumNumbers)
        return false;
    DateSaid::Number number = numberHere();
    ++_at;
    readMark(&number);
    if (!_said.month)
        ++_said.numbersBeforeMonth;
    _said.numbers.append(number);
    return true;
}

/// The number with what stands before it.
DateSaid::Number DateGrammar::numberHere() const
{
    DateSaid::Number number{token().value, token().digits, roleOf(token()), _separator, _at};
    if (_separator == 0 && token().isSpaced)
        number.separator = u' ';
    number.isMarked = token().isOrdinal;
    number.isBehindTime = _isBehindTime;
    number.isBehindWord = _isBehindWord;
    number.isBehindMonth = token(_separator == 0 ? -1 : -2).is(Kind::Month);
    const bool isOpenTime = _isBehindWord || _separator == u'-' || !hasMinutes();
    number.isNoYear = _isBehindTime && (_separator == u'-' || (token().digits < 4 && isOpenTime));
    return number;
}

/// A number before a dash and a time is no year; without blanks, nothing but the begin of a span.
void DateGrammar::joinToTime(DateSaid::Number *number)
{
    number->isJoinedToTime = true;
    const bool isSpaced = _tokens.at(number->token + 1).isSpaced;
    if (!isSpaced && number->digits <= 2 && _said.numbers.size() == 1)
        _said.contradiction = u"There are two times.";
}

bool DateGrammar::hasMinutes() const
{
    return std::any_of(_said.parts.begin(), _said.parts.end(), [](const DateSaid::Part &part) {
        return QStringView(part.role) == u"minute";
    });
}

/// "年" and the like.
void DateGrammar::readMark(DateSaid::Number *number)
{
    const DateSaid::Role role = token().is(Kind::YearMark)    ? DateSaid::Role::Year
                                : token().is(Kind::MonthMark) ? DateSaid::Role::Month
                                : token().is(Kind::DayMark)   ? DateSaid::Role::Day
                                                              : DateSaid::Role::Unknown;
    if (role == DateSaid::Role::Unknown)
        return;
    if (number->role != DateSaid::Role::Unknown && number->role != role)
        _said.contradiction = u"There is no such date.";
    number->role = role;
    number->isMarked = true;
    ++_at;
}

bool DateGrammar::readApostropheYear()
{
    const DateToken &year = token(1);
    if (!token().isSign(u'\'') || !year.isNumber() || year.digits != 2 || year.isSpaced ||
        _said.numbers.size() >= MaximumNumbers)
        return false;
    _said.numbers.append({year.value, year.digits, DateSaid::Role::Year, u'\'', _at + 1});
    if (!_said.month)
        ++_said.numbersBeforeMonth;
    _at += 2;
    return true;
}

bool DateGrammar::readMonth()
{
    const DateWord *const word = token().word(Kind::Month);
    if (!word || (_said.month && *_said.month != word->value))
        return false;
    if (token().is(Kind::Weekday) && isRatherWeekday()) // "Mar" in Filipino
        return false;
    if (std::any_of(token().words.begin(), token().words.end(), [word](const DateWord &other) {
            return other.kind == Kind::Month && other.value != word->value;
        }))
        return false;
    _said.month = word->value;
    _said.monthSeparator = _separator == 0 && token().isSpaced ? u' ' : _separator;
    _said.parts.append({_at++, u"month", word->value});
    return true;
}

/// Whether there is another month, and that is nothing else or has a number beside it.
bool DateGrammar::isRatherWeekday() const
{
    const bool isBesideNumber = token(-1).isNumber() || token(1).isNumber();
    for (qsizetype index = 0; index < _tokens.count(); ++index) {
        const DateToken &other = _tokens.at(index);
        if (index != _at && other.is(Kind::Month) && (!other.is(Kind::Weekday) || !isBesideNumber))
            return true;
    }
    return false;
}

/// A weekday, perhaps in parentheses.
bool DateGrammar::readWeekday()
{
    const qsizetype ahead = token().isSign(u'(') ? 1 : 0;
    const DateWord *const word = token(ahead).word(Kind::Weekday);
    if (!word || (ahead > 0 && !token(2).isSign(u')')) || _said.weekdays != 0)
        return false;
    for (const DateWord &meaning : token(ahead).words) // two are alike without their accents
        _said.weekdays |= meaning.kind == Kind::Weekday ? 1 << meaning.value : 0;
    _said.parts.append({_at + ahead, u"weekday", word->value});
    _at += ahead > 0 ? 3 : 1;
    return true;
}

bool DateGrammar::readEra()
{
    const DateWord *const word = token().word(Kind::Era);
    if (!word || _said.era)
        return false;
    _said.era = word->value;
    _said.isJapaneseEra = word->sign != 0;
    _said.parts.append({_at++, u"era", word->value});
    readFirstYear();
    return true;
}

/// "元年": the first year of an era has no number.
void DateGrammar::readFirstYear()
{
    const DateWord *const mark = token().word(Kind::YearMark);
    if (!mark || mark->value == 0 || _said.numbers.size() >= MaximumNumbers)
        return;
    _said.numbers.append({mark->value, 1, DateSaid::Role::Year, 0, _at++, true});
    if (!_said.month)
        ++_said.numbersBeforeMonth;
}

/// Words that decide nothing.
bool DateGrammar::readFiller()
{
    if (!token().is(Kind::Filler) && !token().is(Kind::TimeMark))
        return false;
    ++_at;
    return true;
}
