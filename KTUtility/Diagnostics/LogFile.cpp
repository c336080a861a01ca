#include "LogFile_p.h"

#include <QFile>

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
/// Lines go to the end, wherever other processes have put it. A pipe that nobody reads loses lines
/// and does not make the process wait.
int openLogFile(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(),
                  O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0644);
}

/// Empties a file that no other log writes into: each holds a share of its lock. Where the file
/// system has no locks, nobody knows of others.
void emptyUnlessShared(int file)
{
    const bool isShared = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    // What is no file, as a terminal, cannot be emptied and need not be.
    [[maybe_unused]] const int result = isShared ? 0 : ::ftruncate(file, 0);
}

/// Holds a share of the file's lock as long as the file is open. Another process may have it alone
/// for a moment, to empty the file.
void takeShare(int file)
{
    constexpr int Attempts = 100;
    constexpr timespec Pause{0, 1'000'000};
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (::flock(file, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK)
            return;
        ::nanosleep(&Pause, nullptr);
    }
}
} // namespace

LogFile::LogFile(const QString &path, Start start) : _handle(openLogFile(path))
{
    const int file = _handle.fileDescriptor();
    if (file < 0)
        return;
    // Deliberate: every start empties the log, as nobody else writes into it.
    if (start == Start::Emptied)
        emptyUnlessShared(file);
    takeShare(file);
}

void LogFile::writeLine(QByteArrayView line)
{
    const bool isAtStart = !_isLineTorn.load(std::memory_order_relaxed) || endTornLine();
    if (!isAtStart || !_handle.writeData(line))
        _isLineTorn.store(true, std::memory_order_relaxed);
}

/// Sees to it that the next line starts at the beginning of one.
/// \return false if it cannot.
bool LogFile::endTornLine()
{
    const int file = _handle.fileDescriptor();
    const off_t end = ::lseek(file, 0, SEEK_END);
    char last = '\n';
    // A log that leads to a terminal or a pipe cannot say how its last line ended.
    const bool isKnown = end <= 0 || ::pread(file, &last, 1, end - 1) == 1;
    const bool isAtStart = isKnown && (last == '\n' || _handle.writeData("\n"));
    _isLineTorn.store(!isAtStart, std::memory_order_relaxed);
    return isAtStart;
}
