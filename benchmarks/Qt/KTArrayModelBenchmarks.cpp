// A table of 100,000 rows, beside Qt's own proxy over a model of the same objects.

#include "Purchase.h"
#include "Report.h"
#include "Screen.h"

#include <KTUtility/KTArrayModel>
#include <KTUtility/NSArrayController>
#include <KTUtility/NSKeyValueObservation>

#include <QSortFilterProxyModel>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <concepts>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int Count = 100'000;

const std::vector<std::unique_ptr<Purchase>> &purchases()
{
    static const auto made = [] {
        const QStringList words{u"Bread"_s, u"butter"_s, u"Apples"_s, u"train ticket"_s,
                                u"Hotel"_s, u"paper"_s,  u"Ink"_s,    u"tea"_s};
        std::vector<std::unique_ptr<Purchase>> list;
        for (int row = 0; row < Count; ++row)
            list.push_back(std::make_unique<Purchase>(
                words.at(row % 8) + QString::number(row * 7919 % Count), row * 31 % 5000));
        return list;
    }();
    return made;
}

QVariantList boxed()
{
    QVariantList list;
    for (const auto &each : purchases())
        list += QVariant::fromValue(each.get());
    return list;
}

/// What somebody types into a search field, letter by letter, and takes back.
const QStringList &typed()
{
    static const QStringList texts{u"t"_s, u"ti"_s, u"tic"_s, u"ti"_s, u"t"_s, u""_s};
    return texts;
}

/// The same objects in a model as people write it, for the proxy.
class PlainModel : public QAbstractTableModel
{
public:
    PlainModel()
    {
        for (int row = 0; row < Count; ++row) {
            Purchase *const each = purchases()[size_t(row)].get();
            QObject::connect(each, &Purchase::amountChanged, this, [this, row] {
                const QModelIndex cell = index(row, 1);
                Q_EMIT dataChanged(cell, cell);
            });
        }
    }
    int rowCount(const QModelIndex & = {}) const override { return Count; }
    int columnCount(const QModelIndex & = {}) const override { return 2; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        const Purchase &each = *purchases()[size_t(index.row())];
        return index.column() == 0 ? QVariant(each.title()) : QVariant(each.amount());
    }
};

/// A table as large as people have it.
template<typename Model>
struct Shown : Screen
{
    explicit Shown(Model &model)
    {
        if constexpr (std::same_as<Model, KTArrayModel>)
            model.attach(&table);
        else
            table.setModel(&model);
        table.resize(600, 800);
        table.show();
        paint();
    }
    void paint()
    {
        table.grab();
        QCoreApplication::processEvents();
    }

    QTableView table;
};

struct Ours
{
    Ours()
    {
        controller.setContent(boxed());
        shown.paint();
    }

    void search(const QString &text)
    {
        if (text.isEmpty()) {
            controller.setFilterPredicate({});
            return;
        }
        controller.setFilterPredicate(NSPredicate::predicateWithBlock([text](const QVariant &each) {
            return each.value<Purchase *>()->title().contains(text, Qt::CaseInsensitive);
        }));
    }

    NSArrayController controller;
    KTArrayModel model{&controller, {{u"title"_s, u"Title"_s}, {u"amount"_s, u"Amount"_s}}};
    Shown<KTArrayModel> shown{model};
};

struct Peer
{
    Peer()
    {
        proxy.setSourceModel(&model);
        proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    }

    void search(const QString &text) { proxy.setFilterFixedString(text); }

    PlainModel model;
    QSortFilterProxyModel proxy;
    Shown<QSortFilterProxyModel> shown{proxy};
};

template<typename Table>
void keystroke(benchmark::State &state)
{
    Table table;
    qsizetype turn = 0;
    for (auto _ : state)
        table.search(typed().at(turn++ % typed().size()));
}

void keystrokeSorted(benchmark::State &state)
{
    Ours table;
    table.controller.setSortDescriptors({{u"amount"_s, true}});
    qsizetype turn = 0;
    for (auto _ : state)
        table.search(typed().at(turn++ % typed().size()));
}

