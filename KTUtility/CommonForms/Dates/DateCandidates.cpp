#include "DateCandidates_p.h"

#include <array>
#include <span>

using namespace KTPrivate;

namespace {
using Role = DateSaid::Role;
using Roles = std::span<const Role>;

/// Gives roles to numbers; false where that is against what is known of them.
class Assignment
{
public:
    explicit Assignment(const DateSaid &said) : _said(said) { _candidate.month = said.month; }

    bool assign(Roles roles)
    {
        int index = 0;
        for (const Role role : roles) {
            if (!set(index++, role))
                return false;
        }
        return true;
    }

    const DateCandidate &candidate() const { return _candidate; }

private:
    bool set(int index, Role role)
    {
        const DateSaid::Number &number = _said.numbers[index];
        return (number.role == Role::Unknown || number.role == role) && take(index, number, role);
    }

    bool take(int index, const DateSaid::Number &number, Role role)
    {
        switch (role) {
        case Role::Year:
            return setYear(index, number);
        case Role::Month:
            _candidate.month = number.value;
            _candidate.monthNumber = index;
            return true;
        default:
            _candidate.day = number.value;
            _candidate.dayNumber = index;
            return true;
        }
    }

    /// Years have two digits or four, of which the first is no 0; those of an era as many as they
    /// have.
    bool setYear(int index, const DateSaid::Number &number)
    {
        constexpr int FirstLongYear = 1000;
        const bool isOfEra = _said.era.has_value();
        const bool isLong = number.digits == 4 && number.value >= FirstLongYear;
        if (number.digits != 2 && !isLong && !isOfEra)
            return false;
        _candidate.year = number.value;
        _candidate.hasShortYear = number.digits == 2 && !isOfEra;
        _candidate.yearNumber = index;
        return true;
    }

