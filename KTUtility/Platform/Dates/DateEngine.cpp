#include "DateEngine_p.h"

#include "CalendarEngine_p.h"
#include "CivilDate_p.h"
#include "DateCharacters_p.h"
#include "September_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Text/ThreadCache_p.h>

#include <unicode/gregocal.h>
#include <unicode/tzfmt.h>
#include <unicode/tznames.h>
#include <unicode/uchar.h>

#include <array>
#include <utility>

using namespace KTPrivate;

namespace {
struct EngineKey
{
    const DateEnvironment *environment;
    const TimeZoneRules *rules;
    bool isLenient;

    friend bool operator==(const EngineKey &, const EngineKey &) = default;
    friend size_t qHash(const EngineKey &key)
    {
        return qHashMulti(0, key.environment, key.rules, key.isLenient);
    }
};

/// The later a field is set, the more it counts; the hour of the day counts more than "PM".
constexpr std::array DefaultFields{UCAL_ERA,    UCAL_YEAR,       UCAL_MONTH,       UCAL_DATE,
                                   UCAL_HOUR,   UCAL_AM_PM,      UCAL_HOUR_OF_DAY, UCAL_MINUTE,
                                   UCAL_SECOND, UCAL_MILLISECOND};

/// 1 January 2000, 0:00, as a clock shows it.
constexpr qint64 LocalDefaultTime = 946'684'800'000;

/// Every calendar has these years, in each version of ICU.
constexpr double LastYear = 999'999;

int32_t skipWhitespace(const icu::UnicodeString &text, int32_t at)
{
    while (at < text.length() && DateCharacters::isWhitespaceOfTexts(text.charAt(at)))
        ++at;
    return at;
}

int countOfDigits(const icu::UnicodeString &text, int32_t at)
{
    int count = 0;
    while (at < text.length() && u_isdigit(text.char32At(at))) {
        at = text.moveIndex32(at, 1);
        ++count;
    }
    return count;
}
} // namespace

DateEngine &DateEngine::engineOf(const DateEnvironment &environment, const TimeZoneRules &rules,
                                 bool isLenient)
{
    static thread_local ThreadCache<EngineKey, DateEngine> engines;
    return engines.value({&environment, &rules, isLenient}, [&] {
        return std::make_unique<DateEngine>(environment, rules, isLenient);
    });
}

DateEngine::DateEngine(const DateEnvironment &environment, const TimeZoneRules &rules,
                       bool isLenient)
    : _environment(environment.shared_from_this()), _rules(rules), _isLenient(isLenient)
{
    UErrorCode status = U_ZERO_ERROR;
    _format =
        std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(), environment.locale, status);
    const DateCustoms &customs = environment.customs;
    if (customs != DateCustoms())
        _format->setDateFormatSymbols(environment.symbols());
    _calendar.reset(_format->getCalendar()->clone());
    ICU::setGregorianForever(_calendar.get());
    _calendar->setTimeZone(rules.zone());
    _calendar->setLenient(UBool(isLenient ? 1 : 0));
    if (customs.firstWeekday > 0)
        _calendar->setFirstDayOfWeek(UCalendarDaysOfWeek(customs.firstWeekday));
    if (customs.minimumDaysInFirstWeek > 0)
        _calendar->setMinimalDaysInFirstWeek(uint8_t(customs.minimumDaysInFirstWeek));
    _format->setCalendar(*_calendar);
    _format->setLenient(UBool(isLenient ? 1 : 0));
    if (!environment.hasCenturies())
        return;
    const qint64 start = Civil::daysOf(customs.twoDigitStartYear, 1, 1);
    _format->set2DigitYearStart(double(rules.instantOf(start * Civil::MillisecondsPerDay)), status);
}

void DateEngine::setPattern(const DatePattern &pattern)
{
    if (_patternNumber == pattern.number)
        return;
    _format->applyPattern(ICU::aliasOf(pattern.text));
    _patternNumber = pattern.number;
}

QString DateEngine::stringOf(const DatePattern &pattern, qint64 time)
{
    setPattern(pattern);
    return textAt(time);
}

