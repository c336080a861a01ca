#include <KTUtility/Diagnostics/LogFile_p.h>

#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <thread>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::writeFile;

namespace {
class LogFileTests : public testing::Test
{
protected:
    QString path = testing_support::useFreshHome() + u"/the.log"_s;
};

/// While it lives, no file of this process grows beyond a size: a disk that is full, and then is
/// not any more.
class FullDisk
{
public:
    explicit FullDisk(rlim_t size) : _handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &_limit);
        const rlimit small{size, _limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &_limit);
        std::signal(SIGXFSZ, _handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit _limit{};
    sighandler_t _handler;
};
} // namespace

TEST_F(LogFileTests, IsEmptyAtFirst)
{
    writeFile(path, "of yesterday\n");
    const LogFile file(path);
    EXPECT_EQ(contentsOf(path), "");
}

TEST_F(LogFileTests, ALineIsThereAtOnce)
{
    LogFile file(path);
    file.writeLine("one\n");
    EXPECT_EQ(contentsOf(path), "one\n");
    file.writeLine("two\n");
    EXPECT_EQ(contentsOf(path), "one\ntwo\n");
}

TEST_F(LogFileTests, WithoutAFolderLinesAreLost)
{
    LogFile file(path + u"/in/no/folder.log"_s);
    file.writeLine("one\n");
    file.writeLine("two\n");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(LogFileTests, ALineBehindATornOneStartsAnew)
{
    LogFile file(path);
    file.writeLine("whole\n");
    {
        const FullDisk full(10);
        file.writeLine("torn apart\n");
        EXPECT_EQ(contentsOf(path), "whole\ntorn");
        file.writeLine("lost\n");
        EXPECT_EQ(contentsOf(path), "whole\ntorn");
    }
    file.writeLine("anew\n");
    file.writeLine("and on\n");
    EXPECT_EQ(contentsOf(path), "whole\ntorn\nanew\nand on\n");
}

TEST_F(LogFileTests, ALineThatIsLostWholeLeavesNoTrace)
{
    LogFile file(path);
    file.writeLine("whole\n");
    {
        const FullDisk full(6);
        file.writeLine("lost\n");
    }
    file.writeLine("next\n");
    EXPECT_EQ(contentsOf(path), "whole\nnext\n");
}

TEST_F(LogFileTests, LinesOfManyThreadsStayWhole)
{
    constexpr int Threads = 4;
    constexpr int LinesEach = 200;
    LogFile file(path);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < Threads; ++thread) {
        threads.emplace_back(
            [&file, line = QByteArray(QByteArray(40 + thread, char('a' + thread)) + '\n')] {
                for (int count = 0; count < LinesEach; ++count)
                    file.writeLine(line);
            });
    }
    for (std::thread &thread : threads)
        thread.join();
    QList<QByteArray> lines = contentsOf(path).split('\n');
    EXPECT_EQ(lines.takeLast(), "");
    EXPECT_EQ(lines.size(), Threads * LinesEach);
    for (const QByteArray &line : std::as_const(lines))
        EXPECT_EQ(line, QByteArray(40 + (line.at(0) - 'a'), line.at(0)));
}

TEST_F(LogFileTests, TwoLogsLoseNoLine)
{
    LogFile one(path);
    one.writeLine("one\n");
    LogFile other(path);
    other.writeLine("two\n");
    one.writeLine("three\n");
    EXPECT_EQ(contentsOf(path), "one\ntwo\nthree\n");
}

TEST_F(LogFileTests, TwoProcessesLoseNoLine)
{
    constexpr int LinesEach = 2000;
    const auto writeLines = [this](const QByteArray &line) {
        LogFile file(path);
        for (int count = 0; count < LinesEach; ++count)
            file.writeLine(line);
        return 0;
    };
    LogFile first(path);
    const testing_support::OtherProcess one([&] { return writeLines("of one\n"); });
    const testing_support::OtherProcess two([&] { return writeLines("of two\n"); });
    EXPECT_EQ(one.exitCode(), 0);
    EXPECT_EQ(two.exitCode(), 0);
    EXPECT_EQ(contentsOf(path).count("of one\n"), LinesEach);
    EXPECT_EQ(contentsOf(path).count("of two\n"), LinesEach);
    EXPECT_EQ(contentsOf(path).size(), 2 * LinesEach * qsizetype(sizeof "of one"));
}

TEST_F(LogFileTests, TheNextSessionEmptiesWhatAllHaveLeft)
{
    {
        LogFile one(path);
        LogFile other(path);
        other.writeLine("old\n");
    }
    LogFile next(path);
    EXPECT_EQ(contentsOf(path), "");
}

TEST_F(LogFileTests, MayKeepWhatIsThere)
{
    writeFile(path, "of yesterday\n");
    LogFile file(path, LogFile::Start::Kept);
    file.writeLine("of today\n");
    EXPECT_EQ(contentsOf(path), "of yesterday\nof today\n");
}

TEST_F(LogFileTests, AFileThatIsEmptiedOutsideHasNoHole)
{
    LogFile file(path);
    file.writeLine("one\n");
    ASSERT_EQ(::truncate(QFile::encodeName(path).constData(), 0), 0);
    file.writeLine("two\n");
    EXPECT_EQ(contentsOf(path), "two\n");
}

TEST_F(LogFileTests, APipeThatNobodyReadsLosesLinesAndWaitsForNobody)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0644), 0);
    LogFile file(path);
    const QByteArray line(QByteArray(1000, 'x') + '\n');
    for (int count = 0; count < 200; ++count)
        file.writeLine(line);
    const int reader = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK);
    QByteArray read(1001, ' ');
    EXPECT_EQ(::read(reader, read.data(), size_t(read.size())), read.size());
    EXPECT_EQ(read, line);
    ::close(reader);
}
