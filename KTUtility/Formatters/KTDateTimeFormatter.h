#pragma once

#include "KTDateFormatterList.h"
#include "KTOptionsKeys.h"
#include <KTUtility/CommonForms/Text/KTReadingFormatter.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSCalendar.h>
#include <KTUtility/Platform/Dates/NSDateFormatter.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QDateTime>
#include <QHash>
#include <QStringList>

#include <memory>
#include <optional>

namespace KTPrivate {
class DateReading;
struct DateFormatterSettings;
} // namespace KTPrivate

/// Formats the dates, or dates and times, of a field, and reads them however people type them.
///
/// Displays in one of the locale's styles, with four digits of the year, or without the year.
/// Reads any usual order, separator and spelling of dates and times: some sixty patterns are tried
/// one after the other, those of the locale's order of day, month and year first, and the first
/// that takes all of the text wins. It is remembered: the next text of the same shape costs one
/// try. A date without a year is one of this year, one without a time is at noon, a time without a
/// date is today's.
///
/// With readsCommonForms(), what the field itself shows comes first, exactly as it is shown, and
/// then the forms of ISO 8601, RFC 3339 and RFC 5322 with their zones, in every locale; then what
/// people type in the locale's language: names of months and weekdays, times in words, days and
/// amounts from now. No pattern may leave a part of a text over. docs/common-forms.md has it all.
///
/// Not for times of day alone (KTTimeFormatter), and not for texts in one known format
/// (NSDateFormatter). Patterns are Unicode's (UTS #35, part 4).
///
/// \code
/// KTDateTimeFormatter formatter;                           // in the user's locale, here en_US
/// QVariant value;
/// formatter.getObjectValue(&value, u"March 5, 2008"_s);
/// formatter.stringForObjectValue(value);                   // "3/5/2008"
/// formatter.setDateStyle(NSDateFormatterLongStyle);
/// formatter.stringForObjectValue(value);                   // "March 5, 2008"
/// formatter.setDisplayYear(false);
/// formatter.stringForObjectValue(value);                   // "March 5"
/// \endcode
class KTUTILITY_EXPORT KTDateTimeFormatter : public KTReadingFormatter
{
    Q_OBJECT
    Q_PROPERTY(NSLocale locale READ locale WRITE setLocale NOTIFY localeChanged)
    Q_PROPERTY(uint dateStyle READ dateStyle WRITE setDateStyle NOTIFY dateStyleChanged)
    Q_PROPERTY(uint timeStyle READ timeStyle WRITE setTimeStyle NOTIFY timeStyleChanged)
    Q_PROPERTY(bool displayDate READ displayDate WRITE setDisplayDate NOTIFY displayDateChanged)
    Q_PROPERTY(bool displayTime READ displayTime WRITE setDisplayTime NOTIFY displayTimeChanged)
    Q_PROPERTY(bool displayYear READ displayYear WRITE setDisplayYear NOTIFY displayYearChanged)
    Q_PROPERTY(int inputOrder READ inputOrder WRITE setInputOrder NOTIFY inputOrderChanged)

public:
    /// The order of day, month and year in typed dates.
    enum InputOrder {
        MonthDayYear = 0, ///< "3/5/08"
        DayMonthYear = 1, ///< "5.3.08"
        YearMonthDay = 2, ///< "08-3-5"
        YearDayMonth = 3  ///< "08-5-3"
    };

    /// Short dates without time, in the user's current locale.
    KTDateTimeFormatter();
    ~KTDateTimeFormatter() override;

    // --- Settings. Each setter drops what was made for the former settings.

    /// The locale of what is displayed and read.
    const NSLocale &locale() const { return _locale; }
    /// Sets the locale, and the calendar to the locale's.
    virtual void setLocale(const NSLocale &locale);

    /// A NSDateFormatterStyle.
    uint dateStyle() const { return _dateStyle; }
    /// Sets the style, and whether a date is wanted at all: every style but none wants it.
    virtual void setDateStyle(uint dateStyle);
    /// A NSDateFormatterStyle.
    uint timeStyle() const { return _timeStyle; }
    /// Sets the style. None means that no time is wanted; another style does not, on purpose, mean
    /// that one is: see setDisplayTime().
    virtual void setTimeStyle(uint timeStyle);

