#pragma once

#include "DateEnvironment_p.h"
#include "DatePattern_p.h"
#include "DateText_p.h"
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <unicode/smpdtfmt.h>

#include <QStringView>

#include <memory>
#include <optional>
#include <vector>

namespace KTPrivate {
/// How a text is read.
struct DateReading
{
    const DateEnvironment *environment = nullptr;
    const TimeZoneRules *rules = nullptr;
    bool isLenient = false;
    std::optional<qint64> defaultTime;
};

/// ICU's formatter for a locale, calendar, zone and leniency: one per thread, since it is expensive
/// to make and cheap to give another pattern.
///
/// It reads as ICU does, except that
/// - years are as wide as the pattern says (Gregorian calendar, strict);
/// - so are "dd", "mm", "ss" and some rarer numbers, at least (strict), in every version of ICU;
/// - years end at 999,999 (lenient);
/// - "Sep" and "Sept" are one month in English;
/// - a time that is skipped by a change to summer time is read an hour on;
/// - the default date is preset as fields, so that a weekday behind a date cannot change it, and
///   its hour not at all where a part of the day is read.
class DateEngine
{
public:
    static DateEngine &engineOf(const DateEnvironment &environment, const TimeZoneRules &rules,
                                bool isLenient);

    DateEngine(const DateEnvironment &environment, const TimeZoneRules &rules, bool isLenient);

    QString stringOf(const DatePattern &pattern, qint64 time);

    /// What a zone's name is written as at a time (DateElement::isZoneName()). ICU names zones by
    /// their offset, by whether it is summer, and by the group of zones to which they belong at
    /// that time; what it wrote for these is remembered.
    QString zoneNameAt(qint64 time, int letters);

    bool parse(const DatePattern &pattern, QStringView text, std::optional<qint64> defaultTime,
               DateMatch *match);

private:
    /// What a zone's name depends on, in one number of letters.
    struct ZoneNameKey
    {
        int letters = 0;
        int offset = 0;
        int saving = 0;
        QString group;

        friend bool operator==(const ZoneNameKey &, const ZoneNameKey &) = default;
    };
    struct ZoneName
    {
        ZoneNameKey key;
        QString name;
    };

    ZoneNameKey zoneNameKeyAt(qint64 time, int letters) const;
    QString textAt(qint64 time);
    void setPattern(const DatePattern &pattern);
    void presetFields(const DatePattern &pattern, std::optional<qint64> defaultTime);
    void presetWithoutDefault();
    void presetFieldsOf(qint64 time);
    bool parseUnderAllNames(const DatePattern &pattern, QStringView text,
                            std::optional<qint64> defaultTime, DateMatch *match);
    bool parseText(const DatePattern &pattern, const icu::UnicodeString &text,
                   std::optional<qint64> defaultTime, DateMatch *match);
    bool readTime(const DatePattern &pattern, DateMatch *match);
    bool readSkippedTime(DateMatch *match);
    bool hasFittingYear(const DatePattern &pattern, const icu::UnicodeString &text);
    bool hasFittingNumbers(const DatePattern &pattern, const icu::UnicodeString &text,
                           DateMatch *match);
    bool hasYearOfTheCalendar(const DatePattern &pattern, const icu::UnicodeString &text);
    int32_t startOfField(const QString &before, const icu::UnicodeString &text);
    int32_t endOfPart(const QString &pattern, const icu::UnicodeString &text);

    const std::shared_ptr<const DateEnvironment> _environment;
    const TimeZoneRules &_rules;
    const bool _isLenient;
    std::unique_ptr<icu::SimpleDateFormat> _format;
    std::unique_ptr<icu::Calendar> _calendar;
    quint64 _patternNumber = 0;
    std::vector<ZoneName> _zoneNames;
};
} // namespace KTPrivate
