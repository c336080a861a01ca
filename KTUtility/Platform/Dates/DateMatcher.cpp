#include "DateMatcher_p.h"

#include "DateCharacters_p.h"
#include "DateFields_p.h"
#include "DateLead_p.h"

using namespace KTPrivate;

namespace {
using DateMatcher::Answer;
using namespace DateCharacters;
using namespace DateLead;

constexpr int Unknown = DateFound::Unknown;

/// Walks through a text as a pattern says.
class Walk
{
public:
    Walk(const DatePattern &pattern, const DateEnvironment &environment, const DateText &text)
        : _pattern(pattern), _environment(environment), _source(text), _text(text.start())
    {
    }

    Answer readAll()
    {
        const size_t start = _pattern.datePrefix().count;
        Answer answer = start == 0 ? Answer::Matched : readDatePrefix();
        if (answer == Answer::Matched)
            answer = readElements(start, _pattern.elements().size());
        return answer == Answer::Matched && position == 0 ? Answer::Rejected : answer;
    }

    DateFound found;
    qsizetype position = 0;

private:
    using Kind = DateElement::Kind;

    Answer readElements(size_t from, size_t end)
    {
        for (size_t index = from; index < end; ++index) {
            const Answer answer = read(_pattern.elements()[index]);
            if (answer != Answer::Matched)
                return answer;
        }
        return Answer::Matched;
    }

    /// The date before a time, unless the last attempt read the same.
    Answer readDatePrefix()
    {
        const DatePrefix &prefix = _pattern.datePrefix();
        DateMemory &memory = _source.memory();
        if (!memory.knows(prefix, &_environment)) {
            memory.answer = readElements(0, prefix.count);
            memory.environment = &_environment;
            memory.prefix = prefix.number;
            memory.found = found;
            memory.position = position;
        } else {
            found = memory.found;
            position = memory.position;
        }
        return memory.answer;
    }

    Answer read(const DateElement &element)
    {
        if (element.kind == Kind::Literal)
            return readLiteral(element.sought);
        skipWhitespace();
        if (position == _text.size())
            return Answer::Rejected;
        switch (element.kind) {
        case Kind::Number:
            return readNumber(element);
        case Kind::MonthName:
            return readMonthName(element);
        case Kind::Weekday:
            return readName(findName(_environment.names().weekdays, rest()), nullptr);
        case Kind::HalfOfDay:
            return readHalfOfDay();
        default:
            return Answer::Undecided;
        }
    }

    QStringView rest() const { return _text.sliced(position); }

    void skipWhitespace()
    {
        while (position < _text.size() && isWhitespaceOfTexts(_text[position].unicode()))
            ++position;
    }

    /// A text that ends here, or within the literal, fits.
    Answer readLiteral(QStringView sought)
    {
        qsizetype at = position;
        for (qsizetype index = 0; index < sought.size() && at < _text.size(); ++index) {
            if (sought[index] == u' ') {
                const qsizetype start = at;
                while (at < _text.size() && isWhitespaceOfTexts(_text[at].unicode()))
                    ++at;
                if (at == start)
                    return Answer::Rejected;
                if (++index == sought.size())
                    break;
            }
            if (at == _text.size() || sought[index] != _text[at])
                return Answer::Rejected;
            ++at;
        }
        position = at;
        return Answer::Matched;
    }

    Answer readNumber(const DateElement &element)
    {
        const char16_t unit = _text[position].unicode();
        if (!isDigit(unit))
            return readNoNumber(element, unit);
        const qsizetype start = position;
        qsizetype at = start;
        int value = 0;
        for (; at < _text.size() && isDigit(_text[at].unicode()); ++at) {
            if (at - start == MaximalDigits)
                return Answer::Undecided;
            value = value * 10 + (_text[at].unicode() - u'0');
        }
        if (at < _text.size() && mayBeOfNumber(_text[at].unicode()))
            return Answer::Undecided;
        if (!store(element, value, int(at - start)))
            return Answer::Rejected;
        position = at;
        return Answer::Matched;
    }

    /// Signs and other digits are numbers, too; months may be named where a number is asked for.
    Answer readNoNumber(const DateElement &element, char16_t unit)
    {
        const bool mayBeNumber = unit >= 0x80 ? !isEastAsian(unit) : unit == u'-' || unit == u'+';
        if (mayBeNumber || QChar(unit).toLower() == _environment.startOfNaN)
            return Answer::Undecided;
        const bool isMonth = element.letter == u'M' || element.letter == u'L';
        return isMonth ? readMonthName(element) : Answer::Rejected;
    }

    /// Whether a number can stand in a field, and if so, notes it.
    bool store(const DateElement &element, int value, int digits)
    {
        if (digits < element.minimalDigits)
            return false;
        switch (element.letter) {
        case u'y':
            return storeYear(value, digits);
        case u'M':
        case u'L':
            found.month = value;
            return value >= 1 && value <= 12;
        case u'd':
            found.day = value;
            return value >= 1 && value <= 31;
        case u'm':
            found.minute = value;
            return value <= 59;
        case u's':
            found.second = value;
            return value <= 59;
        default:
            return storeHour(element.letter, value);
        }
    }