QString DateEngine::textAt(qint64 time)
{
    UErrorCode status = U_ZERO_ERROR;
    _calendar->setTime(double(time), status);
    // ICU allocates for what is longer than this.
    std::array<char16_t, 128> buffer;
    icu::UnicodeString text(buffer.data(), 0, int32_t(buffer.size()));
    icu::FieldPosition position(icu::FieldPosition::DONT_CARE);
    _format->format(*_calendar, text, position);
    return ICU::stringOf(text);
}

DateEngine::ZoneNameKey DateEngine::zoneNameKeyAt(qint64 time, int letters) const
{
    const TimeZoneRules::Offset offset = _rules.fullOffsetAt(time);
    icu::UnicodeString zone;
    icu::UnicodeString group;
    if (const auto *const format = _format->getTimeZoneFormat())
        format->getTimeZoneNames()->getMetaZoneID(_rules.zone().getID(zone), double(time), group);
    return {letters, offset.total, offset.saving, ICU::stringOf(group)};
}

QString DateEngine::zoneNameAt(qint64 time, int letters)
{
    // A zone had some offsets and belonged to some groups; years of dates need no more.
    constexpr size_t MostNames = 64;
    ZoneNameKey key = zoneNameKeyAt(time, letters);
    for (const ZoneName &known : _zoneNames) {
        if (known.key == key)
            return known.name;
    }
    if (_zoneNames.size() == MostNames)
        _zoneNames.clear();
    _format->applyPattern(icu::UnicodeString(letters, u'z', letters));
    _patternNumber = 0;
    _zoneNames.push_back({std::move(key), textAt(time)});
    return _zoneNames.back().name;
}

void DateEngine::presetFields(const DatePattern &pattern, std::optional<qint64> defaultTime)
{
    if (defaultTime)
        presetFieldsOf(*defaultTime);
    else
        presetWithoutDefault();
    if (!pattern.hasDayPeriod)
        return;
    // A part of the day distinguishes 5 from 17, unless an hour is known already.
    for (const UCalendarDateFields field : {UCAL_HOUR, UCAL_AM_PM, UCAL_HOUR_OF_DAY})
        _calendar->clear(field);
}

