#include "MeasuredCommand.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
double secondsOf(const timeval &time)
{
    constexpr double Microseconds = 1e6;
    return double(time.tv_sec) + double(time.tv_usec) / Microseconds;
}

/// Becomes the command.
[[noreturn]] void become(std::vector<char *> words, int processors)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    for (int processor = 0; processor < processors; ++processor)
        CPU_SET(size_t(processor), &set);
    sched_setaffinity(0, sizeof set, &set);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execvp(words.front(), words.data());
    _exit(127);
}
} // namespace

MeasuredCommand MeasuredCommand::run(const QStringList &words, int processors)
{
    std::vector<QByteArray> bytes;
    std::vector<char *> pointers;
    for (const QString &word : words)
        bytes.push_back(QFile::encodeName(word));
    for (QByteArray &word : bytes)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    QElapsedTimer timer;
    timer.start();
    const pid_t process = fork();
    if (process == 0)
        become(pointers, processors);
    int status = 0;
    rusage usage = {};
    const bool isOver = process > 0 && wait4(process, &status, 0, &usage) == process;
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), double(timer.elapsed()) / 1000,
            double(usage.ru_maxrss) / 1024, isOver && status == 0};
}

void MeasuredCommand::merge(const MeasuredCommand &other)
{
    processorTime = std::min(processorTime, other.processorTime);
    time = std::min(time, other.time);
    megabytes = std::max(megabytes, other.megabytes);
    isDone = isDone && other.isDone;
}
