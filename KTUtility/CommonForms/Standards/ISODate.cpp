#include "ISODate_p.h"

#include "StandardDateReader_p.h"
#include <KTUtility/Platform/Dates/CivilDate_p.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Years without a sign between them and the month count from the calendar of today on, as in ISO
/// 8601. So no such number is day, month and year as well: months end at 12.
constexpr int FirstYearWithoutSigns = 1583;
constexpr int EndOfYearsWithoutSigns = 3000;
constexpr int DaysPerWeek = 7;
constexpr qint64 MinuteLength = 60'000;
constexpr qint64 HourLength = 60 * MinuteLength;

bool isYearWithoutSigns(int year)
{
    return year >= FirstYearWithoutSigns && year < EndOfYearsWithoutSigns;
}

/// The Monday of the first week: that with 4 January.
qint64 firstMonday(int year)
{
    const qint64 fourth = Civil::daysOf(year, 1, 4);
    return fourth - (Civil::weekdayOf(fourth) + 5) % DaysPerWeek;
}

class ISODateReader : public StandardDateReader
{
public:
    using StandardDateReader::StandardDateReader;

    StandardDate read()
    {
        if (!hasShape())
            return {};
        if (takeDay())
            return readBehindDay();
        return takeTimeAlone() && _cursor.isAtEnd() ? result(u"iso8601.time"_s) : StandardDate();
    }

private:
    /// Texts in no form have to cost next to nothing.
    bool hasShape() const
    {
        return _cursor.isDigit() || (_cursor.unit() == u't' && _cursor.isDigit(1));
    }

    // --- Days

    bool takeDay()
    {
        switch (_cursor.digits()) {
        case 4:
            return takeWithSigns() || (_cursor.unit(4) == u'w' && takeWeek(false));
        case 7:
            return takeOrdinalWithoutSigns();
        case 8:
        case 12:
        case 14:
            return takeWithoutSigns();
        default:
            return false;
        }
    }

    bool takeWithSigns()
    {
        if (_cursor.unit(4) != u'-')
            return false;
        if (_cursor.unit(5) == u'w')
            return takeWeek(true);
        TextCursor behindYear = _cursor;
        behindYear.moveTo(_cursor.position() + 5);
        if (behindYear.digits() == 3)
            return takeOrdinal();
        const TextCursor behindMonth(_cursor.text(), behindYear.position() + 3);
        return behindYear.digits() == 2 && _cursor.unit(7) == u'-' && behindMonth.digits() == 2 &&
               takeCalendarDay();
    }

    bool takeCalendarDay()
    {
        const auto year = takePart(4, u"year");
        _cursor.take(u'-');
        const auto month = takePart(2, u"month");
        _cursor.take(u'-');
        const auto day = takePart(2, u"day");
        setDay(year.value_or(0), month.value_or(0), day.value_or(0));
        _form = u"iso8601.date"_s;
        return true;
    }

    /// "20080305", perhaps with a time at once.
    bool takeWithoutSigns()
    {
        const TextCursor before = _cursor;
        _hasTimeAtOnce = _cursor.digits() > 8;
        if (!isYearWithoutSigns(_cursor.takeDigits(4).value_or(0)))
            return false;
        _cursor = before;
        return takeCalendarDay();
    }

    bool takeOrdinal()
    {
        const int year = takePart(4, u"year").value_or(0);
        _cursor.take(u'-');
        const int day = takePart(3, u"dayOfYear").value_or(0);
        _form = u"iso8601.ordinal"_s;
        setDay(year, 1, 1);
        if (day < 1 || day > (Civil::isLeapYear(year) ? 366 : 365))
            refuse(u"The year has no such day."_s);
        if (_date.day)
            *_date.day += day - 1;
        return true;
    }

    /// "2008065"; but "2112008" is 2 November 2008, too.
    bool takeOrdinalWithoutSigns()
    {
        TextCursor digits = _cursor;
        const int year = digits.takeDigits(4).value_or(0);
        const int day = digits.takeDigits(3).value_or(0);
        const int lastFour = year % 10 * 1000 + day;
        const int daysOfYear = Civil::isLeapYear(year) ? 366 : 365;
        return isYearWithoutSigns(year) && !isYearWithoutSigns(lastFour) && day >= 1 &&
               day <= daysOfYear && takeOrdinal();
    }

    bool takeWeek(bool hasSigns)
    {
        const qsizetype week = hasSigns ? 6 : 5;
        const TextCursor behindW(_cursor.text(), _cursor.position() + week);
        const bool isWhole =
            hasSigns ? behindW.digits() == 2 && behindW.unit(2) == u'-' &&
                           TextCursor(behindW.text(), behindW.position() + 3).digits() == 1
                     : behindW.digits() == 3;
        return isWhole && takeWholeWeek();
    }

