#include "DateTokens_p.h"

#include <algorithm>

using namespace KTPrivate;

namespace {
/// No number of a date or of an amount of time has more digits.
constexpr int MaximumDigits = 8;

bool isDigit(QChar unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// The signs of dates and times; one for those that look alike. 0 if it is none.
char16_t signOf(char16_t unit)
{
    constexpr QStringView Signs = u".,/-:'()";
    switch (unit) {
    case u'\u3001':
    case u'\u060C':
    case u'\u104A':
    case u'\u1363':
    case u';':
        return u',';
    case u'\u3002':
        return u'.';
    default:
        return Signs.contains(QChar(unit)) ? unit : 0;
    }
}

qsizetype endOfWord(QStringView folded, qsizetype at)
{
    while (at < folded.size() && (folded[at].isLetter() || folded[at].isMark()))
        ++at;
    return at;
}
} // namespace

const DateWord *DateToken::word(DateWord::Kind kind) const
{
    const auto found = std::find_if(words.begin(), words.end(),
                                    [kind](const DateWord &word) { return word.kind == kind; });
    return found == words.end() ? nullptr : &*found;
}

bool DateToken::isOnlyBeforeClocks() const
{
    return std::any_of(words.begin(), words.end(), [](const DateWord &word) {
        return word.kind == DateWord::Kind::TimeMark && word.sign != 0;
    });
}

bool KTPrivate::isDayAndMonth(const DateTokens &tokens, qsizetype at)
{
    constexpr int LongestMonth = 31;
    constexpr int Months = 12;
    const DateToken &day = tokens.at(at);
    const DateToken &month = tokens.at(at + 2);
    return day.value >= 1 && day.value <= LongestMonth && month.value >= 1 && month.value <= Months;
}

DateTokens::DateTokens(QStringView folded, const DateWords &words)
    : _isValid(read(folded, words) && !_tokens.isEmpty())
{
}

const DateToken &DateTokens::at(qsizetype index) const
{
    static const DateToken none;
    return index >= 0 && index < _tokens.size() ? _tokens[index] : none;
}

bool DateTokens::read(QStringView folded, const DateWords &words)
{
    for (qsizetype at = 0; at < folded.size();) {
        _isSpaced = folded[at] == u' ';
        if (_isSpaced)
            ++at;
        const qsizetype end =
            isDigit(folded[at]) ? readNumber(folded, words, at) : readWord(folded, words, at);
        if (end == at || _tokens.size() > MaximumCount)
            return false;
        at = end;
    }
    return true;
}

/// Each returns where the token ends; where it begins if there is none.
qsizetype DateTokens::readNumber(QStringView folded, const DateWords &words, qsizetype at)
{
    if (const qsizetype end = readWeekdayWithNumber(folded, words, at); end > at)
        return end;
    DateToken token{.type = DateToken::Type::Number, .isSpaced = _isSpaced, .begin = at};
    qsizetype end = at;
    for (; end < folded.size() && isDigit(folded[end]); ++end) {
        token.value = token.value * 10 + folded[end].digitValue();
        if (++token.digits > MaximumDigits)
            return at;
    }
    token.length = end - at;
    if (end < folded.size()) {
        const qsizetype suffix = words.ordinalAt(folded, end);
        token.isOrdinal = suffix > 0;
        end += suffix;
    }
    _tokens.append(token);
    return end;
}

/// Portuguese "2ª feira" is Monday.
qsizetype DateTokens::readWeekdayWithNumber(QStringView folded, const DateWords &words,
                                            qsizetype at)
{
    const DateWords::Match match = words.longestAt(folded, at);
    const bool isWeekday =
        std::any_of(match.meanings.begin(), match.meanings.end(),
                    [](const DateWord &word) { return word.kind == DateWord::Kind::Weekday; });
    if (!isWeekday)
        return at;
    _tokens.append({.type = DateToken::Type::Word,
                    .isSpaced = _isSpaced,
                    .begin = at,
                    .length = match.length,
                    .words = match.meanings});
    return at + match.length;
}

qsizetype DateTokens::readWord(QStringView folded, const DateWords &words, qsizetype at)
{
    if (isOffsetWest(folded, at))
        return readZone(folded, words, at);
    DateToken token{.type = DateToken::Type::Word, .isSpaced = _isSpaced, .begin = at};
    const DateWords::Match match = words.longestAt(folded, at);
    token.length = match.length;
    token.words = match.meanings;
    if (match.length == 0) {
        const qsizetype end = endOfWord(folded, at);
        const DateWord *const name = words.nameLike(folded.sliced(at, end - at));
        if (!name)
            return end == at && folded[at] != u'+' ? readSign(folded, at)
                                                   : readZone(folded, words, at);
        token.length = end - at;
        token.words = {name, 1};
    }
    _tokens.append(token);
    return at + token.length;
}

/// Whether a minus sign begins an offset, and no span: with a blank before it and four digits behind
/// it, behind a time.
bool DateTokens::isOffsetWest(QStringView folded, qsizetype at) const
{
    constexpr qsizetype Length = 5;
    return folded[at] == u'-' && _isSpaced && isBehindTime() &&
           offsetAt(folded, at).length == Length && folded.sliced(at, Length).indexOf(u':') < 0;
}

/// Whether the last token ends a clock: minutes, AM or the mark of an hour.
bool DateTokens::isBehindTime() const
{
    const DateToken &last = this->at(_tokens.size() - 1);
    const DateToken &before = this->at(_tokens.size() - 2);
    return (last.isNumber() && before.isSign(u':')) || last.is(DateWord::Kind::HalfOfDay) ||
           last.is(DateWord::Kind::HourMark);
}

/// The zone of the time before it, if it is one only.
qsizetype DateTokens::readZone(QStringView folded, const DateWords &words, qsizetype at)
{
    if (_zone.length > 0 || _tokens.isEmpty())
        return at;
    _zone = zoneAt(folded, at, words.locale());
    if (!_zone.isRead())
        return at;
    _tokens.append({.type = DateToken::Type::Zone,
                    .isSpaced = _isSpaced,
                    .begin = at,
                    .length = _zone.length});
    return at + _zone.length;
}

qsizetype DateTokens::readSign(QStringView folded, qsizetype at)
{
    const char16_t sign = signOf(folded[at].unicode());
    if (sign == 0)
        return at;
    _tokens.append({.type = DateToken::Type::Sign,
                    .isSpaced = _isSpaced,
                    .sign = sign,
                    .begin = at,
                    .length = 1});
    return at + 1;
}