void keystrokeSortedByPeer(benchmark::State &state)
{
    Peer table;
    table.proxy.sort(1);
    qsizetype turn = 0;
    for (auto _ : state)
        table.search(typed().at(turn++ % typed().size()));
}

void sortClick(benchmark::State &state)
{
    Ours table;
    int turn = 0;
    for (auto _ : state)
        table.model.sort(1, Qt::SortOrder(++turn % 2));
}

void sortClickOfPeer(benchmark::State &state)
{
    Peer table;
    int turn = 0;
    for (auto _ : state)
        table.proxy.sort(1, Qt::SortOrder(++turn % 2));
}

/// A value of a row that is shown.
template<typename Table>
void change(benchmark::State &state)
{
    Table table;
    double amount = 0;
    for (auto _ : state)
        purchases()[3]->setAmount(++amount);
}

/// A value of a row that is not shown: nobody observes it.
void changeOutOfSight(benchmark::State &state)
{
    const Ours table;
    double amount = 0;
    for (auto _ : state)
        purchases()[Count / 2]->setAmount(++amount);
}

/// What it costs to observe a key of an object, and to end that.
void observeKey(benchmark::State &state)
{
    Purchase &purchase = *purchases().front();
    for (auto _ : state)
        const NSKeyValueObservation observation(&purchase, u"amount", {},
                                                [](const NSKeyValueChange &) {});
}

/// All rows are read once, as an export does.
template<typename Table>
void readAllOf(benchmark::State &state)
{
    Table table;
    const QAbstractItemModel *const model = table.shown.table.model();
    for (auto _ : state) {
        for (int row = 0; row < Count; ++row)
            benchmark::DoNotOptimize(model->index(row, 0).data());
    }
}

BENCHMARK(keystroke<Ours>)->Name("Qt/search keystroke, 100,000 rows");
BENCHMARK(keystroke<Peer>)->Name("Qt/peer: QSortFilterProxyModel keystroke");
BENCHMARK(keystrokeSorted)->Name("Qt/search keystroke, sorted");
BENCHMARK(keystrokeSortedByPeer)->Name("Qt/peer: QSortFilterProxyModel keystroke, sorted");
BENCHMARK(sortClick)->Name("Qt/100,000 rows sorted");
BENCHMARK(sortClickOfPeer)->Name("Qt/peer: QSortFilterProxyModel sorted");
BENCHMARK(change<Ours>)->Name("Qt/one change");
BENCHMARK(change<Peer>)->Name("Qt/peer: QSortFilterProxyModel change");
BENCHMARK(changeOutOfSight)->Name("Qt/one change out of sight");
BENCHMARK(readAllOf<Ours>)->Name("Qt/100,000 cells read");
BENCHMARK(readAllOf<Peer>)->Name("Qt/peer: QSortFilterProxyModel read");

BENCHMARK(observeKey)->Name("Qt/a key observed and not any more");

const bool isRegistered =
    holdBelow("Qt/a key observed and not any more", 10'000) &&
    holdBelow("Qt/search keystroke, 100,000 rows", 30'000'000) &&
    holdBelow("Qt/search keystroke, sorted", 30'000'000) &&
    compareWith("Qt/search keystroke, 100,000 rows", "Qt/peer: QSortFilterProxyModel keystroke",
                1) &&
    compareWith("Qt/search keystroke, sorted", "Qt/peer: QSortFilterProxyModel keystroke, sorted",
                4) &&
    compareWith("Qt/100,000 rows sorted", "Qt/peer: QSortFilterProxyModel sorted", 4) &&
    holdBelow("Qt/one change", 50'000) &&
    compareWith("Qt/one change", "Qt/peer: QSortFilterProxyModel change", 2) &&
    holdBelow("Qt/one change out of sight", 1'000) &&
    compareWith("Qt/100,000 cells read", "Qt/peer: QSortFilterProxyModel read", 20);
} // namespace
