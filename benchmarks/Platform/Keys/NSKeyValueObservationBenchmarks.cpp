#include "Bindings/BindingRecords.h"
#include "Report.h"

#include <KTUtility/NSKeyValueObservation>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
/// What a slot of a view would do at least.
class Listener : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void changed() { ++_count; }

public:
    int _count = 0;
};

/// A chain of three, of which the last one changes.
struct Chain
{
    Chain()
    {
        first.setNext(&second);
        second.setNext(&last);
    }

    Link first, second, last;
};

void peerSignal(benchmark::State &state)
{
    Link record;
    Listener listener;
    QObject::connect(&record, &Link::numberChanged, &listener, &Listener::changed);
    for (auto _ : state)
        record.setNumber(listener._count);
}

void notification(benchmark::State &state)
{
    Chain chain;
    qint64 sum = 0;
    const NSKeyValueObservation observation(
        &chain.first, u"next.next.number"_s,
        NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld,
        [&sum](const NSKeyValueChange &change) { sum += change.newValue->toInt(); });
    int number = 0;
    for (auto _ : state)
        chain.last.setNumber(++number);
    benchmark::DoNotOptimize(sum);
}

BENCHMARK(peerSignal)->Name("Bindings/peer: signal and slot");
BENCHMARK(notification)->Name("Bindings/notification along three keys");

const bool isRegistered =
    compareWith("Bindings/notification along three keys", "Bindings/peer: signal and slot", 5);
} // namespace

#include "NSKeyValueObservationBenchmarks.moc"
