// Sorting by dates, beside the comparison of QDateTime itself.

#include "Report.h"

#include <KTUtility/NSSortDescriptor>

#include <QDateTime>
#include <QRandomGenerator>
#include <QVariantMap>

#include <benchmark/benchmark.h>

#include <algorithm>

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

BENCHMARK(sortByDate)->Name("Queries/10,000 local dates sorted")->Unit(benchmark::kMillisecond);
BENCHMARK(sortByComparison)
    ->Name("Queries/peer: QDateTime's comparison")
    ->Unit(benchmark::kMillisecond);

const bool isRegistered =
    compareWith("Queries/10,000 local dates sorted", "Queries/peer: QDateTime's comparison", 2);
} // namespace
