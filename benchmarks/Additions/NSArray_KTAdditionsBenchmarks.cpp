#include "BenchmarkField.h"
#include "Report.h"

#include <KTUtility/NSArray_KTAdditions>

#include <QHash>
#include <QMetaMethod>
#include <QMetaProperty>

#include <benchmark/benchmark.h>

#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int Count = 100'000;

/// Records "Field", "Field 1", "Field 2" and so on: every one of them clashes.
const QList<BenchmarkField *> &fields()
{
    static std::vector<std::unique_ptr<BenchmarkField>> owned;
    static const QList<BenchmarkField *> list = [] {
        QList<BenchmarkField *> made;
        for (int index = 0; index < Count; ++index) {
            const QString name = index == 0 ? u"Field"_s : u"Field %1"_s.arg(index);
            owned.push_back(std::make_unique<BenchmarkField>(index, name));
            made += owned.back().get();
        }
        return made;
    }();
    return list;
}

template<int Property>
void peerReadProperty(benchmark::State &state)
{
    const char *const name = Property == 0 ? "size" : "name";
    const QMetaObject &metaObject = BenchmarkField::staticMetaObject;
    const QMetaProperty property = metaObject.property(metaObject.indexOfProperty(name));
    for (auto _ : state) {
        for (const BenchmarkField *field : fields())
            benchmark::DoNotOptimize(property.read(field));
    }
}

/// What a program writes that has a name and nothing cached.
void peerReadByName(benchmark::State &state)
{
    for (auto _ : state) {
        for (const BenchmarkField *field : fields())
            benchmark::DoNotOptimize(field->property("size"));
    }
}

void peerInvokeMethod(benchmark::State &state)
{
    const QMetaObject &metaObject = BenchmarkField::staticMetaObject;
    const QMetaMethod method = metaObject.method(metaObject.indexOfMethod("isBiggerThan(int)"));
    for (auto _ : state) {
        for (BenchmarkField *field : fields()) {
            bool result = false;
            method.invoke(field, Qt::DirectConnection, Q_RETURN_ARG(bool, result), Q_ARG(int, 10));
            benchmark::DoNotOptimize(result);
        }
    }
}

void find(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::objectWithValue(fields(), Count - 1, u"size"_s));
}

void findText(benchmark::State &state)
{
    const QString last = u"Field %1"_s.arg(Count - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::objectWithValue(fields(), last, u"name"_s));
}

void filterByKey(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::objectsWithValue(fields(), 7, u"size"_s));
}

void filterBySelector(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            KTAdditions::objectsSatisfyingCondition(fields(), "isBiggerThan:", Count - 10));
}

void uniqueName(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::uniqueStringWithBase(fields(), u"Field"_s));
}

void listWithKey(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::listWithKey(fields(), u"name"_s, u"'"_s, u"',"_s));
}

/// All have the right number: nothing is set.
void adjustOrder(benchmark::State &state)
{
    QList<QVariantMap> list;
    for (int index = 0; index < Count; ++index)
        list += QVariantMap{{u"order"_s, index + 1}};
    for (auto _ : state) {
        KTAdditions::adjustOrder(list);
        benchmark::DoNotOptimize(list);
    }
}

void peerReadMaps(benchmark::State &state)
{
    QList<QVariantMap> list;
    for (int index = 0; index < Count; ++index)
        list += QVariantMap{{u"order"_s, index + 1}};
    const QString key = u"order"_s;
    for (auto _ : state) {
        for (const QVariantMap &map : std::as_const(list))
            benchmark::DoNotOptimize(map.value(key).toLongLong());
    }
}

const QList<QString> &names()
{
    static const QList<QString> list = [] {
        QList<QString> made;
        for (const BenchmarkField *field : fields())
            made += field->property("name").toString();
        return made;
    }();
    return list;
}

void indexPositions(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KTAdditions::positionalDictionaryIndex(names()));
}

void peerHashPositions(benchmark::State &state)
{
    for (auto _ : state) {
        QHash<QString, quint64> index;
        index.reserve(names().size());
        quint64 position = 0;
        for (const QString &name : names())
            index.insert(name, position++);
        benchmark::DoNotOptimize(index);
    }
}

BENCHMARK(indexPositions)->Name("Lists/positions of 100,000 texts");
BENCHMARK(peerHashPositions)->Name("Lists/peer: QHash of texts");
BENCHMARK(listWithKey)->Name("Lists/text of 100,000 names");
BENCHMARK(adjustOrder)->Name("Lists/order of 100,000 kept");
BENCHMARK(peerReadMaps)->Name("Lists/peer: QVariantMap::value");
BENCHMARK(peerReadProperty<0>)->Name("Lists/peer: QMetaProperty::read, int");
BENCHMARK(peerReadProperty<1>)->Name("Lists/peer: QMetaProperty::read, text");
BENCHMARK(peerReadByName)->Name("Lists/peer: QObject::property by name");
BENCHMARK(peerInvokeMethod)->Name("Lists/peer: QMetaMethod::invoke");
BENCHMARK(find)->Name("Lists/find by key, 100,000");
BENCHMARK(findText)->Name("Lists/find by text, 100,000");
BENCHMARK(filterByKey)->Name("Lists/filter by key, 100,000");
BENCHMARK(filterBySelector)->Name("Lists/filter by selector, 100,000");
BENCHMARK(uniqueName)->Name("Lists/unique name, 100,000 clashing");

constexpr char ReadInt[] = "Lists/peer: QMetaProperty::read, int";
constexpr char ReadText[] = "Lists/peer: QMetaProperty::read, text";
const bool isRegistered =
    compareWith("Lists/find by key, 100,000", ReadInt, 0.9) &&
    compareWith("Lists/find by key, 100,000", "Lists/peer: QObject::property by name", 0.5) &&
    compareWith("Lists/find by text, 100,000", ReadText, 0.9) &&
    compareWith("Lists/filter by key, 100,000", ReadInt, 0.9) &&
    compareWith("Lists/filter by selector, 100,000", "Lists/peer: QMetaMethod::invoke", 1.2) &&
    compareWith("Lists/unique name, 100,000 clashing", ReadText, 2) &&
    compareWith("Lists/text of 100,000 names", ReadText, 2) &&
    compareWith("Lists/positions of 100,000 texts", "Lists/peer: QHash of texts", 3) &&
    compareWith("Lists/order of 100,000 kept", "Lists/peer: QVariantMap::value", 2);
} // namespace
