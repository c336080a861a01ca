// Sorting by keys, beside std::stable_sort() by what is sorted.

#include "Bindings/BindingRecords.h"
#include "Report.h"

#include <KTUtility/NSSortDescriptor>

#include <QDateTime>
#include <QRandomGenerator>
#include <QVariantMap>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int Count = 10'000;

/// Local times of 27 years.
const QList<QVariantMap> &appointments()
{
    static const QList<QVariantMap> made = [] {
        QRandomGenerator random(3);
        QList<QVariantMap> list;
        for (int index = 0; index < Count; ++index)
            list += QVariantMap{
                {u"at"_s, QDateTime(QDate(2000, 1, 1).addDays(random.bounded(10'000)),
                                    QTime::fromMSecsSinceStartOfDay(random.bounded(86'400'000)))}};
        return list;
    }();
    return made;
}

void sortByDate(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(NSSortDescriptor::sorted(appointments(), {{u"at"_s}}));
}

void sortByComparison(benchmark::State &state)
{
    for (auto _ : state) {
        QList<QVariantMap> list = appointments();
        std::stable_sort(list.begin(), list.end(), [](const auto &left, const auto &right) {
            return left.value(u"at"_s).toDateTime() < right.value(u"at"_s).toDateTime();
        });
        benchmark::DoNotOptimize(list);
    }
}

/// Records in no order, each beside another one.
const QList<Link *> &links()
{
    static std::vector<std::unique_ptr<Link>> owned;
    static const QList<Link *> made = [] {
        QRandomGenerator random(4);
        QList<Link *> list;
        for (int index = 0; index < Count; ++index) {
            owned.push_back(std::make_unique<Link>());
            owned.back()->setNumber(random.bounded(1'000'000));
            owned.back()->setNext(index > 0 ? list.back() : owned.back().get());
            list += owned.back().get();
        }
        return list;
    }();
    return made;
}

template<const char16_t *Path>
void sortByKey(benchmark::State &state)
{
    const QString path = QString::fromUtf16(Path);
    for (auto _ : state)
        benchmark::DoNotOptimize(NSSortDescriptor::sorted(links(), {{path}}));
}

template<int (*NumberOf)(const Link *)>
void sortByGetter(benchmark::State &state)
{
    for (auto _ : state) {
        QList<Link *> list = links();
        std::stable_sort(list.begin(), list.end(), [](const Link *left, const Link *right) {
            return NumberOf(left) < NumberOf(right);
        });
        benchmark::DoNotOptimize(list);
    }
}

constexpr char16_t Number[] = u"number";
constexpr char16_t NumberOfNext[] = u"next.number";

int numberOf(const Link *link)
{
    return link->number();
}

int numberOfNext(const Link *link)
{
    return link->next()->number();
}

BENCHMARK(sortByKey<Number>)->Name("Queries/10,000 records sorted by key");
BENCHMARK(sortByGetter<numberOf>)->Name("Queries/peer: std::stable_sort() by getter");
BENCHMARK(sortByKey<NumberOfNext>)->Name("Queries/10,000 records sorted by key path");
BENCHMARK(sortByGetter<numberOfNext>)->Name("Queries/peer: std::stable_sort() by two getters");
BENCHMARK(sortByDate)->Name("Queries/10,000 local dates sorted")->Unit(benchmark::kMillisecond);
BENCHMARK(sortByComparison)
    ->Name("Queries/peer: QDateTime's comparison")
    ->Unit(benchmark::kMillisecond);

const bool isRegistered =
    compareWith("Queries/10,000 local dates sorted", "Queries/peer: QDateTime's comparison", 2) &&
    compareWith("Queries/10,000 records sorted by key",
                "Queries/peer: std::stable_sort() by getter", 1.3) &&
    compareWith("Queries/10,000 records sorted by key path",
                "Queries/peer: std::stable_sort() by two getters", 1.3);
} // namespace
