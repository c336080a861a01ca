#include "RelativeDateWords_p.h"

#include "DateWords_p.h"
#include <KTUtility/Platform/Dates/NSCalendar.h>
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/measfmt.h>
#include <unicode/measunit.h>
#include <unicode/measure.h>
#include <unicode/reldatefmt.h>

#include <algorithm>
#include <array>
#include <map>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Kind = DateWord::Kind;
using Formatter = icu::RelativeDateTimeFormatter;

/// A unit in which ICU counts, as it is named in its enumerations.
struct CountedUnit
{
    NSCalendarUnits unit;
    UDateRelativeUnit relative;
    UDateAbsoluteUnit absolute; ///< UDAT_ABSOLUTE_NOW if there is none
    icu::MeasureUnit *(*measure)(UErrorCode &status);
};

constexpr std::array Units{CountedUnit{NSSecondCalendarUnit, UDAT_RELATIVE_SECONDS,
                                       UDAT_ABSOLUTE_NOW, icu::MeasureUnit::createSecond},
                           CountedUnit{NSMinuteCalendarUnit, UDAT_RELATIVE_MINUTES,
                                       UDAT_ABSOLUTE_NOW, icu::MeasureUnit::createMinute},
                           CountedUnit{NSHourCalendarUnit, UDAT_RELATIVE_HOURS, UDAT_ABSOLUTE_NOW,
                                       icu::MeasureUnit::createHour},
                           CountedUnit{NSDayCalendarUnit, UDAT_RELATIVE_DAYS, UDAT_ABSOLUTE_NOW,
                                       icu::MeasureUnit::createDay},
                           CountedUnit{NSWeekCalendarUnit, UDAT_RELATIVE_WEEKS, UDAT_ABSOLUTE_WEEK,
                                       icu::MeasureUnit::createWeek},
                           CountedUnit{NSMonthCalendarUnit, UDAT_RELATIVE_MONTHS,
                                       UDAT_ABSOLUTE_MONTH, icu::MeasureUnit::createMonth},
                           CountedUnit{NSYearCalendarUnit, UDAT_RELATIVE_YEARS, UDAT_ABSOLUTE_YEAR,
                                       icu::MeasureUnit::createYear}};

constexpr std::array Directions{
    std::pair{UDAT_DIRECTION_LAST_2, -2}, std::pair{UDAT_DIRECTION_LAST, -1},
    std::pair{UDAT_DIRECTION_THIS, 0}, std::pair{UDAT_DIRECTION_NEXT, 1},
    std::pair{UDAT_DIRECTION_NEXT_2, 2}};

/// Numbers in all plurals that languages have.
constexpr std::array Samples{1, 2, 3, 5, 11, 21, 100};

/// A phrase with a number, without it.
struct Template
{
    explicit Template(const QString &phrase)
    {
        const QString folded = FoldedText::folded(phrase);
        qsizetype begin = 0;
        while (begin < folded.size() && !folded[begin].isDigit())
            ++begin;
        qsizetype end = begin;
        while (end < folded.size() && folded[end].isDigit())
            ++end;
        hasNumber = end > begin;
        prefix = folded.left(begin).trimmed();
        suffix = folded.mid(end).trimmed();
    }

    bool hasNumber = false;
    QString prefix;
    QString suffix;
};

bool hasLetters(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.isLetter(); });
}

QString stringOf(const Formatter &formatter, UDateDirection direction, UDateAbsoluteUnit unit)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    formatter.format(direction, unit, text, status);
    return U_SUCCESS(status) ? ICU::stringOf(text) : QString();
}

void addDays(DateWords &words, const Formatter &formatter)
{
    words.add(stringOf(formatter, UDAT_DIRECTION_PLAIN, UDAT_ABSOLUTE_NOW), {Kind::Now});
    for (const auto &[direction, distance] : Directions) {
        words.add(stringOf(formatter, direction, UDAT_ABSOLUTE_DAY), {Kind::RelativeDay, distance});
        for (int day = 1; day <= 7; ++day)
            words.add(
                stringOf(formatter, direction, UDateAbsoluteUnit(UDAT_ABSOLUTE_SUNDAY + day - 1)),
                {Kind::RelativeWeekday, day, distance});
    }
}

void addDirections(DateWords &words, const Formatter &formatter, const CountedUnit &unit)
{
    if (unit.absolute == UDAT_ABSOLUTE_NOW)
        return;
    for (const auto &[direction, distance] : Directions)
        words.add(stringOf(formatter, direction, unit.absolute),
                  {Kind::RelativeUnit, int(unit.unit), distance});
}

/// With which numbers the names of a unit are said.
class UnitNames
{
public:
    void add(QStringView name, int number)
    {
        constexpr int AlsoLikeOne = 21;
        const QString word = name.trimmed().toString();
        bool &isOne = _isOne.try_emplace(word, true).first->second;
        isOne = isOne && (number == 1 || number == AlsoLikeOne);
    }

    /// Adds all of them with a meaning, and another for those that are said of one only: these can
    /// stand without a number.
    void addTo(DateWords &words, const DateWord &meaning, const DateWord &meaningOfOne) const
    {
        for (const auto &[name, isOne] : _isOne) {
            words.add(name, meaning);
            if (isOne)
                words.add(name, meaningOfOne);
        }
    }

private:
    std::map<QString, bool> _isOne;
};

