#include "MailDate_p.h"

#include "StandardDateReader_p.h"
#include <KTUtility/Platform/Dates/CivilDate_p.h>

#include <QLocale>

#include <algorithm>
#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int HoursOfHalf = 12;

constexpr std::array<QStringView, 12> Months{u"jan", u"feb", u"mar", u"apr", u"may", u"jun",
                                             u"jul", u"aug", u"sep", u"oct", u"nov", u"dec"};
constexpr std::array<QStringView, 7> Weekdays{u"sunday",   u"monday", u"tuesday", u"wednesday",
                                              u"thursday", u"friday", u"saturday"};

/// Words mean words; see meaningOf() for what the parts of other dates mean.
QLocale english()
{
    return QLocale::c();
}

class MailDateReader : public StandardDateReader
{
public:
    using StandardDateReader::StandardDateReader;

    StandardDate read()
    {
        if (!hasShape())
            return {};
        if (isRest(&MailDateReader::takeMail))
            return checked(u"rfc5322"_s);
        if (isRest(&MailDateReader::takeOldWeb))
            return checked(u"rfc850"_s);
        if (isRest(&MailDateReader::takeProgram))
            return checked(u"asctime"_s);
        return isRest(&MailDateReader::takeScript) ? checked(u"ecmascript"_s) : StandardDate();
    }

private:
    /// A time, and a weekday or a day and a month before it. Other texts have to cost next to
    /// nothing.
    bool hasShape() const
    {
        if (!_cursor.text().contains(u':'))
            return false;
        constexpr qsizetype ShortestWeekday = 3;
        return _cursor.digits() > 0 ? isMonth(behindDay())
                                    : _cursor.letters() >= ShortestWeekday && weekdayHere() >= 0;
    }

    TextCursor behindDay() const
    {
        TextCursor cursor = _cursor;
        cursor.moveTo(cursor.position() + cursor.digits());
        if (!cursor.take(u' '))
            cursor.take(u'-');
        return cursor;
    }

    static bool isMonth(const TextCursor &cursor)
    {
        return cursor.letters() == 3 && monthAt(cursor) >= 0;
    }

    static qsizetype monthAt(const TextCursor &cursor)
    {
        const QStringView name = cursor.text().sliced(cursor.position(), cursor.letters());
        const auto *const found = std::find(Months.begin(), Months.end(), name);
        return found == Months.end() ? -1 : found - Months.begin();
    }

    /// 0 for Sunday.
    qsizetype weekdayHere() const
    {
        const QStringView name = _cursor.text().sliced(_cursor.position(), _cursor.letters());
        const auto isIt = [name](QStringView weekday) {
            return name == weekday || name == weekday.first(3);
        };
        const auto *const found = std::find_if(Weekdays.begin(), Weekdays.end(), isIt);
        return found == Weekdays.end() ? -1 : found - Weekdays.begin();
    }

    /// Tries one form for the whole text.
    bool isRest(bool (MailDateReader::*take)())
    {
        _cursor.moveTo(0);
        _date = {};
        _weekday = -1;
        _year = _month = _day = 0;
        return (this->*take)() && _cursor.isAtEnd();
    }

    StandardDate checked(const QString &form)
    {
        setDay(_year, _month, _day);
        if (_date.day && _weekday >= 0 && Civil::weekdayOf(*_date.day) != _weekday + 1)
            refuse(u"The date is on another day of the week."_s);
        return result(form);
    }

    // --- The parts

    bool takeWeekday()
    {
        _weekday = weekdayHere();
        if (_weekday < 0)
            return false;
        const qsizetype begin = _cursor.position();
        _cursor.moveTo(begin + _cursor.letters());
        addPart(begin, u"weekday",
                english().dayName(_weekday == 0 ? int(Qt::Sunday) : int(_weekday)));
        return true;
    }

    bool takeDay()
    {
        _day = takeShortPart(u"day").value_or(-1);
        return _day >= 0;
    }

    bool takeMonth()
    {
        if (!isMonth(_cursor))
            return false;
        _month = int(monthAt(_cursor)) + 1;
        const qsizetype begin = _cursor.position();
        _cursor.moveTo(begin + 3);
        addPart(begin, u"month", english().monthName(_month));
        return true;
    }

    bool takeFullYear()
    {
        _year = _cursor.digits() == 4 ? takePart(4, u"year").value_or(0) : 0;
        return _year > 0;
    }

