#include "FaultInjector.h"

#include <QFile>

#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <string>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
struct Armed
{
    std::string folder;
    Fault fault;
    int number;
    int eligible = 0;
    FaultInjector::Outcome outcome;
};

thread_local Armed *armed = nullptr;

bool isOneOf(FileCall call, std::initializer_list<FileCall> calls)
{
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

/// The path of an open file. Asked of the system directly, past the functions that are replaced.
std::string pathOf(int file)
{
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    std::array<char, PATH_MAX> path{};
    const long size = ::syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), path.data(), path.size());
    return size > 0 ? std::string(path.data(), size_t(size)) : std::string();
}

std::string pathOf(const FaultInjector::Place &place)
{
    const std::string_view path = place.path ? place.path : "";
    if (path.starts_with('/') || place.file == AT_FDCWD)
        return std::string(path);
    return pathOf(place.file) + '/' + std::string(path);
}

bool isBelow(const std::string &path, const std::string &folder)
{
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

int errorOf(Fault fault)
{
    switch (fault) {
    case Fault::InputOutput:
        return EIO;
    case Fault::NoAccess:
        return EACCES;
    case Fault::Interrupted:
        return EINTR;
    case Fault::NoSpace:
    case Fault::DiskFull:
    case Fault::ShortWrite:
    case Fault::ShortRead:
    case Fault::Killed:
        break;
    }
    return ENOSPC;
}

/// Whether it is this call's turn.
bool isDue(Armed &state, FileCall call)
{
    state.outcome.seen[size_t(call)] += 1;
    if (!FaultInjector::canHit(state.fault, call))
        return false;
    state.eligible += 1;
    return state.eligible == state.number ||
           (state.fault == Fault::DiskFull && state.eligible > state.number);
}
} // namespace

const char *nameOf(Fault fault)
{
    static constexpr std::array<const char *, 8> Names = {
        "InputOutput", "NoSpace",    "DiskFull",  "NoAccess",
        "Interrupted", "ShortWrite", "ShortRead", "Killed"};
    return Names.at(size_t(fault));
}

const char *nameOf(FileCall call)
{
    static constexpr std::array<const char *, FileCallKinds> Names = {
        "open",  "create", "read",        "write",  "flush", "rename", "remove",
        "mkdir", "resize", "permissions", "status", "list",  "lock",   "close"};
    return Names.at(size_t(call));
}

bool FaultInjector::canHit(Fault fault, FileCall call)
{
    using enum FileCall;
    switch (fault) {
    case Fault::InputOutput:
        return true;
    case Fault::NoSpace:
        return isOneOf(call, {Create, Write, Flush, Rename, MakeFolder, Resize, Close});
    case Fault::DiskFull:
        return isOneOf(call, {Create, Write, MakeFolder});
    case Fault::NoAccess:
        return isOneOf(call, {Open, Create, Rename, Remove, MakeFolder, Permissions, Status, List});
    case Fault::Interrupted:
        return isOneOf(call, {Open, Create, Read, Write, Flush, Resize, Close});
    case Fault::ShortWrite:
        return call == Write;
    case Fault::ShortRead:
        return call == Read;
    case Fault::Killed:
        return isOneOf(call, {Create, Write, Flush, Rename, Remove, MakeFolder, Resize});
    }
    return false;
}

FaultInjector::Outcome FaultInjector::during(const QString &folder, Fault fault, int number,
                                             const std::function<void()> &action)
{
    Armed state{QFile::encodeName(folder).toStdString(), fault, number, 0, {}};
    armed = &state;
    try {
        action();
    } catch (...) {
        armed = nullptr;
        throw;
    }
    armed = nullptr;
    return state.outcome;
}

FaultInjector::Place::Place(const char *where) : file(AT_FDCWD), path(where) {}
FaultInjector::Place::Place(int openFile) : file(openFile), path(nullptr) {}
FaultInjector::Place::Place(int folder, const char *where) : file(folder), path(where) {}

FaultInjector::Answer FaultInjector::answerTo(FileCall call, const Place &place)
{
    Armed *const state = armed;
    if (!state || !isBelow(pathOf(place), state->folder) || !isDue(*state, call))
        return Answer::GoOn;
    if (state->fault == Fault::Killed)
        ::raise(SIGKILL);
    const bool isFirst = !state->outcome.wasHit;
    if (isFirst)
        state->outcome.call = call;
    state->outcome.wasHit = true;
    const bool isPartial = state->fault == Fault::DiskFull && call == FileCall::Write;
    const bool isShort = state->fault == Fault::ShortWrite || state->fault == Fault::ShortRead;
    if (isFirst && (isPartial || isShort))
        return Answer::DoHalf;
    errno = errorOf(state->fault);
    return Answer::Fail;
}
