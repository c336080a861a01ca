#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QTimeZone>

#include <limits>
#include <optional>

namespace KTPrivate {
class CalendarEngine;
}

/// A component that has no value.
inline constexpr int NSUndefinedDateComponent = std::numeric_limits<int>::max();

/// Which components an operation of NSCalendar is about; combine them with "|".
using NSCalendarUnits = unsigned;
inline constexpr NSCalendarUnits NSEraCalendarUnit = 2;
inline constexpr NSCalendarUnits NSYearCalendarUnit = 4;
inline constexpr NSCalendarUnits NSMonthCalendarUnit = 8;
inline constexpr NSCalendarUnits NSDayCalendarUnit = 16;
inline constexpr NSCalendarUnits NSHourCalendarUnit = 32;
inline constexpr NSCalendarUnits NSMinuteCalendarUnit = 64;
inline constexpr NSCalendarUnits NSSecondCalendarUnit = 128;
inline constexpr NSCalendarUnits NSWeekCalendarUnit = 256;
inline constexpr NSCalendarUnits NSWeekdayCalendarUnit = 512;
inline constexpr NSCalendarUnits NSWeekdayOrdinalCalendarUnit = 1024;
/// Era, year, month and day.
inline constexpr NSCalendarUnits NSDateCalendarUnits = 30;
/// Hour, minute and second.
inline constexpr NSCalendarUnits NSTimeCalendarUnits = 224;

/// A date in the terms of some calendar, or a length of time. What was never set is undefined.
///
/// \code
/// NSDateComponents noon{.year = 2008, .month = 3, .day = 5, .hour = 12};
/// noon.minute == NSUndefinedDateComponent;    // true
/// \endcode
struct NSDateComponents
{
    int era = NSUndefinedDateComponent;            ///< 1 is AD in the Gregorian calendar
    int year = NSUndefinedDateComponent;           ///< of the era
    int month = NSUndefinedDateComponent;          ///< from 1
    int day = NSUndefinedDateComponent;            ///< of the month, from 1
    int hour = NSUndefinedDateComponent;           ///< 0 to 23
    int minute = NSUndefinedDateComponent;         ///< from 0
    int second = NSUndefinedDateComponent;         ///< from 0
    int week = NSUndefinedDateComponent;           ///< of the year, from 1
    int weekday = NSUndefinedDateComponent;        ///< 1 is Sunday
    int weekdayOrdinal = NSUndefinedDateComponent; ///< 2 is the second such weekday of the month
    /// Whether the month is the second with its number, in the Chinese and Dangi calendars. It
    /// comes and goes with the month.
    bool leapMonth = false;

    friend bool operator==(const NSDateComponents &, const NSDateComponents &) = default;
};

/// A way of counting days: instants to years, months, days and hours, and back.
///
/// A small value. A calendar has an identifier (any of Unicode's, "gregorian", "japanese",
/// "buddhist", …), a time zone, a locale, and the two facts that weeks depend on. Instants are
/// QDateTime; the results are in UTC, since an instant is in no zone. The Gregorian calendar counts
/// for all times, as in QDate and in ISO 8601: there is no Julian one before 1582.
///
/// \code
/// NSCalendar calendar(NSGregorianCalendar);
/// calendar.setTimeZone(QTimeZone("America/New_York"));
/// NSDateComponents day = calendar.components(NSDateCalendarUnits, QDateTime::currentDateTime());
/// day.hour = 12;
/// const QDateTime noonToday = calendar.dateFromComponents(day);
/// \endcode
class KTUTILITY_EXPORT NSCalendar
{
public:
    /// The calendar of the user's locale.
    NSCalendar() : NSCalendar(currentCalendar()) {}
    /// The calendar with this identifier in the user's locale; an unknown one counts as the
    /// Gregorian calendar does.
    explicit NSCalendar(const QString &identifier);

