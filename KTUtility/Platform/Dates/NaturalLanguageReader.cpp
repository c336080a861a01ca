#include "NaturalLanguageReader_p.h"

using namespace KTPrivate;

namespace {
/// More digits than any number here has.
constexpr int TooManyDigits = 5;

bool isSeparator(char16_t unit)
{
    return unit == u'/' || unit == u'-' || unit == u'.';
}

bool isOrdinalSuffix(QStringView word)
{
    for (const QStringView suffix : {u"st", u"nd", u"rd", u"th", u"er", u"e"}) {
        if (word == suffix)
            return true;
    }
    return false;
}
} // namespace

NaturalLanguageReader::NaturalLanguageReader(const NaturalLanguageWords &words, QStringView text,
                                             const QString &order, int centuryStart)
    : _words(words)
    , _text(NaturalLanguageWords::folded(text))
    , _order(order)
    , _centuryStart(centuryStart)
{
}

std::optional<NaturalLanguageSaid> NaturalLanguageReader::read()
{
    for (skipWhitespace(); _at < _text.size(); skipWhitespace()) {
        if (!readNext())
            return {};
    }
    return assignNumbers() ? std::optional(_said) : std::nullopt;
}

void NaturalLanguageReader::skipWhitespace()
{
    while (_at < _text.size() && (_text[_at].isSpace() || _text[_at] == u','))
        ++_at;
    // The point behind an abbreviation or an ordinal number.
    const bool isPoint = _at > 0 && unitAt(_at) == u'.';
    if (isPoint && (_at + 1 == _text.size() || _text[_at + 1].isSpace())) {
        ++_at;
        skipWhitespace();
    }
}

bool NaturalLanguageReader::readNext()
{
    const NaturalLanguageWord word = _words.find(rest());
    if (word.length > 0)
        return readWord(word);
    return _text[_at].digitValue() >= 0 && readNumber();
}