    /// Whether the date style is not none.
    bool displayDate() const { return _dateStyle != NSDateFormatterNoStyle; }
    /// Leaves the date out, or not. Without date and time, the time becomes short; a date style
    /// that was lost does not come back.
    virtual void setDisplayDate(bool displayDate);
    /// Whether the time style is not none.
    bool displayTime() const { return _timeStyle != NSDateFormatterNoStyle; }
    /// Shows the time, in short style if it had none, or leaves it out; then the date becomes
    /// short if it had no style.
    virtual void setDisplayTime(bool displayTime);
    /// Whether dates show their year.
    bool displayYear() const { return _displayYear; }
    /// Without the year, day and month are shown in words: "March 5".
    virtual void setDisplayYear(bool displayYear);

    /// An InputOrder. Before anything was displayed or read it is 0, and whatever is set lasts
    /// until the next time that the display format is made: then it is the locale's again.
    int inputOrder() const { return _inputOrder; }
    virtual void setInputOrder(int inputOrder);

    /// "dateStyle", "timeStyle" and "displayYear".
    std::optional<QStringList> optionsKeys() const override;

    // --- Display

    /// The text of a QDateTime; nil for everything else.
    /// \throws NSException NSInternalInconsistencyException if both styles are none.
    QString stringForObjectValue(const QVariant &value) const override;

    // --- Reading

    /// Reads a typed text.
    ///
    /// In this order: the formatter that read the last text; the ISO 8601 formats, if the text
    /// begins with four, two and two digits; dates, and dates with times; times. A bare hour ("5")
    /// is read as people talk, see lenientFormatter().
    /// \param value receives a QDateTime, nil if nothing reads the text.
    /// \param errorDescription is set only if a bare hour cannot be read; with readsCommonForms()
    /// it says why a text is not read.
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;

    /// Reads with lenientFormatter() alone.
    /// \param value receives a QDateTime; a failure leaves it as it is. If the lenient formatter
    /// was set to generate calendar dates, the clock and day that it read count, in the years of
    /// the locale's calendar.
    bool getLenientDateValue(QVariant *value, const QString &forString,
                             QString *errorDescription = nullptr) const;

    // --- What it is made of

    /// Today at noon, in the formatter's calendar.
    QDateTime today() const;
    /// What texts do not say is taken from here: today(); nil in Japan, where the platform's own
    /// default, 1 January 2000, stands.
    virtual QDateTime defaultDate() const;

    /// The formatter that displays.
    NSDateFormatter *displayFormatter() const;
    /// The formatter that reads as people talk ("tomorrow", "5").
    NSDateFormatter *lenientFormatter() const;
    /// The formatter that read the last text to its end; null if there is none.
    const NSDateFormatter *mostRecentFormatter() const { return _mostRecentFormatter; }

    /// The pattern of month and day without year, with the time if it is shown; nil if the year is
    /// shown. The month comes first if it does in the locale's short dates.
    QString getMonthAndDayFormat() const;
    /// The numeric pattern for an order, as for strftime: "%m/%d/%y".
    QString formatStringForInputOrder(int inputOrder) const;
    /// The order in which a pattern has its first two of day, month and year.
    static int inputOrderForDateFormat(const QString &pattern);

    /// A new formatter with this locale and defaultDate().
    std::shared_ptr<NSDateFormatter> formatterWithDateStyle(uint dateStyle, uint andTimeStyle,
                                                            bool setsLenient) const;
    /// A new formatter with this locale, a pattern and defaultDate().
    std::shared_ptr<NSDateFormatter> _formatterWithDateFormat(const QString &pattern,
                                                              bool setsLenient) const;

    // The patterns that are tried, for each order, and for the times behind them.
    /// The patterns that are tried for dates such as "3/5/08", where the month comes first.
    static const QStringList &dateFormatsForMonthDayYear();
    /// The patterns that are tried for dates such as "5.3.08", where the day comes first.
    static const QStringList &dateFormatsForDayMonthYear();
    /// The patterns that are tried for dates such as "08-3-5", where the year comes first.
    static const QStringList &dateFormatsForYearMonthDay();
    /// The patterns that are tried where the year comes first and the month last.
    static const QStringList &dateFormatsForYearDayMonth();
    /// The patterns of times, which are tried alone and behind those of dates.
    static const QStringList &timeFormats();
    /// Those of the locale's order; none for an unknown order.
    QStringList dateFormats() const;

