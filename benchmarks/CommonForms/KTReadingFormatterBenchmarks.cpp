// What people type, in fields that read common forms. The peers are one ready ICU parse of a text of
// the same kind, in the pattern that reads it.

#include "Report.h"

#include <KTUtility/KTColumnReading>
#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTTimeFormatter>

#include <benchmark/benchmark.h>

#include <unicode/decimfmt.h>
#include <unicode/smpdtfmt.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
constexpr char16_t Day[] = u"Wed 5 March 2008";
constexpr char16_t DayPattern[] = u"EEE d MMMM yyyy";
constexpr char16_t Moment[] = u"5 March 2008 at 17:30";
constexpr char16_t MomentPattern[] = u"d MMMM yyyy 'at' HH:mm";
constexpr char16_t Clock[] = u"half past noon-ish";
constexpr char16_t Hours[] = u"17h30";
constexpr char16_t HoursPattern[] = u"HH'h'mm";
constexpr char16_t Offset[] = u"3 days ago";
constexpr char16_t Prose[] = u"some time in spring";
constexpr char16_t Fraction[] = u"1 3/4";
constexpr char16_t Amount[] = u"10 dollars";
constexpr char16_t Cows[] = u"10 cows";
constexpr char16_t Duration[] = u"1:30";
constexpr char16_t Units[] = u"1.5 hours";
constexpr char16_t Number[] = u"1234.5678";

template<const char16_t *Pattern, const char16_t *Typed>
void peerDateParse(benchmark::State &state)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString pattern(Pattern);
    const icu::SimpleDateFormat format(pattern, icu::Locale("en_US"), status);
    const icu::UnicodeString typed(Typed);
    for (auto _ : state) {
        icu::ParsePosition position(0);
        UDate date = format.parse(typed, position);
        benchmark::DoNotOptimize(date);
    }
}

void peerNumberParse(benchmark::State &state)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale("en_US"), UNUM_DECIMAL, status));
    format->setLenient(true);
    const icu::UnicodeString typed(Number);
    for (auto _ : state) {
        icu::Formattable number;
        icu::ParsePosition position(0);
        format->parse(typed, number, position);
        benchmark::DoNotOptimize(number);
    }
}

/// The row says whether the text was read.
template<typename Formatter, const char16_t *Typed>
void read(benchmark::State &state)
{
    Formatter formatter;
    formatter.setReadsCommonForms(true);
    const QString text = QString::fromUtf16(Typed);
    QVariant value;
    bool isRead = false;
    for (auto _ : state) {
        isRead = formatter.getObjectValue(&value, text);
        benchmark::DoNotOptimize(isRead);
    }
    state.counters["read"] = isRead ? 1 : 0;
}

/// One text of a column that is looked at, and then read.
void addToColumn(benchmark::State &state)
{
    KTColumnReading column(KTColumnReading::Dates, NSLocale(u"en_US"_s));
    const QString text = u"3/2/2016"_s;
    for (auto _ : state)
        column.add(text);
    benchmark::DoNotOptimize(column.ambiguousCount());
}

void readInColumn(benchmark::State &state)
{
    const KTDateTimeFormatter formatter;
    KTColumnReading column(KTColumnReading::Dates, NSLocale(u"en_US"_s));
    column.add(u"13/2/2016"_s);
    const QString text = u"3/2/2016"_s;
    QVariant value;
    for (auto _ : state)
        benchmark::DoNotOptimize(column.getObjectValue(formatter, &value, text));
}

BENCHMARK(peerDateParse<DayPattern, Day>)->Name("Common/peer: ICU parse of a date");
BENCHMARK(peerDateParse<MomentPattern, Moment>)->Name("Common/peer: ICU parse of date and time");
BENCHMARK(peerDateParse<HoursPattern, Hours>)->Name("Common/peer: ICU parse of a time");
BENCHMARK(peerNumberParse)->Name("Common/peer: ICU parse of a number");
BENCHMARK(read<KTDateTimeFormatter, Day>)->Name("Common/date hit");
BENCHMARK(read<KTDateTimeFormatter, Moment>)->Name("Common/date and time hit");
BENCHMARK(read<KTDateTimeFormatter, Offset>)->Name("Common/relative date hit");
BENCHMARK(read<KTDateTimeFormatter, Prose>)->Name("Common/date rejected");
BENCHMARK(read<KTTimeFormatter, Hours>)->Name("Common/time hit");
BENCHMARK(read<KTTimeFormatter, Clock>)->Name("Common/time rejected");
BENCHMARK(read<KTNumberFormatter, Fraction>)->Name("Common/number hit");
BENCHMARK(read<KTNumberFormatter, Cows>)->Name("Common/number rejected");
BENCHMARK(read<KTCurrencyFormatter, Amount>)->Name("Common/money hit");
BENCHMARK(read<KTCurrencyFormatter, Cows>)->Name("Common/money rejected");
BENCHMARK(read<KTDurationFormatter, Duration>)->Name("Common/clock hit");
BENCHMARK(read<KTDurationFormatter, Units>)->Name("Common/duration hit");
BENCHMARK(read<KTDurationFormatter, Cows>)->Name("Common/duration rejected");
BENCHMARK(addToColumn)->Name("Common/column, one more text");
BENCHMARK(readInColumn)->Name("Common/column, a date read by it");

constexpr const char *Date = "Common/peer: ICU parse of a date";
constexpr const char *DateAndTime = "Common/peer: ICU parse of date and time";
constexpr const char *Time = "Common/peer: ICU parse of a time";
constexpr const char *ANumber = "Common/peer: ICU parse of a number";
constexpr double Hit = 2;
constexpr double Rejected = 1;

const bool isReported = compareWith("Common/date hit", Date, Hit) &&
                        compareWith("Common/date and time hit", DateAndTime, Hit) &&
                        compareWith("Common/relative date hit", Date, Hit) &&
                        compareWith("Common/date rejected", Date, Rejected) &&
                        compareWith("Common/time hit", Time, Hit) &&
                        compareWith("Common/time rejected", Time, Rejected) &&
                        compareWith("Common/number hit", ANumber, Hit) &&
                        compareWith("Common/number rejected", ANumber, Rejected) &&
                        compareWith("Common/money hit", ANumber, Hit) &&
                        compareWith("Common/money rejected", ANumber, Rejected) &&
                        compareWith("Common/clock hit", ANumber, Hit) &&
                        compareWith("Common/duration hit", ANumber, Hit) &&
                        compareWith("Common/duration rejected", ANumber, Rejected) &&
                        compareWith("Common/column, one more text", Date, Rejected) &&
                        compareWith("Common/column, a date read by it", Date, Hit);
} // namespace
