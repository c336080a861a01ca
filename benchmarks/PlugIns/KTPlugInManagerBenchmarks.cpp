// Finding a hundred plug-ins beside reading their hundred small files.

#include "Report.h"

#include <KTUtility/KTPlugInManager>
#include <KTUtility/NSPropertyListSerialization>

#include <benchmark/benchmark.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {
constexpr int Count = 100;

QString folder(const QString &home)
{
    return home + u"/Cobble/PlugIns/Benchmark"_s;
}

QString information(const QString &home, int index)
{
    return folder(home) + u"/%1.bundle/Contents/Info.plist"_s.arg(index);
}

/// A data folder of its own for the time of a benchmark, with plug-ins in it.
class DataFolder
{
public:
    DataFolder() : _before(qgetenv("XDG_DATA_HOME"))
    {
        for (int index = 0; index < Count; ++index) {
            NSDictionary::writeToFile({{u"CFBundleExecutable"_s, u"Code"_s},
                                       {u"CFBundleIdentifier"_s, QString::number(index)},
                                       {u"NSPrincipalClass"_s, u"Exporter"_s}},
                                      information(_folder.path(), index), false);
        }
        qputenv("XDG_DATA_HOME", _folder.path().toLocal8Bit());
    }
    ~DataFolder()
    {
        if (_before.isNull())
            qunsetenv("XDG_DATA_HOME");
        else
            qputenv("XDG_DATA_HOME", _before);
    }

    QString path() const { return _folder.path(); }

private:
    QTemporaryDir _folder;
    QByteArray _before;
};

void peerReadFiles(benchmark::State &state)
{
    const DataFolder data;
    for (auto _ : state) {
        for (int index = 0; index < Count; ++index) {
            QFile file(information(data.path(), index));
            const bool isOpen = file.open(QIODevice::ReadOnly);
            benchmark::DoNotOptimize(isOpen);
            benchmark::DoNotOptimize(file.readAll());
        }
    }
}

void discover(benchmark::State &state)
{
    const DataFolder data;
    for (auto _ : state) {
        KTPlugInManager manager;
        manager.setSearchFolder(u"Benchmark"_s);
        manager.registerPlugins();
        if (manager.pluginStatus().size() != Count)
            state.SkipWithError("plug-ins are missing");
    }
}

BENCHMARK(peerReadFiles)->Name("Plug-ins/peer: reading 100 small files");
BENCHMARK(discover)->Name("Plug-ins/discovery of 100 bundles");

const bool isRegistered =
    compareWith("Plug-ins/discovery of 100 bundles", "Plug-ins/peer: reading 100 small files", 2);
} // namespace
