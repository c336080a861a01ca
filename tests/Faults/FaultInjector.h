#pragma once

#include <QString>

#include <array>
#include <functional>

// Calls of the file system that fail when a test wants it. The functions of the C library that
// touch files are defined once more in FileCalls.cpp, in the test program, where the libraries find
// them first; they ask here whether to fail, and else go on to the system.

/// What goes wrong.
enum class Fault {
    InputOutput, ///< EIO, once
    NoSpace,     ///< ENOSPC, once
    DiskFull,    ///< half a write, and ENOSPC from then on
    NoAccess,    ///< EACCES, once
    Interrupted, ///< EINTR, once
    ShortWrite,  ///< half of the bytes are written, once
    ShortRead,   ///< half of the bytes are read, once
    Killed,      ///< the process ends where it would change something
};

/// The kinds of calls.
enum class FileCall {
    Open,
    Create,
    Read,
    Write,
    Flush,
    Rename,
    Remove,
    MakeFolder,
    Resize,
    Permissions,
    Status,
    List,
    Lock,
    Close,
};
inline constexpr size_t FileCallKinds = size_t(FileCall::Close) + 1;

const char *nameOf(Fault fault);
const char *nameOf(FileCall call);

/// Lets one call fail.
///
/// Only calls of the thread that armed it count, only those about files below one folder, and only
/// those that can fail so in reality.
///
/// \code
/// for (int number = 1;; ++number) {
///     prepare();
///     const auto outcome = FaultInjector::during(home, Fault::NoSpace, number, [] { save(); });
///     if (!outcome.wasHit)
///         break; // it has fewer calls than that
///     check();
/// }
/// \endcode
class FaultInjector
{
public:
    struct Outcome
    {
        /// Whether there were that many calls, so that one failed.
        bool wasHit = false;
        /// The one that failed, or failed first.
        FileCall call = FileCall::Open;
        /// How many calls of each kind were about the folder.
        std::array<int, FileCallKinds> seen{};
    };

    /// Runs \a action with its \a number th call, counted from 1, failing.
    static Outcome during(const QString &folder, Fault fault, int number,
                          const std::function<void()> &action);
    /// Whether calls of a kind fail that way at all: reading needs no space.
    static bool canHit(Fault fault, FileCall call);

    // --- For the functions that stand before the system's.

    /// What a call is about: a path, a path in an open folder, or an open file.
    struct Place
    {
        Place(const char *path);
        Place(int file);
        Place(int folder, const char *path);

        int file;
        const char *path;
    };

    enum class Answer { GoOn, Fail, DoHalf };

    /// Whether a call is to fail; then errno is set.
    static Answer answerTo(FileCall call, const Place &place);
};
