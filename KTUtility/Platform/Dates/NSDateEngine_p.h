#pragma once

#include "NSDateEnvironment_p.h"
#include "NSDatePattern_p.h"
#include "NSDateText_p.h"
#include "NSTimeZoneRules_p.h"

#include <unicode/smpdtfmt.h>

#include <QStringView>

#include <memory>
#include <optional>

/// How a text is read.
struct NSDateReading
{
    const NSDateEnvironment *environment = nullptr;
    const NSTimeZoneRules *rules = nullptr;
    bool isLenient = false;
    std::optional<qint64> defaultTime;
};

/// ICU's formatter for a locale, calendar, zone and leniency: one per thread, since it is dear to
/// make and cheap to give another pattern.
///
/// It reads as ICU does, except that
/// - years are as wide as the pattern says (Gregorian calendar, strict);
/// - "Sep" and "Sept" are one month in English;
/// - a time that is skipped by a change to summer time is read an hour on;
/// - the default date is preset as fields, so that a weekday behind a date cannot change it, and
///   its hour not at all where a part of the day is read.
class NSDateEngine
{
public:
    static NSDateEngine &engineOf(const NSDateEnvironment &environment,
                                  const NSTimeZoneRules &rules, bool isLenient);

    NSDateEngine(const NSDateEnvironment &environment, const NSTimeZoneRules &rules,
                 bool isLenient);

    QString stringOf(const NSDatePattern &pattern, qint64 time);

    bool parse(const NSDatePattern &pattern, QStringView text, std::optional<qint64> defaultTime,
               NSDateMatch *match);

private:
    void setPattern(const NSDatePattern &pattern);
    void presetFields(const NSDatePattern &pattern, std::optional<qint64> defaultTime);
    void presetWithoutDefault();
    void presetFieldsOf(qint64 time);
    bool parseUnderAllNames(const NSDatePattern &pattern, QStringView text,
                            std::optional<qint64> defaultTime, NSDateMatch *match);
    bool parseText(const NSDatePattern &pattern, const icu::UnicodeString &text,
                   std::optional<qint64> defaultTime, NSDateMatch *match);
    bool readTime(const NSDatePattern &pattern, qint64 *time);
    bool readSkippedTime(qint64 *time);
    bool hasFittingYear(const NSDatePattern &pattern, const icu::UnicodeString &text);
    int32_t startOfYear(const NSDatePattern &pattern, const icu::UnicodeString &text);

    const std::shared_ptr<const NSDateEnvironment> _environment;
    const NSTimeZoneRules &_rules;
    const bool _isLenient;
    std::unique_ptr<icu::SimpleDateFormat> _format;
    std::unique_ptr<icu::Calendar> _calendar;
    quint64 _patternNumber = 0;
};
