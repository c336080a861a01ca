// What looks for things in texts, beside one pass over their units.

#include "Report.h"

#include <KTUtility/KTDurationFormatter>
#include <KTUtility/NSAttributedString_KTAdditions>

#include <benchmark/benchmark.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// Prose with a link in every tenth word or so.
const QString &prose()
{
    static const QString text =
        u"It is said that all of them are listed at www.example.com for everybody to see, "_s
            .repeated(500);
    return text;
}

/// Every unit is looked at once, as for the end of a word.
void peerPass(benchmark::State &state)
{
    const QString text = prose();
    for (auto _ : state)
        benchmark::DoNotOptimize(std::count_if(text.begin(), text.end(), [](QChar unit) {
            return unit.isSpace() || unit == u':' || unit == u'w';
        }));
}

void findLinks(benchmark::State &state)
{
    for (auto _ : state) {
        NSAttributedString text(prose());
        KTURLTextAdditions::detectURLs(text);
        benchmark::DoNotOptimize(text);
    }
}

/// The texts that people type, one behind the other.
const QStringList &durations()
{
    static const QStringList texts{u"2:30"_s, u"1h 30m"_s, u"90 minutes"_s, u"1:02:03"_s};
    return texts;
}

void peerDurationPass(benchmark::State &state)
{
    for (auto _ : state) {
        for (const QString &text : durations())
            benchmark::DoNotOptimize(std::count_if(text.begin(), text.end(), [](QChar unit) {
                return unit.isSpace() || unit.isDigit() || unit.isLetter();
            }));
    }
}

void readDurations(benchmark::State &state)
{
    const KTDurationFormatter formatter;
    for (auto _ : state) {
        for (const QString &text : durations()) {
            QVariant value;
            benchmark::DoNotOptimize(formatter.getObjectValue(&value, text));
        }
    }
}

BENCHMARK(peerPass)->Name("Texts/peer: one pass over 41,000 units");
BENCHMARK(findLinks)->Name("Texts/links in 41,000 units");
BENCHMARK(peerDurationPass)->Name("Texts/peer: one pass over four durations");
BENCHMARK(readDurations)->Name("Texts/four durations read");

const bool isRegistered =
    compareWith("Texts/links in 41,000 units", "Texts/peer: one pass over 41,000 units", 20) &&
    compareWith("Texts/four durations read", "Texts/peer: one pass over four durations", 60);
} // namespace
