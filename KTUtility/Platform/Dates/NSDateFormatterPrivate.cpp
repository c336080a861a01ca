#include "NSDateFormatterPrivate_p.h"

#include "CalendarDateReader_p.h"
#include "CalendarDateWriter_p.h"
#include "DateWriter_p.h"
#include "NaturalLanguageDate_p.h"
#include <KTUtility/Platform/Values/UTC_p.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

const NSLocale &NSDateFormatter::Private::knownLocale() const
{
    if (!locale)
        locale = NSLocale::currentLocale(NSLocale::Category::Dates);
    return *locale;
}

DateCustoms NSDateFormatter::Private::customsOfSettings() const
{
    DateCustoms result = customs ? *customs : DateCustoms();
    if (twoDigitStart.isValid()) {
        const qint64 local = rules().localTimeOf(twoDigitStart.toMSecsSinceEpoch());
        result.twoDigitStartYear = QDateTime::fromMSecsSinceEpoch(local, UTC).date().year();
    }
    if (calendar) {
        result.firstWeekday = calendar->_firstWeekday;
        result.minimumDaysInFirstWeek = calendar->_minimumDaysInFirstWeek;
    }
    return result;
}

void NSDateFormatter::Private::makeEnvironment() const
{
    const NSLocale &known = knownLocale();
    const QString identifier =
        calendar ? calendar->calendarIdentifier() : known.calendarIdentifier();
    const bool isPlain = !customs && !twoDigitStart.isValid() && !calendar;
    if (isPlain)
        _environment = DateEnvironment::environmentOf(known, identifier);
    else
        _environment = DateEnvironment::environmentOf(known, identifier, customsOfSettings());
}

QTimeZone NSDateFormatter::Private::zone() const
{
    if (timeZone.isValid())
        return timeZone;
    return calendar ? calendar->timeZone() : NSCalendar::systemTimeZone();
}

QString NSDateFormatter::Private::patternText() const
{
    return format.isNull() ? environment().patternOfStyles(dateStyle, timeStyle) : format;
}

DateCustoms &NSDateFormatter::Private::editableCustoms()
{
    if (!customs)
        customs = std::make_unique<DateCustoms>();
    settingChanged();
    return *customs;
}

void NSDateFormatter::Private::settingChanged()
{
    _environment.reset();
    _rules = nullptr;
    _pattern.reset();
    _isDecidable.reset();
}

QDateTime NSDateFormatter::Private::dateOf(qint64 time) const
{
    if (generatesCalendarDates)
        return QDateTime::fromMSecsSinceEpoch(time, zone());
    return QDateTime::fromMSecsSinceEpoch(time, UTC);
}

QString NSDateFormatter::Private::stringOf(qint64 time) const
{
    if (isOldBehavior())
        return CalendarDateWriter::stringOf(patternText(), time, environment(), rules());
    QString text = u""_s;
    const auto zoneName = [this, time](int letters) {
        return DateEngine::engineOf(environment(), rules(), isLenient).zoneNameAt(time, letters);
    };
    if (!DateWriter::write(pattern(), environment(), rules(), time, zoneName, &text))
        text = DateEngine::engineOf(environment(), rules(), isLenient).stringOf(pattern(), time);
    return text;
}

DateReading NSDateFormatter::Private::readingBy(const TimeZoneRules &rules) const
{
    return {&environment(), &rules, isLenient, defaultTime};
}

bool NSDateFormatter::Private::parseFully(const DateText &text, DateMatch *match) const
{
    if (isOldBehavior())
        return parseOld(text, match);
    return parseNew(text, match) || parseBareHour(text, match);
}

bool NSDateFormatter::Private::parseNew(const DateText &text, DateMatch *match) const
{
    using DateMatcher::Answer;
    const Answer answer = DateMatcher::match(pattern(), readingBy(rulesFor(text)), text, match);
    if (answer != Answer::Undecided)
        return answer == Answer::Matched;
    return parseWithICU(text, match);
}

bool NSDateFormatter::Private::parseWithICU(const DateText &text, DateMatch *match) const
{
    DateEngine &engine = DateEngine::engineOf(environment(), rules(), isLenient);
    return engine.parse(pattern(), text.start(), defaultTime, match);
}

bool NSDateFormatter::Private::parseBareHour(const DateText &text, DateMatch *match) const
{
    return pattern().isBareHour && text.isComplete() &&
           DateMatcher::matchBareHour(reading(), text, match);
}

bool NSDateFormatter::Private::parseOld(const DateText &text, DateMatch *match) const
{
    const bool isRead = CalendarDateReader::parse(patternText(), text.start(), reading(), match);
    const bool isWhole = isRead && text.start().sliced(match->length).trimmed().isEmpty();
    if (isWhole || !allowsNaturalLanguage || !text.isComplete())
        return isRead;
    DateMatch natural;
    if (!NaturalLanguageDate::parse(text.start(), patternText(), reading(), &natural))
        return isRead;
    *match = natural;
    return true;
}
