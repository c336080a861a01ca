// Date and time fields: a typed text through all that is tried. The peers are one ready ICU parse
// in the pattern that reads the text, and the creation of one ICU formatter.

#include "DatePeers.h"
#include "Report.h"

#include <KTUtility/KTDateTimeFormatter>

#include <benchmark/benchmark.h>

#include <unicode/smpdtfmt.h>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
constexpr char16_t Numeric[] = u"3/4/08";
constexpr char16_t NumericPattern[] = u"M/d/yy";
constexpr char16_t Named[] = u"March 5, 2008";
constexpr char16_t NamedPattern[] = u"MMM d, yyyy";
constexpr char16_t Both[] = u"3/4/08 5:30 PM";
constexpr char16_t BothPattern[] = u"M/d/yy h:m a";
constexpr char16_t Time[] = u"9:05";
constexpr char16_t TimePattern[] = u"k:m";
constexpr char16_t Shown[] = u"3/4/2008 5:30 PM";
constexpr char16_t Standard[] = u"2008-03-04T17:30:00+01:00";
constexpr char16_t Mail[] = u"Tue, 4 Mar 2008 17:30:00 +0100";
constexpr char16_t Unreadable[] = u"2008-03-04 something";
constexpr char16_t Nothing[] = u"tomorrow";
constexpr char16_t Monthly[] = u"may be";
constexpr char16_t Junk[] = u"3/4/08 5:30 PM x";

/// One ready ICU parse in one pattern.
class ReadyParse
{
public:
    ReadyParse(const char16_t *pattern, const char16_t *typed)
        : _format(icu::UnicodeString(pattern), icu::Locale("en_US"), _status)
        , _calendar(_format.getCalendar()->clone())
        , _typed(typed)
    {
        _format.setLenient(false);
    }

    void run()
    {
        _calendar->clear();
        icu::ParsePosition position(0);
        _format.parse(_typed, *_calendar, position);
        double time = _calendar->getTime(_status);
        benchmark::DoNotOptimize(time);
    }

private:
    UErrorCode _status = U_ZERO_ERROR;
    icu::SimpleDateFormat _format;
    std::unique_ptr<icu::Calendar> _calendar;
    icu::UnicodeString _typed;
};

template<const char16_t *Pattern, const char16_t *Typed>
void peerParse(benchmark::State &state)
{
    ReadyParse parse(Pattern, Typed);
    for (auto _ : state)
        parse.run();
}

/// The peer of what reads a text after one of ISO 8601.
template<const char16_t *Pattern, const char16_t *Typed>
void peerParseAnew(benchmark::State &state)
{
    ReadyParse iso(u"yyyy-MM-dd", u"2008-03-04");
    ReadyParse parse(Pattern, Typed);
    for (auto _ : state) {
        iso.run();
        parse.run();
    }
}

/// The same text again and again: the formatter that read it is tried first.
template<const char16_t *Typed>
void readAgain(benchmark::State &state)
{
    const KTDateTimeFormatter formatter;
    const QString text = QString::fromUtf16(Typed);
    QVariant value;
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.getObjectValue(&value, text));
}

/// The text after one that ISO 8601 read, so that nothing is remembered.
template<const char16_t *Typed>
void readAnew(benchmark::State &state)
{
    const KTDateTimeFormatter formatter;
    const QString text = QString::fromUtf16(Typed);
    const QString iso = u"2008-03-04"_s;
    QVariant value;
    for (auto _ : state) {
        formatter.getObjectValue(&value, iso);
        benchmark::DoNotOptimize(formatter.getObjectValue(&value, text));
    }
}

/// In a field that reads common forms and shows the time as well.
template<const char16_t *Typed>
void readInForms(benchmark::State &state)
{
    KTDateTimeFormatter formatter;
    formatter.setDisplayTime(true);
    formatter.setReadsCommonForms(true);
    const QString text = QString::fromUtf16(Typed);
    QVariant value;
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.getObjectValue(&value, text));
}

void readInANewField(benchmark::State &state)
{
    const QString text = QString::fromUtf16(Numeric);
    QVariant value;
    for (auto _ : state) {
        const KTDateTimeFormatter formatter;
        benchmark::DoNotOptimize(formatter.getObjectValue(&value, text));
    }
}

