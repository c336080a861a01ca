// Property lists as settings and archives have them, beside libplist. Both make values of their own
// of what they read; ours are QVariants.

#include "Report.h"

#include <KTUtility/NSPropertyListSerialization>

#include <QVariantMap>

#include <benchmark/benchmark.h>
#include <plist/plist.h>

using namespace Qt::StringLiterals;

namespace {
constexpr int Count = 1000;

QVariant records()
{
    QVariantList list;
    for (int index = 0; index < Count; ++index)
        list += QVariantMap{{u"name"_s, u"Field %1"_s.arg(index)},
                            {u"order"_s, qint64(index)},
                            {u"width"_s, index / 8.0},
                            {u"isShown"_s, index % 2 == 0}};
    return list;
}

const QByteArray &document()
{
    static const QByteArray data = NSPropertyListSerialization::dataWithPropertyList(records());
    return data;
}

void read(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(NSPropertyListSerialization::propertyListFromData(document()));
}

void write(benchmark::State &state)
{
    const QVariant list = records();
    for (auto _ : state)
        benchmark::DoNotOptimize(NSPropertyListSerialization::dataWithPropertyList(list));
}

/// The same in the binary form, which the library only reads.
const QByteArray &binaryDocument()
{
    static const QByteArray data = [] {
        plist_t list = nullptr;
        plist_from_xml(document().constData(), uint32_t(document().size()), &list);
        char *bytes = nullptr;
        uint32_t length = 0;
        plist_to_bin(list, &bytes, &length);
        const QByteArray copy(bytes, length);
        plist_to_bin_free(bytes);
        plist_free(list);
        return copy;
    }();
    return data;
}

void readBinary(benchmark::State &state)
{
    const QByteArray &data = binaryDocument();
    for (auto _ : state)
        benchmark::DoNotOptimize(NSPropertyListSerialization::propertyListFromData(data));
}

void peerReadBinary(benchmark::State &state)
{
    const QByteArray &data = binaryDocument();
    for (auto _ : state) {
        plist_t list = nullptr;
        plist_from_bin(data.constData(), uint32_t(data.size()), &list);
        benchmark::DoNotOptimize(list);
        plist_free(list);
    }
}

plist_t readByPeer()
{
    plist_t list = nullptr;
    plist_from_xml(document().constData(), uint32_t(document().size()), &list);
    return list;
}

void peerRead(benchmark::State &state)
{
    for (auto _ : state) {
        const plist_t list = readByPeer();
        benchmark::DoNotOptimize(list);
        plist_free(list);
    }
}

void peerWrite(benchmark::State &state)
{
    const plist_t list = readByPeer();
    for (auto _ : state) {
        char *text = nullptr;
        uint32_t length = 0;
        plist_to_xml(list, &text, &length);
        benchmark::DoNotOptimize(length);
        plist_to_xml_free(text);
    }
    plist_free(list);
}

BENCHMARK(read)->Name("Property lists/1,000 records read");
BENCHMARK(write)->Name("Property lists/1,000 records written");
BENCHMARK(readBinary)->Name("Property lists/1,000 binary records read");
BENCHMARK(peerReadBinary)->Name("Property lists/peer: libplist reads binary");
BENCHMARK(peerRead)->Name("Property lists/peer: libplist reads");
BENCHMARK(peerWrite)->Name("Property lists/peer: libplist writes");

const bool isRegistered =
    compareWith("Property lists/1,000 records read", "Property lists/peer: libplist reads", 0.8) &&
    compareWith("Property lists/1,000 records written", "Property lists/peer: libplist writes",
                0.8) &&
    compareWith("Property lists/1,000 binary records read",
                "Property lists/peer: libplist reads binary", 0.8);
} // namespace
