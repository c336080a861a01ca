#include "ColumnDates_p.h"

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Text/PlainSign_p.h>
#include <KTUtility/Platform/Dates/NSDateFormatter.h>
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/dtptngen.h>

#include <QDate>
#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype DigitsOfYear = 4;
constexpr size_t OrderCount = 3;

/// A number in a date.
struct Part
{
    qsizetype begin = 0;
    qsizetype length = 0;
    int value = 0;

    qsizetype end() const { return begin + length; }
    bool isLongYear() const { return length == DigitsOfYear; }
};

/// A date in a text; with two parts, it has no year.
struct NumericDate
{
    std::array<Part, 3> parts;
    size_t count = 0;

    int valueOf(size_t index) const { return parts[index].value; }
};

bool isDateSeparator(char16_t sign)
{
    return sign == u'/' || sign == u'.' || sign == u'-';
}

Part partAt(QStringView text, qsizetype begin)
{
    Part part{begin};
    while (isDigitAt(text, part.end()) && part.length <= DigitsOfYear)
        part.value = part.value * 10 + text[begin + part.length++].digitValue();
    return part;
}

/// Where the next part begins behind the separator that the others have; blanks may follow a full
/// stop. Negative if there is none.
qsizetype behindSeparator(QStringView text, qsizetype position, char16_t separator)
{
    if (plainSignAt(text, position) != separator)
        return -1;
    ++position;
    while (separator == u'.' && plainSignAt(text, position) == u' ')
        ++position;
    return isDigitAt(text, position) ? position : -1;
}

/// The numbers from a position on with the same separator between them; at most three.
NumericDate partsFrom(QStringView text, qsizetype begin)
{
    NumericDate date;
    const Part first = partAt(text, begin);
    const char16_t separator = plainSignAt(text, first.end());
    for (qsizetype at = begin; at >= 0 && date.count < date.parts.size();) {
        const Part part = partAt(text, at);
        date.parts[date.count++] = part;
        at = isDateSeparator(separator) ? behindSeparator(text, part.end(), separator) : -1;
    }
    return date;
}

bool hasEnd(QStringView text, qsizetype end)
{
    const bool goesOn = isDateSeparator(plainSignAt(text, end)) && isDigitAt(text, end + 1);
    return !isDigitAt(text, end) && !goesOn;
}

bool isShort(const Part &part)
{
    return part.length <= 2;
}

/// Whether the last of three parts can be what it has to be: a year has two digits or four. One digit
/// is a day, if what is first can be a year only.
bool isLast(const Part &part, const Part &first)
{
    constexpr int LongestMonth = 31;
    return part.isLongYear() || part.length == 2 ||
           (part.length == 1 && first.value > LongestMonth);
}

/// Day, month and year, with four digits of the year at the end or two somewhere.
bool hasThreeParts(QStringView text, const NumericDate &date)
{
    return date.count == 3 && isShort(date.parts[0]) && isShort(date.parts[1]) &&
           isLast(date.parts[2], date.parts[0]) && hasEnd(text, date.parts[2].end());
}

/// Day and month, and nothing else: "13/2", "13.2.". Without the last full stop it may be a time.
bool hasTwoParts(QStringView text, const NumericDate &date)
{
    if (date.count != 2 || !isShort(date.parts[0]) || !isShort(date.parts[1]))
        return false;
    const QStringView before = text.first(date.parts[0].begin);
    const QStringView behind = text.sliced(date.parts[1].end());
    const bool isPointed = plainSignAt(text, date.parts[0].end()) == u'.';
    return before.trimmed().isEmpty() && behind.trimmed() == (isPointed ? u"." : u"");
}

bool beginsNumber(QStringView text, qsizetype position)
{
    const bool goesOn =
        isDateSeparator(plainSignAt(text, position - 1)) && isDigitAt(text, position - 2);
    return isDigitAt(text, position) && !isDigitAt(text, position - 1) && !goesOn;
}

std::optional<NumericDate> dateIn(QStringView text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!beginsNumber(text, at))
            continue;
        const NumericDate date = partsFrom(text, at);
        if (hasThreeParts(text, date) || hasTwoParts(text, date))
            return date;
    }
    return std::nullopt;
}

