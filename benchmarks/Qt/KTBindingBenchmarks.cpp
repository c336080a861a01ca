// Values that follow each other, and a form over a selection, beside what Qt has for them.

#include "Purchase.h"
#include "Report.h"
#include "Screen.h"

#include <KTUtility/KTArrayModel>
#include <KTUtility/KTBinding>
#include <KTUtility/KTFormatterEdit>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSArrayController>

#include <QDataWidgetMapper>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QProperty>
#include <QStandardItemModel>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int RowCount = 100;

/// A value that is set in one object, seen by the other.
void followByMembers(benchmark::State &state)
{
    Purchase source(u"Tea"_s, 0);
    Purchase target(u"Tea"_s, 0);
    const KTBinding binding = KT::bind(&target, &Purchase::amount, &Purchase::setAmount, &source,
                                       &Purchase::amount, &Purchase::setAmount);
    double amount = 0;
    for (auto _ : state)
        source.setAmount(++amount);
    benchmark::DoNotOptimize(target.amount());
}

/// What each change of a value is worth: a signal that sets another one, which tells of that itself.
void followBySignal(benchmark::State &state)
{
    Purchase source(u"Tea"_s, 0);
    Purchase target(u"Tea"_s, 0);
    QObject::connect(&source, &Purchase::amountChanged, &target,
                     [&] { target.setAmount(source.amount()); });
    double amount = 0;
    for (auto _ : state)
        source.setAmount(++amount);
    benchmark::DoNotOptimize(target.amount());
}

void observeByMember(benchmark::State &state)
{
    Purchase source(u"Tea"_s, 0);
    double sum = 0;
    const KTObservation observation =
        KT::observe(&source, &Purchase::amount, [&sum](double, double now) { sum += now; });
    double amount = 0;
    for (auto _ : state)
        source.setAmount(++amount);
    benchmark::DoNotOptimize(sum);
}

void observeBySignal(benchmark::State &state)
{
    Purchase source(u"Tea"_s, 0);
    double sum = 0;
    QObject::connect(&source, &Purchase::amountChanged, &source, [&] { sum += source.amount(); });
    double amount = 0;
    for (auto _ : state)
        source.setAmount(++amount);
    benchmark::DoNotOptimize(sum);
}

void followByQProperty(benchmark::State &state)
{
    QProperty<double> source(0);
    QProperty<double> target;
    target.setBinding([&source] { return source.value(); });
    double amount = 0;
    double sum = 0;
    for (auto _ : state) {
        source = ++amount;
        // It is computed when it is asked for.
        sum += target.value();
    }
    benchmark::DoNotOptimize(sum);
}

/// Another record is selected, and the form shows its title and its amount.
void formByBinder(benchmark::State &state)
{
    const Screen screen;
    std::vector<std::unique_ptr<Purchase>> purchases;
    QVariantList content;
    for (int row = 0; row < RowCount; ++row) {
        purchases.push_back(std::make_unique<Purchase>(u"Tea %1"_s.arg(row), row));
        content += QVariant::fromValue(purchases.back().get());
    }
    NSArrayController controller;
    controller.setContent(content);
    KTFormatterEdit title;
    KTFormatterEdit amount(std::make_shared<KTNumberFormatter>());
    title.bindTo(&controller, u"selection.title"_s);
    amount.bindTo(&controller, u"selection.amount"_s);
    quint64 row = 0;
    for (auto _ : state)
        controller.setSelectionIndex(qsizetype(++row % RowCount));
    benchmark::DoNotOptimize(title.text().size() + amount.text().size());
}

void formByMapper(benchmark::State &state)
{
    const Screen screen;
    QStandardItemModel model(RowCount, 2);
    for (int row = 0; row < RowCount; ++row) {
        model.setData(model.index(row, 0), u"Tea %1"_s.arg(row));
        model.setData(model.index(row, 1), double(row));
    }
    QLineEdit title;
    QLineEdit amount;
    QDataWidgetMapper mapper;
    mapper.setModel(&model);
    mapper.addMapping(&title, 0);
    mapper.addMapping(&amount, 1);
    int row = 0;
    for (auto _ : state)
        mapper.setCurrentIndex(++row % RowCount);
    benchmark::DoNotOptimize(title.text().size() + amount.text().size());
}

BENCHMARK(followByMembers)->Name("Qt/a value followed by members");
BENCHMARK(followBySignal)->Name("Qt/peer: signal that sets a value");
BENCHMARK(observeByMember)->Name("Qt/a value observed by member");
BENCHMARK(observeBySignal)->Name("Qt/peer: signal and slot");
BENCHMARK(followByQProperty)->Name("Qt/peer: QProperty followed");
BENCHMARK(formByBinder)->Name("Qt/a form shows another record");
BENCHMARK(formByMapper)->Name("Qt/peer: QDataWidgetMapper shows another record");

const bool isRegistered =
    compareWith("Qt/a value followed by members", "Qt/peer: QProperty followed", 20) &&
    compareWith("Qt/a value followed by members", "Qt/peer: signal that sets a value", 3) &&
    compareWith("Qt/a value observed by member", "Qt/peer: signal and slot", 1.5) &&
    compareWith("Qt/a form shows another record", "Qt/peer: QDataWidgetMapper shows another record",
                3);
} // namespace
