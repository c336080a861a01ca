#include "Report.h"

#include <KTUtility/KTLogger>

#include <QLoggingCategory>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <fcntl.h>
#include <string>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
/// A home folder of its own, before the shared logger is made.
KTLogger *loggerInTemporaryHome()
{
    static QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qunsetenv("XDG_DATA_HOME");
    return KTLogger::sharedLogger();
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

void checkOffBesideAllOthers(benchmark::State &state)
{
    KTLogger *logger = loggerInTemporaryHome();
    for (const QString &component : logger->allComponentsArray()) {
        if (component != kLog_ImportDialog)
            logger->setLevelOfComponent(7, component);
    }
    for (auto _ : state) {
        KTLog(kLog_ImportDialog, 4, u"%d", 1);
        benchmark::ClobberMemory();
    }
    logger->clearAllLoggingState(nullptr);
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
        "Sun Nov 15 2026 16:28:00.123 [KTLoggerBenchmarks.cpp:42][Import Dialog] contacts.csv: 300 "
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
    const QString path = u"contacts.csv"_s;
    for (auto _ : state)
        KTLog(kLog_ImportDialog, 4, u"%@: %d rows", path, 300);
    logger->setLevelOfComponent(0, kLog_ImportDialog);
}

// --- spdlog -------------------------------------------------------------------------------------

/// A logger that, like ours, has each line in the file when the call returns.
std::shared_ptr<spdlog::logger> spdlogLogger()
{
    loggerInTemporaryHome();
    auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(
        qgetenv("HOME").toStdString() + "/spdlog.log", true);
    auto logger = std::make_shared<spdlog::logger>("Import Dialog", sink);
    logger->set_pattern("%a %b %d %Y %H:%M:%S.%e [%s:%#][%n] %v");
    logger->flush_on(spdlog::level::trace);
    return logger;
}

void peerSpdlogCheck(benchmark::State &state)
{
    const auto logger = spdlogLogger();
    for (auto _ : state) {
        if (logger->should_log(spdlog::level::debug))
            logger->debug("{}", 1);
        benchmark::ClobberMemory();
    }
}

void peerSpdlogLine(benchmark::State &state)
{
    const auto logger = spdlogLogger();
    const std::string path = "contacts.csv";
    for (auto _ : state)
        SPDLOG_LOGGER_INFO(logger, "{}: {} rows", path, 300);
}

// --- QLoggingCategory ---------------------------------------------------------------------------

void peerCategoryCheck(benchmark::State &state)
{
    const QLoggingCategory category("import", QtInfoMsg);
    for (auto _ : state) {
        qCDebug(category, "%d", 1);
        benchmark::ClobberMemory();
    }
}

int categoryFile = -1;

void writeCategoryLine(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QByteArray line = qFormatLogMessage(type, context, message).toUtf8() + '\n';
    benchmark::DoNotOptimize(::write(categoryFile, line.constData(), size_t(line.size())));
}

void peerCategoryLine(benchmark::State &state)
{
    loggerInTemporaryHome();
    const QByteArray path = qgetenv("HOME") + "/category.log";
    categoryFile = ::open(path.constData(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    qSetMessagePattern(
        u"%{time ddd MMM dd yyyy hh:mm:ss.zzz} [%{file}:%{line}][%{category}] %{message}"_s);
    const QtMessageHandler before = qInstallMessageHandler(writeCategoryLine);
    const QLoggingCategory category("import", QtDebugMsg);
    const QByteArray name("contacts.csv");
    for (auto _ : state)
        qCDebug(category, "%s: %d rows", name.constData(), 300);
    qInstallMessageHandler(before);
    ::close(categoryFile);
}

BENCHMARK(peerSpdlogCheck)->Name("Log/peer: spdlog, should_log");
BENCHMARK(peerSpdlogLine)->Name("Log/peer: spdlog, flushed line");
BENCHMARK(peerCategoryCheck)->Name("Log/peer: QLoggingCategory, off");
BENCHMARK(peerCategoryLine)->Name("Log/peer: QLoggingCategory and write(2)");
BENCHMARK(checkOff)->Name("Log/check, nothing on");
BENCHMARK(checkOffBesideAnotherComponent)->Name("Log/check, another component on");
BENCHMARK(checkOffBesideAllOthers)->Name("Log/check, all others on");
BENCHMARK(peerHash)->Name("Log/peer: QHash look-up");
BENCHMARK(peerWrite)->Name("Log/peer: write(2)");
BENCHMARK(fileLine)->Name("Log/line to file");

constexpr char Check[] = "Log/check, nothing on";
constexpr char Line[] = "Log/line to file";
const bool isRegistered =
    holdBelow(Check, 2) && holdBelow("Log/check, another component on", 2) &&
    holdBelow("Log/check, all others on", 2) &&
    compareWith(Check, "Log/peer: spdlog, should_log", 2.5) &&
    compareWith(Check, "Log/peer: QLoggingCategory, off", 2.5) &&
    compareWith("Log/check, another component on", "Log/peer: QHash look-up", 1.5) &&
    compareWith(Line, "Log/peer: write(2)", 1.5) &&
    compareWith(Line, "Log/peer: spdlog, flushed line", 1) &&
    compareWith(Line, "Log/peer: QLoggingCategory and write(2)", 1);
} // namespace
