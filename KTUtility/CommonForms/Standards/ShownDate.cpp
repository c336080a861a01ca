#include "ShownDate_p.h"

#include "ShownDatePattern_p.h"
#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

using namespace KTPrivate;

namespace {
/// No pattern shows more.
constexpr qsizetype LongestText = 160;
/// Leap years are eight years apart at most, but where a calendar has leap months.
constexpr int MostYearsBack = 40;
/// Since there have been zones.
constexpr int MostYearsBackWithZone = 200;
constexpr int MostChangesBack = 300;
constexpr int HoursOfAHalf = 12;

/// One text that a field may have shown.
class ShownDateReader
{
public:
    ShownDateReader(const QString &text, const ShownDateContext &context)
        : _text(text), _context(context), _pattern(ShownDatePattern::patternOf(context.formatter))
    {
    }

    std::optional<qint64> read()
    {
        const auto accepts = [this](const ShownFields &fields) { return isShown(fields); };
        const bool isRead = _text.size() <= LongestText && _pattern->takeApart(_text, accepts);
        return isRead ? std::optional(_instant) : std::nullopt;
    }

private:
    /// Most texts do not get as far as to need them.
    const TimeZoneRules &rules()
    {
        if (!_rules)
            _rules = &TimeZoneRules::rulesOf(_context.formatter.timeZone());
        return *_rules;
    }

    bool isGregorian() const
    {
        return _context.calendar.calendarIdentifier() == NSGregorianCalendar;
    }

    bool isShown(const ShownFields &fields)
    {
        if (!fields.half && _pattern->hasHalves())
            return isShownInHalf(fields, 0) || isShownInHalf(fields, 1);
        return isShownInHalf(fields, fields.half.value_or(0));
    }

    bool isShownInHalf(const ShownFields &fields, int half)
    {
        ShownFields whole = fields;
        if (_pattern->hasHalves() && fields.hour)
            whole.hour = *fields.hour % HoursOfAHalf + half * HoursOfAHalf;
        if (!_pattern->hasDay())
            return isShownOnSomeDay(whole);
        if (fields.commonYear)
            return isShownInCommonYear(whole);
        return fields.year ? isShownInSomeEra(whole) : isShownInSomeYear(whole);
    }

    // --- Days

    /// A time alone: today's, or that of the last day that had it.
    bool isShownOnSomeDay(const ShownFields &fields)
    {
        const qint64 today =
            Civil::daysOfTime(rules().localTimeOf(_context.today().toMSecsSinceEpoch()));
        return isShownOn(today, fields) || isShownOn(today - 1, fields) ||
               (_pattern->hasZone() && isShownAtSomeChange(fields));
    }

    /// The zone's name or offset is that of another time of the year, or of history.
    bool isShownAtSomeChange(const ShownFields &fields)
    {
        const QTimeZone zone = _context.formatter.timeZone();
        QDateTime date = _context.today();
        for (int count = 0; count < MostChangesBack; ++count) {
            const QTimeZone::OffsetData change = zone.previousTransition(date);
            if (!change.atUtc.isValid())
                return false;
            date = change.atUtc;
            const qint64 day = Civil::daysOfTime(date.toMSecsSinceEpoch());
            if (isShownOn(day - 2, fields) || isShownOn(day, fields))
                return true;
        }
        return false;
    }

    /// Cycles of years are counted by those of the Gregorian calendar, in which they begin.
    bool isShownInCommonYear(const ShownFields &fields)
    {
        const QDateTime summer(QDate(*fields.commonYear, 7, 1), QTime(HoursOfAHalf, 0), UTC);
        const NSDateComponents day = _context.calendar.components(NSDateCalendarUnits, summer);
        ShownFields whole = fields;
        whole.year = day.year;
        return summer.isValid() && isShownInEra(whole, day.era);
    }

    bool isShownInSomeYear(const ShownFields &fields)
    {
        const int thisYear =
            _context.calendar.components(NSDateCalendarUnits, _context.today()).year;
        ShownFields whole = fields;
        const int most = _pattern->hasZone() ? MostYearsBackWithZone : MostYearsBack;
        for (int years = 0; years <= most; ++years) {
            whole.year = thisYear - years;
            if (isShownInSomeEra(whole))
                return true;
        }
        return false;
    }

