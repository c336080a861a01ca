#pragma once

#include "DateEngine_p.h"
#include "DateLead_p.h"
#include "DateMatcher_p.h"
#include "NSDateFormatter.h"
#include <KTUtility/Platform/Zones/ZoneData_p.h>

#include <optional>

/// What was set in a formatter, and what it made of that on first use.
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
    bool hasStyleInFormat = false; ///< the pattern that was set begins with that of a style
    QDateTime twoDigitStart;
    std::unique_ptr<KTPrivate::DateCustoms> customs;

    const NSLocale &knownLocale() const;
    const KTPrivate::DateEnvironment &environment() const
    {
        if (!_environment)
            makeEnvironment();
        return *_environment;
    }
    const KTPrivate::TimeZoneRules &rules() const
    {
        return rulesIn(KTPrivate::ZoneData::generation());
    }
    /// The rules that data of a generation say.
    const KTPrivate::TimeZoneRules &rulesIn(unsigned generation) const
    {
        if (!_rules || _generation != generation) {
            _rules = &KTPrivate::TimeZoneRules::rulesOf(zone());
            _generation = generation;
        }
        return *_rules;
    }
    /// The rules for reading a text: the data are looked at once, however many formatters try it.
    const KTPrivate::TimeZoneRules &rulesFor(const KTPrivate::DateText &text) const
    {
        std::optional<unsigned> &generation = text.memory().zoneGeneration;
        if (!generation)
            generation = KTPrivate::ZoneData::generation();
        return rulesIn(*generation);
    }
    const KTPrivate::DatePattern &pattern() const
    {
        if (!_pattern)
            _pattern = KTPrivate::DatePattern::patternOf(patternText(), years());
        return *_pattern;
    }
    QString patternText() const;
    KTPrivate::DateYears years() const
    {
        const bool isOfStyle = format.isNull() || hasStyleInFormat;
        return isOfStyle ? KTPrivate::DateYears::OfStyle : KTPrivate::DateYears::AsWide;
    }
    KTPrivate::DateCustoms &editableCustoms();
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
    /// Reads a date from the start of \a text; see DateFormatterAccess::parse().
    bool parse(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const
    {
        return isRejectedAtOnce(text, match) ? false : parseFully(text, match);
    }
    bool parseWithICU(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const;
    KTPrivate::DateReading reading() const { return readingBy(rules()); }
    KTPrivate::DateReading readingBy(const KTPrivate::TimeZoneRules &rules) const;

private:
    bool isRejectedAtOnce(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const;
    bool isDecidable() const;
    void makeEnvironment() const;
    bool parseFully(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const;
    bool parseNew(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const;
    bool parseBareHour(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const;
    bool parseOld(const KTPrivate::DateText &text, KTPrivate::DateMatch *match) const;
    KTPrivate::DateCustoms customsOfSettings() const;

    mutable std::shared_ptr<const KTPrivate::DateEnvironment> _environment;
    mutable const KTPrivate::TimeZoneRules *_rules = nullptr;
    mutable unsigned _generation = 0; ///< of the data that the rules were made of
    mutable std::shared_ptr<const KTPrivate::DatePattern> _pattern;
    mutable std::optional<bool> _isDecidable;
};

inline bool NSDateFormatter::Private::isDecidable() const
{
    if (!_isDecidable)
        _isDecidable = !isOldBehavior() && KTPrivate::DateMatcher::isDecidable(reading());
    return *_isDecidable;
}

/// Small and inline: it decides most attempts.
inline bool NSDateFormatter::Private::isRejectedAtOnce(const KTPrivate::DateText &text,
                                                       KTPrivate::DateMatch *match) const
{
    if (!isDecidable() || pattern().isBareHour)
        return false;
    const qsizetype at = KTPrivate::DateLead::rejectedAt(pattern(), environment(), text);
    if (at == KTPrivate::DateLead::NotRejected)
        return false;
    match->length = at;
    return true;
}
