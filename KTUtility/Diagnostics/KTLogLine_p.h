#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/UnitBuffer_p.h>

#include <QByteArrayView>

#include <array>
#include <ctime>
#include <memory>
#include <string_view>
#include <vector>

// Private to the logger: how a line of the log file is made.
namespace KTLogLine {
/// What a thread keeps from line to line, so that a line allocates nothing.
struct State
{
    std::vector<char> bytes;
    KTPrivate::UnitBuffer message;
    time_t second = -1;
    /// Longer than any date, so that it is copied as it stands.
    std::array<char, 48> date{};
    size_t dateSize = 0;
};

/// "Sun Nov 15 2026 16:28:00.123 [File.cpp:42][Component] message\n" in UTF-8, at the current time
/// in the local zone, with English names. The bytes are those of \a state.
QByteArrayView line(State &state, QStringView component, std::string_view fileName, int lineNumber,
                    QStringView message);

/// The state of this thread, which is the caller's until it is given back; a new one if it is in
/// use, or the thread is at its end.
KTUTILITY_EXPORT std::unique_ptr<State> takeState();
/// Gives a state back for the thread's next line.
KTUTILITY_EXPORT void keepState(std::unique_ptr<State> state);
} // namespace KTLogLine
