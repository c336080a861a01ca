#include "DateReading_p.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSScanner.h>
#include <KTUtility/Platform/Values/UTC_p.h>

using namespace KTPrivate;

namespace {
/// The pattern that a bare hour comes through.
constexpr QStringView HourPattern = u"ha";

constexpr QStringView DateAttempt = u"parsing date %@ using format: %@";
constexpr QStringView TimeAttempt = u"parsing time %@ using format: %@";
// Their lengths are counted when the library is made, not with each list.
constexpr QStringView DateAndTimeMatch = u"date/time matches";
constexpr QStringView ExactDateAndTime = u"exact match (date/time)";
constexpr QStringView TimeMatch = u"time matches";
constexpr QStringView ExactTime = u"exact match (time)";

/// A run of exactly \a count ASCII digits, behind anything but digits (or, at first, whitespace
/// only).
bool scanDigits(NSScanner &scanner, qsizetype count, bool skipsOthers)
{
    static const NSCharacterSet digits =
        NSCharacterSet::characterSetWithCharactersInString(u"0123456789");
    QString run;
    if (skipsOthers)
        scanner.scanUpToCharactersFromSet(digits);
    return scanner.scanCharactersFromSet(digits, &run) && run.size() == count;
}

/// Whether a text is digits without letters behind them.
bool isDigitsAlone(const QString &text)
{
    NSScanner scanner(text);
    return !scanner.scanCharactersFromSet(NSCharacterSet::decimalDigitCharacterSet()) ||
           !scanner.scanCharactersFromSet(NSCharacterSet::letterCharacterSet());
}

void logFormatters(const KTDateFormatterList &formatters)
{
    QVariantList patterns;
    for (size_t index = 0; index < formatters.size(); ++index)
        patterns.append(formatters[index]->dateFormat());
    KTLog(kLog_FormattersDateTimes, 4, u"got strict date/time formatters: %@", QVariant(patterns));
}
} // namespace

DateReading::DateReading(const QString &text)
    : _string(text)
    , _text(text)
    , _isLogged(KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersDateTimes, 4))
{
}

bool DateReading::hasOnlyWhitespace() const
{
    const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    return NSSkipCharacters(_string, 0, whitespace) == _string.size();
}

bool DateReading::hasIsoShape() const
{
    NSScanner scanner(_string);
    return scanDigits(scanner, 4, false) && scanDigits(scanner, 2, true) &&
           scanDigits(scanner, 2, true);
}

bool DateReading::isBareHour() const
{
    return _chosen && isDigitsAlone(_string) && _chosen->dateFormat() == HourPattern;
}

QDateTime DateReading::date() const
{
    return DateFormatterAccess::dateOf(*_successful, _time);
}

QDateTime DateReading::clock() const
{
    return QDateTime::fromMSecsSinceEpoch(_localTime, UTC);
}

/// Parses without a word. Small, for nearly all attempts fail.
inline bool DateReading::parse(const NSDateFormatter &formatter)
{
    return DateFormatterAccess::parse(formatter, _text, &_match) && note(formatter);
}

bool DateReading::note(const NSDateFormatter &formatter)
{
    _time = _match.time;
    _localTime = _match.localTime;
    _successful = &formatter;
    _isExact = _match.length == _string.size();
    return true;
}

inline bool DateReading::parse(const NSDateFormatter &formatter, QStringView message)
{
    if (_isLogged)
        KTLog(kLog_FormattersDateTimes, 4, message, _string, formatter.dateFormat());
    return parse(formatter);
}

bool DateReading::choose(const NSDateFormatter &formatter, QStringView message)
{
    KTLog(kLog_FormattersDateTimes, 4, message);
    _chosen = &formatter;
    return true;
}

bool DateReading::readWithRecent(const NSDateFormatter *recent)
{
    if (!recent || !parse(*recent) || !_isExact)
        return false;
    KTLog(kLog_FormattersDateTimes, 4, u"using _mostRecentFormatter, format: %@",
          recent->dateFormat());
    _chosen = recent;
    return true;
}

bool DateReading::readIso(const KTDateFormatterList &formatters)
{
    size_t index = 0;
    while (index < formatters.size() && !parse(*formatters[index], DateAttempt))
        ++index;
    return index < formatters.size();
}

size_t DateReading::nextDate(const KTDateFormatterList &formatters, size_t from)
{
    const size_t count = formatters.size();
    while (from < count && !parse(*formatters[from], DateAttempt))
        ++from;
    if (from == count)
        return from;
    KTLog(kLog_FormattersDateTimes, 4, u"date matches");
    if (_isExact)
        choose(*formatters[from], u"exact match (date)");
    return from;
}

/// Tries all until one takes all of the text; else whether the last one read anything.
bool DateReading::readWithLast(const KTDateFormatterList &formatters, QStringView attempt,
                               QStringView match, QStringView exactMatch)
{
    bool isLastRead = false;
    for (size_t index = 0; index < formatters.size(); ++index) {
        isLastRead = parse(*formatters[index], attempt);
        if (!isLastRead)
            continue;
        KTLog(kLog_FormattersDateTimes, 4, match);
        if (_isExact)
            return choose(*formatters[index], exactMatch);
    }
    return isLastRead;
}

/// Whether the same list was tried on the text before, in vain: a style may have the pattern of
/// another formatter.
bool DateReading::wasTried(const KTDateFormatterList &formatters)
{
    const bool isKnown = _tried.contains(&formatters);
    if (!isKnown)
        _tried.append(&formatters);
    return isKnown;
}

bool DateReading::readDateAndTime(const KTDateFormatterList &formatters)
{
    if (_isLogged)
        logFormatters(formatters);
    else if (wasTried(formatters))
        return false;
    return readWithLast(formatters, DateAttempt, DateAndTimeMatch, ExactDateAndTime);
}

bool DateReading::readTime(const KTDateFormatterList &formatters)
{
    return readWithLast(formatters, TimeAttempt, TimeMatch, ExactTime);
}
