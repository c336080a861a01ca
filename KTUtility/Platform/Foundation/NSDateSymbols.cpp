#include "NSDateSymbols_p.h"

#include "NSICU_p.h"

#include <vector>

namespace {
using icu::DateFormatSymbols;
using Kind = NSDateFormatterSymbols;

/// A list of months, weekdays or quarters: which kind of names of it.
struct List
{
    DateFormatSymbols::DtContextType context;
    DateFormatSymbols::DtWidthType width;
};

/// The three widths of a group stand behind each other in the enumeration.
List listOf(Kind kind, Kind first, Kind firstStandalone)
{
    constexpr std::array Widths{DateFormatSymbols::WIDE, DateFormatSymbols::ABBREVIATED,
                                DateFormatSymbols::NARROW};
    const bool isStandalone = kind >= firstStandalone;
    const int width = int(kind) - int(isStandalone ? firstStandalone : first);
    return {isStandalone ? DateFormatSymbols::STANDALONE : DateFormatSymbols::FORMAT,
            Widths[size_t(width)]};
}

bool isMonth(Kind kind)
{
    return kind >= Kind::Month && kind <= Kind::VeryShortStandaloneMonth;
}

bool isWeekday(Kind kind)
{
    return kind >= Kind::Weekday && kind <= Kind::VeryShortStandaloneWeekday;
}

List monthList(Kind kind)
{
    return listOf(kind, Kind::Month, Kind::StandaloneMonth);
}

List weekdayList(Kind kind)
{
    return listOf(kind, Kind::Weekday, Kind::StandaloneWeekday);
}

List quarterList(Kind kind)
{
    return listOf(kind, Kind::Quarter, Kind::StandaloneQuarter);
}

const icu::UnicodeString *othersOf(const DateFormatSymbols &symbols, Kind kind, int32_t *count)
{
    switch (kind) {
    case Kind::Era:
        return symbols.getEras(*count);
    case Kind::LongEra:
        return symbols.getEraNames(*count);
    case Kind::AMPM:
        return symbols.getAmPmStrings(*count);
    default:
        const List list = quarterList(kind);
        return symbols.getQuarters(*count, list.context, list.width);
    }
}

const icu::UnicodeString *arrayOf(const DateFormatSymbols &symbols, Kind kind, int32_t *count)
{
    if (isMonth(kind)) {
        const List list = monthList(kind);
        return symbols.getMonths(*count, list.context, list.width);
    }
    if (isWeekday(kind)) {
        const List list = weekdayList(kind);
        return symbols.getWeekdays(*count, list.context, list.width);
    }
    return othersOf(symbols, kind, count);
}

std::vector<icu::UnicodeString> copyOf(const QStringList &names, bool isOfWeekdays)
{
    std::vector<icu::UnicodeString> copy;
    if (isOfWeekdays)
        copy.emplace_back();
    for (const QString &name : names)
        copy.emplace_back(name.utf16(), int32_t(name.size()));
    return copy;
}
} // namespace

QStringList NSDateSymbols::names(const DateFormatSymbols &symbols, Kind kind)
{
    int32_t count = 0;
    const icu::UnicodeString *const array = arrayOf(symbols, kind, &count);
    QStringList names;
    for (int32_t index = isWeekday(kind) ? 1 : 0; index < count; ++index)
        names.append(NSICU::stringOf(array[index]));
    return names;
}

void NSDateSymbols::setNames(DateFormatSymbols *symbols, Kind kind, const QStringList &names)
{
    const std::vector<icu::UnicodeString> copy = copyOf(names, isWeekday(kind));
    const auto count = int32_t(copy.size());
    if (isMonth(kind)) {
        const List list = monthList(kind);
        symbols->setMonths(copy.data(), count, list.context, list.width);
    } else if (isWeekday(kind)) {
        const List list = weekdayList(kind);
        symbols->setWeekdays(copy.data(), count, list.context, list.width);
    } else if (kind == Kind::Era) {
        symbols->setEras(copy.data(), count);
    } else if (kind == Kind::LongEra) {
        symbols->setEraNames(copy.data(), count);
    } else if (kind == Kind::AMPM) {
        symbols->setAmPmStrings(copy.data(), count);
    } else {
        const List list = quarterList(kind);
        symbols->setQuarters(copy.data(), count, list.context, list.width);
    }
}
