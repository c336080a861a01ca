#include "Report.h"

#include <KTUtility/NSArray_KTAdditions>

#include <QDate>
#include <QHash>
#include <QUuid>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
constexpr int Count = 20'000;

QDate dateOf(int number)
{
    return QDate(2000, 1, 1).addDays(number);
}

QUuid uuidOf(int number)
{
    return QUuid(uint(number), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10);
}

/// Records whose key has a value of a type, another one each.
template<typename Make>
QVariantList recordsOf(Make make)
{
    QVariantList records;
    for (int number = 0; number < Count; ++number)
        records.append(QVariantMap{{u"key"_s, QVariant::fromValue(make(number))}});
    return records;
}

template<auto Make>
void indexByKey(benchmark::State &state)
{
    const QVariantList records = recordsOf(Make);
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::dictionaryIndexWithKey(records, u"key"_s));
}

/// The same index, by somebody who knows the type.
template<auto Make>
void peerIndex(benchmark::State &state)
{
    const QVariantList records = recordsOf(Make);
    for (auto _ : state) {
        QHash<decltype(Make(0)), QVariant> index;
        for (const QVariant &record : records)
            index.insert(record.toMap().value(u"key"_s).value<decltype(Make(0))>(), record);
        benchmark::DoNotOptimize(index);
    }
}

int numberOf(int number)
{
    return number;
}

BENCHMARK(indexByKey<numberOf>)->Name("Index/20,000 by int");
BENCHMARK(peerIndex<numberOf>)->Name("Index/peer: QHash by int");
BENCHMARK(indexByKey<dateOf>)->Name("Index/20,000 by QDate");
BENCHMARK(peerIndex<dateOf>)->Name("Index/peer: QHash by QDate");
BENCHMARK(indexByKey<uuidOf>)->Name("Index/20,000 by QUuid");
BENCHMARK(peerIndex<uuidOf>)->Name("Index/peer: QHash by QUuid");

const bool isRegistered = compareWith("Index/20,000 by int", "Index/peer: QHash by int", 4) &&
                          compareWith("Index/20,000 by QDate", "Index/peer: QHash by QDate", 4) &&
                          compareWith("Index/20,000 by QUuid", "Index/peer: QHash by QUuid", 4);
} // namespace