/// Years of eras or cycles have no counterpart of the year 2000; the era is the current one.
void DateEngine::presetWithoutDefault()
{
    if (_environment->hasCenturies()) {
        presetFieldsOf(_rules.instantOf(LocalDefaultTime));
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    _calendar->setTime(icu::Calendar::getNow(), status);
    const int32_t era = _calendar->get(UCAL_ERA, status);
    _calendar->clear();
    if (_environment->hasShortEras())
        _calendar->set(UCAL_ERA, era);
}

void DateEngine::presetFieldsOf(qint64 time)
{
    UErrorCode status = U_ZERO_ERROR;
    _calendar->setTime(double(time), status);
    std::array<int32_t, DefaultFields.size()> values{};
    for (size_t index = 0; index < values.size(); ++index)
        values[index] = _calendar->get(DefaultFields[index], status);
    _calendar->clear();
    for (size_t index = 0; index < values.size(); ++index)
        _calendar->set(DefaultFields[index], values[index]);
}

bool DateEngine::parse(const DatePattern &pattern, QStringView text,
                       std::optional<qint64> defaultTime, DateMatch *match)
{
    setPattern(pattern);
    const bool isRead = parseUnderAllNames(pattern, text, defaultTime, match);
    // A zone that was read has become the calendar's.
    if (pattern.hasZone)
        _calendar->setTimeZone(_rules.zone());
    return isRead;
}

bool DateEngine::parseUnderAllNames(const DatePattern &pattern, QStringView text,
                                    std::optional<qint64> defaultTime, DateMatch *match)
{
    if (!_environment->isEnglish || !pattern.hasMonthName)
        return parseText(pattern, ICU::aliasOf(text), defaultTime, match);
    const September rewritten(text);
    const bool isRead = parseText(pattern, ICU::aliasOf(rewritten.text()), defaultTime, match);
    match->length = rewritten.lengthInSource(match->length);
    return isRead;
}

bool DateEngine::parseText(const DatePattern &pattern, const icu::UnicodeString &text,
                           std::optional<qint64> defaultTime, DateMatch *match)
{
    presetFields(pattern, defaultTime);
    icu::ParsePosition position(0);
    _format->parse(text, *_calendar, position);
    const bool isMatched = position.getErrorIndex() < 0 && position.getIndex() > 0;
    match->length = isMatched ? position.getIndex() : qMax(position.getErrorIndex(), 0);
    if (!isMatched || !readTime(pattern, match))
        return false;
    return hasFittingYear(pattern, text) && hasFittingNumbers(pattern, text, match) &&
           hasYearOfTheCalendar(pattern, text);
}

bool DateEngine::readTime(const DatePattern &pattern, DateMatch *match)
{
    UErrorCode status = U_ZERO_ERROR;
    match->time = qint64(_calendar->getTime(status));
    if (U_FAILURE(status))
        return !pattern.hasZone && readSkippedTime(match);
    match->localTime = _rules.localTimeOf(match->time);
    return true;
}

/// Strict calendars reject a time that no clock showed. In UTC every time exists; if that works,
/// only the clock was the obstacle.
bool DateEngine::readSkippedTime(DateMatch *match)
{
    const std::unique_ptr<icu::Calendar> inUTC(_calendar->clone());
    inUTC->setTimeZone(*icu::TimeZone::getGMT());
    UErrorCode status = U_ZERO_ERROR;
    match->localTime = qint64(inUTC->getTime(status));
    if (U_FAILURE(status))
        return false;
    match->time = _rules.instantOf(match->localTime);
    return true;
}

bool DateEngine::hasFittingYear(const DatePattern &pattern, const icu::UnicodeString &text)
{
    if (_isLenient || !_environment->isGregorian || pattern.takesYearOf(-1))
        return true;
    const int32_t start = startOfField(pattern.beforeYear, text);
    return start < 0 || pattern.takesYearOf(countOfDigits(text, start) - pattern.digitsAfterYear);
}

/// ICU up to 72 refuses a number that is narrower than "dd"; later versions take it, and then some
/// pattern further down a list that was meant for the text is never asked.
bool DateEngine::hasFittingNumbers(const DatePattern &pattern, const icu::UnicodeString &text,
                                   DateMatch *match)
{
    if (_isLenient || !pattern.hasMinimalDigits)
        return true;
    for (const DateElement &element : pattern.elements()) {
        if (element.minimalDigits == 1)
            continue;
        const int32_t start = startOfField(pattern.text.left(element.start), text);
        const int32_t end = endOfPart(pattern.text.left(element.start + element.count), text);
        if (start < 0 || end < 0 || end - start >= element.minimalDigits)
            continue;
        match->length = start;
        return false;
    }
    return true;
}

/// What is beyond the calendar's end comes out before its beginning in some versions of ICU, as an
/// error in others. Strict calendars check their limits.
bool DateEngine::hasYearOfTheCalendar(const DatePattern &pattern, const icu::UnicodeString &text)
{
    if (!_isLenient || pattern.yearLetters == 0 || pattern.digitsAfterYear > 0)
        return true;
    const int32_t start = startOfField(pattern.beforeYear, text);
    if (start < 0)
        return true;
    icu::Formattable year;
    icu::ParsePosition position(start);
    _format->getNumberFormat()->parse(text, year, position);
    UErrorCode status = U_ZERO_ERROR;
    const double value = year.getDouble(status);
    return position.getErrorIndex() >= 0 || (value <= LastYear && value >= -LastYear);
}

/// ICU does not say where it found a field, so what stands before it is read again.
int32_t DateEngine::startOfField(const QString &before, const icu::UnicodeString &text)
{
    if (before.isEmpty())
        return skipWhitespace(text, 0);
    const int32_t end = endOfPart(before, text);
    return end < 0 ? end : skipWhitespace(text, end);
}

/// Where the part of a text ends that \a pattern fits; -1 if it does not.
int32_t DateEngine::endOfPart(const QString &pattern, const icu::UnicodeString &text)
{
    _format->applyPattern(ICU::aliasOf(pattern));
    _patternNumber = 0;
    _calendar->clear();
    icu::ParsePosition position(0);
    _format->parse(text, *_calendar, position);
    return position.getErrorIndex() < 0 ? position.getIndex() : -1;
}