    const DateSaid &_said;
    DateCandidate _candidate;
};

void add(DateCandidates &candidates, const DateSaid &said, Roles roles)
{
    Assignment assignment(said);
    if (assignment.assign(roles))
        candidates.append(assignment.candidate());
}

bool isJoin(char16_t separator)
{
    return separator == u'/' || separator == u'-' || separator == u'.';
}

/// Whether a time stands within a date that goes on with no long year.
bool isTornByTime(const DateSaid &said)
{
    for (qsizetype index = 1; index < said.numbers.size(); ++index) {
        const DateSaid::Number &number = said.numbers[index];
        if (number.isBehindTime && (number.digits != 4 || isJoin(number.separator)))
            return true;
    }
    return false;
}

/// Whether the signs between numbers are those of a date: "3/4/08", "12-08, 2015", "31 10 1974".
bool isJoinedAsDate(const DateSaid &said)
{
    const auto &numbers = said.numbers;
    bool isMarked = false;
    for (const DateSaid::Number &number : numbers)
        isMarked = isMarked || number.isMarked;
    if (isMarked || numbers.size() < 2)
        return true;
    if (isTornByTime(said))
        return false;
    const char16_t first = numbers[1].separator;
    if (numbers.size() == 2)
        return isJoin(first);
    const char16_t second = numbers[2].separator;
    const bool hasLongYear = numbers[0].digits == 4 || numbers[2].digits == 4;
    if (first == second)
        return isJoin(first) || (first == u' ' && hasLongYear);
    return isJoin(first) && (second == u',' || second == u' ' || second == u'\'') &&
           numbers[2].role == Role::Year;
}

/// Whether the sign before a year goes with the one before, as in "5-Mar-08" and "Mar 5, 08".
bool isSignBeforeYear(const DateSaid::Number &year, char16_t signBefore)
{
    const char16_t sign = year.separator;
    return sign == 0 || sign == u' ' || sign == u',' || (isJoin(sign) && sign == signBefore) ||
           (sign == u'.' && year.isBehindMonth);
}

/// Whether a number beside the name of a month can be its year. Two digits are one only where
/// nothing else can be meant, as the end of a span: behind the month, or behind the day that is.
bool canBeYear(const DateSaid &said, qsizetype index)
{
    const DateSaid::Number &year = said.numbers[index];
    if (year.digits != 2 || year.separator == u'\'' || (year.isMarked && year.role == Role::Year))
        return !year.isNoYear;
    const bool isInPlace = index >= said.numbersBeforeMonth && index + 1 == said.numbers.size();
    if (year.isNoYear || year.isBehindWord || year.isJoinedToTime || !isInPlace)
        return false;
    const bool hasDayBetween = index > said.numbersBeforeMonth;
    return isSignBeforeYear(year, hasDayBetween ? said.numbers[index - 1].separator
                                                : said.monthSeparator);
}

/// Beside the name of a month.
void addBesideMonth(DateCandidates &candidates, const DateSaid &said)
{
    switch (said.numbers.size()) {
    case 1:
        add(candidates, said, std::array{Role::Day});
        if (candidates.isEmpty() && canBeYear(said, 0))
            add(candidates, said, std::array{Role::Year});
        break;
    case 2:
        if (canBeYear(said, 1))
            add(candidates, said, std::array{Role::Day, Role::Year});
        if (canBeYear(said, 0))
            add(candidates, said, std::array{Role::Year, Role::Day});
        break;
    default:
        break;
    }
}

bool isDayFirst(const DateSaid &said, DateOrder order, char16_t dayMonthSign)
{
    return order == DateOrder::DayMonthYear ||
           (order == DateOrder::YearMonthDay && dayMonthSign != 0 &&
            said.numbers[1].separator == dayMonthSign);
}

void addTwoNumbers(DateCandidates &candidates, const DateSaid &said, bool isDayFirst)
{
    if (isDayFirst)
        add(candidates, said, std::array{Role::Day, Role::Month});
    add(candidates, said, std::array{Role::Month, Role::Day});
    if (!isDayFirst)
        add(candidates, said, std::array{Role::Day, Role::Month});
    if (said.numbers[0].role != Role::Year && said.numbers[1].role != Role::Year)
        return;
    add(candidates, said, std::array{Role::Month, Role::Year});
    if (said.numbers[1].separator != u'-') // "2008-03" is of ISO 8601, which has no day there
        add(candidates, said, std::array{Role::Year, Role::Month});
}

/// Two digits are a year before the month only where years come first, or if they can be nothing
/// else.
void addThreeNumbers(DateCandidates &candidates, const DateSaid &said, DateOrder order,
                     bool isDayFirst)
{
    static constexpr std::array MonthFirst{Role::Month, Role::Day, Role::Year};
    static constexpr std::array DayFirst{Role::Day, Role::Month, Role::Year};
    static constexpr std::array YearFirst{Role::Year, Role::Month, Role::Day};
    if (order == DateOrder::YearMonthDay || said.numbers[0].role == Role::Year)
        add(candidates, said, YearFirst);
    add(candidates, said, isDayFirst ? DayFirst : MonthFirst);
    add(candidates, said, isDayFirst ? MonthFirst : DayFirst);
}

/// A single number is a day if something says so.
void addOneNumber(DateCandidates &candidates, const DateSaid &said)
{
    if (said.weekdays != 0 || said.numbers[0].isMarked)
        add(candidates, said, std::array{Role::Day});
}
} // namespace

DateCandidates KTPrivate::dateCandidatesOf(const DateSaid &said, DateOrder order,
                                           char16_t dayMonthSign)
{
    DateCandidates candidates;
    if (said.month)
        addBesideMonth(candidates, said);
    else if (!isJoinedAsDate(said))
        return candidates;
    else if (said.numbers.size() == 1)
        addOneNumber(candidates, said);
    else if (said.numbers.size() == 2)
        addTwoNumbers(candidates, said, isDayFirst(said, order, dayMonthSign));
    else if (said.numbers.size() == 3)
        addThreeNumbers(candidates, said, order, isDayFirst(said, order, dayMonthSign));
    return candidates;
}
