#pragma once

#include <functional>

#include <sys/types.h>

namespace testing_support {
/// A process that does something beside this one, and ends without unwinding.
class OtherProcess
{
public:
    /// \param action what it does; returns its exit code
    explicit OtherProcess(const std::function<int()> &action);
    OtherProcess(const OtherProcess &) = delete;
    OtherProcess &operator=(const OtherProcess &) = delete;

    /// Waits for its end, once.
    /// \return its exit code; -1 if something ended it.
    int exitCode() const;

private:
    pid_t _process;
};
} // namespace testing_support
