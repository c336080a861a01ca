#include "DateNameWords_p.h"

#include "DateWords_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/rbnf.h>
#include <unicode/smpdtfmt.h>

#include <array>
#include <map>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Kind = DateWord::Kind;
using Symbols = icu::DateFormatSymbols;

constexpr int HoursOfDay = 24;
constexpr double MillisecondsPerHour = 3'600'000;

constexpr std::array Contexts{Symbols::FORMAT, Symbols::STANDALONE};
constexpr std::array Widths{Symbols::WIDE, Symbols::ABBREVIATED, Symbols::SHORT};

/// Months that are called by their number ("3月") are read by the number and its mark.
bool beginsWithDigit(const QString &name)
{
    return !name.isEmpty() && name.front().digitValue() >= 0;
}

void addMonths(DateWords &words, const Symbols &symbols)
{
    for (const auto context : Contexts) {
        for (const auto width : {Symbols::WIDE, Symbols::ABBREVIATED}) {
            int32_t count = 0;
            const icu::UnicodeString *names = symbols.getMonths(count, context, width);
            for (int32_t index = 0; index < count; ++index) {
                const QString name = ICU::stringOf(names[index]);
                if (!beginsWithDigit(name))
                    words.addName(name, {Kind::Month, index + 1});
            }
        }
    }
}

void addWeekdays(DateWords &words, const Symbols &symbols)
{
    for (const auto context : Contexts) {
        for (const auto width : Widths) {
            int32_t count = 0;
            const icu::UnicodeString *names = symbols.getWeekdays(count, context, width);
            for (int32_t index = 1; index < count; ++index)
                words.addName(ICU::stringOf(names[index]), {Kind::Weekday, index});
        }
    }
}

void addEras(DateWords &words, const Symbols &symbols, int first, int isJapanese)
{
    int32_t count = 0;
    const icu::UnicodeString *names = symbols.getEras(count);
    for (int32_t index = first; index < count; ++index)
        words.add(ICU::stringOf(names[index]), {Kind::Era, index, isJapanese});
    names = symbols.getEraNames(count);
    for (int32_t index = first; index < count; ++index)
        words.add(ICU::stringOf(names[index]), {Kind::Era, index, isJapanese});
}

/// The emperors since 1868 are named beside years of the Gregorian calendar, too.
void addJapaneseEras(DateWords &words)
{
    constexpr int Meiji = 232;
    UErrorCode status = U_ZERO_ERROR;
    const Symbols symbols(icu::Locale::getJapanese(), "japanese", status);
    if (U_SUCCESS(status))
        addEras(words, symbols, Meiji, 1);
}

/// What a pattern for a part of the day writes at each hour, as masks of hours.
std::map<QString, int> periodsOf(const icu::Locale &locale, const char *pattern, int minute)
{
    std::map<QString, int> periods;
    UErrorCode status = U_ZERO_ERROR;
    // Without minutes in the pattern, the whole of its hour would be noon.
    icu::SimpleDateFormat format(icu::UnicodeString(pattern).append(u"'|'mm"), locale, status);
    if (U_FAILURE(status))
        return periods;
    format.setTimeZone(*icu::TimeZone::getGMT());
    for (int hour = 0; hour < HoursOfDay; ++hour) {
        icu::UnicodeString text;
        format.format(hour * MillisecondsPerHour + minute * MillisecondsPerHour / 60, text);
        periods[ICU::stringOf(text).section(u'|', 0, 0)] |= 1 << hour;
    }
    return periods;
}

/// "evening" of "in the evening": the last word, if those before it are short.
QString mainWordOf(const QString &phrase)
{
    constexpr qsizetype LongestArticle = 4;
    const QStringList words = phrase.split(u' ', Qt::SkipEmptyParts);
    for (qsizetype index = 0; index + 1 < words.size(); ++index) {
        if (words[index].size() > LongestArticle)
            return phrase;
    }
    return words.isEmpty() || words.last().size() < LongestArticle ? phrase : words.last();
}

void addPeriods(DateWords &words, const std::map<QString, int> &periods, Kind kind)
{
    for (const auto &[name, hours] : periods) {
        words.add(name, {kind, hours});
        if (kind == Kind::DayPeriod)
            words.add(mainWordOf(name), {kind, hours});
    }
}