    /// Eras are those of emperors, or one.
    bool isShownInSomeEra(const ShownFields &fields)
    {
        if (isGregorian())
            return isShownInEra(fields, NSUndefinedDateComponent);
        const int current = _context.calendar.components(NSEraCalendarUnit, _context.today()).era;
        const bool hasEmperors = _context.calendar.calendarIdentifier() == NSJapaneseCalendar;
        constexpr int ErasOfLately = 5;
        for (int eras = 0; eras < (hasEmperors ? ErasOfLately : 1); ++eras) {
            if (isShownInEra(fields, current - eras))
                return true;
        }
        return false;
    }

    bool isShownInEra(const ShownFields &fields, int era)
    {
        const auto day = dayOf(fields, era);
        return day && isShownOn(*day, fields);
    }

    std::optional<qint64> dayOf(const ShownFields &fields, int era)
    {
        const int month = fields.month.value_or(1);
        if (!isGregorian())
            return dayInCalendar(fields, era);
        const bool isPlain = *fields.year > 0 && month >= 1 && month <= 12;
        return isPlain ? std::optional(Civil::daysOf(*fields.year, month, fields.day.value_or(1)))
                       : std::nullopt;
    }

    std::optional<qint64> dayInCalendar(const ShownFields &fields, int era)
    {
        const QDateTime noon =
            _context.calendar.dateFromComponents({.era = era,
                                                  .year = *fields.year,
                                                  .month = fields.month.value_or(1),
                                                  .day = fields.day.value_or(1),
                                                  .hour = HoursOfAHalf}); // noon
        if (!noon.isValid())
            return std::nullopt;
        return Civil::daysOfTime(rules().localTimeOf(noon.toMSecsSinceEpoch()));
    }

    // --- Instants

    bool isShownOn(qint64 day, const ShownFields &fields)
    {
        constexpr qint64 Minute = 60'000;
        const qint64 time =
            fields.hour ? (*fields.hour * 60LL + fields.minute) * Minute + fields.second * 1000LL
                        : _context.timeOfDays(rules());
        const qint64 localTime = day * Civil::MillisecondsPerDay + time;
        const qint64 instant = rules().instantOf(localTime);
        return isShownAt(instant) || isShownAtEarlier(localTime, instant);
    }

    /// The same time by the clock before it was put back.
    bool isShownAtEarlier(qint64 localTime, qint64 later)
    {
        const qint64 earlier = localTime - rules().offsetAt(later - Civil::MillisecondsPerDay / 2);
        return earlier != later && rules().localTimeOf(earlier) == localTime && isShownAt(earlier);
    }

    bool isShownAt(qint64 instant)
    {
        _instant = instant;
        return _context.formatter.stringFromDate(QDateTime::fromMSecsSinceEpoch(instant, UTC)) ==
               _text;
    }

    const QString &_text;
    const ShownDateContext &_context;
    const std::shared_ptr<const ShownDatePattern> _pattern;
    const TimeZoneRules *_rules = nullptr;
    qint64 _instant = 0;
};

/// Years in other numerals, and cycles of years: what the pattern reads, if it is shown so.
std::optional<qint64> readByPattern(const QString &text, const ShownDateContext &context)
{
    DateMatch match;
    const bool isRead = DateFormatterAccess::parse(context.formatter, DateText(text), &match) &&
                        match.length == text.size();
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(match.time, UTC);
    return isRead && context.formatter.stringFromDate(date) == text ? std::optional(match.time)
                                                                    : std::nullopt;
}
} // namespace

qint64 ShownDateContext::timeOfDays(const TimeZoneRules &rules) const
{
    const QDateTime date = noDate();
    const qint64 localTime = date.isValid() ? rules.localTimeOf(date.toMSecsSinceEpoch()) : 0;
    return localTime - Civil::daysOfTime(localTime) * Civil::MillisecondsPerDay;
}

std::optional<qint64> KTPrivate::readShownDate(const QString &text, const ShownDateContext &context)
{
    if (const auto instant = ShownDateReader(text, context).read())
        return instant;
    const bool isGregorian = context.calendar.calendarIdentifier() == NSGregorianCalendar;
    return isGregorian ? std::nullopt : readByPattern(text, context);
}
