#pragma once

#include "NSCalendar.h"
#include "NSDateFormatterStyle.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>
#include <KTUtility/Platform/Text/NSRange.h>
#include <KTUtility/Platform/Values/NSError.h>

#include <QDateTime>
#include <QStringList>
#include <QTimeZone>

#include <memory>

namespace KTPrivate {
class DateFormatterAccess;
}

/// Which notation a formatter's pattern is written in.
enum NSDateFormatterBehavior : unsigned {
    NSDateFormatterBehaviorDefault = 0, ///< as NSDateFormatterBehavior10_4
    NSDateFormatterBehavior10_0 = 1000, ///< "%m/%d/%y", as in strftime, and natural language
    NSDateFormatterBehavior10_4 = 1040  ///< "M/d/yy", the patterns of Unicode (UTS #35)
};

/// Dates to text and text to dates, in the format of a locale or in a pattern.
///
/// Use it where the format is known; a field in which people type dates as they like is better
/// served by KTDateTimeFormatter, which tries many of these. Formatters are light: make as many as
/// you need. Setting something costs nothing, what ICU has to know is made on first use and shared.
///
/// The pattern comes from the styles until setDateFormat() gives one. A style pair is the date, a
/// space and the time, and the special spaces of newer locale data are plain spaces in it, so that
/// what is shown can be typed.
///
/// Reading (behaviour 10.4) is strict unless setLenient() says otherwise: no date that does not
/// exist (30 February), "yy" takes exactly two digits, "yyyy" four and "y" either. A field that the
/// pattern lacks comes from defaultDate(). Where the platform's rules and those of ICU part, see
/// docs/decisions/dates.md.
///
/// \code
/// NSDateFormatter formatter;
/// formatter.setLocale(NSLocale(u"en_US"_s));
/// formatter.setTimeZone(QTimeZone("America/New_York"));
/// formatter.setDateFormat(u"M/d/yy"_s);
/// const QDateTime date = formatter.dateFromString(u"3/5/08"_s);
/// formatter.stringFromDate(date);     // "3/5/08"
///
/// formatter.setDateStyle(NSDateFormatterLongStyle);
/// formatter.stringFromDate(date);     // "March 5, 2008"
///
/// NSRange range{0, 14};
/// QVariant value;
/// formatter.setDateFormat(u"M/d/yy"_s);
/// formatter.getObjectValue(&value, u"3/5/08 5:30 PM"_s, &range, nullptr);    // true
/// range.length;   // 6: " 5:30 PM" is left
/// \endcode
class KTUTILITY_EXPORT NSDateFormatter : public NSFormatter
{
    Q_OBJECT

public:
    /// Behaviour 10.4, the user's locale, the machine's zone, no styles: the pattern is empty.
    explicit NSDateFormatter(QObject *parent = nullptr);
    /// Behaviour 10.0 with a pattern as for strftime. With \a allowNaturalLanguage, texts that the
    /// pattern does not fit are read as people talk ("tomorrow", "last Tuesday", "5").
    NSDateFormatter(const QString &initWithDateFormat, bool allowNaturalLanguage,
                    QObject *parent = nullptr);
    ~NSDateFormatter() override;

    // --- Settings

    /// Which contract patterns and reading follow: that of 10.4 (Unicode's patterns), or of 10.0
    /// (those of strftime).
    NSDateFormatterBehavior formatterBehavior() const;
    void setFormatterBehavior(NSDateFormatterBehavior behavior);

    /// The user's locale, as it was at the first use, unless set.
    NSLocale locale() const;
    void setLocale(const NSLocale &locale);

    /// The locale's calendar unless set. Of a calendar that is set, the identifier and what was
    /// set about weeks count, and its zone if the formatter has none.
    NSCalendar calendar() const;
    void setCalendar(const NSCalendar &calendar);

    /// The calendar's zone, else the machine's as it was at the first use, unless set.
    QTimeZone timeZone() const;
    /// An invalid zone takes the setting back.
    void setTimeZone(const QTimeZone &timeZone);

