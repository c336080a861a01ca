// What the numbers of a date can mean.

#include <KTUtility/CommonForms/Dates/DateCandidates_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Role = DateSaid::Role;

/// Numbers with the signs before them, as they are typed: "3/4/08".
DateSaid saidBy(QStringView text)
{
    DateSaid said;
    char16_t separator = 0;
    for (qsizetype at = 0; at < text.size();) {
        if (!text[at].isDigit()) {
            separator = text[at++].unicode();
            continue;
        }
        DateSaid::Number number{.separator = separator};
        for (; at < text.size() && text[at].isDigit(); ++at, ++number.digits)
            number.value = number.value * 10 + text[at].digitValue();
        if (number.digits > 2 || number.value > 31)
            number.role = Role::Year;
        said.numbers.append(number);
    }
    return said;
}

/// All candidates, as "year-month-day".
QString candidates(const DateSaid &said, DateOrder order, char16_t dayMonthSign = 0)
{
    QStringList found;
    const auto shown = [](const std::optional<int> &value) {
        return value ? QString::number(*value) : u"?"_s;
    };
    for (const DateCandidate &candidate : dateCandidatesOf(said, order, dayMonthSign))
        found.append(shown(candidate.year) + u'-' + shown(candidate.month) + u'-' +
                     shown(candidate.day));
    return found.join(u' ');
}

constexpr DateOrder MDY = DateOrder::MonthDayYear;
constexpr DateOrder DMY = DateOrder::DayMonthYear;
constexpr DateOrder YMD = DateOrder::YearMonthDay;
} // namespace

TEST(DateCandidates, BeginWithTheLocalesOrder)
{
    EXPECT_EQ(candidates(saidBy(u"3/4/08"), MDY), u"8-3-4 8-4-3"); // no year has one digit
    EXPECT_EQ(candidates(saidBy(u"03/04/08"), MDY), u"8-3-4 8-4-3");
    EXPECT_EQ(candidates(saidBy(u"03/04/08"), DMY), u"8-4-3 8-3-4");
    EXPECT_EQ(candidates(saidBy(u"03/04/08"), YMD), u"3-4-8 8-3-4 8-4-3");
    EXPECT_EQ(candidates(saidBy(u"03/04/08"), YMD, u'/'), u"3-4-8 8-4-3 8-3-4");
    EXPECT_EQ(candidates(saidBy(u"3/4/2008"), YMD, u'/'), u"2008-4-3 2008-3-4");
    EXPECT_EQ(candidates(saidBy(u"3/4"), MDY), u"?-3-4 ?-4-3");
    EXPECT_EQ(candidates(saidBy(u"3/4"), DMY), u"?-4-3 ?-3-4");
    EXPECT_EQ(candidates(saidBy(u"3/4"), YMD), u"?-3-4 ?-4-3");
    EXPECT_EQ(candidates(saidBy(u"3/4"), YMD, u'/'), u"?-4-3 ?-3-4");
    EXPECT_EQ(candidates(saidBy(u"3-4"), YMD, u'/'), u"?-3-4 ?-4-3");
}

TEST(DateCandidates, HaveTheYearWhereItMustBe)
{
    EXPECT_EQ(candidates(saidBy(u"3/4/2008"), MDY), u"2008-3-4 2008-4-3");
    EXPECT_EQ(candidates(saidBy(u"2008/3/4"), DMY), u"2008-3-4");
    EXPECT_EQ(candidates(saidBy(u"74/3/4"), DMY), u"74-3-4");
    EXPECT_EQ(candidates(saidBy(u"3/2008"), DMY), u"2008-3-?");
    EXPECT_EQ(candidates(saidBy(u"2008/3"), DMY), u"2008-3-?");
    EXPECT_EQ(candidates(saidBy(u"2008-03"), DMY), u"");
    EXPECT_EQ(candidates(saidBy(u"3/2008/4"), DMY), u"");
    EXPECT_EQ(candidates(saidBy(u"3/4/123"), DMY), u"");
}

TEST(DateCandidates, AreNoneWithSignsOfNoDate)
{
    for (const QStringView text : {u"3/4.2008", u"3,4,2008", u"3 4", u"3 4 08", u"3,4"})
        EXPECT_EQ(candidates(saidBy(text), MDY), u"") << text.toString().toStdString();
    EXPECT_EQ(candidates(saidBy(u"3 4 2008"), MDY), u"2008-3-4 2008-4-3");
    EXPECT_EQ(candidates(saidBy(u"3/4 2008"), MDY), u"2008-3-4 2008-4-3");
}

TEST(DateCandidates, TakeTheDayFirstBesideTheNameOfAMonth)
{
    const auto withMonth = [](QStringView text) {
        DateSaid said = saidBy(text);
        said.month = 5;
        return candidates(said, MDY);
    };
    EXPECT_EQ(withMonth(u"3"), u"?-5-3");
    EXPECT_EQ(withMonth(u"2008"), u"2008-5-?");
    EXPECT_EQ(withMonth(u"3 2008"), u"2008-5-3");
    EXPECT_EQ(withMonth(u"2008 3"), u"2008-5-3");
    EXPECT_EQ(withMonth(u"03 08"), u"8-5-3");
    EXPECT_EQ(withMonth(u"03, 08"), u"8-5-3");
    EXPECT_EQ(withMonth(u"03'08"), u"8-5-3");
    EXPECT_EQ(withMonth(u"-03-08"), u"8-5-3");
    EXPECT_EQ(withMonth(u"03-08"), u"");
    EXPECT_EQ(withMonth(u"03.08"), u"");
    EXPECT_EQ(withMonth(u"03 0800"), u"");
    EXPECT_EQ(withMonth(u"3 4 2008"), u"");
    EXPECT_EQ(withMonth(u""), u"");
}

TEST(DateCandidates, TakeTwoDigitsForAYearBehindTheMonthOnly)
{
    const auto around = [](QStringView text, char16_t monthSeparator) {
        DateSaid said = saidBy(text);
        said.month = 5;
        said.numbersBeforeMonth = 1;
        said.monthSeparator = monthSeparator;
        return candidates(said, MDY);
    };
    EXPECT_EQ(around(u"03 08", u' '), u"8-5-3");
    EXPECT_EQ(around(u"03-08", u'-'), u"8-5-3");
    EXPECT_EQ(around(u"03-08", u' '), u"");
    DateSaid before = saidBy(u"03 08");
    before.month = 5;
    before.numbersBeforeMonth = 2;
    EXPECT_EQ(candidates(before, MDY), u"");
    DateSaid minutes = saidBy(u"03 08");
    minutes.month = 5;
    minutes.numbers[1].isNoYear = true;
    EXPECT_EQ(candidates(minutes, MDY), u"");
}

TEST(DateCandidates, TakeANumberAloneOnlyForAMarkedDay)
{
    DateSaid said = saidBy(u"17");
    EXPECT_EQ(candidates(said, MDY), u"");
    said.weekdays = 1 << 3;
    EXPECT_EQ(candidates(said, MDY), u"?-?-17");
    said.weekdays = 0;
    said.numbers[0].isMarked = true;
    EXPECT_EQ(candidates(said, MDY), u"?-?-17");
}