void makeHundredFields(benchmark::State &state)
{
    for (auto _ : state) {
        const std::array<KTDateTimeFormatter, 100> fields;
        for (const KTDateTimeFormatter &field : fields) {
            benchmark::DoNotOptimize(field.strictDateFormatters());
            benchmark::DoNotOptimize(field.strictTimeFormatters());
        }
    }
}

BENCHMARK(peerParse<NumericPattern, Numeric>)->Name("Fields/peer: ICU parse");
BENCHMARK(peerParse<BothPattern, Both>)->Name("Fields/peer: ICU parse, date and time");
BENCHMARK(peerParseAnew<NumericPattern, Numeric>)->Name("Fields/peer: ICU parses, ISO and date");
BENCHMARK(peerParseAnew<BothPattern, Both>)->Name("Fields/peer: ICU parses, ISO and both");
BENCHMARK(peerParseAnew<TimePattern, Time>)->Name("Fields/peer: ICU parses, ISO and time");
BENCHMARK(peerParseAnew<NamedPattern, Named>)->Name("Fields/peer: ICU parses, ISO and name");
BENCHMARK(peerDateFormatMade)->Name("Fields/peer: ICU creation");
BENCHMARK(readAgain<Numeric>)->Name("Fields/date, most recent");
BENCHMARK(readAnew<Numeric>)->Name("Fields/ISO, then date");
BENCHMARK(readAgain<Both>)->Name("Fields/date and time, most recent");
BENCHMARK(readAnew<Both>)->Name("Fields/ISO, then date and time");
BENCHMARK(readAnew<Time>)->Name("Fields/ISO, then time alone");
BENCHMARK(readAnew<Named>)->Name("Fields/ISO, then month name");
BENCHMARK(readAgain<Nothing>)->Name("Fields/nothing reads it");
BENCHMARK(readAgain<Monthly>)->Name("Fields/begins as a month");
BENCHMARK(readAgain<Junk>)->Name("Fields/date, time and junk");
BENCHMARK(readInForms<Shown>)->Name("Fields/common forms, shown");
BENCHMARK(readInForms<Standard>)->Name("Fields/common forms, ISO 8601");
BENCHMARK(readInForms<Mail>)->Name("Fields/common forms, mail");
BENCHMARK(readInForms<Unreadable>)->Name("Fields/common forms, rejected");
BENCHMARK(readInANewField)->Name("Fields/first text in a new field");
BENCHMARK(makeHundredFields)->Name("Fields/a hundred new fields");

constexpr char Parse[] = "Fields/peer: ICU parse";
constexpr char ParseBoth[] = "Fields/peer: ICU parse, date and time";
constexpr char Create[] = "Fields/peer: ICU creation";
const bool isRegistered =
    compareWith("Fields/date, most recent", Parse, 0.2) &&
    compareWith("Fields/ISO, then date", "Fields/peer: ICU parses, ISO and date", 0.2) &&
    compareWith("Fields/date and time, most recent", ParseBoth, 0.2) &&
    compareWith("Fields/ISO, then date and time", "Fields/peer: ICU parses, ISO and both", 0.5) &&
    compareWith("Fields/ISO, then time alone", "Fields/peer: ICU parses, ISO and time", 0.5) &&
    compareWith("Fields/ISO, then month name", "Fields/peer: ICU parses, ISO and name", 0.3) &&
    compareWith("Fields/nothing reads it", Parse, 0.3) &&
    compareWith("Fields/begins as a month", Parse, 0.5) &&
    compareWith("Fields/date, time and junk", ParseBoth, 0.8) &&
    compareWith("Fields/common forms, shown", ParseBoth, 2) &&
    compareWith("Fields/common forms, ISO 8601", ParseBoth, 2) &&
    compareWith("Fields/common forms, mail", ParseBoth, 2) &&
    compareWith("Fields/common forms, rejected", ParseBoth, 1) &&
    compareWith("Fields/first text in a new field", Create, 1.5) &&
    compareWith("Fields/a hundred new fields", Create, 3);
} // namespace