/// The names of a unit, alone and with what stands behind them.
struct UsedNames
{
    void addTo(DateWords &words, int unit) const
    {
        alone.addTo(words, {Kind::Unit, unit}, {Kind::OneUnit, unit});
        past.addTo(words, {Kind::UnitWithSuffix, unit, -1}, {Kind::FixedAmount, unit, -1});
        future.addTo(words, {Kind::UnitWithSuffix, unit, 1}, {Kind::FixedAmount, unit, 1});
    }

    UnitNames alone;
    UnitNames past;
    UnitNames future;
};

/// The name of a unit, and what stands beside it: "days ago" is "days" and "ago".
void addAmount(DateWords &words, const Template &amount, int sign, int number,
               const QStringList &names, UsedNames *used)
{
    if (hasLetters(amount.prefix)) // not "+3 d"
        words.add(amount.prefix, {Kind::AmountPrefix, 0, sign});
    if (!hasLetters(amount.suffix))
        return;
    for (const QString &name : names) {
        if (!amount.suffix.startsWith(name) || !isWordEnd(amount.suffix, name.size()))
            continue;
        used->alone.add(name, number);
        words.add(QStringView(amount.suffix).sliced(name.size()), {Kind::AmountSuffix, 0, sign});
        if (amount.prefix.isEmpty()) // where no blank stands between the words
            (sign > 0 ? used->future : used->past).add(amount.suffix, number);
        return;
    }
    if (amount.prefix.isEmpty())
        (sign > 0 ? used->future : used->past).add(amount.suffix, number);
    else
        used->alone.add(amount.suffix, number);
    // The unit has another case here than alone; what is behind it is the same for all.
    const qsizetype blank = amount.suffix.indexOf(u' ');
    if (blank > 0)
        used->alone.add(QStringView(amount.suffix).left(blank), number);
}

QString stringOf(const Formatter &formatter, int number, int sign, UDateRelativeUnit unit)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    formatter.format(double(number), sign > 0 ? UDAT_DIRECTION_NEXT : UDAT_DIRECTION_LAST, unit,
                     text, status);
    return U_SUCCESS(status) ? ICU::stringOf(text) : QString();
}

void addAmounts(DateWords &words, const Formatter &formatter, const CountedUnit &unit,
                const QStringList &names, UsedNames *used)
{
    for (const int number : Samples) {
        // What is said of both directions tells none.
        if (stringOf(formatter, number, 1, unit.relative) ==
            stringOf(formatter, number, -1, unit.relative))
            continue;
        for (const int sign : {1, -1}) {
            const Template amount(stringOf(formatter, number, sign, unit.relative));
            if (amount.hasNumber)
                addAmount(words, amount, sign, number, names, used);
            else
                words.add(amount.prefix, {Kind::FixedAmount, int(unit.unit), sign * number});
        }
    }
}

/// The names of a unit behind a number, the longest first.
QStringList namesOf(const icu::Locale &locale, const CountedUnit &unit)
{
    QStringList names;
    for (const UMeasureFormatWidth width :
         {UMEASFMT_WIDTH_WIDE, UMEASFMT_WIDTH_SHORT, UMEASFMT_WIDTH_NARROW}) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::MeasureFormat format(locale, width, status);
        for (const int number : Samples) {
            icu::UnicodeString text;
            icu::FieldPosition position;
            format.formatMeasures(
                std::array{icu::Measure(number, unit.measure(status), status)}.data(), 1, text,
                position, status);
            const QString name = Template(ICU::stringOf(text)).suffix;
            if (U_SUCCESS(status) && !name.isEmpty() && !names.contains(name))
                names.append(name);
        }
    }
    std::sort(names.begin(), names.end(),
              [](const QString &left, const QString &right) { return left.size() > right.size(); });
    return names;
}

std::unique_ptr<Formatter> formatterOf(const icu::Locale &locale,
                                       UDateRelativeDateTimeFormatterStyle style)
{
    UErrorCode status = U_ZERO_ERROR;
    auto formatter =
        std::make_unique<Formatter>(locale, nullptr, style, UDISPCTX_CAPITALIZATION_NONE, status);
    return U_SUCCESS(status) ? std::move(formatter) : nullptr;
}

Kind markOf(NSCalendarUnits unit)
{
    if (unit == NSHourCalendarUnit)
        return Kind::HourMark;
    return unit == NSMinuteCalendarUnit ? Kind::MinuteMark : Kind::SecondMark;
}
} // namespace

void KTPrivate::addRelativeDateWords(DateWords &words, const icu::Locale &locale)
{
    for (const CountedUnit &unit : Units) {
        UsedNames used;
        const QStringList names = namesOf(locale, unit);
        for (const QString &name : names) {
            words.add(name, {Kind::Unit, int(unit.unit)});
            if ((unit.unit & NSTimeCalendarUnits) != 0)
                words.add(name, {markOf(unit.unit)});
        }
        for (const auto style : {UDAT_STYLE_LONG, UDAT_STYLE_SHORT, UDAT_STYLE_NARROW}) {
            const std::unique_ptr<Formatter> formatter = formatterOf(locale, style);
            if (!formatter)
                continue;
            addDirections(words, *formatter, unit);
            addAmounts(words, *formatter, unit, names, &used);
            if (unit.unit == NSDayCalendarUnit)
                addDays(words, *formatter);
        }
        used.addTo(words, int(unit.unit));
    }
}
