// The peers are ICU's own formatter, ready: one parse of the same text in the pattern that reads
// it, one format of the same date, or the creation of one formatter; and what Qt and GLib have for
// the same date.

#include "DatePeers.h"
#include "Report.h"

#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QLocale>

#include <benchmark/benchmark.h>

#include <glib.h>
#include <unicode/smpdtfmt.h>

#include <memory>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using FormatterList = std::vector<std::unique_ptr<NSDateFormatter>>;

const char16_t *const DatePatterns[] = {
    u"M-d-yy",       u"M/d/yy",    u"M.d.yy",     u"M-d-yyyy",    u"M/d/yyyy",   u"M.d.yyyy",
    u"M-d",          u"M/d",       u"M.d",        u"MMM d, yy",   u"MMMM d, yy", u"MMM d, yyyy",
    u"MMMM d, yyyy", u"MMM d",     u"MMMM d",     u"yy.M.d",      u"yy-M-d",     u"yy/M/d",
    u"yyyy.M.d",     u"yyyy-M-d",  u"yyyy/M/d",   u"d-M",         u"d/M",        u"d.M",
    u"d MMM yy",     u"d MMMM yy", u"d MMM yyyy", u"d MMMM yyyy", u"d MMM",      u"d-M-yy",
    u"d/M/yy",       u"d.M.yy",    u"d-M-yyyy",   u"d/M/yyyy",    u"d.M.yyyy",   u"yy.d.M",
    u"yy-d-M",       u"yy/d/M",    u"yyyy.d.M",   u"yyyy-d-M",    u"yyyy/d/M"};
const char16_t *const TimePatterns[] = {u"h:m:s a", u"h:m:sa", u"k:m:s", u"h:m a",
                                        u"h:ma",    u"k:m",    u"h a",   u"ha"};

constexpr qint64 DefaultTime = 1'203'526'800'000;

void configure(NSDateFormatter *formatter)
{
    static const NSLocale locale(u"en_US"_s);
    static const QDateTime date = QDateTime::fromMSecsSinceEpoch(DefaultTime, UTC);
    formatter->setFormatterBehavior(NSDateFormatterBehavior10_4);
    formatter->setLocale(locale);
    formatter->setDefaultDate(date);
    formatter->setLenient(false);
}

std::unique_ptr<NSDateFormatter> formatterOf(const QString &pattern)
{
    auto formatter = std::make_unique<NSDateFormatter>();
    configure(formatter.get());
    formatter->setDateFormat(pattern);
    return formatter;
}

template<size_t Count>
QStringList stringsOf(const char16_t *const (&patterns)[Count])
{
    QStringList list;
    for (const char16_t *const pattern : patterns)
        list += QString::fromUtf16(pattern);
    return list;
}

const QStringList datePatterns = stringsOf(DatePatterns);
const QStringList timePatterns = stringsOf(TimePatterns);

FormatterList formattersOf(const QStringList &patterns)
{
    FormatterList list;
    for (const QString &pattern : patterns)
        list.push_back(formatterOf(pattern));
    return list;
}

FormatterList formattersBehind(const QString &datePattern)
{
    FormatterList list;
    for (const QString &pattern : timePatterns)
        list.push_back(formatterOf(datePattern + u' ' + pattern));
    return list;
}

void appendStyles(FormatterList *list, bool isDate)
{
    for (unsigned style = 1; style <= 4; ++style) {
        auto formatter = std::make_unique<NSDateFormatter>();
        configure(formatter.get());
        formatter->setDateStyle(isDate ? style : 0);
        formatter->setTimeStyle(isDate ? 0 : style);
        list->push_back(std::move(formatter));
    }
}

/// The strict lists of a field in which dates and times are typed.
struct Field
{
    Field() : dates(formattersOf(datePatterns)), times(formattersOf(timePatterns))
    {
        appendStyles(&dates, true);
        appendStyles(&times, false);
        for (const auto &date : dates)
            both.push_back(formattersBehind(date->dateFormat()));
    }

    FormatterList dates;
    FormatterList times;
    std::vector<FormatterList> both;
};

const Field &field()
{
    static const Field made;
    return made;
}