    /// Whether reading forgives: spaces more or less, numbers for names, 30 February as 1 March.
    bool isLenient() const;
    void setLenient(bool lenient);

    /// Gives the fields that a text does not say. Invalid (nil) is 1 January 2000, 0:00.
    QDateTime defaultDate() const;
    void setDefaultDate(const QDateTime &date);

    /// The styles, as numbers of NSDateFormatterStyle; numbers above 4 count as 4.
    unsigned dateStyle() const;
    /// Sets the style of the date, and discards a pattern that setDateFormat() gave.
    void setDateStyle(unsigned style);
    /// The style of the time, a NSDateFormatterStyle.
    unsigned timeStyle() const;
    /// Sets the style of the time, and discards a pattern that setDateFormat() gave.
    void setTimeStyle(unsigned style);

    /// The pattern: the one that was set, else that of the styles; empty if both are none.
    QString dateFormat() const;
    /// Sets the pattern; the styles keep their numbers. nil goes back to the styles' pattern.
    /// In a strict reading "yy" takes two digits here, in a style's pattern two or four.
    void setDateFormat(const QString &format);

    /// Whether the dates that are read carry the formatter's zone (and show it, say in a log)
    /// instead of being bare instants in UTC. They are equal either way.
    bool generatesCalendarDates() const;
    void setGeneratesCalendarDates(bool generates);

    /// Whether texts that the pattern does not fit are read as people talk.
    bool allowsNaturalLanguage() const;

    /// The first instant of the hundred years that "yy" means; 1 January 1950 unless set.
    QDateTime twoDigitStartDate() const;
    /// Only the year counts, in the formatter's zone. Invalid takes the setting back.
    void setTwoDigitStartDate(const QDateTime &date);

    // --- Names

    /// The text of times before noon; the locale's unless set.
    QString AMSymbol() const;
    void setAMSymbol(const QString &symbol);
    /// The text of times from noon on; the locale's unless set.
    QString PMSymbol() const;
    void setPMSymbol(const QString &symbol);

    /// The names of one kind, in calendar order; weekdays from Sunday, {"AM", "PM"} for AMPM.
    QStringList symbols(NSDateFormatterSymbols kind) const;
    /// Other names instead of the locale's. The behaviour 10.0 takes its %a %A %b %B %p from them,
    /// too. Quarters and very short names other than the months' and weekdays' keep the locale's.
    void setSymbols(NSDateFormatterSymbols kind, const QStringList &symbols);

    // --- Dates to text and back

    /// \return nil for an invalid date.
    QString stringFromDate(const QDateTime &date) const;
    /// Reads a whole text; whitespace around the date does not matter.
    /// \return an invalid QDateTime if it is none.
    QDateTime dateFromString(const QString &string) const;

    /// Shows a QDateTime, a QDate as the beginning of that day in timeZone(), and a QTime if the
    /// pattern has nothing but times.
    /// \return nil if \a value is none of these or an invalid one.
    QString stringForObjectValue(const QVariant &value) const override;
    /// Reads a whole text as dateFromString() does; \a value receives a QDateTime.
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;

    /// Reads a date from the start of a part of a text; more text may follow it.
    /// \param value receives a QDateTime; may be null. A failure leaves it as it is.
    /// \param forString the text, of which the first 1,024 units of the range are looked at.
    /// \param range in: the part to read; out: its length is what was consumed, whitespace before
    /// the date included, or, on failure, how far the text fitted. null is the whole text; a range
    /// outside of the text is cut to it.
    /// \param error receives why not, domain NSCocoaErrorDomain and code NSFormattingError; may be
    /// null.
    bool getObjectValue(QVariant *value, const QString &forString, NSRange *range,
                        NSError *error) const;

private:
    friend class KTPrivate::DateFormatterAccess;
    class Private;

    const std::unique_ptr<Private> _private;
};
