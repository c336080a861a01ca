#include "Report.h"

#include <KTUtility/KTStringTransformCache>
#include <KTUtility/NSString_KTNaming>

#include <QHash>
#include <QStringList>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
const QStringList &names()
{
    static const QStringList list = [] {
        QStringList made;
        for (int index = 0; index < 1000; ++index)
            made += u"Field Name %1"_s.arg(index);
        return made;
    }();
    return list;
}

void peerHash(benchmark::State &state)
{
    QHash<QString, QString> table;
    for (const QString &name : names())
        table.insert(name, name.toLower());
    for (auto _ : state) {
        for (const QString &name : names())
            benchmark::DoNotOptimize(table.value(name));
    }
}

template<QString (*Transform)(const QString &)>
void cached(benchmark::State &state)
{
    for (const QString &name : names())
        Transform(name);
    for (auto _ : state) {
        for (const QString &name : names())
            benchmark::DoNotOptimize(Transform(name));
    }
}

void cold(benchmark::State &state)
{
    auto &domain = KTStringTransformCache::sharedCache()->domain(u"properties"_s);
    for (auto _ : state) {
        domain.clear();
        for (const QString &name : names())
            benchmark::DoNotOptimize(KTAdditions::propertyString(name));
    }
}

BENCHMARK(peerHash)->Name("Naming/peer: 1,000 QHash look-ups");
BENCHMARK(cached<KTAdditions::propertyString>)->Name("Naming/1,000 cached property strings");
BENCHMARK(cached<KTAdditions::entityString>)->Name("Naming/1,000 cached entity strings");
BENCHMARK(cached<KTAdditions::tableColumnString>)->Name("Naming/1,000 cached column names");
BENCHMARK(cold)->Name("Naming/1,000 cold property strings");

constexpr char Peer[] = "Naming/peer: 1,000 QHash look-ups";
const bool isRegistered = compareWith("Naming/1,000 cached property strings", Peer, 1.2) &&
                          compareWith("Naming/1,000 cached entity strings", Peer, 1.2) &&
                          compareWith("Naming/1,000 cached column names", Peer, 1.2) &&
                          compareWith("Naming/1,000 cold property strings", Peer, 30);
} // namespace
