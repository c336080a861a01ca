#include "KTDateTimeFormatter.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Dates/NSDateFormatter_p.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSScanner.h>

using namespace KTPrivate;

// How typed dates are read: formatters are tried one after the other, and the first that takes all
// of the text wins.

namespace {
/// The pattern that a bare hour comes through.
constexpr QStringView HourPattern = u"ha";

bool isBlank(const QString &text)
{
    const NSCharacterSet &blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    return NSSkipCharacters(text, 0, blanks) == text.size();
}

/// A run of exactly \a count ASCII digits, behind anything but digits (or, at first, blanks only).
bool scanDigits(NSScanner &scanner, qsizetype count, bool skipsOthers)
{
    static const NSCharacterSet digits =
        NSCharacterSet::characterSetWithCharactersInString(u"0123456789");
    QString run;
    if (skipsOthers)
        scanner.scanUpToCharactersFromSet(digits);
    return scanner.scanCharactersFromSet(digits, &run) && run.size() == count;
}

/// Whether a text begins as dates of ISO 8601 do: four, two and two digits.
bool hasIsoShape(const QString &text)
{
    NSScanner scanner(text);
    return scanDigits(scanner, 4, false) && scanDigits(scanner, 2, true) &&
           scanDigits(scanner, 2, true);
}

/// Whether a text is digits without letters behind them.
bool isBareHour(const QString &text)
{
    NSScanner scanner(text);
    return !scanner.scanCharactersFromSet(NSCharacterSet::decimalDigitCharacterSet()) ||
           !scanner.scanCharactersFromSet(NSCharacterSet::letterCharacterSet());
}
} // namespace

/// One text on its way through the formatters.
class KTDateTimeFormatter::Reading
{
public:
    Reading(const KTDateTimeFormatter &formatter, const QString &string)
        : _formatter(formatter), _string(string), _text(string)
    {
    }

    bool run()
    {
        if (isBlank(_string))
            return false;
        if (readWithMostRecent())
            return true;
        if (hasIsoShape(_string) && readIso())
            return true;
        return readDate() || readTime();
    }

    /// Which formatter took all of the text; null if the text was read otherwise.
    const NSDateFormatter *chosen() const { return _chosen; }
    QDateTime date() const { return DateFormatterAccess::dateOf(*_successful, _time); }

private:
    /// Parses; the latest success is the result, whatever comes of it.
    bool parse(const NSDateFormatter &formatter)
    {
        DateMatch match;
        if (!DateFormatterAccess::parse(formatter, _text, &match))
            return false;
        _time = match.time;
        _successful = &formatter;
        _isExact = match.length == _string.size();
        return true;
    }

    bool readWithMostRecent()
    {
        const NSDateFormatter *recent = _formatter._mostRecentFormatter;
        if (!recent || !parse(*recent) || !_isExact)
            return false;
        KTLog(kLog_FormattersDateTimes, 4, u"using _mostRecentFormatter, format: %@",
              recent->dateFormat());
        _chosen = recent;
        return true;
    }

    void logAttempt(QStringView message, const NSDateFormatter &formatter) const
    {
        KTLog(kLog_FormattersDateTimes, 4, message, _string, formatter.dateFormat());
    }

    bool parseDate(const NSDateFormatter &formatter)
    {
        if (_isLogged)
            logAttempt(u"parsing date %@ using format: %@", formatter);
        return parse(formatter);
    }

    bool parseTime(const NSDateFormatter &formatter)
    {
        if (_isLogged)
            logAttempt(u"parsing time %@ using format: %@", formatter);
        return parse(formatter);
    }

    bool choose(const NSDateFormatter &formatter, QStringView message)
    {
        KTLog(kLog_FormattersDateTimes, 4, message);
        _chosen = &formatter;
        return true;
    }

    /// The first that reads anything will do.
    bool readIso()
    {
        for (const auto &formatter : _formatter.strictIsoFormatters()) {
            if (parseDate(*formatter))
                return true;
        }
        return false;
    }

    bool readDate()
    {
        for (const auto &formatter : _formatter.strictDateFormatters()) {
            if (!parseDate(*formatter))
                continue;
            KTLog(kLog_FormattersDateTimes, 4, u"date matches");
            if (_isExact)
                return choose(*formatter, u"exact match (date)");
            if (readDateAndTime(formatter->dateFormat()))
                return true;
        }
        return false;
    }

    /// Of the attempts that leave text over, only that of the last formatter counts.
    bool readDateAndTime(const QString &datePattern)
    {
        const KTDateFormatterList &formatters =
            _formatter.strictFormattersForDateFormat(datePattern);
        if (_isLogged)
            logFormatters(formatters);
        bool isLastRead = false;
        for (const auto &formatter : formatters) {
            isLastRead = parseDate(*formatter);
            if (!isLastRead)
                continue;
            KTLog(kLog_FormattersDateTimes, 4, u"date/time matches");
            if (_isExact)
                return choose(*formatter, u"exact match (date/time)");
        }
        return isLastRead;
    }

    static void logFormatters(const KTDateFormatterList &formatters)
    {
        QVariantList patterns;
        for (const auto &formatter : formatters)
            patterns.append(formatter->dateFormat());
        KTLog(kLog_FormattersDateTimes, 4, u"got strict date/time formatters: %@",
              QVariant(patterns));
    }

    bool readTime()
    {
        bool isLastRead = false;
        for (const auto &formatter : _formatter.strictTimeFormatters()) {
            isLastRead = parseTime(*formatter);
            if (!isLastRead)
                continue;
            KTLog(kLog_FormattersDateTimes, 4, u"time matches");
            if (_isExact)
                return choose(*formatter, u"exact match (time)");
        }
        return isLastRead;
    }

    const KTDateTimeFormatter &_formatter;
    const QString &_string;
    const DateText _text;
    const bool _isLogged =
        KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersDateTimes, 4);
    qint64 _time = 0;
    bool _isExact = false;
    const NSDateFormatter *_successful = nullptr;
    const NSDateFormatter *_chosen = nullptr;
};

bool KTDateTimeFormatter::getObjectValue(QVariant *value, const QString &forString,
                                         QString *errorDescription) const
{
    Reading reading(*this, forString);
    bool isRead = reading.run();
    if (value)
        *value = isRead ? QVariant(reading.date()) : QVariant();
    const NSDateFormatter *const chosen = reading.chosen();
    if (chosen && isBareHour(forString) && chosen->dateFormat() == HourPattern)
        isRead = getLenientDateValue(value, forString, errorDescription);
    if (!isRead && errorDescription && !errorDescription->isNull())
        KTLog(kLog_FormattersDateTimes, 4, u"KTDateTimeFormatter getObjectValue error: %@",
              *errorDescription);
    if (isRead)
        _mostRecentFormatter = chosen;
    return isRead;
}

bool KTDateTimeFormatter::getLenientDateValue(QVariant *value, const QString &forString,
                                              QString *errorDescription) const
{
    QVariant date;
    const bool isRead = lenientFormatter()->getObjectValue(&date, forString, errorDescription);
    KTLog(kLog_FormattersDateTimes, 4,
          u"KTDateTimeFormatter getObjectValue(lenient) forString:%@ returns %d", forString,
          isRead);
    if (value)
        *value = date;
    if (isRead)
        KTLog(kLog_FormattersDateTimes, 4,
              u"KTDateTimeFormatter getObjectValue forString:%@ value:%@", forString, date);
    return isRead;
}
