#include "Bindings/BindingRecords.h"
#include "Report.h"

#include <KTUtility/KTPropertyBinder>
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

constexpr NSKeyValueObservingOptions Both =
    NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld;
constexpr char16_t OneKey[] = u"number";
constexpr char16_t ThreeKeys[] = u"next.next.number";

template<const char16_t *Path, NSKeyValueObservingOptions Options>
void notification(benchmark::State &state)
{
    Chain chain;
    Link &observed = Path == OneKey ? chain.last : chain.first;
    qint64 sum = 0;
    const NSKeyValueObservation observation(
        &observed, Path, Options, [&sum](const NSKeyValueChange &change) {
            sum += change.newValue ? change.newValue->toInt() : 1;
        });
    int number = 0;
    for (auto _ : state)
        chain.last.setNumber(++number);
    benchmark::DoNotOptimize(sum);
}

/// A record that shows the number of another one.
class Follower : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)

public:
    int number() const { return _number; }

public Q_SLOTS:
    void setNumber(int number)
    {
        _number = number;
        Q_EMIT numberChanged();
    }

Q_SIGNALS:
    void numberChanged();

private:
    int _number = 0;
};

/// What the binder takes the place of.
void peerSetting(benchmark::State &state)
{
    Link record;
    Follower follower;
    QObject::connect(&record, &Link::numberChanged, &follower,
                     [&] { follower.setNumber(record.number()); });
    int number = 0;
    for (auto _ : state)
        record.setNumber(++number);
    benchmark::DoNotOptimize(follower.number());
}

void binderValue(benchmark::State &state)
{
    Link record;
    Follower follower;
    KTPropertyBinder binder(u"number"_s, u"number"_s, &follower);
    binder.bind(u"number"_s, &record, u"number"_s);
    int number = 0;
    for (auto _ : state)
        record.setNumber(++number);
    benchmark::DoNotOptimize(follower.number());
}

BENCHMARK(peerSignal)->Name("Bindings/peer: signal and slot");
BENCHMARK(peerSetting)->Name("Bindings/peer: signal that sets a value");
BENCHMARK(notification<ThreeKeys, Both>)->Name("Bindings/notification along three keys");
BENCHMARK(notification<OneKey, 0>)->Name("Bindings/notification along one key");
BENCHMARK(notification<OneKey, Both>)->Name("Bindings/the same, old value kept");
BENCHMARK(binderValue)->Name("Bindings/a binder's value");

constexpr char Signal[] = "Bindings/peer: signal and slot";
const bool isRegistered =
    compareWith("Bindings/notification along three keys", Signal, 3) &&
    compareWith("Bindings/notification along one key", Signal, 1.5) &&
    compareWith("Bindings/the same, old value kept", Signal, 3) &&
    compareWith("Bindings/a binder's value", "Bindings/peer: signal that sets a value", 2);
} // namespace

#include "NSKeyValueObservationBenchmarks.moc"
