#pragma once

#include "NSDateEnvironment_p.h"
#include "NSDatePattern_p.h"
#include "NSTimeZoneRules_p.h"

#include <unicode/smpdtfmt.h>

#include <QStringView>

#include <memory>
#include <optional>

/// What reading a text gave.
struct NSDateMatch
{
    qint64 time = 0;      ///< milliseconds since 1970
    qsizetype length = 0; ///< what was consumed, or how far the text fitted
};

/// How a text is read.
struct NSDateReading
{
    std::shared_ptr<const NSDateEnvironment> environment;
    const NSTimeZoneRules *rules = nullptr;
    bool isLenient = false;
    std::optional<qint64> defaultTime;
};

/// ICU's formatter for a locale, calendar, zone and leniency: one per thread, since it is dear to
/// make and cheap to give another pattern.
///
/// It reads as ICU does, except that
/// - years are as wide as the pattern says (Gregorian calendar, strict);
/// - "ha" takes a bare hour at the end of the text;
/// - "Sep" and "Sept" are one month in English;
/// - a time that is skipped by a change to summer time is read an hour on;
/// - the default date is preset as fields, so that a weekday behind a date cannot change it.
class NSDateEngine
{
public:
    static NSDateEngine &engineOf(const std::shared_ptr<const NSDateEnvironment> &environment,
                                  const NSTimeZoneRules &rules, bool isLenient);

    NSDateEngine(const std::shared_ptr<const NSDateEnvironment> &environment,
                 const NSTimeZoneRules &rules, bool isLenient);

    QString stringOf(const NSDatePattern &pattern, qint64 time);

    /// \param isWholeText whether the text ends where \a text ends.
    bool parse(const NSDatePattern &pattern, QStringView text, bool isWholeText,
               std::optional<qint64> defaultTime, NSDateMatch *match);

private:
    void setPattern(const NSDatePattern &pattern);
    void presetFields(std::optional<qint64> defaultTime);
    void presetWithoutDefault();
    void presetFieldsOf(qint64 time);
    bool parseText(const NSDatePattern &pattern, const icu::UnicodeString &text,
                   std::optional<qint64> defaultTime, NSDateMatch *match);
    bool parseBareHour(QStringView text, std::optional<qint64> defaultTime, NSDateMatch *match);
    bool readTime(qint64 *time);
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