    /// New formatters for the locale's own four styles, and for Japan's "3月5日".
    KTDateFormatterList localeStrictDateFormatters() const;
    /// New formatters for the locale's own four styles of times.
    KTDateFormatterList localeStrictTimeFormatters() const;
    /// What is tried; the lists and what is in them are made on first use.
    const KTDateFormatterList &strictDateFormatters() const;
    /// The formatters that are tried for times alone; made on first use.
    const KTDateFormatterList &strictTimeFormatters() const;
    /// The formatters of the ISO 8601 formats; made on first use.
    const KTDateFormatterList &strictIsoFormatters() const;
    /// The time formatters behind a date pattern.
    const KTDateFormatterList &strictFormattersForDateFormat(const QString &datePattern) const;

    /// Drops everything that was made on first use.
    void clearFormatters();

Q_SIGNALS:
    void localeChanged();
    void dateStyleChanged();
    void timeStyleChanged();
    void displayDateChanged();
    void displayTimeChanged();
    void displayYearChanged();
    void inputOrderChanged();

protected:
    /// A formatter with other defaults.
    KTDateTimeFormatter(uint dateStyle, uint timeStyle, bool displayDate, bool displayTime);

    /// The calendar of the locale.
    const NSCalendar &calendar() const { return _calendar; }
    /// Reads as getObjectValue() does.
    /// \param clock receives, in UTC, the day and time that a clock shows then, if something was
    /// read; where summer time skips the time that was typed, that time all the same. May be null.
    bool readTyped(QVariant *value, QDateTime *clock, const QString &text,
                   QString *errorDescription) const;
    /// What getObjectValue() said, else "The text cannot be read as a date.", translated in the
    /// context "Localizable".
    QString reasonForRejecting(const QString &text, const QString &errorDescription) const override;

private:
    using SharedList = std::shared_ptr<const KTDateFormatterList>;

    void setShortStyle(uint &style, const QString &key, void (KTDateTimeFormatter::*changed)());
    void makeDisplayFormatter() const;
    void setDisplayPattern(NSDateFormatter &formatter, const QString &ofStyles) const;
    /// The order in the locale's short dates; known once the display formatter is made.
    int localeInputOrder() const;
    QString monthAndDayPattern(int order) const;
    QString timePattern() const;
    KTPrivate::DateFormatterSettings formatterSettings() const;
    const SharedList &sharedTimeFormatters() const;
    bool readForms(QVariant *value, QDateTime *clock, const QString &text,
                   QString *errorDescription) const;
    std::optional<bool> readCommon(QVariant *value, QDateTime *clock, const QString &text,
                                   QString *errorDescription) const;
    std::optional<bool> readStandard(QVariant *value, QDateTime *clock, const QString &text,
                                     QString *errorDescription, bool *hasForeignOrder) const;
    bool readByPatterns(QVariant *value, QDateTime *clock, const QString &text,
                        QString *errorDescription) const;
    bool isMeant(const KTPrivate::DateReading &reading) const;
    QString zoneOfField() const;
    bool readInAnyForm(KTPrivate::DateReading &reading) const;
    bool readDate(KTPrivate::DateReading &reading) const;
    QDateTime plainDateOf(const QDateTime &calendarDate) const;
    QDateTime lenientClockOf(const QString &text) const;

    NSLocale _locale;
    NSCalendar _calendar;
    mutable std::unique_ptr<NSDateFormatter> _lenientFormatter;
    mutable std::unique_ptr<NSDateFormatter> _displayFormatter;
    mutable SharedList _strictDateFormatters;
    mutable SharedList _strictTimeFormatters;
    mutable SharedList _strictIsoFormatters;
    mutable QHash<QString, SharedList> _strictFormatterMap;
    mutable const NSDateFormatter *_mostRecentFormatter = nullptr;
    mutable const QDateTime *_noon = nullptr; // today's, as long as it is known
    mutable int _inputOrder = MonthDayYear;
    uint _dateStyle = NSDateFormatterShortStyle;
    uint _timeStyle = NSDateFormatterNoStyle;
    bool _displayDate = true;
    bool _displayYear = true;
    bool _displayTime = false;
};
