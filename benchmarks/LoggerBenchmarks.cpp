#include "Report.h"

#include <KTUtility/KTLogger.h>

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <atomic>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {
std::atomic<int> threshold = 0;

/// A home folder of its own, before the shared logger is made.
KTLogger *loggerInTemporaryHome()
{
    static QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qunsetenv("XDG_DATA_HOME");
    return KTLogger::sharedLogger();
}

void peerAtomicLoad(benchmark::State &state)
{
    for (auto _ : state) {
        bool isOn = threshold.load(std::memory_order_relaxed) > 3;
        benchmark::DoNotOptimize(isOn);
    }
}

void checkOff(benchmark::State &state)
{
    loggerInTemporaryHome();
    for (auto _ : state) {
        KTLog(kLog_ImportDialog, 4, u"%d", 1);
        benchmark::ClobberMemory();
    }
}

void checkOffBesideAnotherComponent(benchmark::State &state)
{
    KTLogger *logger = loggerInTemporaryHome();
    logger->setLevelOfComponent(7, kLog_Undo);
    for (auto _ : state) {
        KTLog(kLog_ImportDialog, 4, u"%d", 1);
        benchmark::ClobberMemory();
    }
    logger->setLevelOfComponent(0, kLog_Undo);
}

void peerHash(benchmark::State &state)
{
    const QHash<QString, int> levels{{kLog_Undo, 7}};
    QString component = kLog_ImportDialog;
    for (auto _ : state) {
        benchmark::DoNotOptimize(component);
        benchmark::DoNotOptimize(levels.value(component));
    }
}

void peerWrite(benchmark::State &state)
{
    loggerInTemporaryHome();
    const std::string line =
        "Sun Nov 15 2026 16:28:00.123 [LoggerBenchmarks.cpp:42][Import Dialog] contacts.csv: 300 "
        "rows\n";
    const QByteArray path = qgetenv("HOME") + "/peer.log";
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    for (auto _ : state)
        benchmark::DoNotOptimize(::write(file, line.data(), line.size()));
    ::close(file);
}

void fileLine(benchmark::State &state)
{
    KTLogger *logger = loggerInTemporaryHome();
    logger->setLevelOfComponent(4, kLog_ImportDialog);
    const QString path = QStringLiteral("contacts.csv");
    for (auto _ : state)
        KTLog(kLog_ImportDialog, 4, u"%@: %d rows", path, 300);
    logger->setLevelOfComponent(0, kLog_ImportDialog);
}

BENCHMARK(peerAtomicLoad)->Name("Log/peer: atomic load");
BENCHMARK(checkOff)->Name("Log/check, nothing on");
BENCHMARK(checkOffBesideAnotherComponent)->Name("Log/check, another component on");
BENCHMARK(peerHash)->Name("Log/peer: QHash look-up");
BENCHMARK(peerWrite)->Name("Log/peer: write(2)");
BENCHMARK(fileLine)->Name("Log/line to file");

// The check is held to 2 ns, not to a ratio; the ratio to a bare load says how far it is from it.
const bool isRegistered =
    compareWith("Log/check, nothing on", "Log/peer: atomic load", 8) &&
    compareWith("Log/check, another component on", "Log/peer: QHash look-up", 1.5) &&
    compareWith("Log/line to file", "Log/peer: write(2)", 1.5);
} // namespace