bool NaturalLanguageReader::readWord(const NaturalLanguageWord &word)
{
    const QStringView words = rest().first(word.length);
    _at += word.length;
    NaturalLanguageMeaning meaning = word.meaning;
    if (meaning.kind == Kind::Amount) {
        meaning.amount = 0;
        for (const QChar unit : words) {
            if (unit.digitValue() >= 0)
                meaning.amount = qMin(meaning.amount, 99'999) * 10 + unit.digitValue();
        }
        return move(NSCalendarUnits(meaning.value), meaning.sign * meaning.amount);
    }
    return readDateWord(meaning);
}

bool NaturalLanguageReader::readDateWord(const NaturalLanguageMeaning &meaning)
{
    switch (meaning.kind) {
    case Kind::Filler:
        return true;
    case Kind::Now:
        _said.isNow = true;
        return true;
    case Kind::Day:
        return setOnce(&_said.daysFromToday, meaning.value);
    case Kind::RelativeWeekday:
        _said.weekdayDirection = meaning.sign;
        return setOnce(&_said.weekday, meaning.value);
    case Kind::Weekday:
        return setOnce(&_said.weekday, meaning.value);
    case Kind::Month:
        return setOnce(&_said.month, meaning.value);
    case Kind::RelativeUnit:
        return move(NSCalendarUnits(meaning.value), meaning.sign);
    case Kind::FixedAmount:
        return move(NSCalendarUnits(meaning.value), meaning.sign * meaning.amount);
    case Kind::Direction:
        return readDirection(meaning.sign);
    default:
        return readTimeWord(meaning);
    }
}

bool NaturalLanguageReader::readTimeWord(const NaturalLanguageMeaning &meaning)
{
    switch (meaning.kind) {
    case Kind::InFuture:
        skipWhitespace();
        if (NaturalLanguageMeaning number; take(Kind::Number, &number))
            return readAmountInWords(number.value, true);
        if (const std::optional<int> number = takeDigits())
            return readAmountInWords(*number, true);
        return false;
    case Kind::Number:
        return readAmountInWords(meaning.value, false);
    case Kind::HourName:
        return setHour(meaning.value);
    case Kind::HalfOfDay:
        return setOnce(&_said.half, meaning.value);
    case Kind::HourMark:
        return _said.hour.has_value();
    default:
        return false;
    }
}

/// "next Tuesday", "last month"
bool NaturalLanguageReader::readDirection(int sign)
{
    skipWhitespace();
    NaturalLanguageMeaning meaning;
    if (take(Kind::Weekday, &meaning)) {
        _said.weekdayDirection = sign;
        return setOnce(&_said.weekday, meaning.value);
    }
    return take(Kind::Unit, &meaning) && move(NSCalendarUnits(meaning.value), sign);
}

/// A unit behind a number, and "ago" or "from now" behind that unless "in" stood before it.
bool NaturalLanguageReader::readAmountInWords(int number, bool isInFuture)
{
    skipWhitespace();
    NaturalLanguageMeaning unit;
    if (!take(Kind::Unit, &unit))
        return false;
    skipWhitespace();
    NaturalLanguageMeaning suffix;
    suffix.sign = 1;
    if (!isInFuture && !take(Kind::Suffix, &suffix))
        return false;
    return move(NSCalendarUnits(unit.value), suffix.sign * number);
}

bool NaturalLanguageReader::readNumber()
{
    int digits = 0;
    const std::optional<int> number = takeDigits(&digits);
    if (!number)
        return false;
    const char16_t unit = unitAt(_at);
    const bool isBeforeDigit = QChar(unitAt(_at + 1)).digitValue() >= 0;
    if (unit == u':')
        return readClock(*number);
    if (isSeparator(unit) && isBeforeDigit)
        return readDateOfNumbers({*number, digits});
    return readNumberWithMark(*number, digits);
}

/// "5:30", "5:30:15", "5:"
bool NaturalLanguageReader::readClock(int hour)
{
    ++_at;
    int digits = 0;
    const std::optional<int> minute = takeDigits(&digits);
    if (!minute)
        return _at == _text.size() && setHour(hour);
    _said.minute = *minute;
    bool isValid = digits <= 2 && *minute < 60;
    if (unitAt(_at) == u':') {
        ++_at;
        const std::optional<int> second = takeDigits(&digits);
        _said.second = second.value_or(60);
        isValid = isValid && _said.second < 60;
    }
    return isValid && setHour(hour);
}

/// Two or three numbers with the same character between them.
bool NaturalLanguageReader::readDateOfNumbers(const Number &first)
{
    const char16_t separator = unitAt(_at);
    std::vector<Number> numbers{first};
    while (numbers.size() < 3 && unitAt(_at) == separator) {
        ++_at;
        Number number{0, 0};
        const std::optional<int> value = takeDigits(&number.digits);
        if (!value)
            break;
        number.value = *value;
        numbers.push_back(number);
    }
    return assignDate(numbers, orderOf(numbers));
}

/// The user's order, without the year if there are two numbers. A year of four digits may stand at
/// either end.
QString NaturalLanguageReader::orderOf(const std::vector<Number> &numbers) const
{
    QString order = _order;
    const bool startsWithYear = numbers.front().digits == 4;
    const bool endsWithYear = numbers.back().digits == 4;
    if (numbers.size() == 3 && !startsWithYear && !endsWithYear)
        return order;
    order.remove(u'y');
    if (numbers.size() == 3)
        order.insert(startsWithYear ? 0 : 2, u'y');
    return order;
}

bool NaturalLanguageReader::assignDate(const std::vector<Number> &numbers, const QString &order)
{
    if (order.size() != qsizetype(numbers.size()))
        return false;
    bool isNew = true;
    for (size_t index = 0; index < numbers.size(); ++index) {
        const Number &number = numbers[index];
        const QChar letter = order[qsizetype(index)];
        if (letter == u'y')
            isNew = assignYear(number.value, number.digits) && isNew;
        else
            isNew = setOnce(letter == u'm' ? &_said.month : &_said.day, number.value) && isNew;
    }
    return isNew;
}

/// A number by itself, or one that the word behind it explains.
bool NaturalLanguageReader::readNumberWithMark(int number, int digits)
{
    const qsizetype behindNumber = _at;
    skipWhitespace();
    if (take(Kind::HourMark))
        return readHourMark(number);
    if (take(Kind::YearMark))
        return assignYear(number, 4);
    if (take(Kind::MonthMark))
        return setOnce(&_said.month, number);
    if (take(Kind::DayMark))
        return setOnce(&_said.day, number);
    if (NaturalLanguageMeaning half; take(Kind::HalfOfDay, &half))
        return setOnce(&_said.half, half.value) && setHour(number);
    if (_words.find(rest(), Kind::Unit).length > 0)
        return readAmountInWords(number, false);
    _at = behindNumber;
    qsizetype end = _at;
    while (end < _text.size() && _text[end].isLetter())
        ++end;
    if (isOrdinalSuffix(QStringView(_text).sliced(_at, end - _at))) {
        _at = end;
        return setOnce(&_said.day, number);
    }
    _said.numbers.push_back({number, digits});
    return true;
}

/// "17h", "17h30", "17時30分15秒"
bool NaturalLanguageReader::readHourMark(int hour)
{
    if (const std::optional<int> minute = readMarked(Kind::MinuteMark)) {
        _said.minute = *minute;
        _said.second = readMarked(Kind::SecondMark).value_or(0);
    }
    return setHour(hour);
}

/// A number below 60 with a mark behind it that may be missing.
std::optional<int> NaturalLanguageReader::readMarked(Kind mark)
{
    const qsizetype start = _at;
    skipWhitespace();
    int digits = 0;
    const std::optional<int> number = takeDigits(&digits);
    const bool isLoose = !number || digits > 2 || *number >= 60 || isSeparator(unitAt(_at));
    if (!isLoose && (take(mark) || unitAt(_at) == u'\0' || start + digits == _at))
        return number;
    _at = start;
    return {};
}

/// Numbers beside a named month are its day and the year; one alone is an hour.
bool NaturalLanguageReader::assignNumbers()
{
    for (const auto &[number, digits] : _said.numbers) {
        const bool mayBeDay = _said.month && !_said.day && number >= 1 && number <= 31;
        if (mayBeDay)
            _said.day = number;
        else if (_said.month && !_said.year)
            assignYear(number, digits);
        else if (digits > 2 || !setHour(number))
            return false;
    }
    const bool hasAnything = _said.isNow || _said.hour || _said.hasDate();
    return hasAnything && (!_said.half || _said.hour);
}

bool NaturalLanguageReader::assignYear(int number, int digits)
{
    int year = number;
    if (digits <= 2) {
        const int start = _centuryStart % 100;
        year += _centuryStart - start + (number < start ? 100 : 0);
    }
    return setOnce(&_said.year, year);
}

bool NaturalLanguageReader::setHour(int hour)
{
    return hour <= 23 && setOnce(&_said.hour, hour);
}

bool NaturalLanguageReader::move(NSCalendarUnits unit, int amount)
{
    _said.moves.push_back({unit, amount});
    return true;
}

bool NaturalLanguageReader::take(Kind kind, NaturalLanguageMeaning *meaning)
{
    const NaturalLanguageWord word = _words.find(rest(), kind);
    if (word.length == 0)
        return false;
    _at += word.length;
    if (meaning)
        *meaning = word.meaning;
    return true;
}

std::optional<int> NaturalLanguageReader::takeDigits(int *digits)
{
    const qsizetype start = _at;
    int number = 0;
    while (_at < _text.size() && _text[_at].digitValue() >= 0 && _at - start < TooManyDigits)
        number = number * 10 + _text[_at++].digitValue();
    const qsizetype count = _at - start;
    if (digits)
        *digits = int(count);
    return count > 0 && count < TooManyDigits ? std::optional(number) : std::nullopt;
}