    /// The calendar of the user's locale for dates (NSLocale::currentLocale()).
    static NSCalendar currentCalendar();
    /// The calendar that \a locale uses, with that locale.
    static NSCalendar calendarOfLocale(const NSLocale &locale);

    /// The zone of the machine, whatever form the variable TZ gives it (tzset(3)). It is looked up
    /// again when that variable changes, and within a minute when the machine is given another one.
    static QTimeZone systemTimeZone();
    /// Looks the zone of the machine up again at its next use.
    static void resetSystemTimeZone();

    /// Unicode's name of the calendar: "gregorian".
    const QString &calendarIdentifier() const { return _identifier; }

    /// The locale, which decides about weeks unless these are set.
    const NSLocale &locale() const { return _locale; }
    void setLocale(const NSLocale &locale) { _locale = locale; }

    /// The zone in which days begin and end; systemTimeZone() unless set.
    QTimeZone timeZone() const { return _timeZone.isValid() ? _timeZone : systemTimeZone(); }
    /// An invalid zone is the machine's.
    void setTimeZone(const QTimeZone &timeZone) { _timeZone = timeZone; }

    /// The day on which weeks begin, 1 for Sunday; the locale's unless set.
    int firstWeekday() const;
    void setFirstWeekday(int weekday) { _firstWeekday = weekday; }
    /// How many days of the new year the first week needs; the locale's unless set.
    int minimumDaysInFirstWeek() const;
    void setMinimumDaysInFirstWeek(int days) { _minimumDaysInFirstWeek = days; }

    /// The components of an instant that \a units names; all are undefined if \a fromDate is
    /// invalid.
    NSDateComponents components(NSCalendarUnits units, const QDateTime &fromDate) const;
    /// The time from one instant to another, in \a units from the largest to the smallest; negative
    /// if it runs backwards. "weekday" counts days, "weekdayOrdinal" weeks.
    NSDateComponents components(NSCalendarUnits units, const QDateTime &fromDate,
                                const QDateTime &toDate) const;

    /// The instant with these components. A missing month or day is the first, a missing time is
    /// 0:00, a missing year is 1, a missing era the current one; what is beyond a month or day runs
    /// into the next (31 April is 1 May). A time that is skipped by a change to summer time is the
    /// time an hour on, one that exists twice is the later.
    /// \return an invalid QDateTime if nothing is defined, or out of the calendar's range.
    QDateTime dateFromComponents(const NSDateComponents &components) const;

    /// The instant at which the day of another begins: midnight; the first one where the clock is
    /// put back to it or behind it, and the first instant of the new day where it skips midnight.
    /// Every instant is in one day only: what the clock shows of a new day before it is put back to
    /// the old one counts to the old one.
    /// \return an invalid QDateTime for an invalid one.
    QDateTime startOfDay(const QDateTime &forDate) const;
    /// The instant at which the day after that begins.
    QDateTime startOfNextDay(const QDateTime &forDate) const;

    /// \a toDate and a length of time, added from the largest unit to the smallest; a day that the
    /// month reached does not have becomes its last.
    QDateTime dateByAddingComponents(const NSDateComponents &components,
                                     const QDateTime &toDate) const;

    /// Calendars are equal if what was set is.
    friend bool operator==(const NSCalendar &, const NSCalendar &) = default;

private:
    friend class KTPrivate::CalendarEngine;
    friend class NSDateFormatter;
    NSCalendar(const QString &identifier, const NSLocale &locale)
        : _identifier(identifier), _locale(locale)
    {
    }

    QDateTime startOfDay(const QDateTime &forDate, int daysLater) const;
    bool setPlainComponents(NSCalendarUnits units, qint64 time, NSDateComponents *result) const;
    std::optional<qint64> timeOfPlainComponents(const NSDateComponents &components) const;

    QString _identifier;
    NSLocale _locale;
    QTimeZone _timeZone;
    int _firstWeekday = 0; ///< 0: the locale's
    int _minimumDaysInFirstWeek = 0;
};

Q_DECLARE_METATYPE(NSCalendar)
