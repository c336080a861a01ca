#pragma once

#include "NSDateEngine_p.h"
#include "NSDateFormatter.h"
#include "NSDateFormatterAccess_p.h"

#include <optional>

/// What a formatter was told, and what it made of that on first use.
class NSDateFormatter::Private
{
public:
    NSDateFormatterBehavior behavior = NSDateFormatterBehavior10_4;
    mutable std::optional<NSLocale> locale;
    std::optional<NSCalendar> calendar;
    QTimeZone timeZone;
    bool isLenient = false;
    std::optional<qint64> defaultTime;
    unsigned dateStyle = NSDateFormatterNoStyle;
    unsigned timeStyle = NSDateFormatterNoStyle;
    QString format; ///< null: that of the styles
    bool generatesCalendarDates = false;
    bool allowsNaturalLanguage = false;
    QDateTime twoDigitStart;
    std::unique_ptr<NSDateCustoms> customs;

    const NSLocale &knownLocale() const;
    const std::shared_ptr<const NSDateEnvironment> &environment() const;
    const NSTimeZoneRules &rules() const;
    const NSDatePattern &pattern() const;
    QString patternText() const;
    NSDateCustoms &editableCustoms();
    /// Forgets what was made, because a setting has changed.
    void settingChanged();
    /// Forgets the pattern only.
    void formatChanged() { _pattern.reset(); }

    bool isOldBehavior() const { return behavior == NSDateFormatterBehavior10_0; }
    QTimeZone zone() const;
    QDateTime dateOf(qint64 time) const;
    QString stringOf(qint64 time) const;
    /// Reads a date from the start of \a text; see NSDateFormatterAccess::parse().
    bool parse(const NSDateText &text, NSDateMatch *match) const;
    bool parseWithICU(const NSDateText &text, NSDateMatch *match) const;
    NSDateReading reading() const;

private:
    bool parseNew(const NSDateText &text, NSDateMatch *match) const;
    bool parseBareHour(const NSDateText &text, NSDateMatch *match) const;
    bool parseOld(const NSDateText &text, NSDateMatch *match) const;
    NSDateCustoms customsOfSettings() const;

    mutable std::shared_ptr<const NSDateEnvironment> _environment;
    mutable const NSTimeZoneRules *_rules = nullptr;
    mutable std::shared_ptr<const NSDatePattern> _pattern;
};