    /// RFC 5322, 4.3: two digits are of 1950 to 2049, three are years since 1900.
    bool takeMailYear()
    {
        constexpr int Century = 100;
        constexpr int LastYearOfThisCentury = 49;
        const qsizetype count = _cursor.digits();
        if (count == 4)
            return takeFullYear();
        if (count != 2 && count != 3)
            return false;
        const int year = takePart(count, u"year").value_or(0);
        _year = year + 19 * Century + (count == 2 && year <= LastYearOfThisCentury ? Century : 0);
        _date.parts.back().meaning = QString::number(_year);
        return true;
    }

    bool takeMailZone()
    {
        return takeZone(mailZoneAt(_cursor.text(), _cursor.position(), _locale));
    }

    /// "(CET)" at the end of the text, which says nothing.
    bool takeComment()
    {
        const QStringView rest = _cursor.text().sliced(_cursor.position());
        const bool isComment = rest.startsWith(u" (") && rest.endsWith(u')') &&
                               rest.sliced(2).indexOf(u')') == rest.size() - 3;
        if (isComment)
            _cursor.moveTo(_cursor.text().size());
        return true;
    }

    /// "02:30:00 pm", as the command "date" writes it in the United States.
    bool takeHalfOfDay()
    {
        const qsizetype begin = _cursor.position() + 1;
        const bool isMorning = _cursor.take(u" am ");
        if (!isMorning && !_cursor.take(u" pm "))
            return true;
        _cursor.moveTo(begin + 2);
        addPart(begin, u"dayPeriod", isMorning ? u"AM"_s : u"PM"_s);
        int &hour = _date.time->hour;
        if (hour < 1 || hour > HoursOfHalf)
            return false;
        hour = hour % HoursOfHalf + (isMorning ? 0 : HoursOfHalf);
        return true;
    }

    // --- The forms

    /// "Wed, 5 Mar 2008 14:30:00 +0100 (CET)"
    bool takeMail()
    {
        if (_cursor.isLetter() && !(takeWeekday() && _cursor.take(u',')))
            return false;
        _cursor.take(u' ');
        return takeDay() && _cursor.take(u' ') && takeMonth() && _cursor.take(u' ') &&
               takeMailYear() && _cursor.take(u' ') && takeClock() && _cursor.take(u' ') &&
               takeMailZone() && takeComment();
    }

    /// "Wednesday, 05-Mar-08 14:30:00 GMT"
    bool takeOldWeb()
    {
        return takeWeekday() && _cursor.take(u", ") && takeDay() && _cursor.take(u'-') &&
               takeMonth() && _cursor.take(u'-') && takeMailYear() && _cursor.take(u' ') &&
               takeClock() && _cursor.take(u' ') && takeMailZone();
    }

    /// "Wed Mar 5 14:30:00 2008", with a zone before the year or an offset behind it.
    bool takeProgram()
    {
        if (!takeWeekday() || !_cursor.take(u' ') || !takeMonthAndDay() || !_cursor.take(u' '))
            return false;
        if (!takeClock() || !takeHalfOfDay() || !_cursor.take(u' '))
            return false;
        if (_cursor.digits() != 4 && !(takeMailZone() && _cursor.take(u' ')))
            return false;
        return takeFullYear() && takeOffsetBehind();
    }

    /// In either order: the command "date" has the locale's.
    bool takeMonthAndDay()
    {
        if (_cursor.isDigit())
            return takeDay() && _cursor.take(u' ') && takeMonth();
        return takeMonth() && _cursor.take(u' ') && takeDay();
    }

    bool takeOffsetBehind()
    {
        const bool hasOffset = _date.zone.length == 0 && _cursor.take(u' ');
        return !hasOffset || takeZone(offsetAt(_cursor.text(), _cursor.position()));
    }

    /// "Wed Mar 05 2008 14:30:00 GMT+0100 (Central European Standard Time)"
    bool takeScript()
    {
        return takeWeekday() && _cursor.take(u' ') && takeMonth() && _cursor.take(u' ') &&
               takeDay() && _cursor.take(u' ') && takeFullYear() && _cursor.take(u' ') &&
               takeClock() && _cursor.take(u' ') && takeMailZone() && takeComment();
    }

    qsizetype _weekday = -1;
    int _year = 0;
    int _month = 0;
    int _day = 0;
};
} // namespace

StandardDate KTPrivate::readMailDate(const FoldedText &text, const NSLocale &locale)
{
    return MailDateReader(text, locale).read();
}
