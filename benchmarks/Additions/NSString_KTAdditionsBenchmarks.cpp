// Texts without some of their characters, beside what Qt removes by a condition.

#include "Report.h"

#include <KTUtility/NSString_KTAdditions>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
/// A megabyte of words, one character in eight of which goes.
const QString &text()
{
    static const QString made = u"words-of seven letters each, more or less - "_s.repeated(12'000);
    return made;
}

void strip(benchmark::State &state)
{
    const NSCharacterSet set = NSCharacterSet::characterSetWithCharactersInString(u"-,."_s);
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::stringByStrippingCharactersInSet(text(), set));
}

void peerRemove(benchmark::State &state)
{
    for (auto _ : state) {
        QString stripped = text();
        stripped.removeIf([](QChar unit) { return unit == u'-' || unit == u',' || unit == u'.'; });
        benchmark::DoNotOptimize(stripped);
    }
}

BENCHMARK(strip)->Name("Texts/characters stripped, 500,000");
BENCHMARK(peerRemove)->Name("Texts/peer: QString::removeIf");

const bool isRegistered =
    compareWith("Texts/characters stripped, 500,000", "Texts/peer: QString::removeIf", 4);
} // namespace
