#pragma once

#include <QByteArrayView>
#include <QString>

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

// Private to the logger: how a line of the log file is made.
namespace KTLogLine {
/// What a thread keeps from line to line, so that a line allocates nothing.
struct State
{
    std::vector<char> bytes;
    QString message;
    time_t second = -1;
    std::string date;
};

/// The last component of a source path, as the compiler or a caller gave it.
std::string_view lastPathComponent(const char *path);

/// "Sun Nov 15 2026 16:28:00.123 [File.cpp:42][Component] message\n" in UTF-8, at the current time
/// in the local zone, with English names. The bytes are those of \a state.
QByteArrayView line(State &state, QStringView component, std::string_view fileName, int lineNumber,
                    QStringView message);
} // namespace KTLogLine
