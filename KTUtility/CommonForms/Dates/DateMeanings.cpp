#include "DateMeanings_p.h"

#include <KTUtility/CommonForms/Text/SharedTables_p.h>
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/dtfmtsym.h>

#include <cstdlib>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Kind = DateWord::Kind;
using Symbols = icu::DateFormatSymbols;
using Names = const icu::UnicodeString *(*)(const Symbols &symbols, int32_t &count);

/// English names, which cost as much to make as a formatter; reading them fills nothing.
std::shared_ptr<const Symbols> englishSymbols(const QString &calendar)
{
    static SharedTables<Symbols> shared;
    return shared.tableOf(calendar, [&calendar] {
        UErrorCode status = U_ZERO_ERROR;
        return Symbols(icu::Locale::getEnglish(), calendar.toLatin1().constData(), status);
    });
}

/// The name of a number in a calendar; the number itself if it has none.
QString symbolOf(int number, int index, const NSCalendar &calendar, Names names)
{
    const std::shared_ptr<const Symbols> symbols = englishSymbols(calendar.calendarIdentifier());
    int32_t count = 0;
    const icu::UnicodeString *const found = names(*symbols, count);
    const bool hasName = found && index >= 0 && index < count && !found[index].isEmpty();
    return hasName ? ICU::stringOf(found[index]) : QString::number(number);
}

QString monthOf(int month, const NSCalendar &calendar)
{
    return symbolOf(month, month - 1, calendar, [](const Symbols &symbols, int32_t &count) {
        return symbols.getMonths(count, Symbols::FORMAT, Symbols::WIDE);
    });
}

QString weekdayOf(int weekday, const NSCalendar &calendar)
{
    return symbolOf(weekday, weekday, calendar, [](const Symbols &symbols, int32_t &count) {
        return symbols.getWeekdays(count, Symbols::FORMAT, Symbols::WIDE);
    });
}

QString eraOf(int era, const NSCalendar &calendar)
{
    return symbolOf(era, era, calendar, [](const Symbols &symbols, int32_t &count) {
        return symbols.getEraNames(count);
    });
}

QString unitOf(int unit)
{
    switch (unit) {
    case NSSecondCalendarUnit:
        return u"second"_s;
    case NSMinuteCalendarUnit:
        return u"minute"_s;
    case NSHourCalendarUnit:
        return u"hour"_s;
    case NSWeekCalendarUnit:
        return u"week"_s;
    case NSMonthCalendarUnit:
        return u"month"_s;
    case NSYearCalendarUnit:
        return u"year"_s;
    default:
        return u"day"_s;
    }
}

/// "2 weeks", "-1 day", as counted from now.
QString amountOf(int amount, int unit)
{
    const QString ending = std::abs(amount) == 1 ? QString() : u"s"_s;
    return QString::number(amount) + u' ' + unitOf(unit) + ending;
}

QString relativeOf(int value, const DateToken &token)
{
    if (token.is(Kind::RelativeDay))
        return amountOf(value, NSDayCalendarUnit);
    for (const Kind kind : {Kind::RelativeUnit, Kind::FixedAmount}) {
        if (const DateWord *const word = token.word(kind))
            return amountOf(value, word->value);
    }
    return u"now"_s;
}

QString dayPeriodOf(int hour, const DateToken &token)
{
    if (token.is(Kind::HourName))
        return hour == 0 ? u"midnight"_s : u"noon"_s;
    return hour < 12 ? u"AM"_s : u"PM"_s;
}
} // namespace

QString KTPrivate::meaningOf(const DateSaid::Part &part, const DateToken &token,
                             const NSCalendar &calendar)
{
    const QStringView role(part.role);
    if (token.isNumber())
        return QString::number(part.value);
    if (role == u"month")
        return monthOf(part.value, calendar);
    if (role == u"weekday")
        return weekdayOf(part.value, calendar);
    if (role == u"era")
        return eraOf(part.value, calendar);
    if (role == u"unit")
        return unitOf(part.value);
    if (role == u"dayPeriod")
        return dayPeriodOf(part.value, token);
    return role == u"relative" || role == u"amount" ? relativeOf(part.value, token)
                                                    : QString::number(part.value);
}