void addHalf(DateWords &words, const QString &name, int hours)
{
    words.add(name, {Kind::HalfOfDay, hours});
    words.add(QString(name).remove(u' ').remove(u'\u00A0').remove(u'\u202F'),
              {Kind::HalfOfDay, hours});
}

/// A bare "a" or "p" is none: it is a word in too many languages.
void addHalvesOfDay(DateWords &words, const icu::Locale &locale)
{
    for (const char *pattern : {"a", "aaaa", "aaaaa"}) {
        for (const auto &[name, hours] : periodsOf(locale, pattern, 0)) {
            if (name.size() > 1 || name.at(0).unicode() > 0x7F)
                addHalf(words, name, hours);
        }
    }
}

/// Of the hours at which a name stands, noon and midnight are those that have it for no minute more.
void addHourNames(DateWords &words, const icu::Locale &locale, const char *pattern)
{
    const std::map<QString, int> later = periodsOf(locale, pattern, 30);
    for (const auto &[name, hours] : periodsOf(locale, pattern, 0)) {
        if (later.count(name) != 0)
            continue;
        if (hours == 1)
            words.add(name, {Kind::HourName, 0});
        else if (hours == 1 << 12)
            words.add(name, {Kind::HourName, 12});
    }
}
} // namespace

void KTPrivate::addDateNames(DateWords &words, const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
    if (U_FAILURE(status))
        return;
    const Symbols symbols(locale, calendar->getType(), status);
    if (U_FAILURE(status))
        return;
    addMonths(words, symbols);
    addWeekdays(words, symbols);
    const bool isJapanese = QByteArray(locale.getLanguage()) == "ja";
    if (isJapanese)
        addJapaneseEras(words);
    else
        addEras(words, symbols, 0, 0);
}

void KTPrivate::addDayPeriods(DateWords &words, const icu::Locale &locale)
{
    addHalvesOfDay(words, locale);
    for (const char *pattern : {"b", "bbbb"})
        addHourNames(words, locale, pattern);
    for (const char *pattern : {"B", "BBBB"})
        addPeriods(words, periodsOf(locale, pattern, 30), Kind::DayPeriod);
}

void KTPrivate::addOrdinals(DateWords &words, const icu::Locale &locale)
{
    constexpr int LongestMonth = 31;
    UErrorCode status = U_ZERO_ERROR;
    icu::RuleBasedNumberFormat format(icu::URBNF_ORDINAL, locale, status);
    if (U_FAILURE(status))
        return;
    for (int day = 1; day <= LongestMonth; ++day) {
        icu::UnicodeString text;
        format.format(int32_t(day), text);
        const QString folded = FoldedText::folded(ICU::stringOf(text));
        const QString digits = QString::number(day);
        if (folded.startsWith(digits) && folded != digits + u'.')
            words.addOrdinal(QStringView(folded).sliced(digits.size()));
    }
}

void KTPrivate::addEnglishDateWords(DateWords &words)
{
    UErrorCode status = U_ZERO_ERROR;
    const Symbols symbols(icu::Locale::getEnglish(), status);
    if (U_FAILURE(status))
        return;
    for (const auto width : {Symbols::WIDE, Symbols::ABBREVIATED}) {
        int32_t count = 0;
        const icu::UnicodeString *names = symbols.getMonths(count, Symbols::FORMAT, width);
        for (int32_t index = 0; index < count; ++index)
            words.addForeign(ICU::stringOf(names[index]), {Kind::Month, index + 1});
        names = symbols.getWeekdays(count, Symbols::FORMAT, width);
        for (int32_t index = 1; index < count; ++index)
            words.addForeign(ICU::stringOf(names[index]), {Kind::Weekday, index});
    }
    for (const QStringView name : {u"am", u"a.m.", u"a. m.", u"a m"})
        words.addForeign(name, {Kind::HalfOfDay, MorningHours});
    for (const QStringView name : {u"pm", u"p.m.", u"p. m.", u"p m"})
        words.addForeign(name, {Kind::HalfOfDay, AfternoonHours});
    words.addForeign(u"h", {Kind::HourMark});
}