bool readExactly(const FormatterList &list, const DateText &text, DateMatch *match)
{
    for (const auto &formatter : list) {
        if (DateFormatterAccess::parse(*formatter, text, match) && match->length == text.length())
            return true;
    }
    return false;
}

/// Dates, a date and time where a date leaves something over, then times.
bool readWith(const Field &lists, const QString &typed, DateMatch *match)
{
    const DateText text(typed);
    for (size_t index = 0; index < lists.dates.size(); ++index) {
        if (!DateFormatterAccess::parse(*lists.dates[index], text, match))
            continue;
        if (match->length == text.length() || readExactly(lists.both[index], text, match))
            return true;
    }
    return readExactly(lists.times, text, match);
}

template<const char16_t *Typed>
void cascade(benchmark::State &state)
{
    const QString text = QString::fromUtf16(Typed);
    DateMatch match;
    for (auto _ : state) {
        bool isRead = readWith(field(), text, &match);
        benchmark::DoNotOptimize(isRead);
    }
}

template<const char16_t *Pattern, const char16_t *Typed>
void one(benchmark::State &state)
{
    const auto formatter = formatterOf(QString::fromUtf16(Pattern));
    const QString text = QString::fromUtf16(Typed);
    for (auto _ : state) {
        NSRange range{0, text.size()};
        QVariant value;
        bool isRead = formatter->getObjectValue(&value, text, &range, nullptr);
        benchmark::DoNotOptimize(isRead);
    }
}

icu::SimpleDateFormat readyFormat(const char16_t *pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(icu::UnicodeString(pattern), icu::Locale("en_US"), status);
    format.adoptTimeZone(icu::TimeZone::createTimeZone(u"America/New_York"));
    format.setLenient(false);
    return format;
}

template<const char16_t *Pattern, const char16_t *Typed>
void peerParse(benchmark::State &state)
{
    const icu::SimpleDateFormat format = readyFormat(Pattern);
    const std::unique_ptr<icu::Calendar> calendar(format.getCalendar()->clone());
    const icu::UnicodeString text(Typed);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        calendar->clear();
        icu::ParsePosition position(0);
        format.parse(text, *calendar, position);
        double time = calendar->getTime(status);
        benchmark::DoNotOptimize(time);
    }
}

template<const char16_t *Pattern>
void peerFormat(benchmark::State &state)
{
    const icu::SimpleDateFormat format = readyFormat(Pattern);
    for (auto _ : state) {
        icu::UnicodeString text;
        format.format(double(DefaultTime), text);
        benchmark::DoNotOptimize(text);
    }
}

template<const char16_t *Pattern>
void show(benchmark::State &state)
{
    const auto formatter = formatterOf(QString::fromUtf16(Pattern));
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(DefaultTime, UTC);
    for (auto _ : state) {
        QString text = formatter->stringFromDate(date);
        benchmark::DoNotOptimize(text);
    }
}

void peerQtFormat(benchmark::State &state)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(DefaultTime);
    const QString pattern = u"M/d/yyyy"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(locale.toString(date, pattern));
}

void peerQtParse(benchmark::State &state)
{
    const QLocale locale(QLocale::English, QLocale::UnitedStates);
    const QString pattern = u"M/d/yy"_s;
    const QString text = u"3/4/08"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(locale.toDateTime(text, pattern));
}

void peerGLibFormat(benchmark::State &state)
{
    const std::unique_ptr<GDateTime, decltype(&g_date_time_unref)> date(
        g_date_time_new_from_unix_local(DefaultTime / 1000), g_date_time_unref);
    for (auto _ : state) {
        const std::unique_ptr<gchar, decltype(&g_free)> text(
            g_date_time_format(date.get(), "%m/%d/%Y"), g_free);
        benchmark::DoNotOptimize(text);
    }
}

/// A new field: its 60 or so formatters, and the first text that goes through all of them.
void firstParse(benchmark::State &state)
{
    const QString typed = u"9:05"_s;
    for (auto _ : state) {
        FormatterList dates = formattersOf(datePatterns);
        FormatterList times = formattersOf(timePatterns);
        appendStyles(&dates, true);
        appendStyles(&times, false);
        DateMatch match;
        const DateText text(typed);
        bool isRead = readExactly(dates, text, &match) || readExactly(times, text, &match);
        benchmark::DoNotOptimize(isRead);
    }
}