    bool storeYear(int value, int digits)
    {
        if (!_pattern.takesYearOf(digits))
            return false;
        found.year = value;
        if (digits != 2)
            return true;
        const int start = _environment.customs.twoDigitStartYear;
        found.hasAmbiguousYear = value == start % 100;
        found.year += start - start % 100 + (value < start % 100 ? 100 : 0);
        return true;
    }

    bool storeHour(char16_t letter, int value)
    {
        found.isHalfDayLast = letter == u'h' || letter == u'K';
        if (letter == u'h')
            found.hour = value == 12 ? 0 : value;
        else if (letter == u'K')
            found.hour = value;
        else
            found.hourOfDay = letter == u'k' && value == 24 ? 0 : value;
        return value <= 24;
    }

    Answer readMonthName(const DateElement &element)
    {
        if (_environment.isEnglish && _pattern.hasMonthName && readSeptember())
            return Answer::Matched;
        const auto &lists = _environment.names().monthsOf(element.letter);
        const DateName name = position == _source.lead() ? _source.leadingName(lists)
                                                         : findLongestName(lists, rest());
        const Answer answer = readName(name, &found.month);
        found.month += answer == Answer::Matched ? 1 : 0;
        return answer;
    }

    /// The word "Sep" or "Sept".
    bool readSeptember()
    {
        if (lowered(_text[position].unicode()) != u's')
            return false;
        qsizetype end = position;
        while (end < _text.size() && _text[end].isLetter())
            ++end;
        const QStringView word = _text.sliced(position, end - position);
        const bool isWord = position == 0 || !_text[position - 1].isLetter();
        if (!isWord || (word.compare(u"sep", Qt::CaseInsensitive) != 0 &&
                        word.compare(u"sept", Qt::CaseInsensitive) != 0))
            return false;
        found.month = 9;
        position = end;
        return true;
    }

    Answer readHalfOfDay()
    {
        found.isHalfDayLast = true;
        return readName(findName(_environment.names().halvesOfDay, rest()), &found.half);
    }

    Answer readName(const DateName &name, int *field)
    {
        if (!name.isDecided)
            return Answer::Undecided;
        if (name.index < 0)
            return Answer::Rejected;
        position += name.length;
        if (field)
            *field = name.index;
        return Answer::Matched;
    }

    const DatePattern &_pattern;
    const DateEnvironment &_environment;
    const DateText &_source;
    const QStringView _text;
};

int valueOr(int value, int otherwise)
{
    return value == Unknown ? otherwise : value;
}

/// The hour of the day; 24 and more if there is none.
int hourOf(const DateFound &found, int defaultHour)
{
    if (!found.isHalfDayLast)
        return valueOr(found.hourOfDay, defaultHour);
    const int hour = valueOr(found.hour, defaultHour % 12);
    const bool isValid = hour < 12 && valueOr(found.hourOfDay, 0) < 24;
    return isValid ? hour + 12 * valueOr(found.half, defaultHour / 12) : 24;
}

/// What was found, completed by the default date.
DateFields fieldsOf(const DateFound &found, const DateReading &reading)
{
    DateFields fields = DateFields::defaultFields(reading.defaultTime, *reading.rules);
    fields.year = found.year == Unknown ? fields.year : found.year;
    fields.month = valueOr(found.month, fields.month);
    fields.day = valueOr(found.day, fields.day);
    fields.hour = hourOf(found, fields.hour);
    fields.minute = valueOr(found.minute, fields.minute);
    fields.second = valueOr(found.second, fields.second);
    return fields;
}

/// The instant of what was found, if there is such a day and hour.
Answer resolve(const DateFound &found, const DateReading &reading, DateMatch *match)
{
    if (found.hasAmbiguousYear)
        return Answer::Undecided;
    const DateFields fields = fieldsOf(found, reading);
    if (fields.year < Civil::FirstSafeYear || fields.year > Civil::LastSafeYear)
        return Answer::Undecided;
    if (fields.hour >= 24 || found.hour >= 12 || !fields.isExistingDay())
        return Answer::Rejected;
    match->localTime = fields.localTime();
    match->time = reading.rules->instantOf(match->localTime);
    return Answer::Matched;
}
} // namespace

bool DateMatcher::isDecidable(const DateReading &reading)
{
    const bool isSafe = !reading.defaultTime || Civil::isSafe(*reading.defaultTime);
    return isSafe && !reading.isLenient && reading.environment->isGregorian;
}

Answer DateMatcher::match(const DatePattern &pattern, const DateReading &reading,
                          const DateText &text, DateMatch *match)
{
    if (!isDecidable(reading))
        return Answer::Undecided;
    Walk walk(pattern, *reading.environment, text);
    Answer answer = walk.readAll();
    if (answer == Answer::Matched)
        answer = resolve(walk.found, reading, match);
    match->length = walk.position;
    return answer;
}

bool DateMatcher::matchBareHour(const DateReading &reading, const DateText &text, DateMatch *match)
{
    const std::optional<int> hour = bareHourIn(text.start().sliced(text.lead()));
    if (!hour || *hour < 1 || *hour > 12)
        return false;
    DateFields fields = DateFields::defaultFields(reading.defaultTime, *reading.rules);
    fields.hour = *hour % 12 + fields.hour / 12 * 12;
    match->localTime = fields.localTime();
    match->time = reading.rules->instantOf(match->localTime);
    match->length = text.length();
    return true;
}
