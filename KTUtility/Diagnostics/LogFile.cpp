#include "LogFile_p.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
int openLogFile(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC,
                  0644);
}
} // namespace

LogFile::LogFile(const QString &path) : _handle(openLogFile(path)) {}

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
