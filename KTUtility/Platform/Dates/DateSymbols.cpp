#include "DateSymbols_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>

#include <vector>

using namespace KTPrivate;

namespace {
using icu::DateFormatSymbols;
using SymbolKind = NSDateFormatterSymbols;

/// A list of months, weekdays or quarters: which kind of names of it.
struct List
{
    DateFormatSymbols::DtContextType context;
    DateFormatSymbols::DtWidthType width;
};

/// The three widths of a group stand behind each other in the enumeration.
List listOf(SymbolKind kind, SymbolKind first, SymbolKind firstStandalone)
{
    constexpr std::array Widths{DateFormatSymbols::WIDE, DateFormatSymbols::ABBREVIATED,
                                DateFormatSymbols::NARROW};
    const bool isStandalone = kind >= firstStandalone;
    const int width = int(kind) - int(isStandalone ? firstStandalone : first);
    return {isStandalone ? DateFormatSymbols::STANDALONE : DateFormatSymbols::FORMAT,
            Widths[size_t(width)]};
}

bool isMonth(SymbolKind kind)
{
    return kind >= SymbolKind::Month && kind <= SymbolKind::VeryShortStandaloneMonth;
}

bool isWeekday(SymbolKind kind)
{
    return kind >= SymbolKind::Weekday && kind <= SymbolKind::VeryShortStandaloneWeekday;
}

List monthList(SymbolKind kind)
{
    return listOf(kind, SymbolKind::Month, SymbolKind::StandaloneMonth);
}

List weekdayList(SymbolKind kind)
{
    return listOf(kind, SymbolKind::Weekday, SymbolKind::StandaloneWeekday);
}

List quarterList(SymbolKind kind)
{
    return listOf(kind, SymbolKind::Quarter, SymbolKind::StandaloneQuarter);
}

const icu::UnicodeString *othersOf(const DateFormatSymbols &symbols, SymbolKind kind,
                                   int32_t *count)
{
    switch (kind) {
    case SymbolKind::Era:
        return symbols.getEras(*count);
    case SymbolKind::LongEra:
        return symbols.getEraNames(*count);
    case SymbolKind::AMPM:
        return symbols.getAmPmStrings(*count);
    default:
        const List list = quarterList(kind);
        return symbols.getQuarters(*count, list.context, list.width);
    }
}

const icu::UnicodeString *arrayOf(const DateFormatSymbols &symbols, SymbolKind kind, int32_t *count)
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

QStringList DateSymbols::names(const DateFormatSymbols &symbols, SymbolKind kind)
{
    int32_t count = 0;
    const icu::UnicodeString *const array = arrayOf(symbols, kind, &count);
    QStringList names;
    for (int32_t index = isWeekday(kind) ? 1 : 0; index < count; ++index)
        names.append(ICU::stringOf(array[index]));
    return names;
}

void DateSymbols::setNames(DateFormatSymbols *symbols, SymbolKind kind, const QStringList &names)
{
    const std::vector<icu::UnicodeString> copy = copyOf(names, isWeekday(kind));
    const auto count = int32_t(copy.size());
    if (isMonth(kind)) {
        const List list = monthList(kind);
        symbols->setMonths(copy.data(), count, list.context, list.width);
    } else if (isWeekday(kind)) {
        const List list = weekdayList(kind);
        symbols->setWeekdays(copy.data(), count, list.context, list.width);
    } else if (kind == SymbolKind::Era) {
        symbols->setEras(copy.data(), count);
    } else if (kind == SymbolKind::LongEra) {
        symbols->setEraNames(copy.data(), count);
    } else if (kind == SymbolKind::AMPM) {
        symbols->setAmPmStrings(copy.data(), count);
    } else {
        const List list = quarterList(kind);
        symbols->setQuarters(copy.data(), count, list.context, list.width);
    }
}
