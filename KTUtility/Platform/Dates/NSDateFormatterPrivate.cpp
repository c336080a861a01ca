#include "NSDateFormatter_p.h"

#include "NSCalendarDateFormat_p.h"
#include "NSDateWriter_p.h"
#include "NSNaturalLanguageDate_p.h"

using namespace Qt::StringLiterals;

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

void NSDateFormatter::Private::makeEnvironment() const
{
    const NSLocale &known = knownLocale();
    const QString identifier =
        calendar ? calendar->calendarIdentifier() : known.calendarIdentifier();
    const bool isPlain = !customs && !twoDigitStart.isValid() && !calendar;
    if (isPlain)
        _environment = NSDateEnvironment::environmentOf(known, identifier);
    else
        _environment = NSDateEnvironment::environmentOf(known, identifier, customsOfSettings());
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
    _isDecidable.reset();
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
    QString text = u""_s;
    if (!NSDateWriter::write(pattern(), environment(), rules(), time, &text))
        text = NSDateEngine::engineOf(environment(), rules(), isLenient).stringOf(pattern(), time);
    return text;
}

NSDateReading NSDateFormatter::Private::reading() const
{
    return {&environment(), &rules(), isLenient, defaultTime};
}

bool NSDateFormatter::Private::parseFully(const NSDateText &text, NSDateMatch *match) const
{
    if (isOldBehavior())
        return parseOld(text, match);
    return parseNew(text, match) || parseBareHour(text, match);
}

bool NSDateFormatter::Private::parseNew(const NSDateText &text, NSDateMatch *match) const
{
    using NSDateMatcher::Answer;
    const Answer answer = NSDateMatcher::match(pattern(), reading(), text, match);
    if (answer != Answer::Undecided)
        return answer == Answer::Matched;
    return parseWithICU(text, match);
}

bool NSDateFormatter::Private::parseWithICU(const NSDateText &text, NSDateMatch *match) const
{
    NSDateEngine &engine = NSDateEngine::engineOf(environment(), rules(), isLenient);
    return engine.parse(pattern(), text.start(), defaultTime, match);
}

bool NSDateFormatter::Private::parseBareHour(const NSDateText &text, NSDateMatch *match) const
{
    return pattern().isBareHour && text.isComplete() &&
           NSDateMatcher::matchBareHour(reading(), text, match);
}

bool NSDateFormatter::Private::parseOld(const NSDateText &text, NSDateMatch *match) const
{
    const bool isRead = NSCalendarDateFormat::parse(patternText(), text.start(), reading(), match);
    const bool isWhole = isRead && text.start().sliced(match->length).trimmed().isEmpty();
    if (isWhole || !allowsNaturalLanguage || !text.isComplete())
        return isRead;
    NSDateMatch natural;
    if (!NSNaturalLanguageDate::parse(text.start(), patternText(), reading(), &natural))
        return isRead;
    *match = natural;
    return true;
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

std::optional<bool> NSDateFormatterAccess::parseWithoutICU(const NSDateFormatter &formatter,
                                                           const NSDateText &text,
                                                           NSDateMatch *match)
{
    using NSDateMatcher::Answer;
    const NSDateFormatter::Private &settings = *formatter._private;
    const Answer answer = NSDateMatcher::match(settings.pattern(), settings.reading(), text, match);
    return answer == Answer::Undecided ? std::nullopt : std::optional(answer == Answer::Matched);
}

bool NSDateFormatterAccess::parseWithICU(const NSDateFormatter &formatter, const NSDateText &text,
                                         NSDateMatch *match)
{
    return formatter._private->parseWithICU(text, match);
}

QString NSDateFormatterAccess::stringWithoutICU(const NSDateFormatter &formatter,
                                                const QDateTime &date)
{
    const NSDateFormatter::Private &settings = *formatter._private;
    QString text;
    const bool isWritten = NSDateWriter::write(settings.pattern(), settings.environment(),
                                               settings.rules(), date.toMSecsSinceEpoch(), &text);
    return isWritten ? text : QString();
}

QString NSDateFormatterAccess::stringWithICU(const NSDateFormatter &formatter,
                                             const QDateTime &date)
{
    const NSDateFormatter::Private &settings = *formatter._private;
    return NSDateEngine::engineOf(settings.environment(), settings.rules(), settings.isLenient)
        .stringOf(settings.pattern(), date.toMSecsSinceEpoch());
}

void NSDateFormatterAccess::setClock(qint64 (*clock)())
{
    NSNaturalLanguageDate::setClock(clock);
}