    bool takeWholeWeek()
    {
        const int year = takePart(4, u"year").value_or(0);
        _cursor.take(u'-');
        _cursor.take(u'w');
        const int week = takePart(2, u"weekOfYear").value_or(0);
        _cursor.take(u'-');
        const int weekday = takePart(1, u"weekday").value_or(0);
        setWeekday(year, week, weekday);
        _form = u"iso8601.week"_s;
        return true;
    }

    void setWeekday(int year, int week, int weekday)
    {
        if (year < 1)
            return refuse(u"There is no year 0."_s);
        const qint64 weeks = (firstMonday(year + 1) - firstMonday(year)) / DaysPerWeek;
        if (week < 1 || week > weeks)
            return refuse(u"The year has no such week."_s);
        if (weekday < 1 || weekday > DaysPerWeek)
            return refuse(u"The week has no such day."_s);
        _date.day = firstMonday(year) + (week - 1) * DaysPerWeek + weekday - 1;
    }

    // --- Times

    StandardDate readBehindDay()
    {
        if (_cursor.isAtEnd())
            return result(_form);
        if (takeTimeBehindDay() && _cursor.isAtEnd())
            return result(_form == u"iso8601.date" ? u"iso8601.datetime"_s : _form);
        StandardDate other;
        other.beginsWithDate = !_hasTimeAtOnce;
        return other;
    }

    bool takeTimeBehindDay()
    {
        if (_hasTimeAtOnce)
            return takeTimeWithoutSigns();
        if (_cursor.take(u't'))
            return takeTime() && takeZones(true);
        const bool hasComma = _cursor.take(u',');
        if (!_cursor.take(u' ') && !hasComma)
            return false;
        const bool isRead =
            takeClock() ? takeRestOfClock() : _cursor.digits() >= 4 && takeTimeWithoutSigns();
        return isRead && takeZones(true);
    }

    bool takeRestOfClock()
    {
        takeSecondsFraction();
        return true;
    }

    /// What follows a "T".
    bool takeTime()
    {
        const bool hasTwoDigits = _cursor.digits() == 2;
        if (hasTwoDigits && takeClock()) {
            const bool hasSeconds = _date.parts.back().role == u"second";
            takeFractionOf(hasSeconds ? 1000 : MinuteLength);
            return true;
        }
        return takeTimeWithoutSigns();
    }

    /// "14", "1430", "143005", each with a fraction.
    bool takeTimeWithoutSigns()
    {
        const qsizetype digits = _cursor.digits();
        if (digits != 2 && digits != 4 && digits != 6)
            return false;
        StandardTime time;
        time.hour = takePart(2, u"hour").value_or(0);
        time.minute = digits > 2 ? takePart(2, u"minute").value_or(0) : 0;
        time.second = digits > 4 ? takePart(2, u"second").value_or(0) : 0;
        _date.time = time;
        takeFractionOf(digits == 6 ? 1000 : digits == 4 ? MinuteLength : HourLength);
        return true;
    }

    /// A time without a date needs something that shows the form: a "T", a zone, a fraction.
    bool takeTimeAlone()
    {
        const bool hasMark = _cursor.take(u't');
        if (hasMark)
            return takeTime() && takeZones(true);
        const bool hasSigns = takeClock();
        const bool hasSeconds = hasSigns && _date.parts.back().role == u"second";
        const bool hasFraction = hasSeconds && takeSecondsFraction();
        if (!hasSigns && (_cursor.digits() < 4 || !takeTimeWithoutSigns()))
            return false;
        return takeZones(false) && (hasFraction || _date.zone.length > 0);
    }

    /// \param takesMinus whether a minus sign can be that of an offset. Between two times it says
    /// from when until when.
    bool takeZones(bool takesMinus)
    {
        const TextCursor before = _cursor;
        if (!_cursor.isAtEnd() && _cursor.unit() != u'[')
            takeZoneBehindTime(takesMinus);
        if (_date.zone.length == 0)
            _cursor = before;
        return takePlace();
    }

    void takeZoneBehindTime(bool takesMinus)
    {
        _cursor.take(u' ');
        if (_cursor.unit() == u'-' && !takesMinus)
            return;
        takeZone(zoneAt(_cursor.text(), _cursor.position(), _locale));
    }

    /// "[Europe/Berlin]", if there is something.
    bool takePlace()
    {
        if (!_cursor.take(u'['))
            return true;
        const qsizetype begin = _cursor.position();
        _date.place = zoneAt(_cursor.text(), begin, _locale);
        if (!_date.place.isRead())
            return false;
        _cursor.moveTo(begin + _date.place.length);
        addPart(begin, u"zone", _date.place.identifier(0));
        return _cursor.take(u']');
    }

    QString _form;
    bool _hasTimeAtOnce = false;
};
} // namespace

StandardDate KTPrivate::readISODate(const FoldedText &text, const NSLocale &locale)
{
    return ISODateReader(text, locale).read();
}
