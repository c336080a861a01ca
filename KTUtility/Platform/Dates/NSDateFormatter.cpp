#include "NSDateFormatter.h"

#include "NSDateFormatterPrivate_p.h"
#include "ShownInstant_p.h"
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// In the language of the program as it is now.
QString formattingError()
{
    return NSBundle::mainBundle().localizedStringForKey(
        u"Formatting error: the text cannot be read as a date."_s);
}

/// The part of \a text that \a range names, cut to what there is.
QStringView textInRange(const QString &text, const NSRange *range)
{
    if (!range)
        return text;
    const qsizetype start = qBound(qsizetype(0), range->location, text.size());
    const qsizetype length = qBound(qsizetype(0), range->length, text.size() - start);
    return QStringView(text).sliced(start, length);
}

bool hasOnlyWhitespace(QStringView text, qsizetype from)
{
    return NSSkipCharacters(text, from, NSCharacterSet::whitespaceAndNewlineCharacterSet()) ==
           text.size();
}
} // namespace

NSDateFormatter::NSDateFormatter(QObject *parent)
    : NSFormatter(parent), _private(std::make_unique<Private>())
{
}

NSDateFormatter::NSDateFormatter(const QString &initWithDateFormat, bool allowNaturalLanguage,
                                 QObject *parent)
    : NSDateFormatter(parent)
{
    _private->behavior = NSDateFormatterBehavior10_0;
    _private->format = initWithDateFormat;
    _private->allowsNaturalLanguage = allowNaturalLanguage;
    _private->generatesCalendarDates = true;
}

NSDateFormatter::~NSDateFormatter() = default;

NSDateFormatterBehavior NSDateFormatter::formatterBehavior() const
{
    return _private->behavior;
}

void NSDateFormatter::setFormatterBehavior(NSDateFormatterBehavior behavior)
{
    _private->behavior = behavior;
    _private->readingChanged();
}

NSLocale NSDateFormatter::locale() const
{
    return _private->knownLocale();
}

void NSDateFormatter::setLocale(const NSLocale &locale)
{
    _private->locale = locale;
    _private->settingChanged();
}

NSCalendar NSDateFormatter::calendar() const
{
    NSCalendar calendar =
        _private->calendar ? *_private->calendar : NSCalendar::calendarOfLocale(locale());
    calendar.setTimeZone(timeZone());
    return calendar;
}

void NSDateFormatter::setCalendar(const NSCalendar &calendar)
{
    _private->calendar = calendar;
    _private->settingChanged();
}

QTimeZone NSDateFormatter::timeZone() const
{
    return _private->zone();
}

void NSDateFormatter::setTimeZone(const QTimeZone &timeZone)
{
    _private->timeZone = timeZone;
    _private->settingChanged();
}

bool NSDateFormatter::isLenient() const
{
    return _private->isLenient;
}

void NSDateFormatter::setLenient(bool lenient)
{
    _private->isLenient = lenient;
    _private->readingChanged();
}

QDateTime NSDateFormatter::defaultDate() const
{
    return _private->defaultTime ? _private->dateOf(*_private->defaultTime) : QDateTime();
}

void NSDateFormatter::setDefaultDate(const QDateTime &date)
{
    _private->defaultTime.reset();
    _private->readingChanged();
    if (date.isValid())
        _private->defaultTime = date.toMSecsSinceEpoch();
}

unsigned NSDateFormatter::dateStyle() const
{
    return _private->dateStyle;
}

void NSDateFormatter::setDateStyle(unsigned style)
{
    _private->dateStyle = qMin<unsigned>(style, NSDateFormatterFullStyle);
    _private->format = QString();
    _private->formatChanged();
}

unsigned NSDateFormatter::timeStyle() const
{
    return _private->timeStyle;
}

void NSDateFormatter::setTimeStyle(unsigned style)
{
    _private->timeStyle = qMin<unsigned>(style, NSDateFormatterFullStyle);
    _private->format = QString();
    _private->formatChanged();
}

QString NSDateFormatter::dateFormat() const
{
    return _private->patternText();
}

void NSDateFormatter::setDateFormat(const QString &format)
{
    _private->format = format;
    _private->hasStyleInFormat = false;
    _private->formatChanged();
}

bool NSDateFormatter::generatesCalendarDates() const
{
    return _private->generatesCalendarDates;
}

void NSDateFormatter::setGeneratesCalendarDates(bool generates)
{
    _private->generatesCalendarDates = generates;
}

bool NSDateFormatter::allowsNaturalLanguage() const
{
    return _private->allowsNaturalLanguage;
}

QDateTime NSDateFormatter::twoDigitStartDate() const
{
    if (_private->twoDigitStart.isValid())
        return _private->twoDigitStart;
    constexpr qint64 LocalStart = -631'152'000'000;
    return _private->dateOf(_private->rules().instantOf(LocalStart));
}

void NSDateFormatter::setTwoDigitStartDate(const QDateTime &date)
{
    _private->twoDigitStart = date;
    _private->settingChanged();
}

QString NSDateFormatter::AMSymbol() const
{
    return symbols(NSDateFormatterSymbols::AMPM).value(0);
}

void NSDateFormatter::setAMSymbol(const QString &symbol)
{
    setSymbols(NSDateFormatterSymbols::AMPM, {symbol, PMSymbol()});
}

QString NSDateFormatter::PMSymbol() const
{
    return symbols(NSDateFormatterSymbols::AMPM).value(1);
}

void NSDateFormatter::setPMSymbol(const QString &symbol)
{
    setSymbols(NSDateFormatterSymbols::AMPM, {AMSymbol(), symbol});
}

QStringList NSDateFormatter::symbols(NSDateFormatterSymbols kind) const
{
    return _private->environment().symbolsOf(kind);
}

void NSDateFormatter::setSymbols(NSDateFormatterSymbols kind, const QStringList &symbols)
{
    _private->editableCustoms().symbols[size_t(kind)] = symbols;
}

QString NSDateFormatter::stringFromDate(const QDateTime &date) const
{
    return date.isValid() ? _private->stringOf(date.toMSecsSinceEpoch()) : QString();
}

QDateTime NSDateFormatter::dateFromString(const QString &string) const
{
    const DateText text(string);
    DateMatch match;
    if (!_private->parse(text, &match) || !hasOnlyWhitespace(string, match.length))
        return {};
    // A pattern without fields fits a text without anything.
    if (hasOnlyWhitespace(string, 0))
        return {};
    return _private->dateOf(match.time);
}

QString NSDateFormatter::stringForObjectValue(const QVariant &value) const
{
    return stringFromDate(shownInstant(value, *this));
}

bool NSDateFormatter::getObjectValue(QVariant *value, const QString &forString,
                                     QString *errorDescription) const
{
    const QDateTime date = dateFromString(forString);
    if (!date.isValid()) {
        if (errorDescription)
            *errorDescription = formattingError();
        return false;
    }
    if (value)
        *value = date;
    return true;
}

bool NSDateFormatter::getObjectValue(QVariant *value, const QString &forString, NSRange *range,
                                     NSError *error) const
{
    const DateText text(textInRange(forString, range));
    DateMatch match;
    const bool isRead = _private->parse(text, &match);
    if (range)
        range->length = match.length;
    if (isRead && value)
        *value = _private->dateOf(match.time);
    if (!isRead && error)
        *error = NSError(NSCocoaErrorDomain, NSFormattingError, formattingError());
    return isRead;
}
