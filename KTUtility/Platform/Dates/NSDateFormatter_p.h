#pragma once

#include "NSDateEngine_p.h"
#include "NSDateFormatter.h"
#include "NSDateFormatterAccess_p.h"
#include "NSDateLead_p.h"
#include "NSDateMatcher_p.h"

#include <optional>

/// What a formatter was told, and what it made of that on first use.
class Q_DECL_HIDDEN NSDateFormatter::Private
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
    const NSDateEnvironment &environment() const
    {
        if (!_environment)
            makeEnvironment();
        return *_environment;
    }
    const NSTimeZoneRules &rules() const
    {
        if (!_rules)
            _rules = &NSTimeZoneRules::rulesOf(zone());
        return *_rules;
    }
    const NSDatePattern &pattern() const
    {
        if (!_pattern)
            _pattern = NSDatePattern::patternOf(patternText());
        return *_pattern;
    }
    QString patternText() const;
    NSDateCustoms &editableCustoms();
    /// Forgets what was made, because a setting has changed.
    void settingChanged();
    /// Forgets the pattern only.
    void formatChanged() { _pattern.reset(); }
    /// Asks again whether texts can be read without ICU.
    void readingChanged() { _isDecidable.reset(); }

    bool isOldBehavior() const { return behavior == NSDateFormatterBehavior10_0; }
    QTimeZone zone() const;
    QDateTime dateOf(qint64 time) const;
    QString stringOf(qint64 time) const;
    /// Reads a date from the start of \a text; see NSDateFormatterAccess::parse().
    bool parse(const NSDateText &text, NSDateMatch *match) const
    {
        return isRefusedAtOnce(text, match) ? false : parseFully(text, match);
    }
    bool parseWithICU(const NSDateText &text, NSDateMatch *match) const;
    NSDateReading reading() const;

private:
    bool isRefusedAtOnce(const NSDateText &text, NSDateMatch *match) const;
    bool isDecidable() const;
    void makeEnvironment() const;
    bool parseFully(const NSDateText &text, NSDateMatch *match) const;
    bool parseNew(const NSDateText &text, NSDateMatch *match) const;
    bool parseBareHour(const NSDateText &text, NSDateMatch *match) const;
    bool parseOld(const NSDateText &text, NSDateMatch *match) const;
    NSDateCustoms customsOfSettings() const;

    mutable std::shared_ptr<const NSDateEnvironment> _environment;
    mutable const NSTimeZoneRules *_rules = nullptr;
    mutable std::shared_ptr<const NSDatePattern> _pattern;
    mutable std::optional<bool> _isDecidable;
};

inline bool NSDateFormatter::Private::isDecidable() const
{
    if (!_isDecidable)
        _isDecidable = !isOldBehavior() && NSDateMatcher::isDecidable(reading());
    return *_isDecidable;
}

/// Small and inline: it decides most attempts.
inline bool NSDateFormatter::Private::isRefusedAtOnce(const NSDateText &text,
                                                      NSDateMatch *match) const
{
    if (!isDecidable() || pattern().isBareHour ||
        !NSDateLead::isRefusedAtOnce(pattern(), environment(), text))
        return false;
    match->length = text.lead();
    return true;
}
