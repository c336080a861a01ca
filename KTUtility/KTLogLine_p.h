#pragma once

#include <QByteArrayView>
#include <QString>

#include <string_view>

// Private to the logger: how a line of the log file is made.
namespace KTLogLine
{
/// The last component of a source path, as the compiler or a caller gave it.
std::string_view lastPathComponent(const char *path);

/// "Sun Nov 15 2026 16:28:00.123 [File.cpp:42][Component] message\n" in UTF-8, at the current time
/// in the local zone, with English names. The bytes belong to the calling thread and hold until
/// its next call: nothing is allocated for a line once its buffer has grown.
QByteArrayView line(QStringView component, std::string_view fileName, int lineNumber,
                    QStringView message);
} // namespace KTLogLine