bool isDay(int day, int month)
{
    constexpr std::array Lengths{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month >= 1 && month <= int(Lengths.size()) && day >= 1 &&
           day <= Lengths[size_t(month - 1)];
}

/// Which part is the day, the month and the year in an order.
std::array<size_t, 3> placesIn(const NumericDate &date, size_t order)
{
    const bool isYearFirst =
        order == ColumnDates::YearMonthDay && date.count == 3 && !date.parts[2].isLongYear();
    if (isYearFirst)
        return {2, 1, 0};
    return order == ColumnDates::DayMonthYear ? std::array<size_t, 3>{0, 1, 2}
                                              : std::array<size_t, 3>{1, 0, 2};
}

bool isPossible(const NumericDate &date, size_t order)
{
    const auto places = placesIn(date, order);
    const bool hasYear = date.count < 3 || date.parts[places[2]].length > 1;
    return hasYear && isDay(date.valueOf(places[0]), date.valueOf(places[1]));
}

/// The units of a pattern in their order, each once.
QString unitsOfPattern(const QString &pattern)
{
    QString units;
    bool isQuoted = false;
    for (QChar unit : pattern) {
        isQuoted ^= unit == u'\'';
        if (unit == u'L')
            unit = u'M';
        if (!isQuoted && (unit == u'd' || unit == u'M' || unit == u'y') && !units.contains(unit))
            units += unit;
    }
    return units;
}

/// Which of day, month and year a unit is.
size_t placeOf(QChar unit)
{
    return unit == u'd' ? 0 : unit == u'M' ? 1 : 2;
}
} // namespace

unsigned ColumnDates::possibleOrders(QStringView text)
{
    if (text.size() > FoldedText::MaximumLength)
        return 0;
    const std::optional<NumericDate> date = dateIn(text);
    unsigned possible = 0;
    for (size_t order = 0; date && order < OrderCount; ++order)
        possible |= isPossible(*date, order) ? 1U << order : 0;
    return possible;
}

QString ColumnDates::unitsOf(const NSLocale &locale)
{
    NSDateFormatter formatter;
    formatter.setLocale(locale);
    formatter.setDateStyle(NSDateFormatterShortStyle);
    return unitsOfPattern(formatter.dateFormat());
}

namespace {
/// The units of dates without a year; empty if they cannot be found out.
QString readUnitsWithoutYear(const NSLocale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(ICU::localeOf(locale), status));
    if (U_FAILURE(status))
        return {};
    const QString pattern = ICU::stringOf(patterns->getBestPattern(u"Md", status));
    return U_SUCCESS(status) ? unitsOfPattern(pattern) : QString();
}

/// The same, asked once for each locale: ICU's generator of patterns takes as long to make as ten
/// thousand texts to read.
QString unitsWithoutYear(const NSLocale &locale)
{
    static QMutex mutex;
    static QHash<QString, QString> known;
    const QMutexLocker lock(&mutex);
    const QString &identifier = locale.localeIdentifier();
    if (const auto units = known.constFind(identifier); units != known.constEnd())
        return *units;
    return *known.insert(identifier, readUnitsWithoutYear(locale));
}
} // namespace

bool ColumnDates::haveOrderWithoutYear(const QString &units, const NSLocale &locale)
{
    return QString(units).remove(u'y') == unitsWithoutYear(locale);
}

size_t ColumnDates::orderOf(const QString &units)
{
    if (units.indexOf(u'd') < units.indexOf(u'M'))
        return DayMonthYear;
    return units.startsWith(u'y') ? YearMonthDay : MonthDayYear;
}

QString ColumnDates::reordered(const QString &text, size_t order, const QString &units)
{
    const std::optional<NumericDate> date = dateIn(text);
    if (!date)
        return text;
    const QStringView view = text;
    const auto places = placesIn(*date, order);
    QString result = text.first(date->parts[0].begin);
    // What stands between the parts stays where it is.
    qsizetype behind = date->parts[0].begin;
    size_t count = 0;
    for (const QChar unit : units) {
        const size_t place = places[placeOf(unit)];
        if (place >= date->count)
            continue;
        const Part &former = date->parts[count++];
        result += view.sliced(behind, former.begin - behind);
        result += view.sliced(date->parts[place].begin, date->parts[place].length);
        behind = former.end();
    }
    return result + view.sliced(behind);
}

QString ColumnDates::withMonthName(const QString &text, size_t order, const NSLocale &locale)
{
    constexpr int LeapYear = 2000;
    const std::optional<NumericDate> date = dateIn(text);
    if (!date || date->count != 2)
        return text;
    const auto places = placesIn(*date, order);
    const QDate day(LeapYear, date->valueOf(places[1]), date->valueOf(places[0]));
    NSDateFormatter formatter;
    formatter.setLocale(locale);
    formatter.setTimeZone(QTimeZone::utc());
    formatter.setDateFormat(u"d MMMM"_s);
    return formatter.stringFromDate(day.startOfDay(QTimeZone::utc()));
}
