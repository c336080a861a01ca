// Logging from several threads while the main thread changes the settings.

#include "support/TestSupport.h"

#include <KTUtility/KTLogger>

#include <QRegularExpression>

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int ThreadCount = 8;
constexpr int LinesOfAThread = 500;

class KTLoggerThreadsTests : public testing::Test
{
protected:
    KTLoggerThreadsTests() : home(testing_support::useFreshHome()) {}

    /// Lets all threads log to a component, while \a change is called again and again.
    void logWhile(const QString &component, const std::function<void(int round)> &change)
    {
        std::atomic<int> running = ThreadCount;
        std::vector<std::thread> threads;
        for (int thread = 0; thread < ThreadCount; ++thread)
            threads.emplace_back([this, &component, &running, thread] {
                for (int line = 0; line < LinesOfAThread; ++line)
                    logged += logLine(component, thread, line);
                --running;
            });
        for (int round = 0; running > 0; ++round)
            change(round);
        for (std::thread &thread : threads)
            thread.join();
    }

    /// As a call site does it.
    /// \return 1 if the component was on when it was asked.
    int logLine(const QString &component, int thread, int line)
    {
        if (!logger.shouldLogComponent(component, 4))
            return 0;
        logger.logComponent(component, 4, "/src/File.cpp", 7, u"<%d %d %@>", thread, line,
                            QString(80, u'x'));
        return 1;
    }

    QStringList lines() const
    {
        return QString::fromUtf8(testing_support::contentsOf(logger.logFolder() + u"/cobble.log"))
            .split(u'\n', Qt::SkipEmptyParts);
    }

    QString home;
    KTLogger logger;
    std::atomic<int> logged = 0;
};

/// The number of lines of each thread, where all lines are whole and in their order.
std::vector<int> countsIn(const QStringList &lines)
{
    static const QRegularExpression form(u"^\\w{3} \\w{3} \\d\\d \\d{4} [\\d:]{8}\\.\\d{3} "
                                         "\\[File\\.cpp:7\\]\\[Tests\\] <(\\d) (\\d+) x{80}>$"_s);
    std::vector<int> counts(ThreadCount, 0);
    std::vector<int> last(ThreadCount, -1);
    for (const QString &line : lines) {
        const QRegularExpressionMatch match = form.match(line);
        EXPECT_TRUE(match.hasMatch()) << line.toStdString();
        const auto thread = size_t(match.captured(1).toInt());
        EXPECT_GT(match.captured(2).toInt(), last.at(thread));
        last.at(thread) = match.captured(2).toInt();
        ++counts.at(thread);
    }
    return counts;
}
} // namespace

TEST_F(KTLoggerThreadsTests, EachLineIsWholeAndCountedWhileLevelsChange)
{
    logger.setLevelOfComponent(4, kLog_Tests);
    // Without a menu, as a program switches components by itself.
    logWhile(kLog_Tests, [this](int round) {
        const QStringList &components = logger.allComponentsArray();
        const QString &component = components.at(round % components.size());
        logger.setLevelOfComponent(component == kLog_Tests ? 4 : round % 8, component);
    });
    EXPECT_EQ(countsIn(lines()), std::vector<int>(ThreadCount, LinesOfAThread));
    EXPECT_EQ(logged, ThreadCount * LinesOfAThread);
}

TEST_F(KTLoggerThreadsTests, AComponentGoesOnAndOff)
{
    logger.setLevelOfComponent(4, kLog_Tests);
    logWhile(kLog_Tests,
             [this](int round) { logger.setLevelOfComponent(round % 2 * 4, kLog_Tests); });
    int written = 0;
    for (const int count : countsIn(lines()))
        written += count;
    // It may go off between the question and the line.
    EXPECT_LE(written, logged);
    logger.setLevelOfComponent(4, kLog_Tests);
    EXPECT_EQ(logLine(kLog_Tests, 0, LinesOfAThread), 1);
    EXPECT_EQ(lines().size(), written + 1);
}

TEST_F(KTLoggerThreadsTests, TheSettingsAreThoseThatWereSetLast)
{
    logger.setLevelOfComponent(4, kLog_Tests);
    logWhile(kLog_Tests, [this](int round) {
        logger.setDisplayFileLine(nullptr);
        logger.setLevelOfComponent(1 + round % 7, kLog_Undo);
    });
    logger.setLevelOfComponent(3, kLog_Undo);
    EXPECT_EQ(KTLogger().levelOfComponent(kLog_Undo), 3);
    EXPECT_EQ(KTLogger().displayFileLine(), logger.displayFileLine());
}