void makeEnvironment(benchmark::State &state)
{
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(DefaultTime, UTC);
    for (auto _ : state) {
        const auto formatter = formatterOf(u"M/d/yy"_s);
        formatter->setAMSymbol(u"am"_s);
        QString text = formatter->stringFromDate(date);
        benchmark::DoNotOptimize(text);
    }
}

constexpr char16_t NumericPattern[] = u"M/d/yy";
constexpr char16_t Numeric[] = u"3/4/08";
constexpr char16_t BothPattern[] = u"M/d/yy h:m a";
constexpr char16_t Both[] = u"3/4/08 5:30 PM";
constexpr char16_t TimePattern[] = u"k:m";
constexpr char16_t Time[] = u"9:05";
constexpr char16_t NamePattern[] = u"MMM d, yyyy";
constexpr char16_t Name[] = u"March 5, 2008";
constexpr char16_t Junk[] = u"tomorrow";
constexpr char16_t MonthLike[] = u"may be";
constexpr char16_t DateAndJunk[] = u"3/4/08 5:30 PM x";
constexpr char16_t Displayed[] = u"M/d/yyyy";
constexpr char16_t DisplayedName[] = u"EEEE, MMMM d, y";
constexpr char16_t DisplayedZone[] = u"h:mm:ss a zzzz";

/// Registers a way of ours beside its peer; null for what is registered already.
bool pair(const char *operation, const char *peer, double limit, void (*ours)(benchmark::State &),
          void (*other)(benchmark::State &))
{
    if (ours)
        benchmark::RegisterBenchmark(operation, ours);
    if (other)
        benchmark::RegisterBenchmark(peer, other);
    return compareWith(operation, peer, limit);
}

const bool registered = [] {
    qputenv("TZ", "America/New_York");
    pair("Dates/read, first pattern", "Dates/peer: ICU parse of a date", 0.2,
         one<NumericPattern, Numeric>, peerParse<NumericPattern, Numeric>);
    pair("Dates/read, first pattern", "Dates/peer: QLocale::toDateTime", 0.2, nullptr, peerQtParse);
    pair("Dates/read, most recent", "Dates/peer: ICU parse of date and time", 0.2,
         one<BothPattern, Both>, peerParse<BothPattern, Both>);
    pair("Dates/read, date among all", "Dates/peer: ICU parse of a date", 0.2, cascade<Numeric>,
         nullptr);
    pair("Dates/read, date and time among all", "Dates/peer: ICU parse of date and time", 0.5,
         cascade<Both>, nullptr);
    pair("Dates/read, time alone among all", "Dates/peer: ICU parse of a time", 0.5, cascade<Time>,
         peerParse<TimePattern, Time>);
    pair("Dates/read, month name among all", "Dates/peer: ICU parse of a month name", 0.3,
         cascade<Name>, peerParse<NamePattern, Name>);
    pair("Dates/refused", "Dates/peer: ICU parse of a date", 0.3, cascade<Junk>, nullptr);
    pair("Dates/refused, begins as a month", "Dates/peer: ICU parse of a date", 0.5,
         cascade<MonthLike>, nullptr);
    pair("Dates/refused, date, time and junk", "Dates/peer: ICU parse of date and time", 0.8,
         cascade<DateAndJunk>, nullptr);
    pair("Dates/show, numeric", "Dates/peer: ICU format, numeric", 0.25, show<Displayed>,
         peerFormat<Displayed>);
    pair("Dates/show, numeric", "Dates/peer: QLocale::toString", 1, nullptr, peerQtFormat);
    pair("Dates/show, numeric", "Dates/peer: g_date_time_format", 1, nullptr, peerGLibFormat);
    pair("Dates/show, with names", "Dates/peer: ICU format with names", 0.3, show<DisplayedName>,
         peerFormat<DisplayedName>);
    pair("Dates/show, with zone", "Dates/peer: ICU format with zone", 0.3, show<DisplayedZone>,
         peerFormat<DisplayedZone>);
    pair("Dates/first text of new formatters", "Dates/peer: SimpleDateFormat made", 1.5, firstParse,
         peerDateFormatMade);
    return pair("Dates/first text in a new locale", "Dates/peer: SimpleDateFormat made", 6,
                makeEnvironment, nullptr);
}();
} // namespace
