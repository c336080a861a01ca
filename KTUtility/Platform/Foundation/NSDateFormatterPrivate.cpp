#include "NSDateFormatter_p.h"

#include "NSCalendarDateFormat_p.h"
#include "NSNaturalLanguageDate_p.h"

const NSLocale &NSDateFormatter::Private::knownLocale() const
{
    if (!locale)
        locale = NSLocale::currentLocale();
    return *locale;
}

NSDateCustoms NSDateFormatter::Private::customsOfSettings() const
{
    NSDateCustoms result = customs ? *customs : NSDateCustoms();
    if (twoDigitStart.isValid()) {
        const qint64 local = rules().localTimeOf(twoDigitStart.toMSecsSinceEpoch());
        result.twoDigitStartYear = QDateTime::fromMSecsSinceEpoch(local, Qt::UTC).date().year();
    }
    if (calendar) {
        result.firstWeekday = calendar->_firstWeekday;
        result.minimumDaysInFirstWeek = calendar->_minimumDaysInFirstWeek;
    }
    return result;
}

const std::shared_ptr<const NSDateEnvironment> &NSDateFormatter::Private::environment() const
{
    if (_environment)
        return _environment;
    const NSLocale &known = knownLocale();
    const QString identifier =
        calendar ? calendar->calendarIdentifier() : known.calendarIdentifier();
    const bool isPlain = !customs && !twoDigitStart.isValid() && !calendar;
    if (isPlain)
        _environment = NSDateEnvironment::environmentOf(known, identifier);
    else
        _environment = NSDateEnvironment::environmentOf(known, identifier, customsOfSettings());
    return _environment;
}

QTimeZone NSDateFormatter::Private::zone() const
{
    if (timeZone.isValid())
        return timeZone;
    return calendar ? calendar->timeZone() : NSCalendar::systemTimeZone();
}

const NSTimeZoneRules &NSDateFormatter::Private::rules() const
{
    if (!_rules)
        _rules = &NSTimeZoneRules::rulesOf(zone());
    return *_rules;
}

QString NSDateFormatter::Private::patternText() const
{
    return format.isNull() ? environment()->patternOfStyles(dateStyle, timeStyle) : format;
}

const NSDatePattern &NSDateFormatter::Private::pattern() const
{
    if (!_pattern)
        _pattern = NSDatePattern::patternOf(patternText());
    return *_pattern;
}

NSDateCustoms &NSDateFormatter::Private::editableCustoms()
{
    if (!customs)
        customs = std::make_unique<NSDateCustoms>();
    settingChanged();
    return *customs;
}

void NSDateFormatter::Private::settingChanged()
{
    _environment.reset();
    _rules = nullptr;
    _pattern.reset();
}

QDateTime NSDateFormatter::Private::dateOf(qint64 time) const
{
    if (generatesCalendarDates)
        return QDateTime::fromMSecsSinceEpoch(time, zone());
    return QDateTime::fromMSecsSinceEpoch(time, Qt::UTC);
}

QString NSDateFormatter::Private::stringOf(qint64 time) const
{
    if (isOldBehavior())
        return NSCalendarDateFormat::stringOf(patternText(), time, environment(), rules());
    if (pattern().text.isEmpty())
        return QStringLiteral("");
    return NSDateEngine::engineOf(environment(), rules(), isLenient).stringOf(pattern(), time);
}

bool NSDateFormatter::Private::parse(const NSDateText &text, NSDateMatch *match) const
{
    if (isOldBehavior())
        return parseOld(text, match);
    NSDateEngine &engine = NSDateEngine::engineOf(environment(), rules(), isLenient);
    return engine.parse(pattern(), text.start(), text.isComplete(), defaultTime, match);
}

bool NSDateFormatter::Private::parseOld(const NSDateText &text, NSDateMatch *match) const
{
    const NSDateReading reading{environment(), &rules(), isLenient, defaultTime};
    if (NSCalendarDateFormat::parse(patternText(), text.start(), reading, match))
        return true;
    if (!allowsNaturalLanguage || !text.isComplete())
        return false;
    return NSNaturalLanguageDate::parse(text.start(), patternText(), reading, match);
}

bool NSDateFormatterAccess::parse(const NSDateFormatter &formatter, const NSDateText &text,
                                  NSDateMatch *match)
{
    return formatter._private->parse(text, match);
}

QDateTime NSDateFormatterAccess::dateOf(const NSDateFormatter &formatter, qint64 time)
{
    return formatter._private->dateOf(time);
}
